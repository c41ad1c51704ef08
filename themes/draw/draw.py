#!/usr/bin/python3
"""Draws the shipped themes.

  draw.py          writes krvgraphics/<THEME>/ and the table of contrasts in docs/theme.md afresh
  draw.py --check  draws, but only compares with what lies there; fails on any difference

Either fails where a text or an icon stands out by less than 4.5:1 from its ground.
"""

import os
import sys

sys.dont_write_bytecode = True

import buttons
import colors
import pictures
import splash
from palette import PALETTES, Contrasts

HOME = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(os.path.dirname(HOME), 'krvgraphics')
PAGE = os.path.join(os.path.dirname(os.path.dirname(HOME)), 'docs', 'theme.md')
TABLE_FROM, TABLE_TO = '<!-- contrasts: written by draw.py -->\n', '<!-- end of contrasts -->\n'
LARGEST = 6 * 1024


def theme(palette, contrasts):
    """{path below the theme: bytes}"""
    files = {}
    for name, text in pictures.draw(palette, contrasts).items():
        files[name + '.svg'] = text.encode('ascii')
        if len(text) > LARGEST:
            raise SystemExit('draw: %s takes %d bytes' % (name, len(text)))
    files['COLORS.INI'] = colors.ini(palette, contrasts).encode('ascii')
    files['Buttonpositons.txt'] = buttons.text().encode('ascii')
    files['splash.jpg'] = splash.jpeg(palette, contrasts)
    return files


def lying(top):
    found = {}
    for place, _, names in os.walk(top):
        for name in names:
            whole = os.path.join(place, name)
            with open(whole, 'rb') as file:
                found[os.path.relpath(whole, top)] = file.read()
    return found


def write(top, files):
    for stale in set(lying(top)) - set(files):
        os.remove(os.path.join(top, stale))
    for name, data in files.items():
        whole = os.path.join(top, name)
        os.makedirs(os.path.dirname(whole), exist_ok=True)
        with open(whole, 'wb') as out:
            out.write(data)


def page(contrasts):
    """The page on the theme as it lies there, and as it should be."""
    with open(PAGE, encoding='utf-8') as file:
        there = file.read()
    before, _, rest = there.partition(TABLE_FROM)
    _, end, after = rest.partition(TABLE_TO)
    if not end:
        raise SystemExit('draw: no place for the contrasts in ' + PAGE)
    return there, before + TABLE_FROM + '\n' + contrasts.table() + '\n' + TABLE_TO + after


def main(arguments):
    if arguments not in ([], ['--check']):
        raise SystemExit(__doc__)
    check, contrasts, wrong = bool(arguments), Contrasts(), []
    for palette in PALETTES:
        files, top = theme(palette, contrasts), os.path.join(OUT, palette.name)
        if check:
            there = lying(top)
            wrong += ['%s/%s' % (palette.name, name) for name in sorted(set(there) | set(files))
                      if there.get(name) != files.get(name)]
        else:
            write(top, files)
            print('%s: %d files, %d bytes' % (palette.name, len(files),
                                              sum(map(len, files.values()))))
    there, wanted = page(contrasts)
    if there != wanted:
        if check:
            wrong.append('docs/theme.md')
        else:
            with open(PAGE, 'w', encoding='utf-8') as out:
                out.write(wanted)
    for name in wrong:
        print('differs: ' + name)
    return 1 if wrong else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
