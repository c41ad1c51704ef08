"""Tiles, backgrounds and the few free drawings, as SVG that stays simple.

Only rectangles, paths, linear and radial gradients and opacity are used, so that the pictures
render alike everywhere and quickly at start-up.
"""

import math

import icons
import letters
from palette import hexed, mix, rgb

RADIUS = 14
INSET = 2.5          # the hairline's centre, from the picture's edge
FOOT = 5             # room below the body: the shadow edge
CAPTION = 16.5
WORD = 19
BUTTON = 27
BUTTON_STROKE = 1.3  # of the large icons on the owner's buttons
MARGIN = 8           # least room beside a word
LAMP_ROOM = 9        # the lower end of a captioned tile, kept for the lamp

n = letters.fine


def svg(w, h, body, defs='', stretch=False):
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="0 0 %d %d"%s>'
            '%s%s</svg>\n' % (w, h, w, h, ' preserveAspectRatio="none"' if stretch else '',
                              '<defs>%s</defs>' % defs if defs else '', body))


def stops(rows):
    return ''.join('<stop offset="%s" stop-color="%s"%s/>' % (
        n(at), colour, '' if share == 1 else ' stop-opacity="%g"' % round(share, 3))
        for at, colour, share in rows)


def linear(name, x1, y1, x2, y2, rows):
    return ('<linearGradient id="%s" gradientUnits="userSpaceOnUse" x1="%s" y1="%s" x2="%s" y2="%s">'
            '%s</linearGradient>' % (name, n(x1), n(y1), n(x2), n(y2), stops(rows)))


def radial(name, x, y, rx, ry, rows):
    """An elliptic glow: a unit circle, stretched."""
    return ('<radialGradient id="%s" gradientUnits="userSpaceOnUse" cx="0" cy="0" r="1" '
            'gradientTransform="matrix(%s 0 0 %s %s %s)">%s</radialGradient>'
            % (name, n(rx), n(ry), n(x), n(y), stops(rows)))


def rect(x, y, w, h, r, fill, extra=''):
    return '<rect x="%s" y="%s" width="%s" height="%s"%s fill="%s"%s/>' % (
        n(x), n(y), n(w), n(h), ' rx="%s"' % n(r) if r else '', fill, extra)


def path(data, fill, extra=''):
    return '<path d="%s" fill="%s"%s/>' % (data, fill, extra)


def icon(name, x, y, size, colour, soft, stroke=icons.STROKE):
    """The icon with its upper left corner at x, y."""
    out = []
    for kind, data in icons.ICONS[name]:
        if kind == 'soft':
            out.append('<path d="%s" fill="%s" fill-opacity="%s" stroke="none"/>'
                       % (data, colour, n(soft)))
        else:
            out.append('<path d="%s" fill="%s"/>' % (data, colour if kind == 'solid' else 'none'))
    scale = ('%.4f' % (size / icons.GRID)).rstrip('0').rstrip('.')
    return ('<g transform="translate(%s %s) scale(%s)" stroke="%s" stroke-width="%s" '
            'stroke-linecap="round" stroke-linejoin="round">%s</g>'
            % (n(x), n(y), scale, colour, n(stroke), ''.join(out)))


def fade(colour, share):
    """Stops of a glow that dies away softly."""
    return [(t, colour, share * (1 - t) ** 2) for t in (0, 0.25, 0.5, 0.75, 1)]


def fade_at(t, share):
    """The opacity of `fade` at the distance t, as a renderer interpolates it."""
    if t >= 1:
        return 0.0
    low = math.floor(t * 4) / 4
    a, b = (1 - low) ** 2, (0.75 - low) ** 2
    return share * (a + (b - a) * (t - low) * 4)


