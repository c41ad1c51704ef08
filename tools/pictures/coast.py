"""The scenes of the folder Coast: each takes its size in pixels and returns the picture's bytes."""
import math

import numpy as np

import paint
from harbour import Harbour
from paint import Land, Scene, colour, mix, noise, smooth


def dunes(width, height):
    """Ridges of sand in the first light."""
    scene = Scene(width, height)
    scene.sky([(0, "5F86B5"), (0.16, "A9BCD2"), (0.30, "F3D9BE"), (0.36, "FBE3C4")])
    scene.clouds(31, "FFF3E4", "D9B8AE", 0.03, 0.26, 6, 0.5, (0.02, 0.01), 0.5)
    scene.glow(0.26, 0.33, 0.34, "FFE3B0", 0.75, 1.6)
    side = 1536
    z, x = np.mgrid[0:side, 0:side].astype(np.float32) / side
    bend = noise((side, side), 3.0, 4)
    wave = (3 * z + 1 * x + 0.13 * bend) % 1  # a long slope to the wind, a short one behind
    dune = np.where(wave < 0.78, wave / 0.78, (1 - wave) / 0.22)
    dune = dune ** 1.15 * (0.75 + 0.35 * np.tanh(noise((side, side), 2.9, 9)))
    dune = paint.blurred(dune, 2.2)
    ripple = np.sin(2 * math.pi * (150 * z + 34 * x + 2.2 * noise((side, side), 2.6, 12)))
    land = Land(1.15 * dune + 0.22 * bend + 0.0030 * ripple * smooth(0.9, 0.3, wave), 12.0)
    light = land.light(2.75, 0.30, 2.2, 0.03)
    sand = mix(colour("C98A52"), colour("DDA66B"), np.clip(0.5 + 0.14 * noise((side, side), 1.1, 7), 0, 1)[..., None])
    warm = light[..., None] * np.array([1.55, 1.28, 1.0], np.float32)
    land.colours = sand * (np.array([0.34, 0.36, 0.50], np.float32) + warm)
    land.show(scene, 2.7, 0.36, 1.7, 40, colour("F4D2AE"), 19, begin=(2.2, 1.3))
    return scene.finish(1)


def sea_of_hills(width, height):
    """Hills behind hills in the morning's mist, two balloons above."""
    scene = Scene(width, height)
    scene.sky([(0, "6E9CC9"), (0.30, "BCD0DC"), (0.52, "FCE2BF"), (0.62, "FFD7A6")])
    scene.clouds(14, "FFF6E8", "DDBFB6", 0.04, 0.34, 5, 0.55, (0.03, 0.02), 0.45)
    scene.glow(1.06, 0.50, 0.42, "FFE9BE", 0.85)
    scene.disc(1.06, 0.475, 0.030, "FFFBEA")
    rows = (("C9AFA9", "F5DCC0", 0.58, 0.10), ("A493A0", "EBD0BC", 0.64, 0.13), ("77788E", "D8C2B6", 0.70, 0.12),
            ("525D73", "BDB0AE", 0.77, 0.13), ("38485A", "8F939A", 0.85, 0.14), ("23323F", "4F5C66", 0.94, 0.14))
    for number, (upper, lower, base, rise) in enumerate(rows):
        scene.ridge(base, rise, 40 + number, upper, lower, 0.15, 1.35 - 0.02 * number)
        drift = smooth(0.2, 1.9, scene.field(1.7, 60 + number, (1.0, 4.0)))
        drift *= smooth(base - 0.03, base + 0.05, scene.y) * (1 - smooth(base + 0.05, base + 0.13, scene.y))
        paint.over(scene.picture, drift * (0.65 - 0.07 * number), colour("FBE3CC"))
    scene.glow(1.06, 0.56, 0.60, "FFCF8E", 0.28)
    trees(scene, 0.945, 5)
    for x, y, size, hues in ((0.52, 0.27, 0.110, ("C8452F", "F0B44C", "EFE0C4")),
                             (0.83, 0.40, 0.052, ("2F6C86", "E9E0CC", "E2904A")),
                             (0.22, 0.47, 0.026, ("8A3C5A", "EBC27A", "E9DCC8"))):
        balloon(scene, x, y, size, hues)
    return scene.finish(2)


