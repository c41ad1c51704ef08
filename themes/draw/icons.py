"""The icon family: a grid of 24 units, one stroke, round caps and joins.

An icon is a list of (kind, path data):
  line   stroked
  solid  filled and stroked, so that its corners are as round as the strokes
  soft   filled with a fraction of the icon's colour: the depth inside a shape
"""

GRID = 24
STROKE = 1.7


def circle(x, y, r):
    return 'M%g %ga%g %g 0 1 1 %g 0a%g %g 0 1 1 %g 0z' % (x - r, y, r, r, 2 * r, r, r, -2 * r)


def rect(x, y, w, h, r):
    return ('M%g %gh%ga%g %g 0 0 1 %g %gv%ga%g %g 0 0 1 %g %gh%ga%g %g 0 0 1 %g %gv%g'
            'a%g %g 0 0 1 %g %gz' % (x + r, y, w - 2 * r, r, r, r, r, h - 2 * r, r, r, -r, r,
                                     2 * r - w, r, r, -r, -r, 2 * r - h, r, r, r, -r))


def both(path):
    """A closed shape: its soft inside and its line."""
    return [('soft', path), ('line', path)]


def line(*paths):
    return [('line', ''.join(paths))]


def solid(*paths):
    return [('solid', ''.join(paths))]


NOTE_HEADS = circle(6.6, 17.6, 2.7) + circle(17, 15.4, 2.7)
HEART = ('M12 20.2C5.6 16 2.8 12.7 2.8 9A4.9 4.9 0 0 1 7.7 4C9.5 4 11.1 5 12 6.7 12.9 5 14.5 4 '
         '16.3 4A4.9 4.9 0 0 1 21.2 9C21.2 12.7 18.4 16 12 20.2z')
SPEAKER = 'M3.2 9.4v5.2h3.6l5.2 4.4V5L6.8 9.4z'
LOOP = ('M4 11V9.6A3.6 3.6 0 0 1 7.6 6H19.4M16.4 3l3 3-3 3'
        'M20 13v1.4a3.6 3.6 0 0 1-3.6 3.6H4.6M7.6 21l-3-3 3-3')
BIN = ('M6 6.6l.8 12.2a2 2 0 0 0 2 1.9h6.4a2 2 0 0 0 2-1.9L18 6.6z')
BIN_LID = 'M4 6.6h16M9 6.6V5a1.6 1.6 0 0 1 1.6-1.6h2.8A1.6 1.6 0 0 1 15 5v1.6'
FOLDER = ('M3 17.8V6.3a1.8 1.8 0 0 1 1.8-1.8h4.3l2.3 2.6h7.8A1.8 1.8 0 0 1 21 8.9v8.9'
          'a1.8 1.8 0 0 1-1.8 1.8H4.8A1.8 1.8 0 0 1 3 17.8z')
GLOBE = (circle(12, 12, 9), 'M3 12h18M12 3c2.6 2.5 4 5.6 4 9s-1.4 6.5-4 9c-2.6-2.5-4-5.6-4-9'
         's1.4-6.5 4-9z')
CAPS = 'M12 3.6l8 8.6h-4.2v4.2H8.2v-4.2H4z'
JUKEBOX = 'M4.8 20.8V10.2a7.2 7.2 0 0 1 14.4 0v10.6z'
FRAME_OPEN = ('M10.5 19.5H5.5A2.5 2.5 0 0 1 3 17V7A2.5 2.5 0 0 1 5.5 4.5h13A2.5 2.5 0 0 1 21 7'
              'v2.6')
SEAT = ('M6.9 2.9h1.3a2 2 0 0 1 2 1.7l1.3 7.7h5.2a2.3 2.3 0 0 1 0 4.6H8.9a2.2 2.2 0 0 1-2.2-1.8'
        'L4.9 5.3a2 2 0 0 1 2-2.4z')

TEN = 'M8.5 11.5l1.5-1.1v5.6' + rect(12.4, 10.4, 3.2, 5.6, 1.6)
SHACKLE_SHUT, SHACKLE_OPEN = ('M7.8 10.6V7.4a4.2 4.2 0 0 1 8.4 0v3.2', 'M7.8 10.6V7a4.2 4.2 0 0 1 8.1-1.6')