class Tile:
    """One tile of w x h in a state; collects its layers, then writes the picture."""

    def __init__(self, palette, state, w, h, pair, contrasts):
        self.palette, self.w, self.h = palette, w, h
        self.state = palette.states[state]
        self.pair, self.contrasts = pair, contrasts
        s = self.state
        self.low = h - FOOT                       # lower end of the body
        self.glow = (w / 2, h, w * 0.62, h * 0.85)
        defs = [linear('b', 0, INSET, 0, self.low, [(0, s.top, 1), (1, s.bottom, 1)]),
                linear('e', 0, INSET, 0, self.low, [(0, s.edge, s.edge_top),
                                                    (1, s.edge, s.edge_bottom)])]
        x, y, bw, bh = INSET, INSET, w - 2 * INSET, self.low - INSET
        body = [rect(x - 0.5, y + 2.5, bw + 1, bh, RADIUS, palette.shade,
                     ' fill-opacity="%s"' % n(s.shadow))]
        if s.glow:
            defs.append(radial('g', *self.glow, fade(palette.glow_lit, s.glow)))
            body.append(rect(x, y, bw, bh, RADIUS, 'url(#b)'))
            body.append(rect(x, y, bw, bh, RADIUS, 'url(#g)', ' stroke="url(#e)"'))
        else:
            body.append(rect(x, y, bw, bh, RADIUS, 'url(#b)', ' stroke="url(#e)"'))
        self.defs, self.body = defs, body

    def under(self, x, y):
        """The tile's colour at a point."""
        s = self.state
        down = min(1, max(0, (y - INSET) / (self.low - INSET)))
        colour = mix(rgb(s.top), rgb(s.bottom), down)
        if s.glow:
            gx, gy, rx, ry = self.glow
            t = math.hypot((x - gx) / rx, (y - gy) / ry)
            colour = mix(colour, rgb(self.palette.glow_lit), fade_at(t, s.glow))
        return colour

    def measure(self, what, colour, x, y, w, h):
        grid = [i / 8 for i in range(9)]
        self.contrasts.note(self.palette.name, 'tile, %s: %s' % (self.pair, what), rgb(colour),
                            [self.under(x + w * i, y + h * j) for i in grid for j in grid])

    def icon(self, name, x, y, size, colour=None):
        colour = colour or self.state.icon
        self.measure('icon', colour, x, y, size, size)
        self.body.append(icon(name, x, y, size, colour, self.palette.soft))
        return self

    def word(self, word, size, x, baseline, weight='-Medium', anchor='middle'):
        wide = letters.width(word, size, weight)
        if wide > self.w - 2 * MARGIN:
            raise SystemExit('draw: "%s" is too wide for its tile (%.1f of %d)'
                             % (word, wide, self.w))
        cap = letters.cap_height(size, weight)
        left = x - wide / 2 if anchor == 'middle' else x
        self.measure('word', self.state.word, left, baseline - cap, wide, cap)
        self.body.append(path(letters.outline(word, size, x, baseline, weight, anchor),
                              self.state.word))
        return self

    def lamp(self, width=30):
        if self.state.lamp:
            self.body.append(rect((self.w - width) / 2, self.low - 6, width, 3, 1.5,
                                  self.state.lamp))
        return self

    def svg(self):
        return svg(self.w, self.h, ''.join(self.body), ''.join(self.defs))


def captioned(palette, state, w, h, icon_name, word, pair, contrasts, size=CAPTION, grid=36):
    """An icon with a word below it."""
    tile = Tile(palette, state, w, h, pair, contrasts)
    cap = letters.cap_height(size)
    gap = 8 if h > 80 else 6
    top = (tile.low + INSET - LAMP_ROOM - (grid + gap + cap)) / 2
    tile.icon(icon_name, (w - grid) / 2, top, grid)
    tile.word(word, size, w / 2, top + grid + gap + cap)
    return tile.lamp().svg()


def plain(palette, state, w, h, icon_name, pair, contrasts, grid=42):
    """An icon alone."""
    tile = Tile(palette, state, w, h, pair, contrasts)
    tile.icon(icon_name, (w - grid) / 2, (tile.low + INSET - grid) / 2, grid)
    return tile.lamp().svg()


def worded(palette, state, w, h, word, pair, contrasts, size=BUTTON):
    """A word alone."""
    tile = Tile(palette, state, w, h, pair, contrasts)
    cap = letters.cap_height(size, '-SemiBold')
    tile.word(word, size, w / 2, (tile.low + INSET + cap) / 2, '-SemiBold')
    return tile.lamp().svg()


