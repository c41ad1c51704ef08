"""The scenes of the folder Night Flight: each takes its size in pixels and returns the picture's bytes."""
import math

import cairo
import numpy as np

import paint
from paint import Land, Scene, colour, mix, noise, smooth


def aurora(width, height):
    """Curtains of northern light over a lake."""
    scene = Scene(width, height)
    shore = 0.70
    scene.sky([(0, "050B1C"), (0.35, "0B1D33"), (0.6, "17404A"), (0.72, "2F6A63")])
    scene.stars(8, 1500, 0.7, 0.9)
    for number, (base, strength) in enumerate(((0.56, 0.55), (0.50, 1.0), (0.40, 0.55))):
        curtain(scene, base, strength, 200 + 7 * number)
    scene.glow(0.5 * scene.wide, shore, 0.35, "9FE0B5", 0.35, 3.0)
    scene.ridge(shore + 0.01, 0.15, 44, "16303A", "234A4E", 0.16, 1.35)
    scene.ridge(shore + 0.012, 0.07, 52, "0B1A22", "142C33", 0.08, 1.2)
    firs(scene, shore, 6)
    scene.mirror(shore, 300, "7FB8B0", 1.6, 0.45, 0.10)
    return scene.finish(11, 0.014)


def curtain(scene, base, strength, seed):
    """One fold of light: it hangs from a line that winds, in rays that are violet at their tops."""
    lines = noise((8, 4096), 1.75, seed)
    rays = noise((8, 4096), 0.75, seed + 1)
    at = (scene.x[0] / scene.wide * 1500 + 400).astype(int)
    wind = paint.blurred(lines, 20.0)[1]
    foot = base + 0.05 * (wind / wind.std())[at] + 0.10 * (scene.x[0] / scene.wide - 0.5)
    ray = np.clip(0.62 + 0.20 * rays[2][at] + 0.30 * lines[3][at], 0.05, 1.4)
    tall = 0.17 + 0.10 * np.clip(ray, 0, 1.2)
    rise = foot - scene.y
    body = smooth(-0.018, 0.012, rise) * np.exp(-np.clip(rise, 0, None) / tall * 1.5)
    light = (body * ray)[..., None] * strength
    hue = paint.ramp([(0, "B8FFC8"), (0.10, "58F0A0"), (0.5, "2FB79A"), (0.9, "6A5BC8"), (1.4, "8A4FB8")],
                     np.clip(rise / tall, 0, 1.4))
    paint.lighten(scene.picture, np.clip(light * hue, 0, 1) * 0.85)


def firs(scene, base, seed):
    chance = np.random.default_rng(seed)

    def draw(pen):
        pen.set_source_rgb(*colour("050D12"))
        for _ in range(int(220 * scene.wide)):
            x = chance.random() * scene.wide
            side = abs(x / scene.wide - 0.5) * 2
            tall = (0.018 + 0.05 * chance.random() ** 2) * (0.35 + 1.5 * side ** 2.5)
            pen.move_to(x, base - tall)
            for step in range(1, 8):
                reach, level = tall * 0.035 * step, base - tall + tall * step / 7
                pen.line_to(x + reach, level)
                pen.line_to(x + reach * 0.5, level)
            for step in range(7, 0, -1):
                reach, level = tall * 0.035 * step, base - tall + tall * step / 7
                pen.line_to(x - reach * 0.5, level)
                pen.line_to(x - reach, level)
            pen.close_path()
            pen.fill()
        pen.rectangle(0, base - 0.006, scene.wide, 0.008)
        pen.fill()
    scene.pen(draw)


