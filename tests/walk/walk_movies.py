"""Movies at seat in a real window: a clip of a first start plays, is heard, paused, sought, seen full screen,
locked, and goes on after a restart; a directory asks for its password once; the DVD with a finger on its menu."""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from console import Console

sound = pathlib.Path(tempfile.mkdtemp()) / "heard.wav"
console = Console(sys.argv[1], vlc=f"--aout=afile --audiofile-file={sound}")
starter = pathlib.Path(sys.argv[4]).parent / "Movies"
CLIPS = ["Above the Clouds.mov", "Harbour at Dusk.mp4"]
MENU_BUTTONS = ((56, 196, 340, 444), (380, 196, 664, 444))  # of the disc's 720 x 576 pixels
GRID = 6


def colours(*source, crop=None):
    """The mean colours of a picture's GRID x GRID parts, as ffmpeg sees them."""
    cut = "crop={2}:{3}:{0}:{1},".format(*crop) if crop else ""
    run = subprocess.run(["ffmpeg", "-v", "error", *source, "-frames:v", "1", "-vf",
                          f"{cut}scale={GRID}:{GRID}:flags=area,format=rgb24", "-f", "rawvideo", "-"],
                         capture_output=True, check=True, timeout=60)
    assert len(run.stdout) == 3 * GRID * GRID, run.stderr
    return run.stdout


def seen(name, crop):
    console.screenshot(name)
    folder = console.folder_of_pictures()
    return colours("-i", str(folder / f"{name}.png"), crop=crop)


def of_clip(clip, seconds):
    return colours("-ss", f"{seconds:.2f}", "-i", str(starter / clip))


def apart(one, other):
    return sum(abs(a - b) for a, b in zip(one, other)) / len(one)


def whole_picture(surface):
    """Where the clip's picture lies in the window: in the middle of its surface."""
    x, y, width, height = surface["pixels"]
    w, h = surface["frame"]
    return x + (width - w) // 2, y + (height - h) // 2, w, h


def heard():
    data = sound.read_bytes()[44:] if sound.exists() else b""
    return sum(1 for i in range(0, len(data) - 1, 4410) if data[i:i + 2] not in (b"\0\0", b"\xff\xff"))


def large(name):
    return console.get(name)["pixels"] == [0, 0, *(int(number) for number in console.size.split("x"))]


def lit(index):
    return console.get("cmdControls", index)["picture"].endswith("b")


def shown(name, index=None):
    return console.get(name, index)["visible"]


def says(*words):
    text = console.get("Slider1")["text"]
    return all(word in text for word in words)


def hold_the_lock():
    console.must(cmd="hold", name="cmdMovieLocked")
    console.wait_until(lambda: not shown("cmdMovieLocked"), "the lock opening", 3)
    console.must(cmd="release", name="cmdMovieLocked")


def finger_on(button, what, *words):
    """Presses that button of the menu until its title plays: a disc without a menu of its own in its
    titles shows the one it has only after it has begun anew."""
    x, y, width, height = console.get("MSWebDVD1")["rect"]
    w = min(width, height * 4 / 3)  # the disc's picture is 4:3
    h = w * 3 / 4
    x0, y0, x1, y1 = MENU_BUTTONS[button]

    def pressed():
        console.press("MSWebDVD1", x=round((width - w) / 2 + (x0 + x1) / 2 * w / 720),
                      y=round((height - h) / 2 + (y0 + y1) / 2 * h / 576))
        time.sleep(1.5)
        return says(*words)
    console.wait_until(pressed, what, 20)


def start_clip(row):
    console.press("MovieList", row=row)
    console.wait_until(lambda: shown("MoviePic") and console.get("MoviePic")["frames"] > 0, "its picture")


# The list
console.press("imgTabs", 1)
console.wait_until(lambda: console.rows(None, "MovieList") == CLIPS, "the clips of a first start", 5)


def lengths():
    return [row["cells"][2] for row in console.must(cmd="rows", name="MovieList")["rows"]]


console.wait_until(lambda: lengths() == ["0:12", "0:14"], "their lengths and stills", 20)
console.screenshot("movies_list")

# One press plays; what is seen is the clip, what is heard its sound
start_clip(1)
console.wait_until(lambda: console.position() > 2 and heard() > 20, "the clip with its sound")
console.press("cmdControls", 2)
console.wait_until(lambda: lit(2), "the pause")
held = console.position()
picture = seen("movies_paused", whole_picture(console.get("MoviePic")))
assert apart(picture, of_clip(CLIPS[0], held)) < 8, (held, picture.hex())
assert apart(picture, of_clip(CLIPS[1], held)) > 25, "the comparison tells clips apart"
assert console.position() == held

# The thumb
console.must(cmd="set", name="Slider1", value=6)
console.press("cmdControls", 1)
console.wait_until(lambda: lit(1) and console.position() > 6, "the clip going on behind the thumb")
console.wait_until(lambda: large("MoviePic"), "the full screen that play brings", 3)
console.press("MoviePic")
console.press("cmdMovie", 10)
console.wait_until(lambda: not large("MoviePic"), "its end", 3)