def trees(scene, base, seed):
    """A dark row of firs at the lower edge."""
    chance = np.random.default_rng(seed)

    def draw(pen):
        pen.set_source_rgb(*(colour("16222B")))
        for _ in range(150):
            x, tall = chance.random() * scene.wide, 0.02 + 0.05 * chance.random() ** 2
            foot = base + 0.05 + 0.02 * math.sin(5 * x)
            pen.move_to(x, foot - tall - 0.02)
            for step in range(1, 7):
                reach = tall * 0.055 * step
                level = foot - tall - 0.02 + (tall + 0.02) * step / 6
                pen.line_to(x + reach, level)
                pen.line_to(x + reach * 0.55, level - 0.001)
            pen.line_to(x, foot)
            for step in range(6, 0, -1):
                reach = tall * 0.055 * step
                level = foot - tall - 0.02 + (tall + 0.02) * step / 6
                pen.line_to(x - reach * 0.55, level - 0.001)
                pen.line_to(x - reach, level)
            pen.close_path()
            pen.fill()
        pen.rectangle(0, base + 0.028, scene.wide, 1)
        pen.fill()
    scene.pen(draw)


def balloon(scene, x, y, size, hues):
    """An envelope of twelve gores, lit from the right, with its basket."""
    u, v = (scene.x - x) / size, (scene.y - y) / size
    half = np.where(v < 0, np.sqrt(np.clip(1 - v ** 2, 0, 1)),
                    np.clip(np.cos(np.clip(v, 0, 1.42) * 0.98), 0.12, 1) ** 0.85)
    inside = np.clip((half - np.abs(u)) * size * scene.height + 0.5, 0, 1) * (v > -1) * (v < 1.40)
    turn = np.arcsin(np.clip(u / np.maximum(half, 1e-3), -1, 1))
    gore = np.floor((turn + math.pi / 2) / math.pi * 12).astype(int)
    band = (np.abs(v - 0.05) < 0.16).astype(int)
    which = np.where(band, 2, gore % 2)
    light = 0.62 + 0.48 * np.sin(turn + 0.35) - 0.22 * smooth(-0.2, 1.4, v)
    within = (turn + math.pi / 2) / math.pi * 12 % 1
    seam = 1 - 0.14 * np.exp(-(np.minimum(within, 1 - within) / 0.06) ** 2)
    skin = np.array([colour(hue) for hue in hues])[which] * (light * seam)[..., None]
    haze = np.clip(0.34 - 2.4 * size, 0.05, 0.3)
    paint.over(scene.picture, inside, mix(skin, colour("F5DCC6"), haze))

    def basket(pen):
        pen.translate(x, y)
        pen.scale(size, size)
        pen.set_source_rgb(*mix(colour("3A2A22"), colour("C9B2A2"), haze))
        pen.set_line_width(0.018)
        for side in (-1, 1):
            pen.move_to(0.15 * side, 1.38)
            pen.line_to(0.11 * side, 1.62)
            pen.stroke()
        pen.rectangle(-0.13, 1.60, 0.26, 0.19)
        pen.fill()
    scene.pen(basket)


def lighthouse(width, height):
    """A tower on its rock, fog, and the light that finds its way through."""
    scene = Scene(width, height)
    scene.sky([(0, "7C8D99"), (0.35, "A9B3B6"), (0.62, "C6C8C3"), (1, "9BA6A8")])
    fog = scene.field(1.9, 3, (1.0, 2.5))
    paint.lighten(scene.picture, (0.06 * fog)[..., None] * np.ones(3))
    x, lamp = 0.40, 0.265
    for upper, base, rise, seed, haze in (("75868D", 0.70, 0.10, 8, 0.55), ("5B6C73", 0.735, 0.09, 9, 0.25)):
        scene.ridge(base, rise, seed, upper, "B9BFBC", 0.10, 1.5, haze, "C2C6C3")
    scene.mirror(0.735, 50, "AEB8B8", 1.1, 0.25, 0.5)
    headland(scene)
    tower(scene, x, lamp)
    beams(scene, x, lamp)
    for seed, low, high, much in ((21, 0.55, 0.80, 0.75), (22, 0.66, 0.95, 0.45)):
        drift = smooth(-0.5, 1.5, scene.field(1.85, seed, (1.0, 3.0)))
        drift *= smooth(low, (low + high) / 2, scene.y) * (1 - smooth((low + high) / 2, high, scene.y))
        paint.over(scene.picture, drift * much, colour("CDD0CB"))
    scene.glow(x, lamp, 0.035, "FFF6D8", 1.0)
    scene.glow(x, lamp, 0.20, "FFE7B0", 0.55)
    return scene.finish(3, 0.016)


