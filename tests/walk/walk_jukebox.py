"""The jukebox in a real window: three songs queued by finger play through and leave; the volume held up and
down; the mutes of music and movies kept apart."""
import sys
import time

from console import Console


def queue():
    return console.rows(6)


def volume():
    return console.get("scrollVolume")["value"]


console = Console(sys.argv[1], settings=["DisplayVolume=1", "ShowMute=1"])
console.press("imgTabs", 0)
console.press("optMode", 1)
console.press("Grid", 0, row=1)
console.press("Grid", 2, row=1)
titles = console.rows(1)[:3]
for row in (1, 2, 3):
    console.press("Grid", 1, row=row)
    time.sleep(0.3)
console.press("cmdTop", 2)
console.wait_until(lambda: queue() == titles, "three selections")
assert console.get("lblCurrentPlayList")["caption"] == "Jukebox!   number of selections (3)"
console.wait_until(lambda: console.position() > 0, "the first selection")
console.screenshot("jukebox")
for left in (2, 1, 0):
    length = console.get("Slider1")["maximum"]
    console.must(cmd="set", name="Slider1", value=length - 1)
    console.wait_until(lambda: len(queue()) == left, f"{left} selections left", seconds=30)
    assert queue() == titles[3 - left:]
    if left:
        console.wait_until(lambda: console.position() > 0 and console.get("Slider1")["value"] < 10, "the next")
console.wait_until(lambda: console.get("lblCurrentPlay")["caption"] == "Status: Idle", "silence")

console.must(cmd="hold", name="ScrollVolumeDN")
console.wait_until(lambda: volume() < 1200, "quieter")
assert console.get("ScrollVolumeDN")["picture"] == "music/volminusb"
console.screenshot("quieter")
console.must(cmd="release")
low = volume()
console.must(cmd="hold", name="ScrollVolumeUp")
console.wait_until(lambda: volume() > low + 500, "louder")
console.must(cmd="release")
still = volume()
time.sleep(0.6)
assert volume() == still

console.press("mute")
assert console.get("mute")["picture"] == "music/muteb"
console.press("imgTabs", 1)
assert console.get("mute")["picture"] == "music/mute"
console.press("mute")
console.press("imgTabs", 0)
console.press("mute")
assert console.get("mute")["tag"] == "01"
console.end()
