"""The table of pictures: which file shows what, at which size and in which state.

A row of `pressable` gives a picture and its partner with a "b" appended; `held` says what the
partner shows: 'lit' where the state lasts (a tab, a list, a mode), 'pressed' where it is the
touch itself.
"""

import dataclasses

import tiles
from palette import MERIDIAN

# The dawn stands elsewhere on each group's background.
GLOWS = {'main': 640, 'music': 900, 'movies': 380, 'photos': 1060, 'maps': 220, 'more': 760,
         'radio': 520}


class Table:
    def __init__(self, palette, contrasts):
        self.palette, self.contrasts = palette, contrasts
        self.files = {}

    def put(self, name, text):
        folded = name.lower()
        if folded in (known.lower() for known in self.files):
            raise SystemExit('draw: two pictures would be called %s' % name)
        self.files[name] = text

    def captioned(self, name, state, w, h, icon, word, size=tiles.CAPTION, grid=35):
        self.put(name, tiles.captioned(self.palette, state, w, h, icon, word, state,
                                       self.contrasts, size, grid))

    def plain(self, name, state, w, h, icon, grid=42):
        self.put(name, tiles.plain(self.palette, state, w, h, icon, state, self.contrasts, grid))

    def pressable(self, name, held, w, h, icon, word='', held_icon='', normal='normal', **kw):
        for suffix, state, shown in (('', normal, icon), ('b', held, held_icon or icon)):
            if word:
                self.captioned(name + suffix, state, w, h, shown, word, **kw)
            else:
                self.plain(name + suffix, state, w, h, shown, **kw)

    def answer(self, name, icon, word, leading=False, width=180, height=84):
        for suffix, state in (('', 'normal'), ('b', 'pressed')):
            self.put(name + suffix, tiles.answer(self.palette, state, width, height, icon, word, leading,
                                                 state, self.contrasts))

    def switch(self, on, off, icon, word):
        self.captioned(on, 'lit', 107, 84, icon, word)
        self.captioned(off, 'off', 107, 84, icon, word)


def on_movies(t, palette, contrasts):
    """The controls upon a movie: their card is dark in both themes, and so are they."""
    dark = dataclasses.replace(MERIDIAN, name=palette.name)
    for suffix, state in (('', 'normal'), ('b', 'pressed')):
        pair = state + ', on a movie'
        for name, icon in (('bigplay', 'play'), ('bigpause', 'pause')):
            t.put('movies/' + name + suffix, tiles.big(dark, state, 120, 124, icon, pair, contrasts))
        for name, icon, word in (('back10', 'back10', '10 s back'), ('on10', 'on10', '10 s on'),
                                 ('prevchapter', 'prev', 'Previous'), ('nextchapter', 'next', 'Next'),
                                 ('tracks', 'tracks', 'Sound'), ('subtitles', 'subtitles', 'Subtitles'),
                                 ('discmenu', 'discmenu', 'Menu'), ('fit', 'fit', 'Fit'),
                                 ('lock', 'lockopen', 'Lock'), ('leave', 'leave', 'Leave')):
            t.put('movies/' + name + suffix,
                  tiles.captioned(dark, state, 96, 112, icon, word, pair, contrasts, grid=46))
        t.put('movies/locked' + suffix, tiles.captioned(dark, state, 120, 124, 'lockshut', 'Hold to open', pair,
                                                       contrasts, size=15.5, grid=54))
        for name, icon in (('noposter', 'film'), ('noposterdvd', 'dvd')):
            t.put('movies/' + name + suffix, tiles.no_poster(palette, bool(suffix), icon, contrasts))


