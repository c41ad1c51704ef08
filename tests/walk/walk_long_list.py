"""A playlist of a million lines in the window: opened, scrolled through and edited, while the form goes
on answering. The longest gaps between its answers are printed."""
import json
import socket
import sys
import threading
import time

from console import Console

LINES = 1_000_000
console = Console(sys.argv[1])
lists = console.home / "PlayLists"
lists.mkdir(exist_ok=True)
(lists / "long.m3u").write_text("".join(f"/nowhere/{i % 100}/song {i}.mp3\n" for i in range(LINES)))


class Pulse(threading.Thread):
    """Asks the form for something small again and again, and notes how long the answers take."""

    def __init__(self):
        super().__init__(daemon=True)
        self.worst = self.answers = 0
        self.over = False
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(str(console.home / "control"))
        self.start()

    def run(self):
        lines = self.socket.makefile("rw")
        while not self.over:
            asked = time.monotonic()
            lines.write(json.dumps({"cmd": "get", "name": "imgTabs", "index": 0}) + "\n")
            lines.flush()
            lines.readline()
            self.worst = max(self.worst, time.monotonic() - asked)
            self.answers += 1
            time.sleep(0.005)


def alive(what):
    time.sleep(0.3)
    print(f"{what}: longest gap {pulse.worst * 1000:.0f} ms, {pulse.answers} answers")
    assert pulse.answers > 10, f"{what}: only {pulse.answers} answers"
    pulse.worst = pulse.answers = 0


console.press("imgTabs", 0)
console.press("cmdTop", 2)
pulse = Pulse()
console.press("Grid", 6, row=1)
console.wait_until(lambda: console.get("Grid", 3)["rows"] == LINES, "the list", 60)
alive("opened")
console.must(cmd="set", name="VscrollAllSongs", value=777_777)
console.wait_until(lambda: console.get("Grid", 3)["row"] == 777_777, "the row", 5)
console.screenshot("long_list")
alive("scrolled")
console.press("cmdPlayLists")
console.must(cmd="press", name="cmdPlayListChoices", index=4, form="frmPlayList")
console.wait_until(lambda: console.get("gridPlayListSongs")["rows"] == LINES, "the editor", 60)
alive("edited")
console.press("cmdPlayListCommands", 2)
console.press("cmdPlayListCommands", 0)
alive("a row moved and deleted")
console.press("cmdPlayListChoices", 0)
pulse.over = True
pulse.join()
console.end()
