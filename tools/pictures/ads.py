"""The ads of a first start, for records and a disc of its own invented makers: 1280 x 800 pixels."""
import io
import math
import pathlib
import subprocess

import cairo
import numpy as np

import coast
import paint
from paint import Scene, colour, smooth

SIZE = (1280, 800)
COVERS = pathlib.Path(__file__).resolve().parent.parent / "songs/covers"


def text(pen, words, x, y, size, hue, weight="Inter", spread=0.0, share=1.0):
    """Words from x on the line y; spread: room between the letters, as a share of their size."""
    pen.select_font_face(weight, cairo.FONT_SLANT_NORMAL, cairo.FONT_WEIGHT_NORMAL)
    pen.set_font_size(size)
    pen.set_source_rgba(*colour(hue), share)
    for letter in words:
        pen.move_to(x, y)
        pen.show_text(letter)
        x += pen.text_extents(letter).x_advance + spread * size
    return x


def cover(name):
    data = subprocess.run(["rsvg-convert", "-w", "1000", "-h", "1000", str(COVERS / name)], check=True,
                          capture_output=True).stdout
    return cairo.ImageSurface.create_from_png(io.BytesIO(data))


def shadow(scene, x, y, wide, tall, soft, share):
    """What a card of that size throws on the ground below it."""
    across = smooth(-soft, soft, scene.x - x) * smooth(-soft, soft, x + wide - scene.x)
    down = smooth(-soft, soft, scene.y - y) * smooth(-soft, soft, y + tall - scene.y)
    scene.picture *= (1 - share * across * down)[..., None]


def record(scene, x, y, radius, label):
    """A record with its grooves and the light that lies on them."""
    away = scene.away(x, y)
    turn = np.arctan2(scene.y - y, scene.x - x)
    groove = 0.5 + 0.5 * np.sin(away * 2600) * np.sin(away * 91 + 1)
    light = np.clip(np.cos(2 * (turn - 0.7)), 0, 1) ** 10
    body = (0.045 + 0.02 * groove + 0.20 * light * (0.6 + 0.4 * groove))[..., None] * np.ones(3, np.float32)
    edge = 1.0 / scene.height
    paint.over(scene.picture, smooth(radius + edge, radius - edge, away), body)
    paint.over(scene.picture, smooth(0.34 * radius + edge, 0.34 * radius - edge, away), colour(label))
    paint.over(scene.picture, smooth(0.025 * radius + edge, 0.025 * radius - edge, away), colour("0A0A0C"))


def sleeve(scene, image, x, y, size):
    def draw(pen):
        pen.translate(x, y)
        pen.scale(size / image.get_width(), size / image.get_height())
        pen.set_source_surface(image)
        pen.get_source().set_filter(cairo.FILTER_BEST)
        pen.paint()
    scene.pen(draw)
    gleam = smooth(0.30, 0.0, np.abs((scene.x - x) + 0.6 * (scene.y - y) - 0.35 * size)) * 0.10
    inside = (scene.x > x) & (scene.x < x + size) & (scene.y > y) & (scene.y < y + size)
    paint.lighten(scene.picture, (gleam * inside)[..., None] * np.ones(3, np.float32))


def album(name, ground, glow, label, ink, accent, artist, title, line, small):
    """An ad for a record: its sleeve with the record half drawn, the words beside it."""
    scene = Scene(*SIZE)
    across = 0.55 * scene.y + 0.45 * scene.x / scene.wide
    scene.picture[:] = paint.ramp(ground, across)
    scene.glow(0.50, 0.50, 0.55, glow, 0.55)
    size, x, y = 0.60, 0.13, 0.20
    shadow(scene, x + 0.01, y + 0.035, size + 0.21, size - 0.02, 0.07, 0.55)
    record(scene, x + size - 0.03, y + size / 2, 0.285, label)
    shadow(scene, x + 0.004, y + 0.008, size + 0.006, size - 0.01, 0.02, 0.5)
    sleeve(scene, cover(name), x, y, size)

    def words(pen):
        left = 1.045
        text(pen, artist.upper(), left, 0.335, 0.026, accent, "Inter SemiBold", 0.16)
        for number, part in enumerate(title):
            text(pen, part, left - 0.004, 0.445 + 0.098 * number, 0.094, ink, "Inter Display SemiBold", -0.015)
        low = 0.445 + 0.098 * (len(title) - 1)
        pen.set_source_rgba(*colour(accent), 0.9)
        pen.rectangle(left, low + 0.050, 0.07, 0.004)
        pen.fill()
        for number, part in enumerate(line):
            text(pen, part, left, low + 0.112 + 0.045 * number, 0.031, ink, "Inter", 0, 0.92)
        text(pen, small, left, 0.80, 0.021, ink, "Inter Medium", 0.02, 0.70)
    scene.pen(words)
    return scene.finish(21, 0.006, 0.20)