def city(width, height):
    """A city at night from above: its streets to the horizon, a river, the last of the dusk."""
    scene = Scene(width, height)
    horizon = 0.30
    scene.sky([(0, "060A1A"), (0.16, "121C3A"), (0.26, "3A3A5C"), (0.30, "A4684F")])
    scene.stars(5, 260, 0.24, 0.6)
    scene.clouds(71, "5A4C66", "141A33", 0.06, 0.27, 7, 0.6, (0.0, -0.01), 0.5)
    depth = np.maximum(scene.y - horizon, 1e-4)
    ground = paint.ramp([(0, "5A4048"), (0.05, "1E1C30"), (0.3, "0A0D1C"), (0.7, "070A16")], scene.y - horizon)
    below = (scene.y > horizon) * np.ones_like(scene.x)
    paint.over(scene.picture, below, ground * np.ones_like(scene.x)[..., None])
    lamps(scene, horizon)
    glowing = smooth(0.02, 0.5, 1 / (1 + depth * 12)) * below
    paint.lighten(scene.picture, (0.30 * glowing)[..., None] * colour("D8884E"))
    scene.glow(0.62 * scene.wide, horizon, 0.30, "FFB070", 0.45, 5.0)
    haze = np.exp(-np.abs(scene.y - horizon - 0.004) / 0.022) * np.ones_like(scene.x)
    paint.over(scene.picture, 0.6 * haze, colour("A87458"))
    return scene.finish(12, 0.012)


def streets(chance):
    """Lamps as points on the ground (x, z), each with its hue and strength: districts with grids of their own."""
    points = []
    for _ in range(80):
        z = 4 + 60 * chance.random() ** 1.5
        x = chance.uniform(-0.9, 0.9) * (4 + z)
        turn, size, step = chance.uniform(0, math.pi / 2), chance.uniform(1.5, 6.0), chance.choice((0.35, 0.5, 0.8))
        line = np.arange(-size, size, 0.085)
        for row in np.arange(-size, size, step):
            for across in (0, 1):
                u, v = (line, np.full_like(line, row))[::1 - 2 * across]
                keep = (np.hypot(u, v) < size * (0.75 + 0.25 * chance.random(len(u)))) & (chance.random(len(u)) < 0.75)
                u, v = u[keep], v[keep]
                points.append(np.stack([x + u * math.cos(turn) - v * math.sin(turn),
                                        z + u * math.sin(turn) + v * math.cos(turn),
                                        np.full(len(u), chance.random() ** 2), 0.25 + 0.5 * chance.random(len(u))]))
    for number in range(9):  # main roads
        along = np.linspace(-45, 75, 2000)
        start, turn, bend = chance.uniform(-22, 22), chance.uniform(-1.1, 1.1), chance.uniform(-0.006, 0.006)
        for side, hue in ((-0.03, 0.35), (0.03, 0.75)):
            u = start + along * math.sin(turn) + bend * along ** 2 + side
            points.append(np.stack([u, 24 + along * math.cos(turn), np.full_like(u, hue),
                                    0.22 + 0.3 * chance.random(len(u))]))
    return np.concatenate(points, 1)


def river(x, z):
    return np.abs(x - 5.5 - 4.2 * np.sin(0.13 * z + 0.8) - 0.12 * z) < 0.8 + 0.010 * z


def lamps(scene, horizon):
    chance = np.random.default_rng(19)
    x, z, hue, shine = streets(chance)
    keep = (z > 3.5) & ~river(x, z)
    x, z, hue, shine = x[keep], z[keep], hue[keep], shine[keep]
    for place, away, wide, much in ((-2.6, 11, 1.7, 3.0), (3.4, 8, 1.0, 2.2), (7, 24, 3.0, 3.0), (-14, 30, 4.0, 2.5)):
        shine = shine * (1 + much * np.exp(-((x - place) ** 2 + (z - away) ** 2) / wide ** 2))
    focal, eye = 1.05, 3.0
    column = ((scene.wide / 2 + focal * x / z) * scene.height).astype(int)
    row = ((horizon + focal * eye / z) * scene.height).astype(int)
    inside = (column >= 0) & (column < scene.width) & (row >= 0) & (row < scene.height)
    hues = paint.ramp([(0, "FFB25E"), (0.5, "FFCB8C"), (0.8, "FFF0DA"), (1, "CFE4FF")], hue)
    strength = 3.2 * shine / (1 + (z / 5) ** 2.5)
    light = np.zeros_like(scene.picture)
    np.add.at(light, (row[inside], column[inside]), (hues * strength[:, None])[inside])
    scale = scene.height / 640
    for channel in range(3):
        layer = light[..., channel] * scale ** 2
        light[..., channel] = sum(much * paint.blurred(layer, soft * scale)
                                  for much, soft in ((4.2, 0.7), (7, 4), (12, 18)))
    paint.lighten(scene.picture, 1 - np.exp(-0.85 * light))


