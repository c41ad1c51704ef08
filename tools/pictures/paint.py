"""What the scenes share: noise, light, skies, land in perspective, water.

A picture is an array of height x width x 3 floats, 0 to 1 as the screen shows them. Lengths on it are
shares of its height, x from its left edge.
"""
import math

import cairo
import numpy as np


def colour(text):
    return np.array([int(text[i:i + 2], 16) / 255 for i in (0, 2, 4)], np.float32)


def noise(shape, power, seed, stretch=(1.0, 1.0), coarsest=0.0):
    """Fractal noise that continues on its other side, mean 0, deviation 1; a higher power is smoother.

    stretch: how much longer its forms are down and across; coarsest: the waves to a side it begins with."""
    chance = np.random.default_rng(seed)
    spectrum = np.fft.rfft2(chance.standard_normal(shape))
    down, across = np.fft.fftfreq(shape[0])[:, None], np.fft.rfftfreq(shape[1])[None, :]
    pace = np.hypot(down * shape[0] * stretch[0], across * shape[1] * stretch[1])
    pace[0, 0] = 1
    field = np.fft.irfft2(spectrum * (pace > coarsest) / pace ** power, shape)
    field -= field.mean()
    return (field / field.std()).astype(np.float32)


def smooth(low, high, x):
    share = np.clip((x - low) / (high - low), 0, 1)
    return share * share * (3 - 2 * share)


def mix(a, b, share):
    return a + (b - a) * share


def ramp(stops, x):
    """Colours between (place, "RRGGBB") at each x."""
    places = [place for place, _ in stops]
    channels = np.array([colour(text) for _, text in stops])
    return np.stack([np.interp(x, places, channels[:, i]) for i in range(3)], -1).astype(np.float32)


def over(picture, cover, paint):
    """Lays paint on the picture where cover, height x width, is 1."""
    picture += (paint - picture) * cover[..., None]


def lighten(picture, light):
    """Adds light without burning out."""
    picture += light * np.clip(1 - picture, 0, 1)


def blurred(field, radius):
    """A Gaussian of that many pixels; the borders wrap."""
    down, across = np.fft.fftfreq(field.shape[0])[:, None], np.fft.rfftfreq(field.shape[1])[None, :]
    window = np.exp(-2 * (math.pi * radius) ** 2 * (down ** 2 + across ** 2))
    return np.fft.irfft2(np.fft.rfft2(field) * window, field.shape).astype(np.float32)