def answer(palette, state, w, h, icon_name, word, leading, pair, contrasts, size=BUTTON, grid=32):
    """An icon and a word side by side; the leading answer's icon wears the accent."""
    tile = Tile(palette, state, w, h, pair, contrasts)
    cap = letters.cap_height(size)
    gap = 12
    left = (w - grid - gap - letters.width(word, size)) / 2
    middle = (tile.low + INSET) / 2
    colour = palette.accent if leading and state == 'normal' else None
    tile.icon(icon_name, left, middle - grid / 2, grid, colour)
    return tile.word(word, size, left + grid + gap, middle + cap / 2, anchor='start').svg()


def big(palette, state, w, h, icon_name, pair, contrasts, grid=58):
    """An icon on a round tile, for what lies in the middle of a picture."""
    tile = Tile(palette, state, w, h, pair, contrasts)
    s, middle, radius = tile.state, (tile.low + INSET) / 2, min(w - 2 * INSET, tile.low - INSET) / 2
    ring = '<circle cx="%s" cy="%s" r="%s" fill="%s"%s/>'
    tile.body = [ring % (n(w / 2), n(middle + 2.5), n(radius), palette.shade, ' fill-opacity="%s"' % n(s.shadow)),
                 ring % (n(w / 2), n(middle), n(radius), 'url(#b)', ' stroke="url(#e)" stroke-width="2"')]
    return tile.icon(icon_name, (w - grid) / 2, middle - grid / 2, grid).svg()


# Backgrounds ------------------------------------------------------------------------------------

W, H = 1280, 768
GLOW_Y, GLOW_RX, GLOW_RY = 830, 940, 470


def background(palette, glow_x):
    """A quiet sky with the dawn at its lower edge."""
    top, middle, bottom = palette.sky
    defs = (linear('s', 0, 0, 0, H, [(0, top, 1), (0.5, middle, 1), (1, bottom, 1)])
            + radial('d', glow_x, GLOW_Y, GLOW_RX, GLOW_RY, fade(palette.glow, palette.glow_share)))
    return svg(W, H, rect(0, 0, W, H, 0, 'url(#s)') + rect(0, 0, W, H, 0, 'url(#d)'), defs, True)


def background_at(palette, glow_x, x, y):
    top, middle, bottom = (rgb(c) for c in palette.sky)
    t = y / H * 2
    sky = mix(top, middle, t) if t < 1 else mix(middle, bottom, t - 1)
    far = math.hypot((x - glow_x) / GLOW_RX, (y - GLOW_Y) / GLOW_RY)
    return mix(sky, rgb(palette.glow), fade_at(far, palette.glow_share))


def background_grid(palette, glow_x, columns=40, rows=24):
    return [background_at(palette, glow_x, W * (i + 0.5) / columns, H * (j + 0.5) / rows)
            for j in range(rows) for i in range(columns)]


def background_mean(palette, glow_x):
    points = background_grid(palette, glow_x)
    return hexed(tuple(sum(p[k] for p in points) / len(points) for k in range(3)))


# Free drawings ----------------------------------------------------------------------------------

def mark(ink, accent):
    """The mark on a square of 256: a meridian, the limbs of the horizon, the sun between them."""
    return (path('M64 54V202M178 54a76 74 0 0 1-76 74a76 74 0 0 1 76 74', 'none',
                 ' stroke="%s" stroke-width="15" stroke-linecap="round" stroke-linejoin="round"'
                 % ink)
            + '<circle cx="186" cy="128" r="17" fill="%s"/>' % accent)


def logo(palette, pressed):
    """The badge; touched, it is filled with the accent, as a tile is."""
    top, bottom = (palette.pressed, palette.pressed) if pressed else palette.badge
    ink, sun = (palette.pressed_ink,) * 2 if pressed else ('#F4F7FA', '#F5B85F')
    defs = (linear('b', 0, 4, 0, 252, [(0, top, 1), (1, bottom, 1)])
            + linear('e', 0, 4, 0, 252, [(0, '#FFFFFF', 0.35), (1, '#FFFFFF', 0.06)])
            + radial('g', 128, 270, 170, 130, fade('#F5A94A', 0.75)))
    body = (rect(4, 4, 248, 248, 56, 'url(#b)')
            + rect(4, 4, 248, 248, 56, 'url(#g)', ' stroke="url(#e)" stroke-width="2"')
            + mark(ink, sun))
    return svg(256, 256, body, defs)