def cloud_sea(width, height, sky, lit, shade, haze, sun, seed, eye=2.4, horizon=0.42, tilt=0.0, power=2.15):
    """A scene above clouds; sun: where it stands, its hue, how strong, and the size of its disc."""
    scene = Scene(width, height)
    scene.sky(sky)
    x, y, hue, strength, size, spread = sun
    x *= scene.wide
    scene.glow(x, y, spread, hue, strength)
    side = 1024
    billow = noise((side, side), power, seed)
    small = noise((side, side), 1.75, seed + 1)
    heights = 0.42 * np.tanh(0.9 * billow) + 0.10 * small * smooth(-1, 1.2, billow)
    heights = heights + 0.16 * np.abs(noise((side, side), 1.9, seed + 2)) * smooth(-0.6, 1, billow)
    land = Land(heights, 14.0)
    light = 0.75 * land.light(1.15 if x > scene.wide / 2 else 2.0, 0.34, 1.6, 0.16) + 0.10 + 0.22 * smooth(
        -0.6, 0.6, heights)
    land.colours = mix(colour(shade), colour(lit), np.clip(light, 0, 1)[..., None])
    land.show(scene, eye, horizon, 2.2, 70, colour(haze), 34, begin=(3.0, 1.0), tilt=tilt)
    band = np.exp(-np.abs(scene.y - horizon - tilt * (scene.x - scene.wide / 2)) / 0.02)
    paint.over(scene.picture, 0.55 * band, colour(haze))
    scene.glow(x, y, spread * 0.5, hue, strength * 0.5)
    if size:
        scene.disc(x, y, size, "FFFBEF")
        scene.glow(x, y, size * 2.2, hue, 0.9)
    return scene


def above_clouds(width, height):
    """The last sun on a sea of clouds."""
    scene = cloud_sea(width, height, [(0, "28406F"), (0.2, "6F7BA6"), (0.36, "E8A98C"), (0.43, "FFD29A")],
                      "FFE4C4", "565C92", "F2B692", (0.70, 0.365, "FFDFA0", 0.8, 0.022, 0.34), 61)
    return scene.finish(13)


def moonlit(width, height):
    """Clouds under stars, the wing with its light."""
    scene = cloud_sea(width, height, [(0, "040916"), (0.25, "0B1830"), (0.45, "243B5C"), (0.52, "4A6584")],
                      "93A9C8", "16233F", "45607F", (0.22, 0.10, "AFC4E4", 0.35, 0, 0.5), 83, 2.2, 0.50, -0.05)
    milky(scene)
    wing(scene)
    return scene.finish(14, 0.014)


def milky(scene):
    """Stars, and the band of the galaxy across them; both end above the clouds."""
    band = (scene.y - 0.20) - 0.42 * (scene.x / scene.wide - 0.55) * 0.9
    dust = scene.field(1.6, 27)
    haze = np.exp(-(band / 0.085) ** 2) * np.clip(0.55 + 0.28 * dust, 0, 1.2)
    lane = np.exp(-((band - 0.015 - 0.02 * scene.field(1.9, 28)) / 0.018) ** 2) * 0.55
    fade = smooth(0.47, 0.25, scene.y)
    paint.lighten(scene.picture, (0.42 * haze * (1 - lane) * fade)[..., None] * colour("B9C6E6"))
    scene.stars(29, 2600, 0.44, 1.0)


