"""Photos at seat in a real window: folders walked, a show started, paused, seen full screen and ended; the sheet,
where pictures are chosen, turned, imported, deleted and taken back; the viewer; a print to PDF; an ad after idle
time and the touch that only wakes."""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

from console import Console

printed = pathlib.Path(tempfile.mkdtemp())
os.environ["KORVANE_PRINT_TO"] = str(printed)
console = Console(sys.argv[1], settings=["ADDSON=NO"])
photos = console.home / "Photos"


def shown(name, index=None, form=None):
    where = {"form": form} if form else {}
    answer = console.ask(cmd="get", **console.place(name, index), **where)
    return answer["ok"] and answer["visible"]


def value(form, name, what, index=None):
    return console.must(cmd="get", form=form, **console.place(name, index))[what]


def names():
    return [row["cells"][1] for row in console.must(cmd="rows", name="PhotoList")["rows"]]


def files(folder):
    return sorted(path.name for path in folder.iterdir() if path.is_file())


def size_of(path):
    run = subprocess.run(["identify", "-format", "%w %h", str(path)], capture_output=True, text=True, check=True)
    return tuple(int(number) for number in run.stdout.split()[:2])


# Down into a folder and up again
console.press("imgTabs", 2)
console.wait_until(lambda: len(names()) > 2, "the folders of the album")
console.screenshot("photos_root")
folder = next(path for path in sorted(photos.iterdir()) if path.is_dir())
row = next(i for i, name in enumerate(names(), 1) if name.startswith(folder.name))
console.press("PhotoList", row=row)
console.wait_until(lambda: len(names()) > len(files(folder)), "the pictures of the folder")
assert names()[1:] == files(folder), names()
console.press("PhotoList", row=1)
console.wait_until(lambda: any(name.startswith(folder.name) for name in names()[1:]), "the album again")
console.press("PhotoList", row=next(i for i, name in enumerate(names(), 1) if name.startswith(folder.name)))
console.wait_until(lambda: names()[1:] == files(folder), "the folder again")

# A show: the touched picture at once, paused, in full screen with its panel, ended
console.press("PhotoList", row=3)
console.wait_until(lambda: shown("picTransition"), "the show", 3)
time.sleep(1.5)  # its first picture is there
console.screenshot("photos_show")
assert console.get("cmdControls", 1)["picture"].endswith("b")
console.press("cmdControls", 2)
assert console.get("cmdControls", 2)["picture"].endswith("b")
console.press("cmdControls", 4)
console.press("cmdMovieFullScreen")
console.wait_until(lambda: shown("picTransition", form="frmViewFullScreen"), "the full screen", 5)
console.press("picTransition", form="frmViewFullScreen")
console.wait_until(lambda: shown("tools", form="frmViewFullScreen"), "its panel", 3)
time.sleep(0.5)
console.screenshot("photos_full_screen")
console.press("cmdTools", 0, form="frmViewFullScreen")
console.press("cmdTools", 4, form="frmViewFullScreen")
console.wait_until(lambda: not shown("picTransition", form="frmViewFullScreen"), "its end", 3)
console.press("cmdControls", 3)
console.wait_until(lambda: shown("PhotoList"), "the list", 3)

# The sheet
sheet = "frmViewPic"
console.press("cmdPhotoSetup")
count = len(files(folder))
console.wait_until(lambda: shown("picSlide", form=sheet) and value(sheet, "picSlide", "cells") == count, "the sheet")
console.wait_until(lambda: not shown("picProgress", form=sheet), "its thumbnails")
assert value(sheet, "lblCount", "caption") == f"Images: {count}"
assert len(files(folder / "thumbs")) == count
console.screenshot("photos_sheet")
turned = folder / files(folder)[0]
before = size_of(turned)
console.press("picSlide", form=sheet, row=0)
console.press("cmdOptions", form=sheet)
console.wait_until(lambda: shown("mnuOptions", form=sheet), "the menu", 3)
console.screenshot("photos_menu")
console.press("mnuRotate", form=sheet)
console.wait_until(lambda: size_of(turned) == before[::-1], "the turn")
console.wait_until(lambda: not shown("picProgress", form=sheet), "its end")

# Import to a new folder
console.press("cmdOptions", form=sheet)
console.press("mnuGroup", form=sheet)
console.type_on_screen("best")
console.wait_until(lambda: (photos / "best").is_dir() and files(photos / "best") == [turned.name], "the import")

# Deleted and taken back
gone = folder / files(folder)[1]
console.press("picSlide", form=sheet, row=0)
console.press("picSlide", form=sheet, row=1)
console.press("cmdOptions", form=sheet)
console.press("mnuDeleted", form=sheet)
console.box("You are about to delete all highlighted pictures!", "yes")
console.wait_until(lambda: not gone.exists(), "the deletion")
console.wait_until(lambda: shown("fraTakeBack", form=sheet), "the way back", 3)
console.screenshot("photos_deleted")
console.press("cmdTakeBack", form=sheet)
console.wait_until(gone.exists, "the picture taken back", 5)

# A print
console.press("picSlide", form=sheet, row=2)
console.press("cmdOptions", form=sheet)
console.press("mnuPrint", form=sheet)
console.wait_until(lambda: shown("cmdok", form="frmPrint"), "the printers", 5)
console.wait_until(lambda: console.must(cmd="get", form="frmPrint", name="cmdok")["enabled"], "a printer", 5)
time.sleep(0.7)  # the page is drawn
console.screenshot("photos_print")
console.press("cmdok", form="frmPrint")
console.wait_until(lambda: [path for path in printed.iterdir() if path.read_bytes()[-6:].strip() == b"%%EOF"],
                   "the printed page", 15)
console.wait_until(lambda: not shown("picProgress", form=sheet), "the end of the print", 5)

# The viewer
console.must(cmd="doublepress", name="picSlide", form=sheet, row=2)
viewer = "frmViewBig"
console.wait_until(lambda: shown("picBig", form=viewer), "the viewer", 5)
console.wait_until(lambda: value(viewer, "tbZoomFactor", "caption").endswith("%"), "its picture", 5)
time.sleep(0.5)
console.press("butZoom100", form=viewer)
console.wait_until(lambda: value(viewer, "tbZoomFactor", "caption") == "100.00%", "pixel for pixel", 3)
console.screenshot("photos_viewer")
console.press("butZoomFit", form=viewer)
console.press("butNext", form=viewer)
console.press("imgExit", form=viewer)
console.wait_until(lambda: not shown("picBig", form=viewer), "the sheet", 3)
console.screenshot("photos_sheet_again")
console.press("imgExit", form=sheet)
console.wait_until(lambda: not shown("picSlide", form=sheet), "the tab", 3)

# An ad after idle time; the first touch only wakes
console.stop()
ini = console.home / "Morvanta.INI"
lines = [line for line in ini.read_text().splitlines() if not line.startswith(("ADDSON=", "ADDSTART="))]
ini.write_text("\n".join(lines).replace("[STARTUP]", "[STARTUP]\nADDSON=YES\nADDSTART=2", 1) + "\n")
console.start()
console.wait_until(lambda: shown("picTransition", form="frmViewAdds"), "an ad", 15)
time.sleep(0.7)
console.screenshot("photos_ad")
console.press("picTransition", form="frmViewAdds")
console.wait_until(lambda: not shown("picTransition", form="frmViewAdds"), "its end", 3)
console.stop()
