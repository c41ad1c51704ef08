"""A whole cabin: the Master Listener, a Music Listener and two consoles. What one plays the other shows and
pauses; the list of the one goes on; the listener is killed and comes back."""
import atexit
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

from console import Console

program, master_program, listener_program, music = sys.argv[1:5]
folder = pathlib.Path(tempfile.mkdtemp())


def service(path, *arguments):
    log = folder / f"{time.monotonic_ns()}.log"
    process = subprocess.Popen([path, "--as-root", *arguments], stderr=log.open("w"),
                               env=dict(os.environ, KORVANE_VLC_ARGS="--aout=adummy"))
    atexit.register(process.kill)  # a walk that fails leaves none behind
    for _ in range(200):
        if found := re.search(r"listening at \S+ port (\d+)", log.read_text()):
            return process, found[1]
        time.sleep(0.05)
    raise AssertionError(log.read_text())


def listener_at(port):
    return service(listener_program, "--port", port, "--root", music, "--name", "Salon", "--tick", "250",
                   "--master", f"127.0.0.1:{master_port}")


def seat(number):
    return Console(program, user_values="[KRV\\MUSIC]\nMUSICTYPE=SERVER\n", size="800x480",
                   buttons="Network@@#148@@#508@@#CONNECT@@#244@@#265@@#14\n",
                   settings=["LocalServer=1", "MasterListenerIP=127.0.0.1", f"MasterListenerPort={master_port}",
                             f"MasterListenerMyName=Seat {number}"])


def lists_all(console, name):
    """The button CONNECT of the home page shows the network, with both seats and the Listener."""
    console.press("imgTabs", 3)
    console.press("cmdbutton", 1)
    console.wait_until(lambda: console.ask(cmd="get", name="cmdDone", form="frmNetwork")["ok"], "frmNetwork", 5)
    rows = console.must(cmd="rows", name="Grid", form="frmNetwork")["rows"]
    shown = {row["cells"][0]: (row["cells"][1], bool(row["cells"][4])) for row in rows}
    assert shown == {"Salon": ("MUSIC", True), "Seat 1": ("CLIENT", True), "Seat 2": ("CLIENT", True)}, rows
    console.must(cmd="press", name="cmdExpand", form="frmNetwork")
    console.screenshot(name)
    assert not console.must(cmd="get", name="Grid", form="frmNetwork")["cut"], "a column is too narrow"
    console.must(cmd="press", name="cmdDone", form="frmNetwork")


def picture(console, index):
    return console.get("cmdControls", index)["picture"]


master, master_port = service(master_program, "--port", "0")
listener, port = listener_at("0")
one, two = seat(1), seat(2)
assert one.get("lblHomeArtist")["caption"] and not one.get("lblHomeArtist")["cut"]
lists_all(one, "cabin_network_1")
lists_all(two, "cabin_network_2")
one.press("imgTabs", 0)
two.press("imgTabs", 0)
songs = one.open_album(2, 1)
one.press("Grid", 1, row=1)
one.wait_until(lambda: one.position() > 0.5, "the song at seat 1")
two.wait_until(lambda: two.title() == songs[0] and two.position() > 0.5, "the song at seat 2", 3)
for console in (one, two):
    console.wait_until(lambda: console.get("coverArt")["visible"], "the cover", 5)
one.screenshot("cabin_seat_1")
two.screenshot("cabin_seat_2")

two.press("cmdControls", 2)
one.wait_until(lambda: picture(one, 2).endswith("pauseb"), "the pause of seat 2 at seat 1", 2)
held = one.position()
time.sleep(0.6)
assert one.position() == held
one.screenshot("cabin_paused")
two.press("cmdControls", 1)
for console in (one, two):
    console.wait_until(lambda: console.position() > held, "the song going on", 3)

two.seek_to_end()
for console in (one, two):
    console.wait_until(lambda: console.title() == songs[1], "the next song of seat 1's list", 5)
two.press("cmdControls", 3)
one.wait_until(lambda: one.title() == "Status: Idle", "the stop of seat 2", 2)

one.press("Grid", 1, row=1)
two.wait_until(lambda: two.position() > 0.5, "the song once more")
listener.kill()
listener.wait()
for console in (one, two):
    console.wait_until(lambda: console.title() == "Status: Idle", "the loss", 3)
one.wait_until(lambda: one.get("framLink")["visible"], "what is wrong in words", 2)
assert "Music: " in one.get("lblLink", 1)["caption"]
one.screenshot("cabin_lost")
listener, port = listener_at(port)
for console in (one, two):
    console.wait_until(lambda: console.get("lblLink", 1)["caption"] == "● Music", "the link", 3)
one.press("Grid", 1, row=2)
two.wait_until(lambda: two.title() == songs[1] and two.position() > 0.3, "control coming back", 3)
two.screenshot("cabin_again")
one.end()
two.end()
for process in (listener, master):
    process.terminate()
    assert process.wait(timeout=10) == 0
