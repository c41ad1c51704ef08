"""korvane-master and korvane-listener as programs, over real TCP: the bytes of both directions; peers that
flood, stop in the middle, vanish and never read; files outside of the root."""
import atexit
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import wave

MASTER, LISTENER = sys.argv[1:3]
folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-daemons-"))
root = folder / "music"
root.mkdir()
with wave.open(str(root / "four seconds.wav"), "wb") as sound:
    sound.setparams((1, 2, 44100, 0, "NONE", ""))
    sound.writeframes(b"\0\x10" * 4 * 44100)
shutil.copy(root / "four seconds.wav", folder / "outside.wav")
(root / "link.wav").symlink_to("../outside.wav")


def signs(data):
    return data.replace(b"\0", b"|").replace(b"\1", b"$").replace(b"\2", b"~").decode("cp1252")


class Daemon:
    def __init__(self, program, *arguments, **further):
        self.log = folder / f"{pathlib.Path(program).name}.{time.monotonic_ns()}.log"
        # AddressSanitizer would keep what was freed, which counts as memory in use.
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"
        environment = dict(os.environ, KORVANE_VLC_ARGS="--aout=adummy", ASAN_OPTIONS=sanitizer, **further)
        self.process = subprocess.Popen([program, "--as-root", *arguments], stderr=self.log.open("w"),
                                        env=environment)
        atexit.register(self.process.kill)  # a test that fails leaves no daemon behind
        self.port = int(self.wait(r"listening at 127\.0\.0\.1 port (\d+)")[1])

    def wait(self, pattern, seconds=10):
        end = time.monotonic() + seconds
        while not (found := re.search(pattern, self.log.read_text())):
            assert time.monotonic() < end, f"{pattern} is not in {self.log.read_text()}"
            time.sleep(0.02)
        return found

    def memory(self):
        pages = pathlib.Path(f"/proc/{self.process.pid}/statm").read_text().split()[1]
        return int(pages) * os.sysconf("SC_PAGESIZE")

    def end(self):
        self.process.terminate()
        assert self.process.wait(timeout=10) == 0, self.log.read_text()
        assert self.log.read_text().endswith("ended\n")


class Peer:
    def __init__(self, daemon):
        self.socket = socket.create_connection(("127.0.0.1", daemon.port), timeout=15)
        self.waiting = b""

    def say(self, text):
        self.socket.sendall(text.replace("|", "\0").replace("$", "\1").encode("cp1252"))

    def record(self):
        """The next record, its end cut off."""
        while b"\1" not in self.waiting:
            data = self.socket.recv(65536)
            assert data, "the daemon ended the connection"
            self.waiting += data
        record, _, self.waiting = self.waiting.partition(b"\1")
        return signs(record)

    def expect(self, *records):
        for wanted in records:
            got = self.record()
            assert re.fullmatch(wanted, got), f"{got} in place of {wanted}"

    def until(self, pattern, passed=("MUSICTIMER", "MUSICDURATION")):
        while not re.fullmatch(pattern, got := self.record()):
            assert got.split("|")[0] in passed, f"{got} before {pattern}"

    def ended(self):
        try:
            while self.socket.recv(65536):
                pass
        except ConnectionResetError:
            pass
        except TimeoutError:
            return False
        return True


master = Daemon(MASTER, "--port", "0", "--allow-advertise", "10.0.0.9")
console, thief = Peer(master), Peer(master)
console.say("ML|REG|Seat 1|10.0.0.9|N/A|CLIENT|CLIENT$ML|IGET|ALL$")
console.expect(r"IREQUEST\|Seat 1~10\.0\.0\.9~N/A~CLIENT")
thief.say("ML|REG|Seat 1|10.0.0.9|N/A|CLIENT|CLIENT$ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$ML|IGET|ALL$")
thief.expect(r"IREQUEST\|Seat 1~10\.0\.0\.9~N/A~CLIENT\|Salon~127\.0\.0\.1~7411~MUSIC")
console.expect(r"NEW\|Salon~127\.0\.0\.1~7411~MUSIC")
thief.socket.close()
master.wait("gone: MUSIC \"Salon\" at 127.0.0.1 port 7411")
arguments = ["--root", str(root), "--tick", "200", "--name", "Salon", "--master", f"127.0.0.1:{master.port}"]
listener = Daemon(LISTENER, "--port", "0", *arguments)
entry = rf"Salon~127\.0\.0\.1~{listener.port}~MUSIC"
console.expect(rf"NEW\|{entry}")

