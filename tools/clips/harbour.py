"""A harbour from dusk to night: sky, hills, a lit town, a lighthouse, boats, and the water that mirrors them.

Lengths are shares of the picture's height; the land ends at HORIZON, the rest is water.
"""
import math

import cairo
import numpy as np

HORIZON = 0.6
SKIES = (  # night from 0 to 1: the colours from the zenith to the horizon
    (0.0, ((0.13, 0.16, 0.35), (0.48, 0.30, 0.47), (0.98, 0.62, 0.36))),
    (0.5, ((0.06, 0.10, 0.25), (0.20, 0.22, 0.42), (0.72, 0.40, 0.35))),
    (1.0, ((0.02, 0.04, 0.12), (0.06, 0.11, 0.24), (0.18, 0.22, 0.36))),
)
LAMP = (1.0, 0.80, 0.45)


def blend(a, b, share):
    return tuple(x + (y - x) * share for x, y in zip(a, b))


def sky_colours(night):
    for (low, first), (high, second) in zip(SKIES, SKIES[1:]):
        if night <= high:
            return [blend(x, y, (night - low) / (high - low)) for x, y in zip(first, second)]
    return SKIES[-1][1]


def glow(pen, x, y, radius, colour, strength):
    """Light that adds to what is there and dies away."""
    light = cairo.RadialGradient(x, y, 0, x, y, radius)
    for at, share in ((0, 1), (0.15, 0.45), (0.45, 0.12), (1, 0)):
        light.add_color_stop_rgba(at, *colour, share * strength)
    pen.set_operator(cairo.OPERATOR_ADD)
    pen.set_source(light)
    pen.arc(x, y, radius, 0, 2 * math.pi)
    pen.fill()
    pen.set_operator(cairo.OPERATOR_OVER)


def shape(pen, points, colour):
    pen.move_to(*points[0])
    for point in points[1:]:
        pen.line_to(*point)
    pen.close_path()
    pen.set_source_rgb(*colour)
    pen.fill()


