#!/usr/bin/python3
"""disc.py DIRECTORY: makes the disc "Harbour Tour" as DIRECTORY/VIDEO_TS.

A menu of two buttons. The left one plays title 1, the tour in three chapters; the right one title 2, the
night ferry. Both return to the menu. PAL, 720 x 576, 4:3. Needs python3-numpy, python3-cairo, ffmpeg,
dvdauthor, mjpegtools (spumux) and Inter (fonts-inter).

The buttons, in pixels of the menu's picture (720 x 576), the second corner outside:
  1, left:   x  56 to 340, y 196 to 444    "Play the tour"
  2, right:  x 380 to 664, y 196 to 444    "Night ferry"
"""
import math
import os
import pathlib
import shutil
import sys
import tempfile

import cairo
import numpy as np

import film
from harbour import Harbour

WIDTH, HEIGHT = 720, 576
BUTTONS = ((56, 196, 340, 444, "Play the tour"), (380, 196, 664, 444, "Night ferry"))
CHAPTERS, CHAPTER_SECONDS, FERRY_SECONDS, MENU_SECONDS = 3, 3, 8, 2
DRAWN = (512, 384)  # square pixels of 4:3; FFmpeg brings them to the disc's size
INK, ACCENT = (0.96, 0.95, 0.92), (0.96, 0.72, 0.37)

MENU_XML = """<subpictures format="PAL"><stream><spu start="00:00:00.00" force="yes"
 highlight="{folder}/highlight.png" select="{folder}/select.png">{buttons}</spu></stream></subpictures>"""
BUTTON_XML = '<button name="{name}" x0="{0}" y0="{1}" x1="{2}" y1="{3}" left="1" right="2" up="1" down="2"/>'
DISC_XML = """<dvdauthor dest="{disc}"><vmgm><menus><video format="pal" aspect="4:3"/><pgc entry="title">
<vob file="{folder}/menu.mpg" pause="inf"/><button name="1">jump title 1;</button>
<button name="2">jump title 2;</button></pgc></menus></vmgm>
<titleset><titles><video format="pal" aspect="4:3"/><audio lang="en"/>
<pgc><vob file="{folder}/tour.mpg" chapters="{chapters}"/><post>call vmgm menu;</post></pgc>
<pgc><vob file="{folder}/ferry.mpg"/><post>call vmgm menu;</post></pgc></titles></titleset></dvdauthor>"""


def tour(harbour):
    """Dusk, the lamps coming on, night: three looks at one harbour, a chapter each."""
    for number in range(CHAPTERS * CHAPTER_SECONDS * film.RATE):
        t = number / film.RATE
        chapter, share = int(t // CHAPTER_SECONDS), t % CHAPTER_SECONDS / CHAPTER_SECONDS
        night, pan, zoom, bow = ((0.05 + 0.15 * share, 0.10 * share, 1.0, 0.62 + 0.03 * t),
                                 (0.5 + 0.15 * share, 0.34 + 0.08 * share, 1.35, None),
                                 (0.9 + 0.1 * share, -0.26 - 0.04 * share, 1.3, None))[chapter]
        yield harbour.frame(t, night, pan, bow, zoom)


def ferry(harbour):
    """The ferry leaves at night, and the eye goes with her."""
    for number in range(FERRY_SECONDS * film.RATE):
        t = number / film.RATE
        bow = 1.0 + 0.07 * t
        yield harbour.frame(t + 20, 0.8 + 0.02 * t, bow - 0.88, bow, 1.5)


def rounded(pen, x0, y0, x1, y1, r):
    pen.new_path()
    for x, y, turn in ((x1 - r, y0 + r, -1), (x1 - r, y1 - r, 0), (x0 + r, y1 - r, 1), (x0 + r, y0 + r, 2)):
        pen.arc(x, y, r, turn * math.pi / 2, (turn + 1) * math.pi / 2)
    pen.close_path()


def write(pen, text, x, y, size, bold=False):
    """Centred on x. The menu's pixels are 16:15 wide, so the letters are drawn narrower."""
    pen.select_font_face("Inter", cairo.FONT_SLANT_NORMAL,
                         cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL)
    pen.set_font_matrix(cairo.Matrix(xx=size * 15 / 16, yy=size))
    pen.move_to(x - pen.text_extents(text).x_advance / 2, y)
    pen.show_text(text)


def picture(frame):
    """A frame as a cairo surface."""
    height, width, _ = frame.shape
    bytes_ = np.zeros((height, width, 4), np.uint8)
    bytes_[:, :, :3] = frame[:, :, ::-1]
    return cairo.ImageSurface.create_for_data(bytearray(bytes_.tobytes()), cairo.FORMAT_RGB24, width, height)


def lay(pen, image, x0, y0, x1, y1):
    """The picture fills the rectangle; what is too much is cut at its sides."""
    pen.save()
    pen.translate((x0 + x1) / 2, (y0 + y1) / 2)
    scale = max((x1 - x0) / image.get_width(), (y1 - y0) / image.get_height())
    pen.scale(scale, scale)
    pen.set_source_surface(image, -image.get_width() / 2, -image.get_height() / 2)
    pen.get_source().set_filter(cairo.FILTER_BEST)
    pen.paint()
    pen.restore()


def menu_picture(scenes, ground):
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, WIDTH, HEIGHT)
    pen = cairo.Context(surface)
    lay(pen, picture(ground), 0, 0, WIDTH, HEIGHT)
    pen.set_source_rgba(0.03, 0.04, 0.10, 0.58)
    pen.paint()
    pen.set_source_rgb(*INK)
    write(pen, "Harbour Tour", WIDTH / 2, 118, 54, bold=True)
    pen.set_source_rgb(*ACCENT)
    write(pen, "an evening by the water", WIDTH / 2, 156, 24)
    for (x0, y0, x1, y1, caption), scene in zip(BUTTONS, scenes):
        pen.save()
        rounded(pen, x0 + 8, y0 + 8, x1 - 8, y1 - 8, 16)
        pen.clip()
        pen.set_source_rgb(0.07, 0.09, 0.16)
        pen.paint()
        pen.save()
        pen.rectangle(x0, y0, x1 - x0, y1 - y0 - 70)
        pen.clip()
        lay(pen, picture(scene), x0 + 8, y0 + 8, x1 - 8, y1 - 70)
        pen.restore()
        pen.restore()
        pen.set_source_rgb(*INK)
        write(pen, caption, (x0 + x1) / 2, y1 - 30, 27, bold=True)
    surface.flush()
    return np.ndarray((HEIGHT, WIDTH, 4), np.uint8, surface.get_data())[:, :, 2::-1].copy()


