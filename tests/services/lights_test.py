"""korvane-lights as a program between real TCP and a real broker: a hundred lamps, a broker that is killed and
comes back, a flood, a table that is wrong, a house in memory."""
import atexit
import pathlib
import re
import signal
import socket
import subprocess
import sys
import tempfile
import time

from broker import Broker, BrokerPeer

LIGHTS, MASTER = sys.argv[1:3]
folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-lights-"))
running = []


class Service:
    def __init__(self, program, *arguments):
        self.log = folder / f"{time.monotonic_ns()}.log"
        self.process = subprocess.Popen([program, "--as-root", "--port", "0", *arguments], stderr=self.log.open("w"))
        running.append(self.process)
        atexit.register(self.process.kill)  # a test that fails leaves none behind
        self.port = int(self.wait(r"listening at 127\.0\.0\.1 port (\d+)")[1])

    def wait(self, pattern, seconds=15):
        end = time.monotonic() + seconds
        while not (found := re.search(pattern, self.log.read_text())):
            assert time.monotonic() < end, f"{pattern} is not in {self.log.read_text()}"
            time.sleep(0.02)
        return found

    def end(self):
        self.process.terminate()
        assert self.process.wait(timeout=10) == 0, self.log.read_text()


class Console:
    def __init__(self, service):
        self.socket, self.waiting = socket.create_connection(("127.0.0.1", service.port), timeout=10), b""

    def say(self, records):
        self.socket.sendall(records.replace("|", "\0").replace("$", "\1").encode())

    def record(self):
        while b"\1" not in self.waiting:
            self.waiting += (data := self.socket.recv(65536))
            assert data, "the service ended the connection"
        record, _, self.waiting = self.waiting.partition(b"\1")
        return record.replace(b"\0", b"|").decode()

    def expect(self, *records):
        for wanted in records:
            got = self.record()
            assert got == wanted, f"{got} in place of {wanted}"


table = folder / "lamps"
table.write_text("".join(f"[A{unit}]\ndescription = Lamp {unit}\ntopic = lamp/{unit}/set\nstate = lamp/{unit}\n"
                         "dims = yes\nsteps = 10\n" for unit in range(1, 101)))
broker, master = Broker(), Service(MASTER)
lights = Service(LIGHTS, "--table", table, "--broker", f"127.0.0.1:{broker.port}", "--name", "Saloon",
                 "--master", f"127.0.0.1:{master.port}")
lights.wait("the broker is there")
master.wait('entered X10 "Saloon" at 127.0.0.1 port ' + str(lights.port))
peer, one, two = BrokerPeer(broker), Console(lights), Console(lights)

# What one console switches the other sees, and so it does what a switch on the wall tells.
two.say("STATE|A$")
two.expect("BROKER|HERE", *[f"LEVEL|A|{unit}|" for unit in range(1, 101)])
one.say("ON|A|7$")
peer.expect("lamp/7/set ON")
two.expect("LEVEL|A|7|100")
for level in (90, 80):
    one.say("DIM|A|7$")
    peer.expect(f"lamp/7/set {level}")
    two.expect(f"LEVEL|A|7|{level}")
peer.say("lamp/100", "35")
assert peer.hear() == "lamp/100 35"
two.expect("LEVEL|A|100|35")
one.say("".join(f"OFF|A|{unit}$" for unit in range(1, 101)))
assert {peer.hear() for _ in range(100)} == {f"lamp/{unit}/set OFF" for unit in range(1, 101)}
assert {two.record() for _ in range(100)} == {f"LEVEL|A|{unit}|0" for unit in range(1, 101)}

# A broker that is away and back.
time.sleep(0.3)  # the last acknowledgements come
broker.kill()
two.expect("BROKER|AWAY")
one.say("ON|A|3$OFF|A|3$ON|A|3$LEVEL|A|9|20$OFF|A|9$LEVEL|A|9|60$")
two.expect("LEVEL|A|3|100", "LEVEL|A|3|0", "LEVEL|A|3|100", "LEVEL|A|9|20", "LEVEL|A|9|0", "LEVEL|A|9|60")
lights.process.send_signal(signal.SIGSTOP)  # so that the peer is there before it
broker.start()
peer = BrokerPeer(broker)
lights.process.send_signal(signal.SIGCONT)
two.expect("BROKER|HERE")
assert {peer.hear(), peer.hear()} == {"lamp/3/set ON", "lamp/9/set 60"}
assert (more := peer.hear(0.5)) is None, f"{more} besides the last of each lamp"
one.say("OFF|A|3$")
peer.expect("lamp/3/set OFF")

# A flood: whoever sends it is dropped, and the lamp ends as the last record that counts says.
flood = Console(lights)
try:
    flood.say("ON|A|5$OFF|A|5$" * 20_000)
except (ConnectionResetError, BrokenPipeError):
    pass
lights.wait("more than 500 records")
last = None
while message := peer.hear(1):
    assert message.startswith("lamp/5/set "), message
    last = message
one.say("ON|A|6$")
peer.expect("lamp/6/set ON")
wanted = "LEVEL|A|6|100"
while (got := two.record()) != wanted:
    level = got
assert level == {"lamp/5/set ON": "LEVEL|A|5|100", "lamp/5/set OFF": "LEVEL|A|5|0"}[last], (level, last)
lights.end()
master.wait('gone: X10 "Saloon"')
master.end()

# Without a broker at the start it waits for one.
broker.kill()
lights = Service(LIGHTS, "--table", table, "--broker", f"127.0.0.1:{broker.port}")
lights.wait("no broker")
console = Console(lights)
console.say("STATE|B$ON|A|1$")
console.expect("BROKER|AWAY", "LEVEL|A|1|100")
broker.start()
console.expect("BROKER|HERE")
lights.end()

house = Service(LIGHTS, "--simulate")
console = Console(house)
console.say("STATE|A$")
state = [console.record() for _ in range(9)]
assert state[0] == "BROKER|HERE" and state[1] == "LEVEL|A|1|0" and len(state) == 9, state
console.say("LEVEL|A|1|40$")
console.expect("LEVEL|A|1|40")
house.end()

(folder / "wrong").write_text("[A1]\ntopic = x\n[A2]\nbrightness = 3\n")
for arguments, words in ((["--table", str(folder / "wrong")], "line 4: brightness is not understood"),
                         (["--table", str(folder / "none")], "No such file"), ([], "--table FILE is missing"),
                         (["--simulate", "--broker", "x:y"], "--broker takes HOST or HOST:PORT")):
    refused = subprocess.run([LIGHTS, "--as-root", *arguments], capture_output=True, timeout=10)
    assert refused.returncode == 1 and words.encode() in refused.stderr, refused
for process in running:
    assert process.poll() == 0, process.args
