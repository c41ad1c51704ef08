"""Playlists and favourites with a finger: a list is made, named on the screen, put in order, saved,
played and brought back; favourites are marked, unmarked, written and read."""
import sys

from console import Console, every_line_opens

console = Console(sys.argv[1], settings=["ListUndo=YES"])
LISTS = console.home / "PlayLists"


def edited():
    return console.rows(None, "gridPlayListSongs")


# A list of its own
console.press("imgTabs", 0)
console.press("cmdTop", 2)
assert console.rows(6) == [], console.rows(6)
console.edit_new_list()
console.press("cmdTop", 3)
titles = console.rows(5)
for row in (4, 1):
    console.press("Grid", 5, row=row)
    console.press("cmdPlayListCommands", 3)
console.press("cmdTop", 0)
album = console.open_album(1, 1)
console.press("cmdPlayListCommands", 4)
assert edited() == [titles[3], titles[0], *album], edited()
assert console.get("lblCurrentPlay")["caption"] == "Status: Idle", "a tap in the editor only chooses"

# Found as it is typed
console.press("cmdTop", 4)
console.press("cmdSearchKind", 1)
console.must(cmd="type", text="er")
found = console.must(cmd="rows", name="gridSearch")["rows"]
assert found and all("er" in row["cells"][1].lower() for row in found), found
console.screenshot("playlist_search")
console.must(cmd="press", name="gridSearch", row=1)
first = console.rows(None, "gridSearch")[0]
console.must(cmd="press", name="gridSearch", row=1)
console.press("cmdTop", 4)
assert edited()[-1] == first, edited()

# Put in order
console.must(cmd="press", name="gridPlayListSongs", row=2)
console.press("cmdPlayListCommands", 1)
console.press("cmdOneSong", 3)
console.press("cmdOneSong", 3)
console.press("cmdPlayListCommands", 0)
wanted = [titles[0], titles[3], *album[1:], first]
assert edited() == wanted, (edited(), wanted)
console.screenshot("playlist_editor")

# Another list is asked about; the name is refused, then taken
console.press("cmdTop", 6)
console.box("cancel any play list changes", "no")
console.press("cmdPlayListChoices", 1)
console.type_on_screen("a*b")
console.box("File name cannot contain")
console.type_on_screen("road trip")
console.wait_until(lambda: console.get("Grid", 6)["visible"], "the playlists")
assert console.rows(6) == ["road trip"]
assert len(every_line_opens(LISTS / "road trip.m3u")) == len(wanted)

# It plays, and comes back after another list has taken its place
console.press("Grid", 6, row=1)
console.wait_until(lambda: console.get("Grid", 3)["visible"], "the list's songs")
assert console.rows(3) == wanted, console.rows(3)
assert console.get("lblCurrentPlayList")["caption"] == f"Play List = road trip  ({len(wanted)})"
console.press("Grid", 3, row=2)
console.wait_until(lambda: console.position() > 2, "two seconds of the second song")
console.screenshot("playlist_playing")
console.press("cmdTop", 3)
console.press("Grid", 5, row=6)
console.wait_until(lambda: console.title() == titles[5], "the other song")
console.screenshot("playlist_replaced")
console.press("cmdListUndo")
console.wait_until(lambda: console.title() == wanted[1], "the song that ran")
console.wait_until(lambda: console.position() >= 2, "its place", 5)
assert console.rows(3) == wanted and console.get("Grid", 3)["row"] == 2
console.press("cmdControls", 4)
console.wait_until(lambda: console.title() == wanted[2], "the list going on")
console.press("cmdControls", 3)

# Favourites from all songs, an album and a playlist
console.press("cmdTop", 3)
console.press("cmdOneSong", 0)
console.press("cmdFavoriateAdd")
marked = {console.rows(5)[console.get("Grid", 5)["row"] - 1]}
console.press("cmdTop", 0)
marked.add(console.open_album(2, 1)[0])
console.press("cmdFavoriateAdd")
console.press("cmdTop", 2)
console.press("Grid", 6, row=1)
console.press("cmdFavoriateAdd")
marked.add(wanted[0])
console.press("cmdTop", 6)
assert set(console.rows(8)) == marked and len(marked) == 3, (console.rows(8), marked)
console.screenshot("favourites")


def press_in_setup(index):
    console.press("cmdSetup")
    console.must(cmd="press", name="cmdOther", form="frmSetup")
    console.must(cmd="press", name="cmdPage", index=2, form="frmGuiSetup")
    console.must(cmd="press", name="cmdExportFavoriates", index=index, form="frmGuiSetup")


def leave_setup():
    console.must(cmd="press", name="cmdCmd", index=1, form="frmGuiSetup")
    console.must(cmd="press", name="cmdOK", form="frmSetup")


press_in_setup(0)
console.box("Output file written = ")
assert len(every_line_opens(LISTS / "Favorites.m3u")) == 3
leave_setup()
console.press("Grid", 8, row=1, col=6)
assert len(console.rows(8)) == 2
press_in_setup(1)
leave_setup()
console.press("cmdTop", 6)
assert set(console.rows(8)) == marked, console.rows(8)
console.end()