def frames_of_buttons(target, colour):
    """The chosen button's frame: no soft edges, since a subpicture has four colours."""
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, WIDTH, HEIGHT)
    pen = cairo.Context(surface)
    pen.set_antialias(cairo.ANTIALIAS_NONE)
    pen.set_source_rgb(*colour)
    pen.set_line_width(8)
    for x0, y0, x1, y1, _ in BUTTONS:
        rounded(pen, x0 + 4, y0 + 4, x1 - 4, y1 - 4, 20)
        pen.stroke()
    surface.write_to_png(str(target))


def dvd(frames, size, sound, target, rate):
    film.encode(frames, size, [sound], target, "-vf", "scale=720:576:flags=lanczos", "-target", "pal-dvd",
                "-aspect", "4:3", "-b:v", rate, "-maxrate", "2500k", "-g", "15", "-bf", "0",
                "-sc_threshold", "1000000000", "-b:a", "96k",
                "-ac", "2")


def make(folder, disc):
    harbour = Harbour(*DRAWN)
    film.music(folder / "tour.wav", CHAPTERS * CHAPTER_SECONDS, key="D4", mode="major", tempo=112, style="piano",
               room=0.35, chords="1 5 6 4", melody="5:1.5 3:.5 1 3 | 2:1.5 3:.5 5:2 | 6 5:.5 3:.5 1 3 | 2:1 1:3")
    film.music(folder / "ferry.wav", FERRY_SECONDS, key="A3", mode="minor", tempo=104, style="synth", room=0.3,
               chords="1 6 3 7", melody="5:2 3 1 | 6:2 5 3 | 5 3 2 3 | 1:4")
    film.music(folder / "menu.wav", MENU_SECONDS, key="D4", mode="major", tempo=120, style="piano", room=0.4,
               chords="1", melody="5:1 3:1 1:2")
    dvd(tour(harbour), DRAWN, folder / "tour.wav", folder / "tour.mpg", "560k")
    dvd(ferry(harbour), DRAWN, folder / "ferry.wav", folder / "ferry.mpg", "500k")

    large = Harbour(640, 480)
    still = menu_picture((large.frame(1.0, 0.1, 0.0, 0.86), large.frame(24, 0.9, 0.37, 1.25, 1.5)),
                         large.frame(3.0, 0.45, 0.2))
    dvd((still for _ in range(MENU_SECONDS * film.RATE)), (WIDTH, HEIGHT), folder / "menu.wav",
        folder / "plain.mpg", "600k")
    frames_of_buttons(folder / "highlight.png", ACCENT)
    frames_of_buttons(folder / "select.png", (1, 1, 1))
    buttons = "".join(BUTTON_XML.format(*button[:4], name=i + 1) for i, button in enumerate(BUTTONS))
    (folder / "menu.xml").write_text(MENU_XML.format(folder=folder, buttons=buttons))
    with open(folder / "plain.mpg", "rb") as plain, open(folder / "menu.mpg", "wb") as out:
        film.run("spumux", "-m", "dvd", "-P", folder / "menu.xml", stdin=plain, stdout=out)
    chapters = ",".join("0:00:%02d" % (i * CHAPTER_SECONDS) for i in range(CHAPTERS))
    (folder / "disc.xml").write_text(DISC_XML.format(disc=folder / "disc", folder=folder, chapters=chapters))
    film.run("dvdauthor", "-x", folder / "disc.xml", env={**os.environ, "VIDEO_FORMAT": "PAL"})
    shutil.rmtree(disc / "VIDEO_TS", ignore_errors=True)
    shutil.copytree(folder / "disc" / "VIDEO_TS", disc / "VIDEO_TS")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as work:
        make(pathlib.Path(work), pathlib.Path(sys.argv[1]))