def draw(palette, contrasts):
    """Every SVG of a theme: {'group/name': text}, group root without a folder."""
    t = Table(palette, contrasts)

    for group, x in GLOWS.items():
        t.put(group + '/background', tiles.background(palette, x))

    # tabs
    for name, icon, word in (('main/main', 'main', 'Main'), ('music/music', 'music', 'Music'),
                             ('movies/movies', 'movies', 'Movies'),
                             ('photos/photo', 'photos', 'Photos'), ('maps/maps', 'maps', 'Maps'),
                             ('radio/radio', 'radio', 'Radio'), ('more/more', 'more', 'More')):
        t.pressable(name, 'lit', 120, 84, icon, word, size=tiles.WORD, grid=36)

    # the form
    for name in ('exit', 'minimize', 'setup'):
        t.pressable(name, 'pressed', 120, 72, name, normal='quiet', grid=36)
    t.pressable('UP', 'pressed', 88, 88, 'pageup')
    t.pressable('DOWN', 'pressed', 88, 88, 'pagedown')
    t.answer('yes', 'check', 'Yes', True)
    t.answer('no', 'cross', 'No')
    t.answer('ok', 'check', 'OK', True)
    t.answer('cancel', 'cross', 'Cancel')
    t.answer('clear', 'clear', 'Clear')
    t.answer('save', 'save', 'Save', True)
    t.answer('select', 'select', 'Select', True)
    t.plain('capslockon', 'lit', 96, 64, 'capslit', grid=32)
    t.plain('capslockoff', 'off', 96, 64, 'caps', grid=32)
    t.put('ION', tiles.lamp_globe(palette, True, contrasts))
    t.put('IOFF', tiles.lamp_globe(palette, False, contrasts))
    t.put('emptyart', tiles.empty_art(palette, contrasts))
    for suffix, pressed in (('', False), ('b', True)):
        t.put('logo' + suffix, tiles.logo(palette, pressed))
    t.pressable('camera', 'pressed', 107, 84, 'camera', 'Camera')

    # lists of the music
    for name, icon, word in (('artist', 'artist', 'Artists'), ('album', 'album', 'Albums'),
                             ('playlist', 'playlist', 'Playlists'), ('song', 'song', 'Songs'),
                             ('search', 'search', 'Search'), ('Favorites', 'heart', 'Favourites'),
                             ('jukebox', 'jukebox', 'Jukebox')):
        t.pressable('music/' + name, 'lit', 112, 76, icon, word, grid=31)
    t.pressable('music/back', 'pressed', 112, 76, 'back', 'Back', grid=31)

    # transport
    for name in ('prev', 'play', 'pause', 'stop', 'next', 'delete'):
        t.pressable('music/' + name, 'pressed', 96, 80, name)
    for name in ('repeat', 'random'):
        t.pressable('music/' + name, 'lit', 96, 80, name)
    t.plain('music/continue on', 'lit', 96, 80, 'continue')
    t.plain('music/continue off', 'off', 96, 80, 'continue')
    t.pressable('music/mute', 'lit', 76, 80, 'sound', held_icon='muted', grid=38)
    for name in ('volminus', 'volplus'):
        t.pressable('music/' + name, 'pressed', 76, 80, name, grid=38)

    # the remote
    for group in ('music', 'movies'):
        for name in ('up', 'down', 'left', 'right'):
            t.pressable('%s/%s' % (group, name), 'pressed', 88, 88, name)
        for suffix, state in (('', 'normal'), ('b', 'pressed')):
            t.put('%s/enter%s' % (group, suffix),
                  tiles.worded(palette, state, 88, 88, 'OK', state, contrasts))

    # sources and destinations
    for group in ('music', 'movies'):
        t.switch(group + '/AtSeatOn', group + '/AtSeatOff', 'seat', 'At seat')
        t.switch(group + '/InCabinOn', group + '/InCabinOff', 'cabin', 'In cabin')
    t.switch('music/CDplayerOn', 'music/CDplayerOff', 'album', 'CD')
    t.switch('music/DigitalMusicOn', 'music/DigitalMusicOff', 'digital', 'Digital')
    t.switch('music/normalon', 'music/normaloff', 'normal', 'Normal')
    t.switch('music/jukeboxon', 'music/jukeboxoff', 'jukebox', 'Jukebox')
    t.switch('movies/DigitalMovieOn', 'movies/DigitalMovieOFF', 'movies', 'Movies')
    t.switch('movies/DVDPlayerON', 'movies/DVDPlayerOFF', 'dvd', 'DVD')
    t.switch('movies/DVDDigitalOn', 'movies/DVDDigitalOFF', 'discfiles', 'Disc files')

    # editing
    t.pressable('music/AddFav', 'lit', 107, 76, 'favadd', 'Favourite', held_icon='favadded',
                grid=31)
    for name, icon, word in (('trash', 'trash', 'Remove'), ('addSong', 'addsong', 'Add song'),
                             ('addAlbum', 'addalbum', 'Add album'),
                             ('moveSongup', 'moveup', 'Move up'),
                             ('moveSongdown', 'movedown', 'Move down')):
        t.pressable('music/' + name, 'pressed', 107, 76, icon, word, grid=31)

    t.pressable('music/plmanage', 'pressed', 107, 76, 'editlist', 'Lists', grid=31)
    for name, icon, word in (('pluseplaylist', 'playlist', 'Use Playlist'), ('pldone', 'check', 'Done'),
                             ('plrename', 'rename', 'Rename'), ('pldelete', 'trash', 'Delete'),
                             ('pledit', 'editlist', 'Edit'), ('plcreate', 'newlist', 'Create')):
        t.answer('music/' + name, icon, word, name == 'pluseplaylist', width=292, height=96)

    # the owner's buttons
    for name, icon in (('music', 'music'), ('movies', 'movies'), ('photos', 'photos'),
                       ('maps', 'maps'), ('more', 'more'), ('artists', 'artist'),
                       ('albums', 'album'), ('songs', 'song'), ('search', 'search'),
                       ('playlists', 'playlist'), ('favourites', 'heart'), ('jukebox', 'jukebox'),
                       ('shuffle', 'random'), ('playpause', 'playpause'), ('cd', 'dvd'),
                       ('mute', 'muted'), ('setup', 'setup'), ('minimise', 'minimize'),
                       ('exit', 'leave'), ('ripper', 'ripper'), ('restart', 'restart'),
                       ('shutdown', 'exit'), ('connect', 'connect'), ('pictureedit', 'manage'),
                       ('program', 'program')):
        for suffix, pressed in (('', False), ('b', True)):
            t.put('main/btn%s%s' % (name, suffix),
                  tiles.button_icon(palette, icon, pressed, contrasts))

    # movies and photos
    t.pressable('movies/menu', 'pressed', 107, 84, 'menu', 'Menu')
    t.pressable('movies/fullscreen', 'pressed', 107, 84, 'fullscreen', 'Full screen')
    on_movies(t, palette, contrasts)
    t.pressable('photos/manage', 'pressed', 107, 84, 'manage', 'Manage')
    for suffix, pressed in (('', False), ('b', True)):
        t.put('photos/UpDirectory' + suffix, tiles.folder(palette, pressed, True, contrasts))
        t.put('photos/folderclosed' + suffix, tiles.folder(palette, pressed, False, contrasts))
        t.put('photos/file' + suffix, tiles.paper(palette, pressed))

    # the lights
    for name, percent in (('unknown', None), ('0', 0), ('20', 20), ('40', 40), ('60', 60), ('80', 80),
                          ('100', 100)):
        t.put('more/lamp' + name, tiles.cabin_lamp(palette, percent, contrasts))
    return t.files
