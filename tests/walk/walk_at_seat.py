"""The owner's first tour in a real window: artist, album, song; the song sounds; pause, seek, next, the
end of the list; random with and without continue; back to the running song."""
import pathlib
import sys
import tempfile

from console import Console

program = sys.argv[1]
sound = pathlib.Path(tempfile.mkdtemp()) / "heard.wav"
console = Console(program, vlc=f"--aout=afile --audiofile-file={sound}")


def heard_samples():
    data = sound.read_bytes()[44:] if sound.exists() else b""
    return sum(1 for i in range(0, len(data) - 1, 4410) if data[i:i + 2] not in (b"\0\0", b"\xff\xff"))


console.screenshot("main")
console.press("imgTabs", 0)
assert console.rows(0) == ["Lumen Quay", "Odd Kestrel", "The Paper Orchard"], console.rows(0)
console.screenshot("music")
songs = console.open_album(1, 1)
assert len(songs) == 3, songs
console.press("Grid", 1, row=1)
console.wait_until(lambda: console.position() > 1, "the first second of the song")
assert console.title() == songs[0], console.title()
console.wait_until(lambda: heard_samples() > 20, "sound")
console.screenshot("playing")

console.press("cmdControls", 2)
console.wait_until(lambda: console.get("cmdControls", 2)["picture"].endswith("pauseb"), "the pause")
held = console.position()
console.press("cmdControls", 1)
console.wait_until(lambda: console.position() > held + 0.5, "the song going on")

console.seek_to_end()
console.wait_until(lambda: console.title() == songs[1], "the next song by itself")
console.press("cmdControls", 4)
console.wait_until(lambda: console.title() == songs[2], "the song after it")
console.wait_until(lambda: console.position() > 0.5, "that song playing")
console.seek_to_end()
console.wait_until(lambda: console.title() == "Status: Idle", "the end of the list")
assert console.get("Slider1")["text"] == "--:--:--"

console.press("cmdControls", 6)
console.press("Grid", 1, row=1)
heard = {songs[0]}
for _ in range(6):
    console.wait_until(lambda: console.position() > 0.3 or console.title() == "Status: Idle", "a random song")
    if console.title() == "Status: Idle":
        break
    heard.add(console.title())
    console.seek_to_end()
    before = console.title()
    console.wait_until(lambda: console.title() != before or console.position() < 5, "what follows")
assert heard == set(songs), heard

console.press("cmdControls", 7)
console.press("Grid", 1, row=1)
for _ in range(5):
    console.wait_until(lambda: console.position() > 0.3, "random play going on for ever")
    console.seek_to_end()
    console.wait_until(lambda: console.position() < 5, "another song")

console.press("cmdTop", 3)
running = console.title()
console.must(cmd="doublepress", name="lblCurrentPlay")
console.wait_until(lambda: console.get("Grid", 1)["visible"], "the album of the running song")
assert console.rows(1)[console.get("Grid", 1)["row"] - 1] == running
console.press("cmdControls", 3)
console.end()
