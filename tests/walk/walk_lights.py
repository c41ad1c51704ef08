"""The lamps of a cabin: two consoles, korvane-lights and a real broker. A lamp is dimmed by holding its tile and
seen at the broker, a scene is kept and played, a switch on the wall shows, the broker and the service go and
come back, and nothing of it disturbs the music."""
import atexit
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

from console import Console

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "services"))
from broker import Broker, BrokerPeer  # noqa: E402

program, master_program, listener_program, music = sys.argv[1:5]
lights_program = pathlib.Path(listener_program).with_name("korvane-lights")
folder = pathlib.Path(tempfile.mkdtemp())
table = folder / "lamps"
table.write_text("".join(f"[A{unit}]\ntopic = lamp/{unit}/set\nstate = lamp/{unit}\ndims = {dims}\n"
                         for unit, dims in enumerate(("yes", "yes", "yes", "yes", "no", "yes", "no", "no"), 1)))


def lights_at(port):
    log = folder / f"{time.monotonic_ns()}.log"
    process = subprocess.Popen([lights_program, "--as-root", "--port", port, "--table", table, "--broker",
                                f"127.0.0.1:{broker.port}"], stderr=log.open("w"))
    atexit.register(process.kill)  # a walk that fails leaves none behind
    for _ in range(200):
        if "the broker is there" in log.read_text():
            return process, re.search(r"listening at \S+ port (\d+)", log.read_text())[1]
        time.sleep(0.05)
    raise AssertionError(log.read_text())


def tiles(console):
    return [cell["caption"] for cell in console.must(cmd="rows", name="shtX10")["rows"]]


def shows(console, cell, level):
    console.wait_until(lambda: tiles(console)[cell].endswith(f"  {level}"), f"{level} of lamp {cell}", 5)


def heard_until(last):
    heard = []
    while not heard or heard[-1] != last:
        heard.append(peer.hear())
        assert heard[-1], f"{heard} without {last}"
    return heard


broker = Broker()
peer = BrokerPeer(broker)
lights, port = lights_at("0")
settings = ["X10IP=127.0.0.1", f"X10Port={port}"]
one, two = Console(program, settings=settings), Console(program, settings=settings, size="800x480")
one.press("imgTabs", 0)
one.open_album(2, 1)
one.press("Grid", 1, row=1)
one.wait_until(lambda: one.position() > 0.5, "the song")
for console in (one, two):
    console.press("imgTabs", 5)
    console.wait_until(lambda: console.get("lblX10")["caption"] == "X10 listener Active", "the link", 5)
assert tiles(one)[0] == "Reading left", tiles(one)  # nothing is known of it yet
one.press("shtX10", row=0)
peer.expect("lamp/1/set ON")
for console in (one, two):
    shows(console, 0, "100 %")

# Held, it dims step by step until the finger leaves, and by the next hold grows brighter.
one.must(cmd="hold", name="shtX10", row=0)
heard_until("lamp/1/set 60")
one.must(cmd="release")
time.sleep(0.5)
level = int(tiles(two)[0].split()[-2])
assert 40 <= level <= 60, level
while (message := peer.hear(0.5)):
    assert int(message.split()[1]) >= level
shows(one, 0, f"{level} %")
one.must(cmd="hold", name="shtX10", row=0)
heard_until(f"lamp/1/set {level + 20}")
one.must(cmd="release")
one.press("shtX10", row=4)
shows(two, 4, "100 %")
peer.say("lamp/3", "35")  # a switch on the wall
shows(one, 2, "35 %")
for console, size in ((one, os.environ.get("KORVANE_WALK_SIZE", "1280x800")), (two, "800x480")):
    console.screenshot(f"lights_{size}")

one.press("cmdScene", 9)
one.type_on_screen("dinner")
one.wait_until(lambda: one.get("cmdScene", 1)["visible"], "the scene")
before = tiles(one)
two.press("cmdScene", 0)
for cell in (0, 2, 4):
    shows(one, cell, "off")
one.press("cmdScene", 1)
one.wait_until(lambda: tiles(one)[4] == before[4] and tiles(one)[0].endswith(" %"), "the scene again", 5)

broker.kill()
one.wait_until(lambda: "cannot be reached" in one.get("lblX10")["caption"], "the loss of the broker", 5)
one.screenshot("lights_away")
for _ in range(3):
    one.press("shtX10", row=4)
shows(two, 4, "off")
broker.start()
peer = BrokerPeer(broker)
one.wait_until(lambda: one.get("lblX10")["caption"] == "X10 listener Active", "the broker", 15)
lights.kill()
lights.wait()
one.wait_until(lambda: one.get("lblX10")["caption"] == "X10 listener DISCONNECTED", "the loss of the service", 5)
one.press("shtX10", row=4)
assert not one.must(cmd="messages")["messages"]
lights, _ = lights_at(port)
one.press("imgTabs", 5)
one.wait_until(lambda: one.get("lblX10")["caption"] == "X10 listener Active", "the service again", 5)
one.press("shtX10", row=6)
heard_until("lamp/7/set ON")
one.press("imgTabs", 0)
one.wait_until(lambda: one.title() != "Status: Idle", "the music going on")

# The lamps' names, in setup.
one.press("cmdSetup")
one.press("cmdAddDir", 4, form="frmSetup")
one.wait_until(lambda: one.ask(cmd="get", name="ss", form="frmX10Setup")["ok"], "frmX10Setup", 5)
one.screenshot("lights_setup")
assert not one.must(cmd="get", name="ss", form="frmX10Setup")["cut"], "a column is too narrow"
one.press("ss", form="frmX10Setup", row=9, col=2)
one.type_on_screen("bar")
one.press("cmd", 1, form="frmX10Setup")
assert "\na9d=bar\n" in (one.home / "Morvanta.INI").read_text().lower()
one.press("cmdOK", form="frmSetup")
one.end()
two.end()
lights.terminate()
assert lights.wait(timeout=10) == 0
