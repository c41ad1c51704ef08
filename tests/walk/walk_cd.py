"""The CD in a real window: no disc and one put in; a track by a press, the slider, on through the next
track to the end of the disc, the sound of both; a disc that is gone; back to digital music."""
import pathlib
import struct
import sys
import tempfile

from console import Console

folder = pathlib.Path(tempfile.mkdtemp())
sound, sheet, data = folder / "heard.wav", folder / "disc.cue", folder / "disc.bin"
SECONDS, LEVELS = (30, 40), (5000, 9000)
SHEET = """TITLE "Harbour"
FILE "disc.bin" BINARY
  TRACK 01 AUDIO
    TITLE "Low Tide"
    INDEX 01 00:00:00
  TRACK 02 AUDIO
    INDEX 01 00:30:00
"""


def put_disc_in():
    data.write_bytes(b"".join(struct.pack("<hh", level, level) * 44100 * seconds
                              for seconds, level in zip(SECONDS, LEVELS)))
    sheet.write_text(SHEET)


def heard(level):
    """Seconds of that level in what came out."""
    samples = sound.read_bytes()[44:] if sound.exists() else b""
    return samples.count(struct.pack("<hh", level, level) * 441) / 100


def caption():
    return console.get("lblCurrentPlay")["caption"]


console = Console(sys.argv[1], settings=[f"CDDrive={sheet}"], vlc=f"--aout=afile --audiofile-file={sound}")
console.press("imgTabs", 0)
console.press("lblMusicType", 0)
console.wait_until(lambda: console.rows(7) == ["NO CD Double click to refresh"], "the empty drive")
assert console.get("lblMusicType", 0)["picture"] == "music/CDplayerOn"
put_disc_in()
console.wait_until(lambda: console.rows(7) == ["1. Low Tide", "Track 2"], "the disc put in", seconds=5)
console.press("Grid", 7, row=1)
console.wait_until(lambda: caption() == "CD Playing" and console.position() > 0, "the first track")
assert console.get("Slider1")["maximum"] == SECONDS[0]
console.screenshot("cd")

console.press("cmdControls", 2)
console.wait_until(lambda: caption() == "CD Paused", "the pause")
console.press("cmdControls", 1)
console.seek_to_end(2)
console.wait_until(lambda: console.get("Slider1")["maximum"] == SECONDS[1], "the second track")
console.wait_until(lambda: caption() == "CD Playing" and console.get("Grid", 7)["row"] == 2, "its row")
console.wait_until(lambda: heard(LEVELS[0]) > 1 and heard(LEVELS[1]) > 0.5, "the sound of both")
console.seek_to_end(3)
console.wait_until(lambda: caption() == "CD Stopped", "the end of the disc")
assert console.get("Slider1")["text"] == "--:--:--"
assert heard(LEVELS[1]) > 2 and heard(LEVELS[0]) == 0, "the slider's place to the end, and nothing else"

console.press("Grid", 7, row=1)
console.wait_until(lambda: caption() == "CD Playing", "the disc once more")
sheet.unlink()
console.wait_until(lambda: caption() == "CD Stopped" and not console.rows(7), "the open door", seconds=5)
console.press("lblMusicType", 1)
console.wait_until(lambda: console.get("lblMusicType", 1)["picture"] == "music/DigitalMusicOn", "digital music")
console.wait_until(lambda: console.get("Grid", 7)["visible"] is False, "the songs")
assert console.get("cmdTop", 1)["enabled"]
console.end()
