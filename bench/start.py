#!/usr/bin/env python3
"""start.py BUILD [SONGS...]: from the start of the program to its painted splash screen and to the first
answered press, beside the painted window of an empty Qt program, and what the console costs when it then
rests. Painted means seen on the X display, which must have nothing on it. One JSON line for each library
size. Memory is the proportional set size; wake-ups are voluntary context switches of all threads."""
import ctypes
import json
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

BUILD = pathlib.Path(sys.argv[1])
SIZES = [int(size) for size in sys.argv[2:]] or [20_000, 1_000_000]
RUNS, REST = 15, 10


class Screen:
    """One point of the display."""
    def __init__(self):
        self.x = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XGetImage"):
            getattr(self.x, name).restype = ctypes.c_void_p
        self.x.XDefaultRootWindow.restype = self.x.XGetPixel.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.bare = self.point()

    def point(self):
        every, whole = ctypes.c_ulong(0xFFFFFFFF), 2
        image = ctypes.c_void_p(self.x.XGetImage(self.display, self.root, 640, 400, 1, 1, every, whole))
        point = self.x.XGetPixel(image, 0, 0)
        self.x.XDestroyImage(image)
        return point

    def seconds_until(self, painted, begun):
        while (self.point() != self.bare) != painted:
            assert time.perf_counter() < begun + 20, "nothing is painted"
            time.sleep(0.0005)
        return time.perf_counter() - begun


SCREEN = Screen()


def empty_window():
    """Seconds until it was painted."""
    begun = time.perf_counter()
    process = subprocess.Popen([BUILD / "bench/empty_window"], stderr=subprocess.DEVNULL)
    seconds = SCREEN.seconds_until(True, begun)
    process.kill()
    process.wait()
    SCREEN.seconds_until(False, time.perf_counter())
    return seconds


def first_answer(home):
    """The running console, and the seconds until its splash was painted and until a press was answered."""
    path = home / "control"
    path.unlink(missing_ok=True)
    begun = time.perf_counter()
    process = subprocess.Popen([BUILD / "app/korvane", "--home", home, "--control", path,
                                "--windowed=1280x800"], stderr=subprocess.DEVNULL)
    splash = SCREEN.seconds_until(True, begun)
    link = socket.socket(socket.AF_UNIX)
    while link.connect_ex(str(path)) != 0:
        time.sleep(0.0005)
    stream = link.makefile("rw")

    def ask(**command):
        stream.write(json.dumps(command) + "\n")
        stream.flush()
        return json.loads(stream.readline())

    while not (ask(cmd="press", name="imgTabs", index=0)["ok"]
               and ask(cmd="get", name="imgTabs", index=0).get("picture") == "music/musicb"):
        time.sleep(0.001)
    return process, ask, splash, time.perf_counter() - begun


def switches(pid):
    total = 0
    for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status"):
        for line in status.read_text().splitlines():
            if line.startswith("voluntary_ctxt_switches"):
                total += int(line.split()[1])
    return total


def cpu(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def pss(pid):
    for line in pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024


for songs in SIZES:
    home = pathlib.Path(tempfile.mkdtemp(prefix="korvane-start-"))
    subprocess.run([BUILD / "app/korvane", "--home", home, "--list", "artists"], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    (home / "Morvanta.mdb").unlink()
    subprocess.run([BUILD / "bench/make_library", "db", home, str(songs)], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    bare, splashes, ready = [], [], []
    for run in range(RUNS):
        bare.append(empty_window())
        process, ask, splash, seconds = first_answer(home)
        splashes.append(splash)
        ready.append(seconds)
        if run == RUNS - 1:
            time.sleep(3)  # the splash has faded
            memory, before, woken = pss(process.pid), cpu(process.pid), switches(process.pid)
            time.sleep(REST)
            load = (cpu(process.pid) - before) / REST
            woken = (switches(process.pid) - woken) / REST
        ask(cmd="quit")
        process.wait(20)
        SCREEN.seconds_until(False, time.perf_counter())
    window = statistics.median(bare)
    print(json.dumps({
        "bench": "start", "songs": songs, "empty_window_s": round(window, 3),
        "splash_s": round(statistics.median(splashes), 3),
        "splash_ratio": round(statistics.median(splashes) / window, 2),
        "ready_s": round(statistics.median(ready), 3),
        "ratio": round(statistics.median(ready) / window, 2),
        "pss_mib": round(memory, 1), "idle_core": round(load, 4), "idle_wakeups_s": round(woken, 1)}))
    shutil.rmtree(home)