def empty_art(palette, contrasts):
    """Stands in for a missing cover: a record in the dusk."""
    top, bottom = palette.art
    defs = (linear('b', 0, 0, 0, 222, [(0, top, 1), (1, bottom, 1)])
            + radial('g', 111, 240, 190, 130, fade(palette.glow, palette.glow_share * 1.6)))
    grounds = []
    for y in range(85, 138, 4):                  # down the middle, where the note stands
        ground = mix(rgb(top), rgb(bottom), y / 222)
        ground = mix(ground, rgb(palette.glow), fade_at((240 - y) / 130, palette.glow_share * 1.6))
        ground = mix(ground, rgb(palette.shade), palette.record)
        grounds.append(mix(ground, rgb(palette.glow_lit), 0.16))
    contrasts.note(palette.name, 'stand-in for a cover: note', rgb(palette.accent), grounds)
    ring = '<circle cx="111" cy="111" r="%d" fill="none" stroke="%s" stroke-opacity="%s"/>'
    body = (rect(0, 0, 222, 222, 10, 'url(#b)') + rect(0, 0, 222, 222, 10, 'url(#g)')
            + '<circle cx="111" cy="111" r="82" fill="%s" fill-opacity="%s"/>' % (palette.shade, n(palette.record))
            + ''.join(ring % (r, palette.ink, '0.16') for r in (82, 70, 58))
            + '<circle cx="111" cy="111" r="46" fill="%s" fill-opacity="0.16"/>' % palette.glow_lit
            + icon('music', 111 - 26, 111 - 26, 52, palette.accent, palette.soft))
    return svg(222, 222, body, defs)


def no_poster(palette, pressed, icon_name, contrasts):
    """Stands in for a movie's still: a frame of film or a disc in the dusk."""
    top, bottom = palette.art
    colour = palette.ink if pressed else palette.accent
    defs = (linear('b', 0, 0, 0, 72, [(0, top, 1), (1, bottom, 1)])
            + radial('g', 48, 80, 80, 44, fade(palette.glow, palette.glow_share * 1.6)))
    grounds = []
    for y in range(14, 59, 4):
        ground = mix(rgb(top), rgb(bottom), y / 72)
        grounds.append(mix(ground, rgb(palette.glow), fade_at((80 - y) / 44, palette.glow_share * 1.6)))
    contrasts.note(palette.name, 'stand-in for a still: icon', rgb(colour), grounds)
    body = (rect(0, 0, 96, 72, 6, 'url(#b)') + rect(0, 0, 96, 72, 6, 'url(#g)')
            + icon(icon_name, 48 - 21, 36 - 21, 42, colour, palette.soft))
    return svg(96, 72, body, defs)


def folder(palette, pressed, up, contrasts):
    """A photo folder; `up` bears the arrow to the folder above."""
    back, top, bottom, arrow = palette.folder_held if pressed else palette.folder
    defs = linear('f', 0, 33, 0, 82, [(0, top, 1), (1, bottom, 1)])
    body = (path('M8 74V24a8 8 0 0 1 8-8h20l9 10h35a8 8 0 0 1 8 8v40z', back)
            + rect(8, 35, 80, 49, 9, palette.shade, ' fill-opacity="0.3"')
            + rect(8, 33, 80, 49, 9, 'url(#f)')
            + path('M16 33.7h64', 'none', ' stroke="#FFFFFF" stroke-opacity="0.45" '
                                          'stroke-width="1.4" stroke-linecap="round"'))
    if up:
        middle = [mix(rgb(top), rgb(bottom), t / 8) for t in range(2, 7)]
        contrasts.note(palette.name, 'folder%s: arrow' % (' touched' if pressed else ''),
                       rgb(arrow), middle)
        body += path('M48 70V46M37 56l11-11 11 11', 'none',
                     ' stroke="%s" stroke-width="5" stroke-linecap="round" '
                     'stroke-linejoin="round"' % arrow)
    return svg(96, 96, body, defs)


