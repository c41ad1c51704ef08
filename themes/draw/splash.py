"""The splash screen: computed point by point with a fine dither, so that no bands show."""

import os
import subprocess
import tempfile

import letters
import tiles
from palette import mix, rgb

QUALITY = 90
NAME_Y = 470


def overlay(p):
    """The mark and the name, on a clear ground."""
    scale = 0.86
    side = 256 * scale
    body = '<g transform="translate(%s 158) scale(%s)">%s</g>' % (
        tiles.n(640 - side / 2), tiles.n(scale), tiles.mark(p.ink, p.accent))
    body += tiles.path(letters.outline('Korvane', 104, 640, NAME_Y, 'Display-Medium', digits=2,
                                       tracking=0.012), p.ink)
    # the horizon: a hairline that dies away to both sides
    defs = tiles.linear('h', 240, 0, 1040, 0, [(0, p.accent, 0), (0.5, p.accent, 0.9),
                                               (1, p.accent, 0)])
    body += tiles.rect(240, 548, 800, 1.6, 0, 'url(#h)')
    return tiles.svg(tiles.W, tiles.H, body, defs)


def point(p, x, y):
    colour = tiles.background_at(p, 640, x, y)
    far = ((x - 640) / 760) ** 2 + ((y - 548) / (60 if y > 548 else 300)) ** 2
    if far < 1:
        colour = mix(colour, rgb(p.glow), 0.9 * p.glow_share * (1 - far ** 0.5) ** 2)
    return colour


def jpeg(p, contrasts):
    contrasts.note('%s splash, status line' % p.name, rgb(p.ink),
                   [point(p, x, y) for x in range(240, 1041, 80) for y in range(600, 701, 20)])
    contrasts.note('%s splash, name' % p.name, rgb(p.ink),
                   [point(p, x, y) for x in range(400, 881, 40) for y in range(380, 480, 20)])
    rows, seed = bytearray(), 0x2545F491
    for y in range(tiles.H):
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
            out.write(b'P6 %d %d 255\n' % (tiles.W, tiles.H) + rows)
        with open(front, 'w') as out:
            out.write(overlay(p))
        subprocess.run(['rsvg-convert', '-o', front + '.png', front], check=True)
        subprocess.run(['convert', ground, front + '.png', '-composite', '-strip',
                        '-sampling-factor', '1x1', '-quality', str(QUALITY),
                        'jpg:' + front + '.jpg'], check=True)
        with open(front + '.jpg', 'rb') as made:
            return made.read()