def lumen_quay():
    return album("harbour_lights.svg", [(0, "0C1730"), (0.6, "24406B"), (1, "7D5A55")], "4E75B0", "E9A86B", "F4EFE6",
                 "F2BE84", "Lumen Quay", ("Harbour", "Lights"), ("The new record. Songs for", "the last boat home."),
                 "On this console: Music, Albums")


def paper_orchard():
    return album("windfall.svg", [(0, "F3E4C6"), (0.6, "E4C48E"), (1, "C99A5C")], "FFF6DE", "9DA65A", "3A2A1C",
                 "A3402C", "The Paper Orchard", ("Windfall",), ("Picked by hand, played on", "wood and wire. Out now."),
                 "On this console: Music, Albums")


def harbour_tour():
    """The disc Harbour Tour over the harbour it shows."""
    scene = Scene(*SIZE)
    coast.quiet_harbour(scene, 0.34, -0.50, 0.6)
    dim = 0.42 * smooth(0.62, 0.30, scene.x / scene.wide) * np.ones_like(scene.y)
    paint.over(scene.picture, dim, colour("0A1022"))
    disc(scene, 1.26, 0.455, 0.255)

    def words(pen):
        left = 0.12
        text(pen, "NOW ON DVD", left, 0.335, 0.026, "FFC98C", "Inter SemiBold", 0.16)
        text(pen, "Harbour Tour", left - 0.004, 0.445, 0.086, "FFF7EC", "Inter Display SemiBold", -0.015)
        pen.set_source_rgba(*colour("FFC98C"), 0.9)
        pen.rectangle(left, 0.497, 0.07, 0.004)
        pen.fill()
        text(pen, "Come in with the evening ferry,", left, 0.565, 0.033, "FFF7EC", "Inter", 0, 0.95)
        text(pen, "stay until the lamps are lit.", left, 0.612, 0.033, "FFF7EC", "Inter", 0, 0.95)
        text(pen, "On this console: Movies, DVD", left, 0.80, 0.021, "FFF7EC", "Inter Medium", 0.02, 0.75)
    scene.pen(words)
    return scene.finish(22, 0.006, 0.25)


def disc(scene, x, y, radius):
    """A silver disc with the colours that light makes on it."""
    away, edge = scene.away(x, y), 1.0 / scene.height
    around = smooth(radius * 1.25, radius * 0.9, scene.away(x + 0.012, y + 0.03))
    scene.picture *= (1 - 0.5 * around)[..., None]
    turn = np.arctan2(scene.y - y, scene.x - x)
    sheen = 0.5 + 0.5 * np.cos(2 * turn + 0.8)
    phase = (6 * turn + 9 * away / radius)[..., None] + np.array([0, 2 * math.pi / 3, 4 * math.pi / 3], np.float32)
    rainbow = (0.5 + 0.5 * np.cos(phase)) * (sheen ** 3)[..., None]
    body = (0.46 + 0.34 * sheen ** 2)[..., None] * colour("E4E8F0") + 0.20 * rainbow
    body = body * (1 - 0.10 * smooth(0.36, 0.30, away / radius))[..., None]
    paint.over(scene.picture, smooth(radius + edge, radius - edge, away), body)
    for share, hue, much in ((0.975, "FFFFFF", 0.5), (0.36, "5A6070", 0.6), (0.30, "FFFFFF", 0.35)):
        ring = np.exp(-((away - share * radius) * scene.height / 1.3) ** 2)
        paint.over(scene.picture, ring * much, colour(hue))
    hub = smooth(0.29 * radius, 0.28 * radius, away) * 0.45
    paint.over(scene.picture, hub, colour("B9C2D2"))
    paint.over(scene.picture, smooth(0.12 * radius + edge, 0.12 * radius - edge, away), colour("1A2036"))
