"""Buttonpositons.txt: the buttons that a first start shows on the Main tab, two rows of four.

A line is caption, left, top, action, height, width and font size with "@@#" between them, in units
of the design surface.
"""

LEFT, TOP, WIDTH, HEIGHT, GAP, IN_A_ROW, FONT = 148, 248, 265, 244, 16, 4, 14

BUTTONS = (('Shuffle all', 'SHUFFLE'), ('Favourites', 'FAVOURITES'), ('Playlists', 'PLAYLISTS'),
           ('Albums', 'ALBUMS'), ('Movies', 'MOVIES'), ('Photos', 'PHOTOS'), ('Maps', 'MAPS'),
           ('Jukebox', 'JUKEBOX'))


def text():
    lines = []
    for place, (caption, action) in enumerate(BUTTONS):
        row, column = divmod(place, IN_A_ROW)
        lines.append('@@#'.join((caption, str(LEFT + column * (WIDTH + GAP)),
                                 str(TOP + row * (HEIGHT + GAP)), action, str(HEIGHT), str(WIDTH),
                                 str(FONT))))
    return '\n'.join(lines) + '\n'