class Scene:
    """A picture in the making, with its coordinates."""

    def __init__(self, width, height):
        self.width, self.height, self.wide = width, height, width / height
        self.x = ((np.arange(width, dtype=np.float32) + 0.5) / height)[None, :]
        self.y = ((np.arange(height, dtype=np.float32) + 0.5) / height)[:, None]
        self.picture = np.zeros((height, width, 3), np.float32)

    def away(self, x, y, flat=1.0):
        return np.hypot(self.x - x, (self.y - y) * flat)

    def sky(self, stops):
        self.picture[:] = ramp(stops, self.y)

    def glow(self, x, y, radius, text, strength, flat=1.0, shape=1.2):
        fall = np.exp(-(self.away(x, y, flat) / radius) ** shape)
        lighten(self.picture, fall[..., None] * colour(text) * strength)

    def disc(self, x, y, radius, text):
        edge = 1.2 / self.height
        over(self.picture, 1 - smooth(radius - edge, radius + edge, self.away(x, y)), colour(text))

    def square(self, power, seed, stretch=(1.0, 1.0)):
        side = max(self.width, self.height) + 200
        return noise((side, side), power, seed, stretch)

    def cut(self, field):
        return field[:self.height, :self.width]

    def field(self, power, seed, stretch=(1.0, 1.0)):
        """Noise over the picture, cut from a square so that it does not repeat."""
        return self.cut(self.square(power, seed, stretch))

    def clouds(self, seed, lit, shade, low, high, stretch=3.5, amount=0.9, sun=(0.0, 0.03), thin=0.4):
        """Streaks of cloud between two heights, brighter on the side of the sun."""
        square = self.square(1.55, seed, (1.0, stretch))
        depth = self.cut(square)
        reach = smooth(low - 0.05, (low + high) / 2, self.y) * (1 - smooth((low + high) / 2, high + 0.05, self.y))
        cover = smooth(thin, thin + 1.6, depth + 0.7 * reach - 0.35) * reach * amount
        moved = self.cut(np.roll(square, [int(s * self.height) for s in sun[::-1]], (0, 1)))
        light = np.clip(0.5 + 0.55 * (depth - moved), 0, 1)
        over(self.picture, cover, mix(colour(shade), colour(lit), light[..., None]))

    def stars(self, seed, count, horizon, strength=1.0):
        chance = np.random.default_rng(seed)
        light = np.zeros((self.height, self.width, 3), np.float32)
        tints = np.array([colour(text) for text in ("FFFFFF", "CFE0FF", "FFE9CF", "BFD4FF")])
        rows = (chance.random(count) * horizon * self.height).astype(int)
        columns = (chance.random(count) * self.width).astype(int)
        shine = 0.10 + 0.9 * chance.random(count) ** 9
        shine *= 1 - 0.75 * (rows / (horizon * self.height)) ** 3
        np.add.at(light, (rows, columns), tints[chance.integers(0, 4, count)] * shine[:, None])
        for channel in range(3):
            layer = light[..., channel]
            light[..., channel] = 2.6 * blurred(layer, 0.65) + 12 * blurred(np.where(layer > 0.55, layer, 0), 2.2)
        lighten(self.picture, np.clip(light * strength, 0, 1))

    def ridge(self, base, rise, seed, upper, lower, fall=0.25, power=1.25, haze=0.0, mist="FFFFFF"):
        """A range of hills whose crest stands about `rise` over `base`; its foot fades to `lower`."""
        side = 2 * self.width + 301
        chance = np.random.default_rng(seed)
        pace = np.fft.rfftfreq(side) * side
        pace[0] = 1
        spectrum = np.fft.rfft(chance.standard_normal(side)) * (pace > 1.5) / pace ** power
        line = np.fft.irfft(spectrum, side)[:self.width]
        crest = base - rise * (0.5 + 0.32 * line / line.std())[None, :]
        cover = np.clip((self.y - crest) * self.height + 0.5, 0, 1)
        body = mix(colour(upper), colour(lower), smooth(base - 0.6 * rise, base + fall - 0.4 * rise, self.y)[..., None])
        if haze:
            body = mix(body, colour(mist), haze)
        over(self.picture, cover, body)
        return crest

    def pen(self, draw):
        """Lays what draw(pen) paints, in shares of the height, over the picture."""
        surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, self.width, self.height)
        pen = cairo.Context(surface)
        pen.scale(self.height, self.height)
        draw(pen)
        surface.flush()
        layer = np.ndarray((self.height, self.width, 4), np.uint8, surface.get_data()).astype(np.float32) / 255
        self.picture *= 1 - layer[..., 3:]
        self.picture += layer[..., 2::-1]

    def mirror(self, shore, seed, tint, calm=1.0, deep=0.45, fresnel=0.25):
        """Water below `shore`: what stands above, shaken by waves that grow towards the eye."""
        top = int(shore * self.height)
        rows = np.arange(top, self.height, dtype=np.float32)[:, None]
        depth = (rows - top) / (self.height - top)
        near = np.repeat(0.02 + depth, self.width, 1)
        waves = np.zeros_like(near)
        for turn, (down, across) in enumerate(((60, 5), (130, 14), (260, 40))):
            ripple = noise((2048, 2048), 1.2, seed + turn, coarsest=14)
            i = ((down * 4 / near) % 2048).astype(int)
            j = (((self.x - self.wide / 2) * across * 8 / near) % 2048).astype(int)
            waves += ripple[i, j] * (0.9, 0.5, 0.3)[turn]
        waves *= smooth(0, 0.15, depth)
        shake = waves * (0.006 + 0.035 * depth) * self.height / calm
        row = np.clip(2 * top - rows - 1 + shake, 0, top - 1).astype(np.int32)
        aside = np.clip(np.arange(self.width)[None, :] + 0.25 * shake, 0, self.width - 1).astype(np.int32)
        water = self.picture[row, aside] * mix(1.0, colour(tint), 0.55)
        water *= (1 - deep * depth ** 0.8 + 0.05 * waves)[..., None]
        self.picture[top:] = mix(water, colour(tint) * 0.55, (fresnel * depth)[..., None])

    def finish(self, seed, grain=0.012, vignette=0.22, lift=0.0):
        """Grain, darker corners, a gentle shoulder; returns bytes."""
        off = ((self.x / self.wide - 0.5) ** 2 + (self.y - 0.5) ** 2) * 2
        picture = self.picture * (1 - vignette * off ** 1.3)[..., None] + lift
        picture = np.where(picture > 0.85, 0.85 + 0.15 * np.tanh((picture - 0.85) / 0.15), picture)
        chance = np.random.default_rng(seed)
        picture = picture + (grain * chance.standard_normal(picture.shape[:2]))[..., None]
        return (picture.clip(0, 1) * 255 + 0.5).astype(np.uint8)