class Harbour:
    def __init__(self, width, height):
        chance = np.random.default_rng(11)
        self.width, self.height, self.wide = width, height, width / height
        self.stars = chance.random((90, 4))
        self.windows = chance.random((120, 4))
        self.hills = [chance.random(9) * 2 * math.pi for _ in range(2)]

    def hill(self, which, x):
        """Height above the horizon."""
        a = self.hills[which]
        low, high, pace = ((0.10, 0.05, 1.3), (0.045, 0.025, 2.6))[which]
        return low + high * (math.sin(pace * x + a[0]) + 0.5 * math.sin(2.3 * pace * x + a[1])
                             + 0.2 * math.sin(6.1 * pace * x + a[2]))

    def frame(self, t, night, pan=0.0, ferry=None, zoom=1.0):
        """The picture at t seconds as height x width x 3 bytes; ferry: where its bow is, or None."""
        surface = cairo.ImageSurface(cairo.FORMAT_RGB24, self.width, self.height)
        pen = cairo.Context(surface)
        pen.scale(self.height, self.height)
        self.sky(pen, t, night, pan)
        pen.translate(self.wide / 2, HORIZON)
        pen.scale(zoom, zoom)
        pen.translate(-self.wide / 2 - pan, -HORIZON)
        self.land(pen, t, night)
        self.lighthouse(pen, t, night)
        for place, size, turn in ((0.50, 0.15, 0.0), (0.66, 0.11, 1.7), (0.85, 0.13, 3.1)):
            self.sailing_boat(pen, t, place, size, turn, night)
        if ferry is not None:
            self.ferry(pen, t, ferry)
        surface.flush()
        shown = np.ndarray((self.height, self.width, 4), np.uint8, surface.get_data())
        picture = shown[:, :, 2::-1].astype(np.float32)
        self.water(picture, t, night)
        return picture.clip(0, 255).astype(np.uint8)

    def sky(self, pen, t, night, pan):
        colours = cairo.LinearGradient(0, 0, 0, HORIZON)
        for at, colour in zip((0, 0.6, 1), sky_colours(night)):
            colours.add_color_stop_rgb(at, *colour)
        pen.set_source(colours)
        pen.paint()
        if night < 0.9:
            glow(pen, 0.62 * self.wide - 0.4 * pan, HORIZON + 0.04 + 0.1 * night, 0.7,
                 (1.0, 0.55, 0.25), 0.75 * (1 - night))
        for x, y, size, phase in self.stars:
            shine = max(0, night - 0.25) * (0.5 + 0.5 * math.sin(1.7 * t + 40 * phase))
            glow(pen, x * self.wide - 0.1 * pan, 0.5 * y, 0.006 + 0.008 * size, (0.8, 0.88, 1.0), shine)

    def land(self, pen, t, night):
        colours = sky_colours(night)
        for which, share in ((0, 0.62), (1, 0.84)):
            steps = [i / 60 for i in range(-30, int(self.wide * 60) + 60)]
            edge = [(x, HORIZON - self.hill(which, x)) for x in steps]
            shape(pen, [(steps[0], HORIZON), *edge, (steps[-1], HORIZON)],
                  blend(colours[2 if which == 0 else 1], (0.03, 0.05, 0.12), share))
        for x, y, size, phase in self.windows:
            place = x * (self.wide + 0.6) - 0.3
            above = self.hill(1, place) * (0.1 + 0.75 * y)
            lit = min(1, max(0, 2.2 * (0.35 + night - phase)))
            shine = lit * (0.75 + 0.25 * math.sin(t * (1 + 2 * size) + 30 * phase))
            glow(pen, place, HORIZON - above, 0.012 + 0.016 * size, LAMP, shine)

    def lighthouse(self, pen, t, night):
        x, top = 0.24, HORIZON - 0.30
        shape(pen, [(-0.5, HORIZON), (-0.5, HORIZON - 0.03), (x + 0.1, HORIZON - 0.022),
                    (x + 0.14, HORIZON)], (0.06, 0.07, 0.12))
        white = blend((0.78, 0.68, 0.64), (0.26, 0.28, 0.38), night)
        shape(pen, [(x - 0.028, HORIZON - 0.02), (x - 0.017, top), (x + 0.017, top),
                    (x + 0.028, HORIZON - 0.02)], white)
        red = blend((0.62, 0.24, 0.20), (0.25, 0.11, 0.13), night)
        for low, high in ((0.30, 0.46), (0.62, 0.78)):
            a, b = (0.028 - 0.011 * share for share in (low, high))
            down, up = (HORIZON - 0.02 - 0.28 * share for share in (low, high))
            shape(pen, [(x - a, down), (x - b, up), (x + b, up), (x + a, down)], red)
        shape(pen, [(x - 0.022, top), (x - 0.022, top - 0.008), (x + 0.022, top - 0.008),
                    (x + 0.022, top)], (0.10, 0.09, 0.13))
        shape(pen, [(x - 0.012, top - 0.008), (x - 0.012, top - 0.036), (x + 0.012, top - 0.036),
                    (x + 0.012, top - 0.008)], (1.0, 0.92, 0.70))
        shape(pen, [(x - 0.018, top - 0.036), (x, top - 0.058), (x + 0.018, top - 0.036)], red)
        self.beam(pen, x, top - 0.022, t, night)

    @staticmethod
    def beam(pen, x, y, t, night):
        """The lamp turns once in six seconds; seen from aside its cone widens and narrows."""
        turn = 2 * math.pi * t / 6 + 0.6
        for side in (0, math.pi):
            across = math.cos(turn + side)
            towards = 0.5 + 0.5 * math.sin(turn + side)
            end, spread = 1.9 * across, 0.05 + 0.12 * towards
            cone = cairo.LinearGradient(x, y, x + end, y)
            cone.add_color_stop_rgba(0, 1, 0.93, 0.72, 0.20 + 0.40 * night)
            cone.add_color_stop_rgba(1, 1, 0.93, 0.72, 0)
            pen.set_operator(cairo.OPERATOR_ADD)
            pen.set_source(cone)
            pen.move_to(x, y - 0.006)
            pen.line_to(x + end, y - spread)
            pen.line_to(x + end, y + spread * 0.7)
            pen.line_to(x, y + 0.006)
            pen.fill()
            pen.set_operator(cairo.OPERATOR_OVER)
        glow(pen, x, y, 0.10 + 0.06 * max(0, math.sin(turn)) ** 4, (1, 0.9, 0.65), 0.9)

    def sailing_boat(self, pen, t, place, size, turn, night):
        pen.save()
        pen.translate(place * self.wide, HORIZON)
        pen.rotate(0.035 * math.sin(1.4 * t + turn))
        pen.scale(size, size)
        hull = blend((0.20, 0.14, 0.20), (0.05, 0.06, 0.11), night)
        shape(pen, [(-0.62, -0.16), (0.70, -0.19), (0.46, 0.02), (-0.48, 0.02)], hull)
        shape(pen, [(-0.30, -0.16), (-0.22, -0.30), (0.20, -0.30), (0.30, -0.17)], hull)
        pen.set_source_rgb(*hull)
        pen.set_line_width(0.035)
        for points in (((0.06, -0.2), (0.06, -1.55)), ((0.06, -0.42), (-0.58, -0.40))):
            pen.move_to(*points[0])
            pen.line_to(*points[1])
            pen.stroke()
        pen.set_line_width(0.012)
        pen.move_to(-0.60, -0.18)
        pen.line_to(0.06, -1.53)
        pen.line_to(0.69, -0.2)
        pen.stroke()
        glow(pen, 0.06, -1.58, 0.32, (1.0, 0.95, 0.85), 0.8)
        glow(pen, -0.02, -0.24, 0.22, LAMP, 0.9)
        pen.restore()

    @staticmethod
    def ferry(pen, t, bow):
        pen.save()
        pen.translate(bow, HORIZON + 0.002 * math.sin(1.1 * t))
        pen.scale(0.30, 0.30)
        shape(pen, [(0, -0.25), (-0.16, 0.02), (-1.42, 0.02), (-1.48, -0.20)], (0.05, 0.07, 0.14))
        shape(pen, [(-0.20, -0.22), (-0.30, -0.38), (-1.40, -0.38), (-1.46, -0.19)], (0.72, 0.70, 0.74))
        shape(pen, [(-0.38, -0.38), (-0.46, -0.52), (-1.24, -0.52), (-1.30, -0.38)], (0.58, 0.57, 0.64))
        shape(pen, [(-0.92, -0.52), (-0.95, -0.72), (-1.12, -0.72), (-1.12, -0.52)], (0.62, 0.24, 0.20))
        for row, first, count in ((-0.30, -1.32, 13), (-0.45, -1.16, 9)):
            for i in range(count):
                x = first + 0.08 * i
                shape(pen, [(x, row), (x, row + 0.05), (x + 0.045, row + 0.05), (x + 0.045, row)],
                      (1.0, 0.84, 0.52))
                glow(pen, x + 0.02, row + 0.025, 0.10, LAMP, 0.5)
        glow(pen, -0.06, -0.30, 0.22, (0.35, 1.0, 0.55), 0.8)
        glow(pen, -0.62, -0.62, 0.24, (1.0, 0.97, 0.9), 0.9)
        pen.restore()

    def water(self, picture, t, night):
        """Each point shows what stands above it, shaken by three trains of waves."""
        shore = int(HORIZON * self.height)
        rows = np.arange(shore, self.height, dtype=np.float32)[:, None]
        columns = np.arange(self.width, dtype=np.float32)[None, :]
        depth = (rows - shore) / (self.height - shore)
        far = 1 / (depth + 0.12)
        across = (columns / self.width - 0.5) * self.wide * far
        swell = np.sin(9 * far + 1.6 * t + 2 * np.sin(1.3 * across + 0.4 * t))
        chop = np.sin(21 * far - 2.3 * t + 5 * across) + np.sin(14 * far + 2.9 * t - 7 * across)
        out = np.zeros((self.height - shore, self.width, 3), np.float32)
        for pull in (-1, 0, 1):
            shake = (0.6 * swell + 0.5 * chop + pull) * (0.006 + 0.024 * depth) * self.height
            row = np.clip(2 * shore - rows - 1 - shake, 0, shore - 1).astype(np.int32)
            aside = (chop - swell) * (0.001 + 0.006 * depth) * self.height
            column = np.clip(columns + aside, 0, self.width - 1).astype(np.int32)
            out += picture[row, column] / 3
        tint = np.array(blend((0.72, 0.66, 0.76), (0.55, 0.62, 0.80), night), np.float32)
        out *= tint * (0.93 - 0.30 * depth + 0.05 * swell)[:, :, None]
        picture[shore:] = out
