"""The home page and the owner's buttons with a finger: what plays is shown and paused there; a button is
made, named, given an action, moved, saved, and pressed after a restart; a program is started once."""
import os
import sys
import time

from console import SCAN, Console

console = Console(sys.argv[1])
FILE = console.home / "krvgraphics" / "MERIDIAN" / "Buttonpositons.txt"


def caption(name):
    return console.get(name)["caption"]


def edit():
    console.press("cmdSetup")
    console.must(cmd="press", name="cmdButtons", form="frmSetup")
    console.wait_until(lambda: console.get("frameButtons")["visible"], "the button tools")


def choose_action(word=None, file=None):
    console.press("cmdButtonAction")
    console.wait_until(lambda: console.ask(cmd="get", name="customSelect", form="frmDirectorys")["ok"],
                       "the chooser")
    console.screenshot("buttons_action")
    grid = "customSelect" if word else "File1"
    rows = console.must(cmd="rows", name=grid, form="frmDirectorys", count=10000)["rows"]
    names = [each["cells"][0].split()[0] if word else each["cells"][0] for each in rows]
    console.must(cmd="press", name=grid, form="frmDirectorys", row=names.index(word or file) + 1)
    console.must(cmd="press", name="cmdok", form="frmDirectorys")


def named(wanted):
    for index in range(1, 20):
        if console.get("cmdbutton", index)["caption"] == wanted:
            return index
    raise AssertionError(f"no button {wanted}")


# The home page shows what plays, and its buttons are the transport's
assert caption("lblHomeTitle") == "Nothing is playing"
assert caption("lblHomeClock") == time.strftime("%H:%M") or time.localtime().tm_sec < 3
assert console.get("cmdbutton", 8)["visible"]
console.screenshot("home_idle")
console.press("cmdHome", 1)
console.wait_until(lambda: console.position() >= 1, "a second of any song")
console.press("imgTabs", 3)
console.wait_until(lambda: caption("lblHomeTitle") == console.title(), "its title")
assert caption("lblHomeArtist") in ("Lumen Quay", "Odd Kestrel", "The Paper Orchard")
console.screenshot("home_playing")
console.press("cmdHome", 1)
console.wait_until(lambda: console.get("cmdHome", 1)["picture"] == "music/play", "the pause")
stood = console.position()
time.sleep(1.5)
assert console.position() == stood, "it is paused"
console.press("cmdHome", 1)
console.wait_until(lambda: console.position() > stood, "the song going on")
before = console.title()


def another_song():  # random on the page of all songs may draw the same one again
    console.press("cmdHome", 2)
    return console.title() != before


console.wait_until(another_song, "another song")
assert caption("lblHomeTitle") == console.title()

# A button is made, named and moved; the tools hold the tab
edit()
console.press("imgTabs", 0)
console.box("You need to finish the custom buttons before proceeding to other tabs.")
console.press("cmdButtonDel")
console.box("You cannot delete this button")
console.press("cmdButtonAdd")
made = named("New button")
console.press("cmdButtonLabel")
console.type_on_screen("all songs")
console.press("txtButtonHigh")
console.wait_until(lambda: console.get("newKeyboard")["visible"], "the keyboard of the form")
console.screenshot("buttons_keyboard")
console.press("ekey", 219)
for digit in "120":
    console.press("ekey", SCAN[digit])
assert console.get("txtButtonHigh")["text"] == "120", console.get("txtButtonHigh")
console.press("BtnEnh1")
console.press("cmdButtonApplyAttr")
choose_action(word="SONGS")
assert console.get("cmdbutton", made)["tag"] == "SONGS", console.get("cmdbutton", made)
left, top = console.get("cmdbutton", made)["rect"][:2]
console.must(cmd="drag", name="cmdbutton", index=made, dx=260 - left, dy=600 - top)
moved = console.get("cmdbutton", made)["rect"]
assert abs(moved[0] - 260) <= 2 and abs(moved[1] - 600) <= 2, moved
assert console.get("imgTabs", 3)["picture"] == "main/mainb", "a press in the tools is no click"
frame = console.get("frameButtons")["rect"]
console.must(cmd="drag", name="frameButtons", **{"from": [300, 30]}, dx=100, dy=60)
dragged = console.get("frameButtons")["rect"]
assert abs(dragged[0] - frame[0] - 100) <= 2 and abs(dragged[1] - frame[1] - 60) <= 2, (frame, dragged)
console.screenshot("buttons_tools")

# So is one for a program
console.press("cmdButtonAdd")
program = named("New button")
console.press("cmdButtonLabel")
console.type_on_screen("window")
here = console.home / "apps"
here.mkdir()
(here / "window").write_text("#!/bin/sh\necho $$ >>started\nexec sleep 60\n")
(here / "window").chmod(0o755)
console.must(cmd="drag", name="cmdbutton", index=program, dx=500, dy=30)
console.press("cmdButtonDone")
assert not console.get("frameButtons")["visible"]
lines = FILE.read_text().splitlines()
assert len(lines) == 10 and lines[8].startswith("all songs@@#"), lines
lines[9] = lines[9].split("@@#")[0] + "@@#1000@@#620@@#" + str(here / "window") + "@@#100@@#200@@#12"
FILE.write_text("\n".join(lines) + "\nbroken@@#line\n")

# It is there after a restart, and does what it says
console.restart()
made, program = named("all songs"), named("window")
again = console.get("cmdbutton", made)["rect"]
assert all(abs(a - b) <= 1 for a, b in zip(again, moved)), (again, moved)
assert "Buttonpositons.txt, line 11 is no button" in (console.home / "log.txt").read_text()
console.press("cmdbutton", made)
console.wait_until(lambda: console.get("Grid", 5)["visible"], "all songs")
console.press("imgTabs", 3)
console.press("cmdbutton", program)
console.wait_until((here / "started").exists, "the program")
console.wait_until(lambda: console.ask(cmd="get", name="imgRestore", form="frmAlwaysOnTop")["ok"],
                   "the way back")
os.kill(int((here / "started").read_text()), 15)
console.wait_until(lambda: not any(form["shown"] for form in
                                   console.must(cmd="tree", form="frmAlwaysOnTop")["forms"]),
                   "the console after the program's end")
edit()
assert console.get("cmdbutton", program)["tag"] == str(here / "window")
console.press("cmdButtonCancel")
console.end()