def headland(scene):
    """Rock below the tower, its grass on top."""
    line = noise((4, 4096), 1.15, 33)[1]
    at = (scene.x[0] * 2000).astype(int)
    shape = 0.785 - 0.165 * smooth(0.70, 0.44, scene.x[0]) * smooth(-0.5, 0.34, scene.x[0]) + 0.008 * line[at]
    shape = np.where(scene.x[0] > 0.60, shape + (scene.x[0] - 0.60) * 0.85, shape)
    foot = 0.86 - 0.05 * scene.x + 0.006 * noise((4, 4096), 1.0, 34)[1][at]
    cover = np.clip((scene.y - shape) * scene.height + 0.5, 0, 1) * np.clip((foot - scene.y) * scene.height, 0, 1)
    rock = scene.field(1.15, 35, (1.4, 1.0))
    strata = scene.field(1.0, 36, (0.5, 3.0))
    tone = np.clip(0.45 + 0.16 * rock + 0.10 * strata, 0, 1)[..., None]
    body = mix(colour("2E363A"), colour("79817F"), tone)
    grass = smooth(0.035, 0.0, scene.y - shape - 0.008 * rock)[..., None]
    body = mix(body, mix(colour("4A5444"), colour("6F7660"), tone), grass)
    paint.over(scene.picture, cover, mix(body, colour("B9BFBC"), smooth(0.70, 0.88, scene.y)[..., None] * 0.5))
    surf = np.exp(-((scene.y - foot) / 0.010) ** 2) * smooth(-0.6, 1.2, scene.field(1.2, 37, (1.0, 2.5)))
    paint.over(scene.picture, surf * (scene.x < 0.72), colour("E4E7E3"))


def tower(scene, x, lamp):
    foot = 0.632
    share = np.clip((scene.y - lamp - 0.03) / (foot - lamp - 0.03), 0, 1)
    half = 0.030 + 0.020 * share ** 1.3
    u = (scene.x - x) / half
    cover = np.clip((1 - np.abs(u)) * half * scene.height + 0.5, 0, 1) * (scene.y > lamp + 0.03) * (scene.y < foot)
    light = 0.80 - 0.34 * np.clip(u, -1, 1) - 0.14 * np.clip(u, -1, 1) ** 2
    banded = ((share > 0.22) & (share < 0.42)) | ((share > 0.64) & (share < 0.84))
    body = np.where(banded[..., None], colour("A5463A"), colour("E6E3DA")) * light[..., None]
    fog = smooth(lamp, foot + 0.05, scene.y) * 0.32 + 0.12
    paint.over(scene.picture, cover, mix(body, colour("C6C9C5"), fog[..., None]))

    def top(pen):
        pen.translate(x, lamp)
        for text, (left, up, wide, tall) in (("3B4448", (-0.042, 0.024, 0.084, 0.010)),
                                             ("FFF1C4", (-0.019, -0.020, 0.038, 0.044)),
                                             ("3B4448", (-0.024, -0.027, 0.048, 0.008))):
            pen.set_source_rgb(*colour(text))
            pen.rectangle(left, up, wide, tall)
            pen.fill()
        pen.set_source_rgb(*colour("8D3F36"))
        pen.move_to(-0.026, -0.026)
        pen.curve_to(-0.02, -0.048, -0.006, -0.052, 0, -0.066)
        pen.curve_to(0.006, -0.052, 0.02, -0.048, 0.026, -0.026)
        pen.fill()
        pen.set_source_rgba(*colour("3B4448"), 0.9)
        pen.set_line_width(0.0022)
        for step in range(-4, 5):
            pen.move_to(step * 0.010, 0.024)
            pen.line_to(step * 0.010, 0.004)
        pen.move_to(-0.041, 0.006)
        pen.line_to(0.041, 0.006)
        for step in (-1, 0, 1):
            pen.move_to(step * 0.0095, -0.020)
            pen.line_to(step * 0.0095, 0.024)
        pen.stroke()
        for level in (0.10, 0.20, 0.29):
            pen.rectangle(-0.007, level, 0.009, 0.016)
            pen.fill()
    scene.pen(top)


