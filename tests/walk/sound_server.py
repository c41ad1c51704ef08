"""A PulseAudio of a walk's own with one sink that is no device, reached through ALSA's plug-in."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import time


class SoundServer:
    """Sets the environment for programs that are started while it lives."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-sound-"))
        self.socket = f"unix:{self.folder}/native"
        self.environment = dict(os.environ, XDG_RUNTIME_DIR=str(self.folder), HOME=str(self.folder))
        sheet = self.folder / "alsa.conf"
        sheet.write_text("</usr/share/alsa/alsa.conf>\n"
                         f'ctl.!default {{ type pulse server "{self.socket}" }}\n')
        os.environ["ALSA_CONFIG_PATH"] = str(sheet)
        self.process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
             "--disable-shm", "-L", "module-null-sink sink_name=none", "-L",
             f"module-native-protocol-unix auth-anonymous=1 socket={self.folder}/native"],
            env=self.environment, stderr=subprocess.DEVNULL)
        end = time.monotonic() + 10
        while "Default Sink: none" not in self.pactl("info"):
            assert time.monotonic() < end, "no sound server; are pulseaudio and its tools installed?"
            time.sleep(0.1)

    def pactl(self, *arguments):
        return subprocess.run(["pactl", f"--server={self.socket}", *arguments], env=self.environment,
                              capture_output=True, text=True, timeout=10).stdout

    def percent(self):
        return int(self.pactl("get-sink-volume", "none").split("%")[0].split("/")[-1])

    def stop(self):
        self.process.terminate()
        self.process.wait(timeout=10)

    def end(self):
        if self.process.poll() is None:
            self.stop()
        shutil.rmtree(self.folder)
