"""A CD becomes songs in a real window: names typed with a finger, two tracks ticked, the run cancelled, begun
again under the names that were kept, left at work and come back to; the songs play from the library."""
import pathlib
import struct
import subprocess
import sys
import tempfile
import time

from console import SCAN, Console

folder = pathlib.Path(tempfile.mkdtemp())
sheet, data = folder / "disc.cue", folder / "disc.bin"
SECONDS = (150, 140, 20)


def period(level):
    return struct.pack("<hh", level, level) * 50 + struct.pack("<hh", -level, -level) * 50


data.write_bytes(b"".join(period(2000 * (i + 1)) * 441 * seconds for i, seconds in enumerate(SECONDS)))
starts = [sum(SECONDS[:i]) for i in range(len(SECONDS))]
sheet.write_text('FILE "disc.bin" BINARY\n' + "".join(
    f"  TRACK {i + 1:02} AUDIO\n    INDEX 01 {at // 60:02}:{at % 60:02}:00\n" for i, at in enumerate(starts)))

console = Console(sys.argv[1], settings=["ADDSON=NO", f"CDDrive={sheet}"])
ripper = "frmRipper"


def value(name, what="caption", index=None):
    return console.must(cmd="get", form=ripper, **console.place(name, index))[what]


def shown(name):
    answer = console.ask(cmd="get", name=name, form=ripper)
    return answer["ok"] and answer["visible"]


def press(name, index=None, **more):
    console.press(name, index, form=ripper, **more)


def column(number):
    rows = console.must(cmd="rows", name="ss", form=ripper)["rows"]
    return [row["cells"][number - 1] for row in rows]


def type_names(text):
    """A '^' is Shift."""
    for letter in text:
        press("ekey", 42 if letter == "^" else SCAN[letter])


def tick(*rows):
    for row in rows:
        press("ss", row=row, col=1)


def songs():
    return sorted(str(path.relative_to(console.home / "Arips")) for path in (console.home / "Arips").rglob("*.*"))


# In by the button beside the disc's tracks
console.press("imgTabs", 0)
console.press("lblMusicType", 0)
console.wait_until(lambda: len(console.rows(7)) == 3, "the disc")
console.wait_until(lambda: console.get("cmdRip")["visible"], "the way in", 5)
console.screenshot("ripper_door")
console.press("Grid", 7, row=3)
console.wait_until(lambda: console.get("lblCurrentPlay")["caption"] == "CD Playing", "the sound of the disc")
console.press("cmdRip")
console.box("No records for your disk found.")
console.wait_until(lambda: column(2) == ["Track 01", "Track 02", "Track 03"], "the tracks", 5)
assert column(3) == ["2:30", "2:20", "0:20"] and value("lblID") and "Free space " in value("lblFreeSpace")
time.sleep(0.3)
console.screenshot("ripper")

# Names by a finger: Enter goes on to the next
press("lblArtist")
console.wait_until(lambda: shown("KeyBoard"), "the keyboard", 3)
type_names("^ada ^moor\n^days\n^dawn\n^it is noon")
time.sleep(0.3)
console.screenshot("ripper_typing")
press("BtnEnh1")
assert column(2) == ["Dawn", "It is noon", "Track 03"], column(2)
assert (value("lblArtist", "text"), value("lblAlbum", "text")) == ("Ada Moor", "Days")

# Begun and cancelled: the music of the disc stops, and nothing stays
tick(1, 2)
press("cmdExtract")
console.wait_until(lambda: shown("cmdRipStop"), "the run", 5)
assert "music of this disc was stopped" in value("txtStatus", "text")
press("cmdRipStop")
console.wait_until(lambda: value("cmdExtract", "enabled") and not column(1), "the end of the run", 10)
assert songs() == [], songs()

# The same disc is found by its own entry now
press("DriveCombo", row=1)
console.wait_until(lambda: value("StatusBar") == "Data Found in mydb", "the names that were kept", 5)
assert column(2) == ["Dawn", "It is noon", "Track 03"] and value("lblArtist", "text") == "Ada Moor"
tick(1, 2)
press("cmdExtract")
console.wait_until(lambda: shown("cmdRipStop") and value("prgTotal", "value") > 0, "the second run")
console.screenshot("ripper_run")
press("cmdLeave")
console.wait_until(lambda: not shown("ss"), "the main form", 3)
if console.get("cmdRipMark")["visible"]:
    console.screenshot("ripper_mark")
console.wait_until(lambda: not console.get("cmdRipMark")["visible"], "the end of the run")
assert songs() == [f"Ada Moor/Days/{name}.mp3" for name in ("01 - Dawn", "02 - It is noon")], songs()
for path, seconds in zip(sorted((console.home / "Arips").rglob("*.mp3")), SECONDS):
    probed = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "format=duration:format_tags=artist,title",
                             "-of", "default=nw=1", path], capture_output=True, text=True, check=True).stdout
    assert "artist=Ada Moor" in probed.replace("TAG:", "") and abs(
        float(probed.split("duration=")[1].split()[0]) - seconds) < 0.5, probed

# They play from the library
console.press("lblMusicType", 1)
console.press("cmdTop", 0)
row = console.rows(0).index("Ada Moor") + 1
assert console.open_album(row, 1) == ["Dawn", "It is noon"], console.rows(1)
console.press("Grid", 1, row=2)
console.wait_until(lambda: "It is noon" in console.title(), "the song")
console.wait_until(lambda: console.position() > 0, "its sound")
console.screenshot("ripper_songs")
console.end()