ICONS = {
    # the tabs
    'main': both('M5.6 9.2V18.4a2 2 0 0 0 2 2h8.8a2 2 0 0 0 2-2V9.2L12 4z')
        + line('M3 11.2L12 3.7l9 7.5M9.6 20.4v-4.8a1.2 1.2 0 0 1 1.2-1.2h2.4a1.2 1.2 0 0 1 1.2 1.2'
               'v4.8'),
    'music': both(NOTE_HEADS) + line('M9.3 17.6V5.6L19.7 3.4v12'),
    'movies': both(rect(3, 9.8, 18, 10.7, 2.2))
        + line('M3.3 9.8L2.8 7.5a1.8 1.8 0 0 1 1.4-2.1l13.2-2.8a1.8 1.8 0 0 1 2.1 1.4l.4 2.2z'
               'M8.2 4.6l3.2 3.4M13.4 3.5l3.2 3.4'),
    'photos': both(rect(3, 4.5, 18, 15, 2.5))
        + line(circle(8.4, 9.5, 1.6),
               'M3.5 17.2l4.6-4.5a1.6 1.6 0 0 1 2.2 0L14 16.3l2-1.9a1.6 1.6 0 0 1 2.2 0l2.6 2.5'),
    'maps': [('soft', 'M9 4.2L3.3 6.5v13.4L9 17.6zM15 6.5v13.4l5.7-2.3V4.2z')]
        + line('M9 4.2L3.3 6.5v13.4L9 17.6l6 2.3 5.7-2.3V4.2L15 6.5zM9 4.2v13.4M15 6.5v13.4'),
    'radio': both(rect(2.6, 8.4, 18.8, 12, 2.4))
        + line('M6.4 8.4L17.6 3.2M14.6 12.3h3.6M14.6 16.5h3.6', circle(8.4, 14.4, 2.9)),
    'more': both(rect(3.5, 3.5, 6.8, 6.8, 2) + rect(13.7, 3.5, 6.8, 6.8, 2)
                 + rect(3.5, 13.7, 6.8, 6.8, 2))
        + line('M17.1 13.9v6.4M13.9 17.1h6.4'),

    # the form
    'exit': line('M12 3.2v8.4M7 6.2a8 8 0 1 0 10 0'),
    'minimize': line('M5.5 7l6.5 6.5L18.5 7M4.5 19h15'),
    'setup': both(circle(15.6, 7.2, 2.9) + circle(8.4, 16.8, 2.9))
        + line('M3.5 7.2h9.2M18.5 7.2h2M3.5 16.8h2M11.3 16.8h9.2'),
    'pageup': line('M5 12.4l7-7 7 7M5 19.2l7-7 7 7'),
    'pagedown': line('M5 11.6l7 7 7-7M5 4.8l7 7 7-7'),
    'check': line('M4.2 12.6l5.2 5.2L19.8 6.6'),
    'cross': line('M6 6l12 12M18 6L6 18'),
    'clear': both('M8.6 5.4H19a2 2 0 0 1 2 2v9.2a2 2 0 0 1-2 2H8.6L2.8 12z')
        + line('M11.6 9.6l4.8 4.8M16.4 9.6l-4.8 4.8'),
    'save': line('M12 3.6v11M7.4 10.2l4.6 4.6 4.6-4.6M3.8 15.8v2.6a2.2 2.2 0 0 0 2.2 2.2h12'
                 'a2.2 2.2 0 0 0 2.2-2.2v-2.6'),
    'select': both(circle(12, 12, 9)) + line('M7.8 12.4l3 3 5.4-6'),
    'globe': both(GLOBE[0]) + line(GLOBE[1]),
    'globeoff': line('M20.9 10.7A9 9 0 1 0 10.9 20.9M3 12h8.6M11.6 3.1c-2.4 2.5-3.6 5.5-3.6 8.9'
                     's1 6 2.9 8.9M12.4 3.1c1.9 2.1 3.1 4.6 3.5 7.4M15 15l6 6M21 15l-6 6'),
    'caps': line(CAPS, 'M8.2 20.4h7.6'),
    'capslit': solid(CAPS) + line('M8.2 20.4h7.6'),

    'camera': both(rect(2.6, 6.4, 12.8, 11.2, 2.4))
        + line('M15.4 10.8l6-3.4v9.2l-6-3.4M6.2 10h2.4'),

    # lists of the music
    'artist': both(rect(8.7, 2.7, 6.6, 11.6, 3.3))
        + line('M5 11.2a7 7 0 0 0 14 0M12 18.2v3.1M8.6 21.3h6.8'),
    'album': both(circle(12, 12, 9)) + line(circle(12, 12, 2.5), 'M12 6.4a5.6 5.6 0 0 1 5.6 5.6'),
    'playlist': both(circle(14.6, 17.8, 2.7))
        + line('M3.4 5.6h12.2M3.4 10.6h8.6M3.4 15.6h4.8M17.3 17.8V8.6c.5 2 3.6 2.2 3.6 5'),
    'song': both(circle(9, 17.4, 3.3)) + line('M12.3 17.4V3.2c.6 3.6 5.8 3.8 5.4 9'),
    'search': both(circle(10.6, 10.6, 7.1)) + line('M15.8 15.8l5 5'),
    'heart': both(HEART),
    'back': line('M20.4 12H4.2M11 5.2L4.2 12l6.8 6.8'),
    'jukebox': both(JUKEBOX)
        + line('M8.4 12.6v-2.4a3.6 3.6 0 0 1 7.2 0v2.4zM9 16v2.2M12 16v2.2M15 16v2.2'),

    # the transport
    'prev': solid('M18.6 6v12L9.4 12z') + line('M5.4 5.6v12.8'),
    'play': solid('M7.4 5.2v13.6L18.8 12z'),
    'pause': solid('M7 6h2.2v12H7zM14.8 6H17v12h-2.2z'),
    'stop': solid('M6.6 6.6h10.8v10.8H6.6z'),
    'next': solid('M5.4 6v12l9.2-6z') + line('M18.6 5.6v12.8'),
    'repeat': line(LOOP, 'M10.7 10.7l1.8-1.1v5'),
    'continue': line(LOOP),
    'random': line('M2.8 6.6h2.6c2 0 3.5 1 4.6 2.7l3.9 5.4c1.1 1.7 2.6 2.7 4.6 2.7h2.3'
                   'M2.8 17.4h2.6c2 0 3.5-1 4.6-2.7M13.9 9.3c1.1-1.7 2.6-2.7 4.6-2.7h2.3'
                   'M18.2 3.8l2.8 2.8-2.8 2.8M18.2 14.6l2.8 2.8-2.8 2.8'),
    'delete': both(BIN) + line(BIN_LID, 'M10.2 11.6l3.6 3.6M13.8 11.6l-3.6 3.6'),
    'sound': both(SPEAKER) + line('M15.6 9a4.2 4.2 0 0 1 0 6M18.3 6.3a8 8 0 0 1 0 11.4'),
    'muted': both(SPEAKER) + line('M16 9.4l5.2 5.2M21.2 9.4L16 14.6'),
    'volminus': both(SPEAKER) + line('M15.8 12h5.4'),
    'volplus': both(SPEAKER) + line('M15.8 12h5.4M18.5 9.3v5.4'),

    # the remote
    'up': line('M4.8 15.6L12 8.4l7.2 7.2'),
    'down': line('M4.8 8.4l7.2 7.2 7.2-7.2'),
    'left': line('M15.6 4.8L8.4 12l7.2 7.2'),
    'right': line('M8.4 4.8l7.2 7.2-7.2 7.2'),
    'menu': line('M4 6.4h16M4 12h16M4 17.6h9.6'),
    'fullscreen': line('M4 9V5.8A1.8 1.8 0 0 1 5.8 4H9M15 4h3.2A1.8 1.8 0 0 1 20 5.8V9M20 15v3.2'
                       'a1.8 1.8 0 0 1-1.8 1.8H15M9 20H5.8A1.8 1.8 0 0 1 4 18.2V15'),

    # upon a movie
    'back10': line('M3.4 13a8.6 8.6 0 1 0 2.6-6.4L3.4 9.2M3.2 5.2V9.4h4.2', TEN),
    'on10': line('M20.6 13a8.6 8.6 0 1 1-2.6-6.4L20.6 9.2M20.8 5.2V9.4h-4.2', TEN),
    'tracks': both(SPEAKER) + line('M15.4 9.4a3.8 3.8 0 0 1 0 5.2M18.2 6.2h3M19.2 12h2M18.2 17.8h3'),
    'subtitles': both(rect(2.8, 4.6, 18.4, 14.8, 2.5)) + line('M6.4 12.4h2.2M11.6 12.4h6M6.4 15.8h7M16.4 15.8h1.2'),
    'discmenu': [('soft', circle(10.8, 10.8, 8))]
        + line('M18.7 9.6A8 8 0 1 0 9.6 18.7', circle(10.8, 10.8, 2.2), 'M13.6 14.4h7.6M13.6 17.8h7.6M13.6 21.2h4.6'),
    'fit': both(rect(2.8, 4.6, 18.4, 14.8, 2.5))
        + line('M10.2 13.8l-4 2.6M6 13.6v2.9h3M13.8 10.2l4-2.6M18 10.4V7.5h-3'),
    'lockopen': both(rect(5, 10.6, 14, 10, 2.2)) + line(SHACKLE_OPEN, 'M12 14.4v2.4'),
    'lockshut': both(rect(5, 10.6, 14, 10, 2.2)) + line(SHACKLE_SHUT, 'M12 14.4v2.4'),
    'film': both(rect(2.8, 4.6, 18.4, 14.8, 2.2))
        + line('M7 4.8v14.4M17 4.8v14.4M3 9.5h4M3 14.5h4M17 9.5h4M17 14.5h4'),

    # where the sound and the picture come from and go to
    'seat': both(SEAT) + line('M8 21h9.6M12.8 17v4M14 8.6h4.4'),
    'cabin': both(rect(6.6, 2.8, 10.8, 18.4, 2.6))
        + line(circle(12, 14.7, 3), 'M12 7.3v.1M3.4 8.2a8 8 0 0 0 0 7.6M20.6 8.2a8 8 0 0 1 0 7.6'),
    'digital': line('M4 10v4M8 6.6v10.8M12 3.4v17.2M16 7.8v8.4M20 10.2v3.6'),
    'normal': line('M3.4 6h17.2M3.4 12h8.2M3.4 18h8.2') + solid('M15.8 12v6l5-3z'),
    'dvd': both(circle(12, 12, 9)) + solid('M10.2 8.8v6.4l5.2-3.2z'),
    'discfiles': both(FOLDER) + line(circle(12, 13.3, 3.4)) + solid(circle(12, 13.3, 0.2)),

    # editing
    'favadd': both(HEART) + line('M12 9v6.2M8.9 12.1h6.2'),
    'favadded': solid(HEART),
    'trash': both(BIN) + line(BIN_LID, 'M10.1 10.8l.2 5.6M13.9 10.8l-.2 5.6'),
    'addsong': both(circle(6.4, 17.4, 3)) + line('M9.4 17.4V3.6c.5 3 5 3.2 4.8 7.2'
                                                 'M18 13.8v6.8M14.6 17.2h6.8'),
    'addalbum': [('soft', circle(12, 12, 9))]
        + line('M20.9 10.7A9 9 0 1 0 10.9 20.9', circle(12, 12, 2.4), 'M18 14.6v6.8M14.6 18h6.8'),
    'moveup': line('M3.4 6h7.4M3.4 12h7.4M3.4 18h7.4M17 19.4V5M12.8 9.2L17 5l4.2 4.2'),
    'movedown': line('M3.4 6h7.4M3.4 12h7.4M3.4 18h7.4M17 4.6V19M12.8 14.8L17 19l4.2-4.2'),
    'editlist': line('M3.4 5.6h14.2M3.4 10.6h8.6M3.4 15.6h4.8')
        + both('M11.4 20.6l.7-3.2 6-6a1.8 1.8 0 0 1 2.5 2.5l-6 6z'),
    'newlist': line('M3.4 5.6h14.2M3.4 10.6h9.6M3.4 15.6h7M17.4 13v7.6M13.6 16.8h7.6'),
    'rename': line('M8.4 20.2V5M4 5h8.8M4 8V5M12.8 8V5M6.4 20.2h4')
        + both('M13.6 18.4l.6-2.8 4.6-4.6a1.6 1.6 0 0 1 2.3 2.3l-4.6 4.6z'),
    'manage': line(FRAME_OPEN, circle(8.2, 9.2, 1.4), 'M3.4 16.6l4-3.9a1.6 1.6 0 0 1 2.2 0l1.6 1.6')
        + both('M13.8 20.8l.6-3 5-5a1.7 1.7 0 0 1 2.4 2.4l-5 5z'),

    # what the owner's buttons do
    'restart': line('M19.6 12.2a7.6 7.6 0 1 1-2.3-5.6L19.8 9M20 4.2V9h-4.8'),
    'connect': both(circle(12, 5.4, 2.4) + circle(5.4, 18, 2.4) + circle(18.6, 18, 2.4))
        + line('M10.9 7.6L6.5 15.8M13.1 7.6l4.4 8.2M7.9 18h8.2'),
    'ripper': [('soft', circle(12, 12, 9))]
        + line('M20.9 10.7A9 9 0 1 0 10.9 20.9', circle(12, 12, 2.4),
               'M17.8 13.6v7.6M14.6 18l3.2 3.2 3.2-3.2'),
    'program': both(rect(3, 4.2, 18, 15.6, 2.5))
        + line('M3.4 8.8h17.2M6.2 6.5v.1M9 6.5v.1') + solid('M10.2 11.6v5.2l4.8-2.6z'),
    'leave': line('M10.4 3.8H6.6a2 2 0 0 0-2 2v12.4a2 2 0 0 0 2 2h3.8M14.6 7.4l4.6 4.6-4.6 4.6'
                  'M19 12H9.6'),
    'playpause': solid('M4 6v12l8.8-6z') + line('M16.4 6.2v11.6M20.4 6.2v11.6'),
    'folderup': line('M12 16.8v-6M9.2 13.2l2.8-2.8 2.8 2.8'),
}
