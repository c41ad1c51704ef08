"""Movies in the cabin: one seat plays a clip on the Movie Listener's screen, the other sees and pauses it; the
Listener is killed and comes back."""
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
starter = pathlib.Path(music).parent
CLIP = "Harbour at Dusk.mp4"
SCREEN = (420, 300, 830, 20)  # width, height and place, beside the consoles
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
    return service(listener_program, "--port", port, "--movie-root", starter / "Movies", "--dvd",
                   starter / "DVDs/Harbour Tour", "--screen", "{}x{}+{}+{}".format(*SCREEN), "--name", "Salon",
                   "--tick", "250", "--master", f"127.0.0.1:{master_port}")


def seat(number):
    console = Console(program, user_values="[KRV\\MOVIES]\nMOVIETYPE=DIGITAL\n", size="800x480", settings=[
        "LocalServer=1", "MasterListenerIP=127.0.0.1", f"MasterListenerPort={master_port}",
        f"MasterListenerMyName=Seat {number}"])
    console.stop()
    ini = console.home / "Morvanta.INI"
    ini.write_text(ini.read_text().replace("MovieListener=0", "MovieListener=1")
                   .replace("MDirectory=Movies", f"MDirectory={starter / 'Movies'}"))
    console.start()
    console.press("imgTabs", 1)
    console.wait_until(lambda: console.get("lblLink", 2)["caption"] == "● Movies", "the link of the movies", 10)
    console.wait_until(lambda: CLIP in console.rows(None, "MovieList"), "the list", 5)
    return console


def lit(console, index):
    return console.get("cmdControls", index)["picture"].endswith("b")


def brightest():
    """Of the Listener's screen; black while nothing plays."""
    width, height, x, y = SCREEN
    shot = subprocess.run(["ffmpeg", "-v", "error", "-f", "x11grab", "-video_size", f"{width}x{height}", "-i",
                           f"{os.environ['DISPLAY']}+{x},{y}", "-frames:v", "1", "-pix_fmt", "gray", "-f",
                           "rawvideo", "-"], capture_output=True, check=True, timeout=60).stdout
    assert len(shot) == width * height
    return max(shot)


def play(console):
    console.press("MovieList", row=2)
    for each in (one, two):
        each.wait_until(lambda: CLIP in each.get("lblCurrentPlay")["caption"] and each.position() > 0.5, "the clip", 10)


master, master_port = service(master_program, "--port", "0")
listener, port = listener_at("0")
one, two = seat(1), seat(2)
assert brightest() < 24, "the Listener's screen is dark while nothing plays"
play(one)
one.wait_until(lambda: brightest() > 120, "the clip on the Listener's screen", 5)
one.screenshot("movie_cabin_seat_1")
two.screenshot("movie_cabin_seat_2")
assert two.get("Slider1")["maximum"] == 14, two.get("Slider1")

two.press("cmdControls", 2)
for console in (one, two):
    console.wait_until(lambda: lit(console, 2), "the pause of seat 2", 3)
held = one.position()
time.sleep(0.6)
assert one.position() == held
two.press("cmdControls", 1)
for console in (one, two):
    console.wait_until(lambda: lit(console, 1) and console.position() > held, "the clip going on", 5)

listener.kill()
listener.wait()
for console in (one, two):
    console.wait_until(lambda: "Idle" in console.get("lblCurrentPlay")["caption"], "the loss", 3)
    console.wait_until(lambda: console.get("framLink")["visible"] and
                       console.get("lblLink", 2)["caption"].startswith("○ Movies"), "the loss in words", 3)
one.screenshot("movie_cabin_lost")
listener, port = listener_at(port)
for console in (one, two):
    console.wait_until(lambda: console.get("lblLink", 2)["caption"] == "● Movies", "the link once more", 10)
play(one)
two.press("cmdControls", 3)
one.wait_until(lambda: "Idle" in one.get("lblCurrentPlay")["caption"], "the stop of seat 2", 3)
one.end()
two.end()
for process in (listener, master):
    process.terminate()
    assert process.wait(timeout=10) == 0
