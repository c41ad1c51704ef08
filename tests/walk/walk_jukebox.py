"""The jukebox in a real window: three songs queued by finger play through and leave."""
import sys
import time

from console import Console


def queue():
    return console.rows(6)


console = Console(sys.argv[1])
console.press("imgTabs", 0)
console.press("optMode", 1)
titles = console.open_album(1, 1)[:3]
for row in (1, 2, 3):
    console.press("Grid", 1, row=row)
    time.sleep(0.3)
console.press("cmdTop", 2)
console.wait_until(lambda: queue() == titles, "three selections")
assert console.get("lblCurrentPlayList")["caption"] == "Jukebox!   number of selections (3)"
console.wait_until(lambda: console.position() > 0, "the first selection")
console.screenshot("jukebox")
for left in (2, 1, 0):
    console.seek_to_end()
    console.wait_until(lambda: len(queue()) == left, f"{left} selections left", seconds=30)
    assert queue() == titles[3 - left:]
    if left:
        console.wait_until(lambda: 0 < console.position() < 10, "the next")
console.wait_until(lambda: console.title() == "Status: Idle", "silence")
console.end()