def beams(scene, x, lamp, much=1.0):
    across, down = scene.x - x, scene.y - lamp
    for lean, spread, strength in ((-0.10, 0.13, 0.60), (0.16, 0.10, 0.42)):
        along = across if lean < 0 else -across
        far = np.maximum(along, 1e-4)
        off = (down - lean * along) / (0.012 + spread * far)
        beam = np.exp(-off ** 2 * 2.2) * np.exp(-far * 2.1) * (along > 0)
        paint.lighten(scene.picture, (much * strength * beam)[..., None] * colour("FFEFC2"))


def moon(width, height):
    """A full moon, its road on the sea, and thin clouds."""
    scene = Scene(width, height)
    horizon, x, y = 0.585, 0.98, 0.27
    scene.sky([(0, "081228"), (0.3, "132544"), (0.52, "34496B"), (0.585, "5F7190")])
    scene.stars(77, 900, 0.5, 0.8)
    scene.glow(x, y, 0.55, "6F8DB8", 0.55)
    scene.glow(x, y, 0.13, "E3EAF4", 0.55)
    scene.disc(x, y, 0.047, "F7F4E8")
    spots = scene.field(1.6, 15)
    paint.over(scene.picture, smooth(0.047, 0.044, scene.away(x, y)) * smooth(0.0, 1.2, spots) * 0.30, colour("B9BCC4"))
    scene.clouds(23, "AFC0DB", "2B3B5A", 0.10, 0.56, 5, 0.75, (0.02, -0.02), 0.6)
    scene.glow(x, y, 0.20, "DCE6F4", 0.25)
    scene.ridge(horizon + 0.002, 0.045, 19, "1D2B45", "33456A", 0.05, 1.5)
    open_sea(scene, horizon, x)
    boat(scene, 0.52, horizon + 0.055)
    return scene.finish(4, 0.012)


def open_sea(scene, horizon, x):
    """Waves to the horizon, the moon's road on them."""
    depth = np.maximum(scene.y - horizon, 1e-4)
    far = 1 / (depth + 0.004)
    side = 2048
    waves = np.zeros((scene.height, scene.width), np.float32)
    for number, (down, across, much) in enumerate(((7, 3.5, 1.0), (17, 9, 0.7), (41, 26, 0.5))):
        ripple = noise((side, side), 1.2, 90 + number, coarsest=16)
        i = (far * down * 4).astype(int) % side
        j = ((scene.x - x) * far * across * 4).astype(int) % side
        fade = smooth(0.5, 0.02 * (number + 1), 1 / (depth * scene.height / (down * 0.6)))
        waves += ripple[np.broadcast_to(i, j.shape), j] * much * np.broadcast_to(fade, j.shape)
    deep = paint.ramp([(0, "4A5D80"), (0.06, "22355A"), (0.45, "0A1530")], scene.y - horizon)
    water = deep * (1 + 0.22 * waves)[..., None]
    road = np.exp(-((scene.x - x) / (0.035 + 0.34 * depth)) ** 2)
    spark = smooth(0.25, 1.7, waves + 1.1 * road - 0.35)
    shine = road * (0.25 + 1.0 * spark) + 0.10 * spark * np.exp(-((scene.x - x) / 0.7) ** 2)
    paint.lighten(water, np.clip(shine, 0, 1)[..., None] * colour("EDF1F2"))
    below = np.clip((scene.y - horizon) * scene.height + 0.5, 0, 1) * np.ones_like(scene.x)
    paint.over(scene.picture, below, water)
    band = np.exp(-((scene.y - horizon) / 0.006) ** 2) * np.exp(-((scene.x - x) / 0.5) ** 2)
    paint.lighten(scene.picture, (0.35 * band)[..., None] * colour("C7D4E6"))


