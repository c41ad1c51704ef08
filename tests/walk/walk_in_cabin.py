"""The same road in the server role: what goes to a Music Listener, byte for byte, and what its reports
show."""
import pathlib
import subprocess
import sys
import tempfile

from console import Console

program, listener = sys.argv[1:3]
log = pathlib.Path(tempfile.mkdtemp()) / "records"
service = subprocess.Popen([listener, "--log", log, "--song", "8", "--speed", "1"],
                           stdout=subprocess.PIPE, text=True)
port = service.stdout.readline().split()[1]
console = Console(program, settings=[f"MusicListener=127.0.0.1:{port}"],
                  user_values="[KRV\\MUSIC]\nMUSICTYPE=SERVER\n")


def records():
    return log.read_text().splitlines() if log.exists() else []


def next_records(count, known):
    console.wait_until(lambda: len(records()) >= known + count, f"{count} records after {records()}")
    return records()[known:known + count]


console.press("imgTabs", 0)
assert next_records(1, 0)[0] == r"MUSIC\0STATUS\1", records()
console.press("Grid", 0, row=2)
console.press("Grid", 2, row=1)
songs = console.rows(1)
known = len(records())
console.press("Grid", 1, row=1)
path = console.home / "Music/Odd Kestrel/Night Ferry"
first = next(path.glob("01*")).as_posix()
assert next_records(1, known)[0] == rf"MUSIC\0PLAY\0{first}\0{songs[0]}\1", records()
console.wait_until(lambda: console.position() >= 1, "the listener's time")
console.screenshot("cabin")

known = len(records())
console.press("cmdControls", 2)
assert next_records(1, known) == [r"MUSIC\0PAUSE\1"], records()
console.wait_until(lambda: console.get("cmdControls", 2)["picture"].endswith("pauseb"), "the pause")
known = len(records())
console.press("cmdControls", 1)
assert next_records(1, known) == [r"MUSIC\0PLAY\1"], records()
known = len(records())
console.must(cmd="set", name="Slider1", value=5)
assert next_records(1, known)[0] == r"MUSIC\0CURRENTPOSITION\05\1", records()
known = len(records())
second = next(path.glob("02*")).as_posix()
assert next_records(1, known)[0] == rf"MUSIC\0PLAY\0{second}\0{songs[1]}\1", "the next song by itself"
console.wait_until(lambda: console.title() == songs[1], "its title")
known = len(records())
assert next_records(1, known)[0] == r"MUSIC\0STOP\1", "the end of the list"
console.wait_until(lambda: console.get("lblCurrentPlay")["caption"] == "Status: Idle", "idle")

console.press("Grid", 1, row=1)
console.wait_until(lambda: console.position() >= 1, "the song again")
service.kill()
console.wait_until(lambda: console.get("lblCurrentPlay")["caption"] == "Status: Idle",
                   "a vanished listener stops the front end")
console.press("imgTabs", 3)
console.press("imgTabs", 0)
console.end()