def paper(palette, pressed):
    """A file: a sheet with a turned corner."""
    back, top, bottom, _ = palette.folder_held if pressed else palette.folder
    defs = linear('f', 0, 8, 0, 88, [(0, top, 1), (1, bottom, 1)])
    body = (path('M18 16a8 8 0 0 1 8-8h30l22 22v50a8 8 0 0 1-8 8H26a8 8 0 0 1-8-8z', 'url(#f)')
            + path('M56 8l22 22H62a6 6 0 0 1-6-6z', back)
            + path('M32 48h32M32 60h32M32 72h20', 'none', ' stroke="%s" stroke-width="5" '
                                                          'stroke-linecap="round"' % back))
    return svg(96, 96, body, defs)


LAMP_GLOW = 0.3


def button_icon(palette, name, pressed, contrasts):
    """The icon on one of the owner's buttons, whose tile the program paints."""
    colour, ground = ((palette.pressed_ink, palette.pressed) if pressed
                      else (palette.accent, palette.states['normal'].top))
    contrasts.note(palette.name, "owner's button%s: icon" % (', pressed' if pressed else ''),
                   rgb(colour), [rgb(ground)])
    return svg(96, 96, icon(name, 0, 0, 96, colour, palette.soft, BUTTON_STROKE))


BULB = 'M60 30a26 26 0 0 1 15 47.2c-2.6 1.9-4 4.3-4 7.6H49c0-3.3-1.4-5.7-4-7.6A26 26 0 0 1 60 30z'
SOCKET = 'M50.5 92.5h19M54 100h12'
RING, RING_FROM, RING_WIDE = 54, 135, 270    # of the level: radius, begin and sweep in degrees


def arc(share):
    """The ring around a lamp, from its lower left corner on."""
    def place(degrees):
        turn = math.radians(degrees)
        return '%s %s' % (n(60 + RING * math.cos(turn)), n(60 + RING * math.sin(turn)))
    return 'M%sA%d %d 0 %d 1 %s' % (place(RING_FROM), RING, RING, RING_WIDE * share > 180,
                                    place(RING_FROM + RING_WIDE * share))


def cabin_lamp(palette, percent, contrasts):
    """A lamp of the cabin as bright as it burns; None where that is not known."""
    burns = bool(percent)
    colour = palette.accent if burns else palette.dim
    contrasts.note(palette.name, 'lamp, ' + ('burning' if burns else 'off'), rgb(colour), [rgb(palette.panel)])
    stroke = (' stroke="%s" stroke-width="%s" stroke-linecap="round" stroke-linejoin="round"')
    body, defs = '', ''
    if burns:
        share = percent / 100
        defs = radial('g', 60, 56, 58, 58, fade(palette.glow_lit, 0.25 + 0.55 * share))
        body += rect(0, 0, 120, 120, 0, 'url(#g)')
    if percent is not None:
        body += path(arc(1), 'none', stroke % (palette.groove, 6))
        if burns:
            body += path(arc(percent / 100), 'none', stroke % (colour, 6))
    fill = ' fill-opacity="%s"' % n(0.2 + 0.8 * percent / 100) if burns else ''
    body += path(BULB, colour if burns else 'none', fill + stroke % (colour, 3.4)
                 + (' stroke-dasharray="5 7"' if percent is None else ''))
    return svg(120, 120, body + path(SOCKET, 'none', stroke % (colour, 3.4)), defs)


def lamp_globe(palette, on, contrasts):
    """The lamp that tells whether the internet can be reached."""
    if on:
        contrasts.note(palette.name, 'internet lamp, on', rgb(palette.accent),
                       [mix(rgb(c), rgb(palette.glow_lit), LAMP_GLOW) for c in palette.sky])
        defs = radial('g', 24, 24, 24, 24, fade(palette.glow_lit, LAMP_GLOW))
        return svg(48, 48, rect(0, 0, 48, 48, 0, 'url(#g)')
                   + icon('globe', 8, 8, 32, palette.accent, palette.soft), defs)
    contrasts.note(palette.name, 'internet lamp, off', rgb(palette.dim),
                   [rgb(c) for c in palette.sky])
    return svg(48, 48, icon('globeoff', 8, 8, 32, palette.dim, palette.soft))