one, two = Peer(listener), Peer(listener)
one.say("MUSIC|STATUS$")
one.expect(r"MEDIAPLAYERSTATE\|0", r"MAXVOLUME\|\d+", r"VOLUME\|\d+")
one.say("MUSIC|PLAY|Z:\\Music\\Four Seconds.WAV|Café$")
for peer in (one, two):
    peer.expect(r"MUSICDURATION\|[\d.]+", r"SONGPLAYING\|Café", r"MEDIAPLAYERSTATE\|2")
    if peer is two:
        peer.expect("PAUSETOPLAY")
    peer.until(r"MUSICTIMER\|0:0\d\|\d+\.\d+")
one.say("MUSIC|CURRENTPOSITION|3.5$")
one.until("ENDOFSTREAM")
listener.end()
master.wait(rf"gone: MUSIC \"Salon\" at 127.0.0.1 port {listener.port}")

listener = Daemon(LISTENER, "--port", str(listener.port), *arguments)
console.expect(rf"NEW\|{entry}")
peer = Peer(listener)
for path in (folder / "outside.wav", "../outside.wav", "..\\outside.wav", root / "link.wav", "link.wav",
             f"{root}/../outside.wav", "/etc/passwd", "/dev/zero", "x" * 5000, "\x02\x7f\xff"):
    peer.say(f"MUSIC|PLAY|{path}|x$")
    peer.expect(r"ERROR\|File not found")

peer.say("MUSIC|DURATION$" * 300)  # more than one turn handles
peer.expect(*[r"MUSICDURATION\|[\d.]+"] * 300)

flood, deaf = Peer(listener), Peer(listener)
try:
    flood.say("MUSIC|STATUS$" * 100_000)
except (ConnectionResetError, BrokenPipeError):
    pass
assert flood.ended()
before = listener.memory()
for _ in range(300):
    vanished = Peer(listener)
    vanished.say("MUSIC|STATUS$MUSIC|PL")
    vanished.socket.close()
try:
    for _ in range(4000):  # each is answered with as much, which is never read
        deaf.say("MUSIC|VOLUME|" + "9" * 8000 + "$")
        time.sleep(0.0025)
except (ConnectionResetError, BrokenPipeError):
    pass
listener.wait("it does not read what it is sent")
assert listener.memory() - before < 8 << 20, f"{listener.memory() - before} bytes more"
peer = Peer(listener)
peer.say("MUSIC|STATUS$")
peer.expect(r"MEDIAPLAYERSTATE\|0")
assert "QIODevice" not in listener.log.read_text()
listener.wait("more than 500 records")
listener.process.terminate()
assert listener.process.wait(timeout=10) == 0, "its log has no more room for its end"
# With movies it is two entries behind one port, and a connection hears its own part alone.
if pathlib.Path(LISTENER).with_name("korvane-listener-movies").exists():
    both = Daemon(LISTENER, "--port", "0", *arguments, "--movie-root", str(root), QT_QPA_PLATFORM="offscreen")
    for kind in ("MUSIC", "MOVIES"):
        console.until(rf"NEW\|Salon~127\.0\.0\.1~{both.port}~{kind}", ("NEW",))
    films, songs = Peer(both), Peer(both)
    films.say("MOVIE|STATUS$MOVIE|PLAY|/etc/passwd|x$")
    films.expect(r"MOVIEPLAYERSTATE\|STOP", r"MAXVOLUME\|\d+", r"VOLUME\|\d+", r"MOVIEERROR\|File not found")
    songs.say("MUSIC|PLAY|four seconds.wav|x$MUSIC|VOLUME|9$")
    songs.until(r"VOLUME\|9", ("MUSICTIMER", "MUSICDURATION", "SONGPLAYING", "MEDIAPLAYERSTATE"))
    films.expect(r"VOLUME\|9")
    both.end()
    nowhere = {name: value for name, value in os.environ.items()
               if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    refused = subprocess.run([LISTENER, "--as-root", "--movie-root", str(root)], env=nowhere, capture_output=True)
    assert refused.returncode == 1 and b"no display" in refused.stderr, refused
master.end()
for program in (MASTER, LISTENER):
    refused = subprocess.run([program, "--port", "0", "--root", str(root), "--nonsense"], capture_output=True)
    assert refused.returncode == 1 and b"is not understood" in refused.stderr
shutil.rmtree(folder)
