#!/usr/bin/python3
"""Draws the shipped themes.

  draw.py              writes themes/krvgraphics/<THEME>/ afresh
  draw.py --check      draws, but only compares with what lies there; fails on any difference
  draw.py --contrasts  prints the lowest contrast of each pair as a table
"""

import os
import sys

sys.dont_write_bytecode = True

import colors
import pictures
import splash
from palette import PALETTES, Contrasts

HOME = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.join(os.path.dirname(HOME), 'krvgraphics')
LARGEST = 6 * 1024


def theme(palette, contrasts, with_splash=True):
    """{path below the theme: bytes}"""
    files = {}
    for name, text in pictures.draw(palette, contrasts).items():
        files[name + '.svg'] = text.encode('ascii')
        if len(text) > LARGEST:
            raise SystemExit('draw: %s takes %d bytes' % (name, len(text)))
    files['COLORS.INI'] = colors.ini(palette, contrasts).encode('ascii')
    if with_splash:
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


def main(arguments):
    if set(arguments) - {'--check', '--contrasts'}:
        raise SystemExit(__doc__)
    contrasts, wrong = Contrasts(), 0
    for palette in PALETTES:
        files = theme(palette, contrasts, with_splash=arguments != ['--contrasts'])
        top = os.path.join(OUT, palette.name)
        if '--check' in arguments:
            there = lying(top)
            for name in sorted(set(there) | set(files)):
                if there.get(name) != files.get(name):
                    print('differs: %s/%s' % (palette.name, name))
                    wrong += 1
        elif '--contrasts' not in arguments:
            write(top, files)
            print('%s: %d files, %d bytes' % (palette.name, len(files),
                                              sum(map(len, files.values()))))
    if '--contrasts' in arguments:
        for pair, worst in contrasts.lowest.items():
            print('| %s | %.1f |' % (pair, worst))
    return 1 if wrong else 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
