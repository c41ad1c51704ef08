"""Typing on the screen: a playlist found key by key above the keyboard and named with shift, caps lock,
held keys, accents and a hardware keyboard; libVLC and ffprobe read what was saved. Setup's password
is covered."""
import subprocess
import sys
import time

from console import Console

console = Console(sys.argv[1], settings=["Setup=S#"])
LISTS = console.home / "PlayLists"
BACKSPACE, ENTER, SHIFT, CAPS, LEFT, HIDE = 14, 28, 42, 58, 203, 217
SCAN = dict(zip("1234567890", range(2, 12))) | dict(zip("qwertyuiop", range(16, 26))) | \
    dict(zip("asdfghjkl", range(30, 39))) | dict(zip("zxcvbnm", range(44, 51))) | {" ": 57}
HOLD_MS = 0.4


class Keys:
    """The keys of a keyboard: `below` is what its indices are less than the scan codes."""

    def __init__(self, name, below, form, text):
        self.name, self.below, self.form, self.text = name, below, form, text

    def index(self, key):
        return {"name": self.name, "index": SCAN.get(key, key) - self.below, "form": self.form}

    def press(self, *keys):
        for key in keys:
            console.must(cmd="press", **self.index(key))

    def hold(self, key, seconds):
        console.must(cmd="hold", **self.index(key))
        time.sleep(seconds)

    def rect(self, name, index):
        return console.must(cmd="get", name=name, index=index, form=self.form)["rect"]

    def slide(self, key, variant):
        """From the held key to the variant, and off."""
        self.hold(key, HOLD_MS + 0.25)
        console.screenshot(f"keyboard_variants_{self.form}_{key}")
        at, to = self.rect(self.name, self.index(key)["index"]), self.rect("VARIANT", variant)
        middle = [[left + width / 2, top + height / 2] for left, top, width, height in (at, to)]
        console.must(cmd="release", dx=middle[1][0] - middle[0][0], dy=middle[1][1] - middle[0][1])

    def is_typed(self, text):
        typed = console.must(cmd="get", name=self.text, form=self.form)["text"]
        assert typed == text, (typed, text)


def found():
    return [row["cells"][0] for row in console.must(cmd="rows", name="gridSearch")["rows"]]


def bottom(name, index=None):
    left, top, width, height = console.get(name, index)["rect"]
    return top + height


# The search panel: its rows follow each key, and stay in sight
search = Keys("KEY", 0, "frmMain", "txtSearch")
console.press("imgTabs", 0)
console.press("cmdPlayLists")
console.must(cmd="press", name="cmdPlayListChoices", index=5, form="frmPlayList")
console.wait_until(lambda: console.get("framSongEdit")["visible"], "the editor")
console.press("cmdTop", 4)
everyone = found()
search.press("o", "r", "c")
search.is_typed("orc")
assert len(everyone) > 1 and found() == ["The Paper Orchard"], (everyone, found())
top = console.get("ctrlKeyboard")["rect"][1]
assert bottom("gridSearch") <= top and bottom("txtSearch") <= top
console.screenshot("keyboard_search")
console.must(cmd="press", name="gridSearch", row=1)
console.must(cmd="press", name="gridSearch", row=1)
for row in (1, 2):
    console.must(cmd="press", name="gridSearch", row=row)
search.hold(BACKSPACE, HOLD_MS + 1)
console.must(cmd="release")
search.is_typed("")
assert found() == everyone
search.press(HIDE)
assert not console.get("ctrlKeyboard")["visible"] and bottom("gridSearch") > top
console.press("txtSearch")
assert console.get("ctrlKeyboard")["visible"], "a press on the field brings it back"
console.must(cmd="key", key="q")
console.wait_until(lambda: found() == ["Lumen Quay"], "a hardware key", 5)
console.press("cmdTop", 4)
assert not console.get("ctrlKeyboard")["visible"] and not console.get("gridSearch")["visible"]
count = len(console.must(cmd="rows", name="gridPlayListSongs")["rows"])
assert count == 2, count

# The name
prompt = Keys("KEY", 2, "frmKeyboard", "txtInput")
console.press("cmdPlayListChoices", 1)
console.wait_until(lambda: console.ask(cmd="get", name="txtInput", form="frmKeyboard")["ok"],
                   "the keyboard")
prompt.press(SHIFT, "c", "a", "f")
prompt.slide("e", 1)
prompt.is_typed("Caf\u00e9")
prompt.press(CAPS, " ", "d")
console.screenshot("keyboard_caps")
prompt.press("j", "1", CAPS, "x", "x", "x", "x", "x", "x")
prompt.is_typed("Caf\u00e9 DJ!xxxxxx")
prompt.hold(BACKSPACE, HOLD_MS + 0.15)
console.must(cmd="release")
held = console.must(cmd="get", name="txtInput", form="frmKeyboard")["text"]
assert held.startswith("Caf\u00e9") and 2 <= len("Caf\u00e9 DJ!xxxxxx") - len(held) <= 8, held
prompt.press(*[BACKSPACE] * (len(held) - len("Caf\u00e9 DJ")))
console.must(cmd="key", key="5")
prompt.is_typed("Caf\u00e9 DJ5")
prompt.press(LEFT, BACKSPACE, "k")
prompt.hold("o", HOLD_MS + 0.25)
console.must(cmd="release")
console.must(cmd="press", name="VARIANT", index=3, form="frmKeyboard")
NAME = "Caf\u00e9 Dk\u00f45"
prompt.is_typed(NAME)
prompt.press(ENTER)
console.wait_until(lambda: console.get("Grid", 6)["visible"], "the playlists")
assert console.rows(6) == [NAME], console.rows(6)

# Other players read it, line by line
saved = LISTS / f"{NAME}.m3u"
lines = saved.read_text(encoding="utf-8").splitlines()
assert len(lines) == count
for line in lines:
    probed = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of",
                             "csv=p=0", line], capture_output=True, text=True, timeout=60)
    assert probed.returncode == 0 and float(probed.stdout) > 1, (line, probed.stderr)
read = subprocess.run([sys.argv[2], saved], capture_output=True, text=True, timeout=60)
assert read.returncode == 0 and read.stdout.splitlines() == lines, (read, lines)

# A password is covered
console.press("cmdSetup")
prompt.press("s", SHIFT, "3")
prompt.is_typed("**")
console.screenshot("keyboard_password")
prompt.press(ENTER)
console.must(cmd="press", name="cmdOK", form="frmSetup")
console.end()
