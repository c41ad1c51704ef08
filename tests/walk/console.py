"""A console in a real window, worked through its control socket as a finger would."""
import atexit
import json
import os
import pathlib
import shutil
import socket
import subprocess
import tempfile
import time

# The keys of the screen's keyboard by their letters, as its codes are.
SCAN = dict(zip("1234567890", range(2, 12))) | dict(zip("qwertyuiop", range(16, 26))) | \
    dict(zip("asdfghjkl", range(30, 39))) | dict(zip("zxcvbnm", range(44, 51))) | \
    {"*": 9, " ": 57, "\n": 28}
SIZE = os.environ.get("KORVANE_WALK_SIZE", "1280x800")  # of a window whose walk tells none


class Console:
    """Starts `program` in a program directory of its own; `settings` are lines for [STARTUP], `buttons` the
    owner's buttons in place of the theme's."""

    def __init__(self, program, settings=(), user_values="", vlc="--aout=adummy", size=SIZE,
                 buttons=None):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="korvane-walk-"))
        self.program = program
        subprocess.run([program, "--home", self.home, "--list", "artists"], check=True,
                       stdout=subprocess.DEVNULL, timeout=120)
        ini = self.home / "Morvanta.INI"
        text = ini.read_text()
        for line in settings:
            key = line.split("=")[0]
            kept = [old for old in text.splitlines() if not old.startswith(key + "=")]
            text = "\n".join(kept).replace("[STARTUP]", "[STARTUP]\n" + line, 1) + "\n"
        ini.write_text(text)
        (self.home / "user.ini").write_text(user_values)
        if buttons:
            (self.home / "krvgraphics/MERIDIAN/Buttonpositons.txt").write_text(buttons)
        self.size, self.environment = size, dict(os.environ, KORVANE_VLC_ARGS=vlc)
        self.start()

    def start(self):
        path = str(self.home / "control")
        self.process = subprocess.Popen([self.program, "--home", self.home, "--control", path,
                                         f"--windowed={self.size}"], env=self.environment)
        atexit.register(self.process.kill)  # a walk that fails leaves no console behind
        self.socket = socket.socket(socket.AF_UNIX)
        for _ in range(600):
            try:
                self.socket.connect(path)
                break
            except OSError:
                time.sleep(0.1)
        self.lines = self.socket.makefile("rw")
        self.wait_until(lambda: self.get("imgTabs", 3)["picture"] == "main/mainb", "the Main tab")
        self.wait_until(lambda: not self.get("Grid", 0)["visible"], "the end of the start")
        time.sleep(1.2)  # the splash fades

    def ask(self, **command):
        self.lines.write(json.dumps(command) + "\n")
        self.lines.flush()
        return json.loads(self.lines.readline())

    def must(self, **command):
        answer = self.ask(**command)
        assert answer["ok"], f"{command}: {answer}"
        return answer

    @staticmethod
    def place(name, index):
        return {"name": name} if index is None else {"name": name, "index": index}

    def press(self, name, index=None, **more):
        self.must(cmd="press", **self.place(name, index), **more)

    def get(self, name, index=None):
        answer = self.ask(cmd="get", **self.place(name, index))
        return answer if answer["ok"] else {"picture": "", "caption": "", "visible": True}

    def rows(self, index, name="Grid"):
        answer = self.must(cmd="rows", **self.place(name, index))
        return [row["cells"][0] for row in answer["rows"]]

    def open_album(self, artist, album):
        self.press("Grid", 0, row=artist)
        self.press("Grid", 2, row=album)
        return self.rows(1)

    def seek_to_end(self, left=1):
        self.wait_until(lambda: self.get("Slider1")["maximum"] > 20, "the length of the song")
        self.must(cmd="set", name="Slider1", value=self.get("Slider1")["maximum"] - left)

    def type_on_screen(self, text):
        self.wait_until(lambda: self.ask(cmd="get", name="txtInput", form="frmKeyboard")["ok"],
                        "the keyboard")
        for letter in text + "\n":
            if letter == "*":
                self.press("KEY", 42 - 2, form="frmKeyboard")
            self.press("KEY", SCAN[letter] - 2, form="frmKeyboard")

    def box(self, contains, answer="ok"):
        self.wait_until(lambda: self.must(cmd="messages")["messages"], f"a box with {contains}")
        shown = str(self.must(cmd="messages")["messages"])
        assert contains in shown, shown
        self.must(cmd="messages", answer=answer)

    def edit_new_list(self):
        self.press("cmdPlayLists")
        self.press("cmdPlayListChoices", 5, form="frmPlayList")
        self.wait_until(lambda: self.get("framSongEdit")["visible"], "the editor")

    def wait_until(self, condition, what, seconds=30):
        end = time.monotonic() + seconds
        while not condition():
            assert time.monotonic() < end, f"{what} did not come in {seconds} s"
            time.sleep(0.05)

    def folder_of_pictures(self):
        return pathlib.Path(os.environ.get("KORVANE_WALK_PICTURES", self.home))

    def screenshot(self, name):
        folder = self.folder_of_pictures()
        folder.mkdir(parents=True, exist_ok=True)
        self.must(cmd="screenshot", file=str(folder / f"{name}.png"))
        assert (folder / f"{name}.png").stat().st_size > 10_000

    def title(self):  # "Status: Idle" when nothing plays
        return self.get("lblCurrentPlay")["caption"].removeprefix("Playing: ")

    def position(self):
        return self.get("Slider1")["value"]

    def stop(self):
        self.ask(cmd="quit")
        code = self.process.wait(timeout=20)
        assert code == 0, f"the console ended with {code}"

    def restart(self):
        self.stop()
        self.start()

    def end(self):
        try:
            self.stop()
        finally:
            shutil.rmtree(self.home)


def every_line_opens(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    for line in lines:
        probed = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of",
                                 "csv=p=0", line], capture_output=True, text=True, timeout=60)
        assert probed.returncode == 0 and float(probed.stdout) > 1, (line, probed.stderr)
    return lines