def boat(scene, x, y):
    def draw(pen):
        pen.translate(x, y)
        pen.scale(0.10, 0.10)
        pen.set_source_rgb(*colour("070D1C"))
        pen.move_to(-0.42, -0.10)
        pen.curve_to(-0.2, -0.06, 0.2, -0.06, 0.50, -0.13)
        pen.line_to(0.36, 0.02)
        pen.line_to(-0.34, 0.02)
        pen.fill()
        for points in (((0.03, -1.25), (0.08, -0.16), (0.46, -0.18)), ((-0.01, -1.32), (-0.01, -0.14), (-0.40, -0.14))):
            pen.move_to(*points[0])
            pen.curve_to(points[0][0], -0.7, points[1][0], -0.4, *points[1])
            pen.line_to(*points[2])
            pen.curve_to(points[2][0] * 0.8, -0.6, points[0][0] + 0.02, -1.0, *points[0])
            pen.fill()
    scene.pen(draw)
    scene.glow(x - 0.005, y - 0.014, 0.006, "FFCE86", 1.0)


class Quiet(Harbour):
    """The harbour of the clip Harbour at Dusk, its lighthouse without the beams that turn."""

    @staticmethod
    def beam(pen, x, y, t, night):
        pass


def quiet_harbour(scene, night, pan, strength):
    """Fills the picture with that harbour; soft beams come from the lighthouse, where pan has moved it."""
    scene.picture = Quiet(scene.width, scene.height).frame(8.2, night, pan).astype(np.float32) / 255
    x, lamp = 0.24 - pan, 0.278
    beams(scene, x, lamp, strength)
    scene.glow(x, lamp, 0.022, "FFF3CF", 1.0)
    scene.glow(x, lamp, 0.11, "FFD999", 0.5)


def harbour(width, height):
    """The harbour while its lamps go on."""
    scene = Scene(width, height)
    quiet_harbour(scene, 0.30, 0.0, 0.75)
    return scene.finish(5, 0.014)


class Terraces(Land):
    """A hillside cut into steps; the steps are worked out where they are seen, so that their edges are sharp."""

    LEVELS = 8.5  # to a unit of height

    def __init__(self, hill, span):
        super().__init__(hill, span)
        chance = np.random.default_rng(3)
        self.wet = 0.9 * chance.standard_normal(512)
        self.lit = self.light(2.5, 0.40, 1.5, 0.05)
        self.grain = np.clip(0.5 + 0.22 * noise(hill.shape, 0.9, 74), 0, 1)
        self.plots = noise(hill.shape, 1.9, 73)
        self.sky = np.clip(0.5 + 0.3 * noise(hill.shape, 2.6, 75), 0, 1)

    def step(self, x, z):
        level = self.at(self.heights, x, z) * self.LEVELS + 256
        return np.floor(level).astype(int), level % 1

    def height(self, x, z):
        step, within = self.step(x, z)
        return (step - 256 + smooth(0.78, 1.0, within) + 0.07 * np.exp(-((within - 0.76) / 0.03) ** 2)) / self.LEVELS

    def colour(self, x, z):
        step, within = self.step(x, z)
        light, grain = self.at(self.lit, x, z)[:, None], self.at(self.grain, x, z)[:, None]
        green = mix(colour("4E6B2C"), colour("93A84C"), grain) * (0.40 + 0.85 * light)
        bank = mix(colour("34401F"), colour("6E6A3A"), grain) * (0.35 + 0.75 * light)
        water = mix(colour("8FB2CB"), colour("FBE0B4"), self.at(self.sky, x, z)[:, None]) * (0.80 + 0.2 * light)
        wet = smooth(-0.35, -0.25, self.at(self.plots, x, z) + self.wet[step % 512])[:, None]
        flat = (smooth(0.72, 0.68, within) * smooth(0.0, 0.04, within))[:, None]
        return mix(bank, mix(green, water, wet), flat).astype(np.float32)