class Land:
    """Ground as a square of heights that repeats: `span` units wide, with the colour of each point."""

    def __init__(self, heights, span):
        self.heights, self.span = heights.astype(np.float32), span
        self.side = heights.shape[0]
        self.colours = None

    def light(self, sun, rise, reach=1.2, soft=0.05):
        """How much of a sun at that direction (radians, 0 = right, up = away) and tangent of height falls on it."""
        unit = self.side / self.span
        dx, dz = math.cos(sun), math.sin(sun)
        slope_z, slope_x = np.gradient(self.heights)
        facing = (rise - (slope_x * dx + slope_z * dz) * unit) / np.sqrt(
            1 + (slope_x ** 2 + slope_z ** 2) * unit ** 2) / math.hypot(1, rise)
        block = np.full_like(self.heights, -9)
        steps = 70
        for step in range(1, steps):
            far = reach * (step / steps) ** 1.5
            moved = np.roll(self.heights, (-int(round(far * dz * unit)), -int(round(far * dx * unit))), (0, 1))
            block = np.maximum(block, moved - far * rise)
        return np.clip(facing, 0, 1) * (1 - smooth(-soft, soft, block - self.heights - soft))

    def at(self, field, x, z):
        fx, fz = (x / self.span * self.side) % self.side, (z / self.span * self.side) % self.side
        ix, iz = fx.astype(np.int32) % self.side, int(fz) % self.side
        jx, jz = (ix + 1) % self.side, (iz + 1) % self.side
        fx, fz = fx - np.floor(fx), fz - math.floor(fz)
        if field.ndim == 3:
            fx = fx[:, None]
        return ((field[iz, ix] * (1 - fx) + field[iz, jx] * fx) * (1 - fz)
                + (field[jz, ix] * (1 - fx) + field[jz, jx] * fx) * fz)

    def height(self, x, z):
        return self.at(self.heights, x, z)

    def colour(self, x, z):
        return self.at(self.colours, x, z)

    def show(self, scene, eye, horizon, near, far, haze, thick, steps=900, focal=1.1, begin=(0.0, 0.0), tilt=0.0):
        """Paints it from near to far. haze: the colour of distance; thick: at which distance it has 63 %."""
        rows = scene.y[:, 0]
        edge = np.full(scene.width, 1.02, np.float32)
        last = None
        side = scene.x[0] - scene.wide / 2
        for step in range(steps):
            z = near * (far / near) ** (step / (steps - 1))
            x = begin[0] + side * z / focal
            height = self.height(x, begin[1] + z)
            paint = self.colour(x, begin[1] + z)
            paint = mix(paint, haze, 1 - math.exp(-((z / thick) ** 1.3)))
            crest = horizon + tilt * side + (eye - height) / z * focal
            if last is None:
                last = np.maximum(crest, 1.02), paint
            top, end = max(0, int(crest.min() * scene.height) - 1), int(edge.max() * scene.height) + 2
            part = rows[top:end, None]
            cover = ((part >= crest) & (part < edge)).astype(np.float32)
            share = np.clip((part - crest) / np.maximum(last[0] - crest, 1e-5), 0, 1)
            over(scene.picture[top:end], cover, mix(paint[None], last[1][None], share[..., None]))
            edge = np.minimum(edge, crest)
            last = crest, paint
        return edge
