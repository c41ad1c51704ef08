"""The sound level with a finger, on a sound server of the walk's own: the buttons held, the bar, another
program's change, mute of music and of movies kept apart, and a server that goes while music plays."""
import atexit
import sys
import time

from console import Console
from sound_server import SoundServer

server = SoundServer()
atexit.register(lambda: server.process.kill())
console = Console(sys.argv[1], settings=["VolumeStart=40", "LOCALLISTENER=1", "FollowSound=NO"])
console.press("imgTabs", 0)


def near(percent, by=2):
    return abs(server.percent() - percent) <= by


def bar():
    return console.get("scrollVolume")["value"] / 24


console.wait_until(lambda: near(40), "the level of the start", 5)
console.press("cmdTop", 3)
console.press("Grid", 5, row=1)
console.wait_until(lambda: console.position() > 0, "the song")

# Held: 2 percent at once, 5 every fifth of a second, and nothing more when it is let go
console.must(cmd="hold", name="ScrollVolumeUp")
time.sleep(1.1)
assert console.get("ScrollVolumeUp")["picture"] == "music/volplusb"
console.must(cmd="release")
louder = server.percent()
assert 55 <= louder <= 72, louder
assert abs(bar() - louder) < 2, (bar(), louder)
time.sleep(0.5)
assert near(louder, 0) and console.get("ScrollVolumeUp")["picture"] == "music/volplus"
console.press("ScrollVolumeUp")
console.wait_until(lambda: near(louder + 2, 1), "one step", 2)
console.must(cmd="hold", name="ScrollVolumeDN")
console.wait_until(lambda: server.percent() == 0, "silence", 8)
time.sleep(0.5)
assert server.percent() == 0, "never below silence"
console.must(cmd="release")
console.must(cmd="set", name="scrollVolume", value=1200)
console.wait_until(lambda: near(50), "the bar", 2)
console.screenshot("volume")

# Another program
server.pactl("set-sink-volume", "none", "80%")
console.wait_until(lambda: abs(bar() - 80) < 1, "the change of another program", 1)

# Mutes
def mute():
    return console.get("mute")["picture"]


console.press("mute")
assert mute() == "music/muteb"
console.press("imgTabs", 1)
assert mute() == "music/mute", "the movies are not muted"
console.press("mute")
assert mute() == "music/muteb"
console.press("imgTabs", 0)
console.press("mute")
assert mute() == "music/mute"
console.press("imgTabs", 1)
assert mute() == "music/muteb", "music's own mute has not touched the movies'"
console.screenshot("volume_movies_muted")
console.press("mute")
console.press("imgTabs", 0)

# The server goes: the player's own volume serves, and the song goes on
console.press("cmdTop", 3)
console.press("Grid", 5, row=2)
console.wait_until(lambda: 0 < console.position() < 10, "the song after the mutes")
server.stop()
at = console.position()
console.wait_until(lambda: console.position() > at, "the song going on")
console.press("ScrollVolumeDN")
console.must(cmd="set", name="scrollVolume", value=600)
assert "25" in console.get("lblVolume")["caption"], console.get("lblVolume")
log = (console.home / "log.txt").read_text(errors="replace")
assert "The mixer has gone" in log, log
console.end()
server.end()