def terraces(width, height):
    """Flooded fields on a hillside, each a mirror of the morning."""
    scene = Scene(width, height)
    scene.sky([(0, "5E97C6"), (0.12, "BBD2DC"), (0.21, "FBE6C6")])
    scene.glow(0.35, 0.18, 0.35, "FFEAC0", 0.6)
    side = 1536
    hill = 0.60 * noise((side, side), 2.7, 71) + 0.03 * noise((side, side), 2.2, 72)
    land = Terraces(hill, 15.0)
    land.show(scene, 2.9, 0.17, 2.2, 38, colour("EADDC6"), 17, steps=1500, begin=(6.5, 7.0))
    for number, (low, high) in enumerate(((0.18, 0.32), (0.26, 0.46))):
        drift = smooth(0.1, 2.0, scene.field(1.75, 80 + number, (1.0, 4.0)))
        drift *= smooth(low, (low + high) / 2, scene.y) * (1 - smooth((low + high) / 2, high, scene.y))
        paint.over(scene.picture, drift * 0.55, colour("F6E7D2"))
    return scene.finish(6)


def evening_shore(width, height):
    """Rocks before the last light, and a beach that holds the sky."""
    scene = Scene(width, height)
    horizon, x = 0.52, 0.40
    scene.sky([(0, "24345F"), (0.2, "5E5C8A"), (0.36, "C9788A"), (0.47, "FBA878"), (0.53, "FFD08C")])
    scene.clouds(101, "FFC3A0", "5A5580", 0.04, 0.30, 3.5, 0.9, (0.0, 0.02), 0.1)
    scene.clouds(102, "FFB488", "8C5F80", 0.26, 0.50, 7, 0.85, (0.0, 0.012), 0.15)
    scene.glow(x, horizon - 0.02, 0.22, "FFE0A0", 0.9, 1.3)
    scene.disc(x, horizon - 0.012, 0.018, "FFF6DC")
    scene.ridge(horizon + 0.002, 0.028, 24, "8C5A6C", "C98078", 0.04, 1.5)
    for place, wide, tall, seed, tint in ((0.53, 0.045, 0.10, 3, "3A2F48"), (0.60, 0.07, 0.17, 4, "2C2438"),
                                          (0.165, 0.03, 0.055, 5, "4A3A50")):
        stack(scene, place, horizon + 0.012, wide, tall, seed, tint)
    scene.mirror(horizon + 0.01, 400, "E2A08C", 1.3, 0.35, 0.12)
    shine = np.exp(-((scene.x - x) / 0.09) ** 2) * smooth(horizon, horizon + 0.02, scene.y)
    paint.lighten(scene.picture, (0.30 * shine)[..., None] * colour("FFD79A"))
    sand(scene, horizon)
    return scene.finish(7, 0.012)


def stack(scene, place, foot, wide, tall, seed, tint):
    """A rock that stands in the sea."""
    line = noise((2, 4096), 1.1, seed)[0]
    u = (scene.x[0] - place) / wide
    rough = line[(scene.x[0] * 2600).astype(int) % 4096]
    crest = foot - tall * np.clip(1 - np.abs(u) ** 3.2, 0, 1) * (0.86 + 0.05 * rough - 0.12 * u)
    cover = np.clip((scene.y - crest) * scene.height + 0.5, 0, 1) * np.clip((foot - scene.y) * scene.height + 0.5, 0, 1)
    face = np.clip(0.5 + 0.25 * scene.field(1.15, seed + 50, (1.6, 1.0)), 0, 1)
    lit = np.clip(-u * 0.9 + 0.1, 0, 1)[None, :] * face
    body = colour(tint) * (0.75 + 0.5 * face)[..., None] + lit[..., None] * colour("C06A50") * 0.55
    paint.over(scene.picture, cover * (np.abs(u) < 1)[None, :], body)


