"""Typing on the screen: a playlist found key by key above the keyboard and named with shift, caps lock,
held keys, accents and a hardware keyboard; libVLC and ffprobe read what was saved. Setup's password
is covered."""
import ctypes
import sys
import time
import urllib.parse

from console import SCAN, Console, every_line_opens

console = Console(sys.argv[1], settings=["Setup=S#"])
LISTS = console.home / "PlayLists"
BACKSPACE, ENTER, SHIFT, CAPS, LEFT, HIDE = 14, 28, 42, 58, 203, 217
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
    return console.rows(None, "gridSearch")


def vlc_lines(path):
    """The paths that libVLC itself finds in a playlist."""
    library = ctypes.CDLL("libvlc.so.5")

    def call(name, *arguments, gives=ctypes.c_int):
        function = library[f"libvlc_{name}"]
        function.restype = gives
        return function(*arguments)

    def of(name, *arguments):
        return ctypes.c_void_p(call(name, *arguments, gives=ctypes.c_void_p))

    playlist = of("media_new_path", of("new", 0, None), str(path).encode())
    call("media_parse_with_options", playlist, 0, 10_000)
    console.wait_until(lambda: call("media_get_parsed_status", playlist), "libVLC's list")
    items = of("media_subitems", playlist)
    call("media_list_lock", items)
    found = [of("media_list_item_at_index", items, i) for i in range(call("media_list_count", items))]
    addresses = [call("media_get_mrl", each, gives=ctypes.c_char_p) for each in found]
    return [urllib.parse.unquote(each.decode()).removeprefix("file://") for each in addresses]


def bottom(name, index=None):
    left, top, width, height = console.get(name, index)["rect"]
    return top + height


# The search panel: its rows follow each key, and stay in sight
search = Keys("KEY", 0, "frmMain", "txtSearch")
console.press("imgTabs", 0)
console.edit_new_list()
console.press("cmdTop", 4)
everyone = found()
search.press("o", "r", "c")
search.is_typed("orc")
assert len(everyone) > 1 and found() == ["The Paper Orchard"], (everyone, found())
top = console.get("ctrlKeyboard")["rect"][1]
assert bottom("gridSearch") <= top and bottom("txtSearch") <= top
console.screenshot("keyboard_search")
for row in (1, 1, 1, 2):
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
count = len(console.rows(None, "gridPlayListSongs"))
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
lines = every_line_opens(saved)
assert len(lines) == count and vlc_lines(saved) == lines, (vlc_lines(saved), lines)

# A password is covered
console.press("cmdSetup")
prompt.press("s", SHIFT, "3")
prompt.is_typed("**")
console.screenshot("keyboard_password")
prompt.press(ENTER)
console.must(cmd="press", name="cmdOK", form="frmSetup")
console.end()
