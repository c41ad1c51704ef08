"""Files up and down by FTP with a finger, from a server on this machine: connected, a folder entered, a file
fetched, another one sent, renamed and deleted, a folder made, a whole one fetched, and the way back."""
import atexit
import os
import pathlib
import pwd
import shutil
import socket
import subprocess
import sys
import tempfile
import time

from console import Console

served = pathlib.Path(tempfile.mkdtemp(prefix="korvane-ftp-", dir="/tmp"))
here = pathlib.Path(tempfile.mkdtemp(prefix="korvane-here-"))
os.environ["HOME"] = str(here)
(served / "album").mkdir()
songs = {f"album/song {i}.mp3": os.urandom(50_000 + i) for i in range(12)}
for name, data in songs.items():
    (served / name).write_bytes(data)
(served / "first song.mp3").write_bytes(songs["album/song 3.mp3"])
(here / "from here.txt").write_text("a letter\n" * 1000)

with socket.create_server(("127.0.0.1", 0)) as free:
    port = free.getsockname()[1]
settings = served.parent / (served.name + ".conf")
settings.write_text(f"""listen=YES
listen_port={port}
background=NO
run_as_launching_user=YES
anonymous_enable=YES
no_anon_password=YES
anon_world_readable_only=NO
write_enable=YES
anon_upload_enable=YES
anon_mkdir_write_enable=YES
anon_other_write_enable=YES
anon_umask=022
anon_root={served}
ftp_username={pwd.getpwuid(os.getuid()).pw_name}
seccomp_sandbox=NO
connect_from_port_20=NO
xferlog_enable=NO
""")
server = subprocess.Popen(["/usr/sbin/vsftpd", str(settings)])
atexit.register(server.kill)
form = "frmFTP"
console = Console(sys.argv[1], settings=["ADDSON=NO"],
                  user_values=f"[Korvane\\Settings]\nServer=127.0.0.1:{port}\nUser=anonymous\n")


def shown(name, where=form):
    answer = console.ask(cmd="get", form=where, name=name)
    return answer["ok"] and answer["visible"]


def caption(name):
    return console.must(cmd="get", form=form, name=name)["caption"]


def names():
    return [row["cells"][0] for row in console.must(cmd="rows", form=form, name="lv", count=5000)["rows"]]


def press(name):
    console.press(name, form=form)


def choose(name):
    console.press("lv", form=form, row=names().index(name) + 1)


def enter(name):
    console.must(cmd="doublepress", form=form, name="lv", row=names().index(name) + 1)


def said(contains, answer="ok"):
    console.box(contains, answer)
    time.sleep(0.7)  # the list is read again, and no press is taken


def in_chooser(name=None):
    console.wait_until(lambda: shown("cmdok", "frmDirectorys"), "the chooser", 5)
    if name:
        rows = console.must(cmd="rows", form="frmDirectorys", name="File1")["rows"]
        console.press("File1", form="frmDirectorys", row=[row["cells"][0] for row in rows].index(name) + 1)
    time.sleep(0.3)
    console.screenshot("ftp_chooser")
    console.press("cmdok", form="frmDirectorys")


try:
    console.press("cmdSetup")
    console.press("cmdFtp", form="frmSetup")
    console.wait_until(lambda: shown("cmdConnect"), "the form", 5)
    assert caption("lblCaption") == "Not Connected."
    console.screenshot("ftp_not_connected")
    press("optPassive")
    press("cmdConnect")
    console.wait_until(lambda: "tmp" in names(), "the server's root")
    assert caption("lblCaption").startswith(f"Connected to 127.0.0.1:{port} as anonymous at "), caption("lblCaption")
    choose("tmp")
    assert caption("lblDir") == "Current Directory: /"  # one tap only chooses
    time.sleep(0.6)
    enter("tmp")
    console.wait_until(lambda: served.name in names(), "/tmp")
    enter(served.name)
    console.wait_until(lambda: names() == ["..", "album", "first song.mp3"], "the served folder")
    assert caption("lblDir") == f"Current Directory: {served}"
    console.screenshot("ftp_connected")

    # Down: a file, then a folder
    choose("first song.mp3")
    press("cmdDownload")
    in_chooser()
    said("Download complete in ")
    assert (here / "first song.mp3").read_bytes() == songs["album/song 3.mp3"]
    choose("album")
    press("cmdDownload")
    in_chooser()
    said("Download complete in ")
    assert {f"album/{path.name}": path.read_bytes() for path in (here / "album").iterdir()} == songs

    # Up, renamed, deleted
    press("cmdUpload")
    in_chooser("from here.txt")
    said("Upload complete in ")
    console.wait_until(lambda: "from here.txt" in names(), "the new row")
    choose("from here.txt")
    press("cmdRename")
    console.type_on_screen("letter")
    said("The file from here.txtwas successfuly renamed to letter")
    assert (served / "letter").read_text() == (here / "from here.txt").read_text()
    console.wait_until(lambda: "letter" in names(), "its other name")
    choose("letter")
    press("cmdDelete")
    console.wait_until(lambda: console.must(cmd="messages")["messages"], "the question")
    console.screenshot("ftp_delete")
    said("Are you sure you want to delete letter?", "yes")
    said("The file letter was successfully deleted.")
    assert not (served / "letter").exists()
    press("cmdCreateDir")
    console.type_on_screen("empty")
    said("Directory empty was successfully created.")
    console.wait_until(lambda: "empty" in names(), "the new folder")
    choose("empty")
    press("cmdDelete")
    said("Are you sure you want to delete empty?", "yes")
    said("Directory empty was successfully removed.")
    assert not (served / "empty").exists()

    # A long one is cancelled; the next press goes on with it
    with open(served / "long", "wb") as long:
        long.truncate(3 << 30)
    press("cmdRefresh")
    console.wait_until(lambda: "long" in names(), "the long file")
    choose("long")
    press("cmdDownload")
    in_chooser()
    console.wait_until(lambda: caption("cmdCancel") == "Cancel" and "left" in caption("lblStatus"), "its progress")
    console.screenshot("ftp_download")
    press("cmdCancel")
    said("The download was cancelled. Start it again to go on with it.")
    parts = [path.name for path in here.iterdir() if path.suffix == ".part"]
    assert len(parts) == 1 and not (here / "long").exists(), parts

    enter("..")
    console.wait_until(lambda: caption("lblDir") == "Current Directory: /tmp", "the parent")
    press("cmdDisconnect")
    assert names() == [] and caption("lblCaption") == "Not Connected."
    press("cmdCancel")
    console.wait_until(lambda: not shown("cmdConnect"), "setup", 5)
    console.press("cmdOK", form="frmSetup")
    console.end()
finally:
    server.kill()
    server.wait()
    settings.unlink()
    shutil.rmtree(served)
    shutil.rmtree(here)