def sand(scene, horizon):
    """The beach: wet where the last wave has been, foam along the edges of two waves."""
    line = noise((8, 4096), 2.0, 61)
    at = (scene.x[0] * 700 + 50).astype(int)
    shown = scene.picture.copy()
    for channel in range(3):
        shown[..., channel] = paint.blurred(shown[..., channel], 0.006 * scene.height)
    mirrored = shown[np.clip(2 * int((horizon + 0.01) * scene.height) - np.arange(scene.height), 0,
                             scene.height - 1)]
    depth = smooth(0.74, 1.0, scene.y)
    ripple = scene.field(1.3, 62, (1.0, 3.0))
    grains = mix(colour("5A4450"), colour("3A2E3E"), depth[..., None]) * (1 + 0.08 * ripple)[..., None]
    for number, (level, wet, foam) in enumerate(((0.745, 0.72, 0.75), (0.845, 0.45, 0.45))):
        edge = level + 0.020 * line[number][at] / line[number].std() * 0.7 + 0.16 * (scene.x[0] - 0.3) * (0.5 - number)
        inside = smooth(-0.002, 0.004, scene.y - edge)
        body = mix(grains, mirrored * colour("E8C4BC"), (wet * (1 - 0.35 * depth) * np.ones_like(scene.x))[..., None])
        paint.over(scene.picture, inside, body)
        lace = scene.field(0.95, 64 + number, (1.0, 2.2))
        band = np.exp(-np.clip(edge - scene.y, 0, None) / 0.012) * (scene.y < edge + 0.003)
        paint.over(scene.picture, np.clip(band * smooth(-0.9, 0.9, lace) * foam, 0, 1), colour("F2D2C8"))
        shade = np.exp(-((scene.y - edge - 0.005) / 0.003) ** 2)
        scene.picture *= (1 - 0.25 * shade)[..., None]


def still_water(width, height):
    """Mountains with snow, doubled by a lake without wind."""
    scene = Scene(width, height)
    shore = 0.62
    scene.sky([(0, "2F6CA8"), (0.3, "86B3D6"), (0.55, "DCE6E6"), (0.62, "F6E4CC")])
    scene.clouds(111, "FFFFFF", "B9C6D6", 0.03, 0.40, 4, 0.7, (-0.02, 0.02), 0.35)
    side = 1536
    ridged = sum((1 - np.abs(noise((side, side), 2.0 - 0.1 * i, 120 + i)) * 0.8) * 0.5 ** i for i in range(3))
    z = (np.arange(side, dtype=np.float32) / side * 16)[:, None]
    valley = smooth(5.2, 10.5, z) * (1 - smooth(14.5, 15.9, z))
    heights = np.clip(ridged, 0, 2) ** 1.7 * 1.25 * valley
    land = Land(heights, 16.0)
    light = land.light(2.6, 0.75, 2.5, 0.05)
    slope = np.hypot(*np.gradient(heights)) * side / 16
    snow = smooth(0.9, 1.5, heights + 0.20 * noise((side, side), 1.4, 130)) * smooth(5.0, 2.2, slope)
    rough = np.clip(0.5 + 0.22 * noise((side, side), 1.0, 131), 0, 1)[..., None]
    rock = mix(colour("4E5566"), colour("8C8580"), rough)
    wood = mix(colour("1F3330"), colour("3D5140"), rough)
    ground = mix(wood, rock, smooth(0.35, 0.95, heights + 0.15 * noise((side, side), 1.5, 132))[..., None])
    land.colours = (mix(ground, colour("F4F4F4"), snow[..., None])
                    * (np.array([0.36, 0.42, 0.56], np.float32) + light[..., None] * np.array([0.80, 0.70, 0.56])))
    land.colours = land.colours.astype(np.float32)
    land.show(scene, 0.35, shore - 0.02, 3.0, 15.2, colour("C6D6E2"), 26, steps=700, begin=(1.0, 0.0), focal=1.5)
    scene.ridge(shore + 0.012, 0.035, 140, "182A2B", "22383A", 0.05, 0.95)
    scene.mirror(shore, 500, "9FBCCB", 2.6, 0.30, 0.16)
    line = np.exp(-((scene.y - shore) / 0.008) ** 2) * np.ones_like(scene.x)
    paint.over(scene.picture, 0.18 * line, colour("E6ECEA"))
    return scene.finish(8)