def wing(scene):
    """The wing from behind its edge, its lamp, and a little light on the metal."""
    def draw(pen):
        pen.translate(scene.wide, 0)
        pen.move_to(0.02, 0.98)
        pen.curve_to(-0.25, 0.85, -0.50, 0.72, -0.74, 0.615)
        pen.curve_to(-0.775, 0.598, -0.79, 0.55, -0.805, 0.475)
        pen.line_to(-0.790, 0.473)
        pen.curve_to(-0.772, 0.545, -0.752, 0.572, -0.715, 0.584)
        pen.curve_to(-0.48, 0.655, -0.25, 0.715, 0.02, 0.775)
        pen.close_path()
        metal = cairo.LinearGradient(-0.35, 0.66, -0.44, 0.82)
        for at, text in ((0, "8FA3BF"), (0.12, "53657F"), (0.5, "26344A"), (1, "0E1626")):
            metal.add_color_stop_rgb(at, *colour(text))
        pen.set_source(metal)
        pen.fill_preserve()
        pen.clip()
        pen.set_line_width(0.0016)
        pen.set_source_rgba(*colour("0A1120"), 0.55)
        for start in (-0.62, -0.46, -0.28, -0.08):
            pen.move_to(start, 0.60)
            pen.line_to(start + 0.05, 1.0)
        pen.move_to(-0.72, 0.60)
        pen.line_to(0.02, 0.885)
        pen.stroke()
        pen.reset_clip()
    scene.pen(draw)
    x, y = scene.wide - 0.797, 0.474
    scene.glow(x, y, 0.10, "FF6A5A", 0.45)
    scene.glow(x, y, 0.014, "FFE2DA", 1.0)


def cabin_window(width, height):
    """Clouds of the morning through a window of the cabin."""
    scene = cloud_sea(width, height, [(0, "2E66AE"), (0.25, "6FA0D2"), (0.42, "CFE0EC"), (0.5, "FBEBD2")],
                      "FFF8EE", "5F82B4", "D3DFEA", (0.66, 0.36, "FFF2D2", 0.55, 0, 0.22), 97, 2.0, 0.50, 0.06)
    half_wide, half_tall, corner = 0.215, 0.335, 0.185
    u, v = np.abs(scene.x - 0.5 * scene.wide), np.abs(scene.y - 0.475)
    off = np.hypot(np.clip(u - half_wide + corner, 0, None), np.clip(v - half_tall + corner, 0, None)) - corner
    off = off + np.minimum(np.maximum(u - half_wide + corner, v - half_tall + corner), 0)
    lean_x, lean_y = scene.x - 0.5 * scene.wide, scene.y - 0.475
    wall = mix(colour("8C8A8C"), colour("C9C4BC"), np.clip(0.62 - 0.55 * lean_y + 0.5 * lean_x, 0, 1)[..., None])
    wall = wall * (1 - 0.42 * np.exp(-np.clip(off - 0.068, 0, None) / 0.035))[..., None]
    paint.lighten(wall, (0.16 * np.exp(-np.clip(off - 0.07, 0, None) / 0.16))[..., None] * colour("DCEBFF"))
    side = (lean_x / half_wide * 0.4 + lean_y / half_tall * 0.6)
    reveal = mix(colour("55585F"), colour("E9E6E0"), np.clip(0.48 + 0.50 * side, 0, 1)[..., None])
    depth = np.clip(off / 0.060, 0, 1)
    reveal = reveal * (0.72 + 0.28 * depth)[..., None]
    rim = np.exp(-((off - 0.064) / 0.005) ** 2)
    edge = 1.2 / scene.height
    glass = smooth(edge, -edge, off)
    shade = np.exp(off.clip(None, 0) / 0.020) * 0.35
    inside = scene.picture * (1 - shade)[..., None]
    streak = smooth(0.10, 0.0, np.abs(lean_x + 0.55 * lean_y + 0.10)) * 0.07
    paint.lighten(inside, streak[..., None] * np.ones(3, np.float32))
    frame = mix(reveal, wall, smooth(0.062, 0.066, off)[..., None])
    paint.lighten(frame, (0.35 * rim * np.clip(0.5 - side, 0, 1))[..., None] * np.ones(3, np.float32))
    frame = frame * (1 - 0.75 * np.exp(-(off / 0.004) ** 2))[..., None]
    scene.picture = (mix(frame, inside, glass[..., None])).astype(np.float32)
    return scene.finish(15, 0.010, 0.30)
