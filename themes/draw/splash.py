"""The splash screen: computed point by point with a fine dither, so that no bands show."""

import math
import os
import subprocess
import tempfile

import letters
import tiles
from palette import mix, rgb

QUALITY = 90
OVER = 16  # rows above and below the surface: a screen of 1280 x 800 shows them, and scales nothing
NAME_Y = 462
LIMB_Y, LIMB_RADIUS = 552, 2600


def overlay(p):
    """The mark and the name, on a clear ground."""
    scale = 0.82
    body = '<g transform="translate(%s 132) scale(%s)">%s</g>' % (
        tiles.n(640 - 130 * scale), tiles.n(scale), tiles.mark(p.ink, p.accent))
    body += tiles.path(letters.outline('Korvane', 104, 640, NAME_Y, 'Display-Medium', digits=2,
                                       tracking=0.012), p.ink)
    # the limb: a hairline that dies away to both sides
    far = 560
    drop = LIMB_RADIUS - math.sqrt(LIMB_RADIUS ** 2 - far ** 2)
    defs = tiles.linear('h', 640 - far, 0, 640 + far, 0,
                        [(0, p.limb, 0), (0.3, p.limb, 0.35), (0.5, p.limb, 1),
                         (0.7, p.limb, 0.35), (1, p.limb, 0)])
    body += tiles.path('M%s %sA%d %d 0 0 1 %s %s' % (
        640 - far, tiles.n(LIMB_Y + drop), LIMB_RADIUS, LIMB_RADIUS, 640 + far,
        tiles.n(LIMB_Y + drop)), 'none', ' stroke="url(#h)" stroke-width="2"')
    body = '<g transform="translate(0 %d)">%s</g>' % (OVER, body)
    return tiles.svg(tiles.W, tiles.H + 2 * OVER, body, defs)


def point(p, x, y):
    """The sky, and the light that lies along the limb: long above it, short below."""
    top, middle, bottom = (rgb(c) for c in p.sky)
    t = min(max(y / tiles.H, 0), 1) * 2
    colour = mix(top, middle, t) if t < 1 else mix(middle, bottom, t - 1)
    aside = (x - 640) / 700
    if abs(aside) < 1:
        height = math.hypot(x - 640, y - LIMB_Y - LIMB_RADIUS) - LIMB_RADIUS
        light = math.exp(-height / 95) if height > 0 else math.exp(height / 16)
        colour = mix(colour, rgb(p.glow), p.limb_share * light * (1 - aside * aside) ** 2)
    return colour


def jpeg(p, contrasts):
    contrasts.note(p.name, 'splash: status line', rgb(p.ink),
                   [point(p, x, y) for x in range(240, 1041, 80) for y in range(600, 701, 20)])
    contrasts.note(p.name, 'splash: name', rgb(p.ink),
                   [point(p, x, y) for x in range(400, 881, 40) for y in range(380, 480, 20)])
    rows, seed = bytearray(), 0x2545F491
    for y in range(-OVER, tiles.H + OVER):
        for x in range(tiles.W):
            # one pseudo-random threshold for the three channels
            seed ^= seed << 13 & 0xFFFFFFFF
            seed ^= seed >> 17
            seed ^= seed << 5 & 0xFFFFFFFF
            grain = seed / 0x100000000
            rows += bytes(min(255, int(c + grain)) for c in point(p, x, y))
    with tempfile.TemporaryDirectory() as place:
        ground, front = os.path.join(place, 'ground.ppm'), os.path.join(place, 'front.svg')
        with open(ground, 'wb') as out:
            out.write(b'P6 %d %d 255\n' % (tiles.W, tiles.H + 2 * OVER) + rows)
        with open(front, 'w') as out:
            out.write(overlay(p))
        subprocess.run(['rsvg-convert', '-o', front + '.png', front], check=True)
        subprocess.run(['convert', ground, front + '.png', '-composite', '-strip',
                        '-sampling-factor', '1x1', '-quality', str(QUALITY),
                        'jpg:' + front + '.jpg'], check=True)
        with open(front + '.jpg', 'rb') as made:
            return made.read()
