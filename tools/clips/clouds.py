"""A flight above a sea of clouds at dawn: ridges of cloud, one behind the other, drawn from far to near.

The aeroplane is EYE above the clouds' mean height; the way flown is in the same unit.
"""
import math

import cairo
import numpy as np

EYE, NEAR, FAR, STEP = 1.5, 1.6, 46.0, 0.30
HORIZON = 0.46
SIDE = 512  # of the tile of heights, in samples
SAMPLES = 9.0  # to a unit of way
ZENITH, UPPER, LOW = (np.array(c, np.float32) for c in ((52, 84, 148), (150, 158, 196), (255, 196, 140)))
LIT, SHADE, HAZE = (np.array(c, np.float32) for c in ((255, 226, 204), (112, 118, 166), (250, 190, 150)))


def heights():
    """A tile of fractal noise that continues on its other side."""
    chance = np.random.default_rng(5)
    spectrum = np.fft.rfft2(chance.standard_normal((SIDE, SIDE)))
    pace = np.hypot(np.fft.fftfreq(SIDE)[:, None], np.fft.rfftfreq(SIDE)[None, :])
    pace[0, 0] = 1
    tile = np.fft.irfft2(spectrum * (pace > 0.004) / (pace ** 1.75), (SIDE, SIDE))
    tile /= tile.std()
    return (np.tanh(0.55 * tile) * 0.9).astype(np.float32)  # broad tops, broad valleys


class Clouds:
    def __init__(self, width, height):
        self.width, self.height, self.wide = width, height, width / height
        self.tile = heights()
        self.columns = (np.arange(width, dtype=np.float32) / height - self.wide / 2)
        self.rows = np.arange(height, dtype=np.float32)[:, None] / height

    def sample(self, x, z):
        """The height at each x for one z, between samples linear."""
        fx, fz = (x * SAMPLES) % SIDE, (z * SAMPLES) % SIDE
        ix, iz = fx.astype(np.int32), int(fz)
        fx, fz = fx - ix, fz - iz
        a, b = self.tile[iz % SIDE], self.tile[(iz + 1) % SIDE]
        line = a * (1 - fz) + b * fz
        return line[ix % SIDE] * (1 - fx) + line[(ix + 1) % SIDE] * fx

    def frame(self, t):
        """The picture at t seconds as height x width x 3 bytes."""
        way, bank = 1.15 * t, 0.014 * math.sin(0.5 * t)
        horizon = HORIZON + bank * self.columns
        picture = self.sky(horizon)
        first = math.ceil((way + NEAR) / STEP)
        last = math.floor((way + FAR) / STEP)
        for number in range(last, first - 1, -1):
            self.ridge(picture, horizon, number * STEP, number * STEP - way)
        self.wing(picture, t)
        return picture.clip(0, 255).astype(np.uint8)

    def sky(self, horizon):
        up = np.clip((horizon[None, :] - self.rows) / HORIZON, 0, 1)[:, :, None]
        picture = np.where(up < 0.35, LOW + (UPPER - LOW) * up / 0.35,
                           UPPER + (ZENITH - UPPER) * (up - 0.35) / 0.65)
        away = np.hypot(self.columns[None, :] + 0.28, (self.rows - HORIZON + 0.075) * 1.05)
        sun = np.exp(-(away / 0.30) ** 1.2) * 0.75 + np.clip((0.052 - away) * 90, 0, 1)
        return picture + sun[:, :, None] * (np.array((255, 244, 205), np.float32) - picture) * 0.95

    def ridge(self, picture, horizon, z, distance):
        x = self.columns * distance
        here = self.sample(x, z)
        crest = horizon + (EYE - 0.62 * here) / distance * 0.62
        top = max(0, int(crest.min() * self.height) - 1)
        end = min(self.height, int(crest.max() * self.height + 0.12 * self.height) + 2)
        if top >= self.height:
            return
        rows = self.rows[top:end]
        below = rows - crest[None, :]
        cover = np.clip(below * self.height / (1.5 + 14 / distance) , 0, 1)
        slope = self.sample(x - 0.35, z + 0.5) - here  # towards the sun, a cloud that is lower lights this one
        light = np.clip(0.52 + 0.30 * here - 0.85 * slope, 0, 1)
        colour = SHADE + (LIT - SHADE) * light[:, None]
        haze = 1 - math.exp(-distance / 19)
        colour = colour + (HAZE - colour) * haze
        cover *= min(1, (FAR - distance) / 6)
        part = picture[top:end]
        part += (colour[None] - part) * cover[:, :, None]

    def wing(self, picture, t):
        """The tip of the wing with its light, in front of everything."""
        surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, self.width, self.height)
        pen = cairo.Context(surface)
        pen.scale(self.height, self.height)
        pen.translate(self.wide, 0.004 * math.sin(1.9 * t))
        pen.move_to(0.02, 0.80)
        pen.curve_to(-0.20, 0.745, -0.34, 0.70, -0.47, 0.655)
        pen.curve_to(-0.50, 0.642, -0.515, 0.60, -0.528, 0.545)
        pen.line_to(-0.513, 0.543)
        pen.curve_to(-0.492, 0.60, -0.475, 0.622, -0.44, 0.632)
        pen.curve_to(-0.30, 0.660, -0.15, 0.675, 0.02, 0.685)
        pen.close_path()
        paint = cairo.LinearGradient(-0.3, 0.62, -0.26, 0.78)
        for at, colour in ((0, (0.96, 0.84, 0.78)), (0.35, (0.62, 0.60, 0.70)), (1, (0.30, 0.32, 0.44))):
            paint.add_color_stop_rgb(at, *colour)
        pen.set_source(paint)
        pen.fill()
        blink = max(0, math.sin(2 * math.pi * t / 1.5)) ** 8
        light = cairo.RadialGradient(-0.52, 0.545, 0, -0.52, 0.545, 0.05)
        light.add_color_stop_rgba(0, 1, 0.9, 0.85, blink)
        light.add_color_stop_rgba(1, 1, 0.4, 0.3, 0)
        pen.set_source(light)
        pen.paint()
        surface.flush()
        layer = np.ndarray((self.height, self.width, 4), np.uint8, surface.get_data()).astype(np.float32)
        picture *= 1 - layer[:, :, 3:] / 255
        picture += layer[:, :, 2::-1]