# Full screen, its controls and its lock
console.press("cmdMovieFullScreen")
console.wait_until(lambda: large("MoviePic"), "the full screen", 3)
console.press("MoviePic")
console.wait_until(lambda: shown("framMovie"), "the controls", 2)
console.press("cmdMovie", 0)
console.wait_until(lambda: lit(2), "the pause of the controls", 2)
console.must(cmd="set", name="sldMovie", value=8)
console.wait_until(lambda: 7.5 < console.position() < 8.5, "the place of the large slider", 3)
console.screenshot("movies_controls")
assert console.get("lblMovieTime")["caption"] == "0:08" and not console.get("lblMovieTime")["cut"]
console.press("cmdMovie", 9)
console.wait_until(lambda: not shown("framMovie"), "the lock", 2)
console.press("MoviePic")
console.wait_until(lambda: shown("cmdMovieLocked"), "the lock's key", 2)
assert not shown("framMovie"), "the lock keeps a touch away"
console.screenshot("movies_locked")
hold_the_lock()
console.wait_until(lambda: shown("framMovie"), "the controls behind the lock", 2)
console.press("cmdMovie", 10)
console.wait_until(lambda: not large("MoviePic"), "the page", 3)
console.press("cmdControls", 3)
console.wait_until(lambda: shown("MovieList"), "the list", 3)

# Left in the middle: it goes on there after a restart, and a closed directory asks once
start_clip(2)
console.must(cmd="set", name="Slider1", value=7)
console.wait_until(lambda: console.position() > 7, "the middle of the second clip")
console.press("cmdControls", 3)
console.stop()
closed = console.home / "Closed"
closed.mkdir()
shutil.copy(starter / CLIPS[0], closed / "Family.mov")
ini = console.home / "Morvanta.INI"
ini.write_text(ini.read_text().replace("[Movies]", "[Movies]\nMDirectory1=Closed", 1) + "\n[PW]\nPW7=tide\n")
console.start()
console.press("imgTabs", 1)
console.type_on_screen("tide")
console.wait_until(lambda: "Family.mov" in console.rows(None, "MovieList"), "the opened directory", 5)
console.press("imgTabs", 3)
console.press("imgTabs", 1)
assert not console.must(cmd="messages")["messages"], "it asks once"
console.wait_until(lambda: console.rows(None, "MovieList") == [CLIPS[0], "Family.mov", CLIPS[1]], "the other list", 5)
start_clip(3)
console.wait_until(lambda: shown("framMovieSays"), "the offer of the start", 5)
assert console.get("lblMovieSays")["caption"].startswith("Goes on at 0:0")
console.wait_until(lambda: console.position() > 6.9, "the place where it was left", 3)
console.screenshot("movies_goes_on")
assert not console.get("lblMovieSays")["cut"] and not console.get("cmdMovieSays")["cut"]
console.press("cmdMovieSays")
console.wait_until(lambda: console.position() < 4, "the start", 3)

# A song ends the movie
console.press("imgTabs", 0)
console.press("cmdTop", 3)
console.press("Grid", 5, row=1)
console.wait_until(lambda: console.get("lblCurrentPlay")["caption"].startswith("Playing: "), "the song", 5)
console.press("cmdControls", 3)
console.press("imgTabs", 1)
console.wait_until(lambda: shown("MovieList") and not shown("MoviePic"), "the end of the movie", 3)

# The DVD: its menu, a finger on the second button, chapters, menu
console.press("lblMovieType", 2)
console.wait_until(lambda: console.rows(None, "MovieList") == ["Harbour Tour"], "the disc's folder", 5)
console.press("MovieList", row=1)
console.wait_until(lambda: says("Menu"), "the menu")
console.screenshot("movies_menu")
finger_on(1, "the second button's title", "Chapter 1 of 1", "Total:00:00:08")
console.screenshot("movies_second_title")

console.press("lblMovieType", 0)
console.wait_until(lambda: console.must(cmd="messages")["messages"], "the message above the DVD", 3)
before = seen("movies_message", console.get("MSWebDVD1")["pixels"])
console.box("Stop what plays first")
console.wait_until(lambda: not console.must(cmd="messages")["messages"], "its end", 3)
assert apart(before, seen("movies_no_message", console.get("MSWebDVD1")["pixels"])) > 8, "it covers the DVD"

console.press("cmdMenuforDVD")
console.wait_until(lambda: says("Menu"), "the menu once more", 5)
finger_on(0, "the tour", "of 3")
console.press("cmdControls", 4)
console.wait_until(lambda: says("Chapter 2 of 3") or says("Chapter 3 of 3"), "the next chapter", 3)
console.press("cmdControls", 2)
console.wait_until(lambda: lit(2), "the DVD's pause", 3)
console.press("cmdControls", 1)
console.press("cmdMovieFullScreen")
console.wait_until(lambda: large("MSWebDVD1"), "the large DVD", 5)
console.press("MSWebDVD1")
console.wait_until(lambda: shown("framMovie"), "its controls", 3)
console.screenshot("movies_dvd_controls")
console.press("cmdMovie", 10)
console.wait_until(lambda: not large("MSWebDVD1"), "its page", 3)

# Away and back
console.press("cmdMenuforDVD")
console.wait_until(lambda: says("Menu"), "the menu for the third time", 5)
finger_on(1, "the ferry", "Chapter 1 of 1")
console.press("imgTabs", 0)
assert not shown("MSWebDVD1")
console.press("imgTabs", 1)
console.wait_until(lambda: shown("MSWebDVD1") and lit(2), "the DVD paused by leaving", 5)
console.press("cmdControls", 1)
at = console.position()
console.wait_until(lambda: lit(1) and console.position() > at, "the DVD going on", 10)
console.press("cmdControls", 3)
console.wait_until(lambda: shown("MovieList"), "the folders after the stop", 5)
console.end()
