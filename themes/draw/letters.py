"""Words as outlines: Inter's glyphs, kerned, as the data of one path."""

import os
from functools import lru_cache

from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.svgPathPen import SVGPathPen
from fontTools.pens.transformPen import TransformPen
from fontTools.ttLib import TTFont

FONTS = os.environ.get('INTER_FONTS', '/usr/share/fonts/opentype/inter')


def number(value):
    """A coordinate with at most one decimal, written as short as possible."""
    text = ('%.1f' % value).rstrip('0').rstrip('.')
    return {'-0': '0', '': '0'}.get(text, text)


def fine(value):
    text = ('%.2f' % value).rstrip('0').rstrip('.')
    return {'-0': '0', '': '0'}.get(text, text)


class Face:
    def __init__(self, file):
        self.font = TTFont(os.path.join(FONTS, file))
        self.glyphs = self.font.getGlyphSet()
        self.cmap = self.font.getBestCmap()
        self.units = self.font['head'].unitsPerEm
        self.pairs = list(self._kerning())

    def _kerning(self):
        """The pair adjustments of the kern feature, in their order."""
        table = self.font['GPOS'].table
        wanted = sorted({i for f in table.FeatureList.FeatureRecord if f.FeatureTag == 'kern'
                         for i in f.Feature.LookupListIndex})
        for i in wanted:
            for sub in table.LookupList.Lookup[i].SubTable:
                if sub.LookupType == 9:
                    sub = sub.ExtSubTable
                if sub.LookupType == 2:
                    yield sub

    @lru_cache(maxsize=None)
    def kern(self, left, right):
        for sub in self.pairs:
            if left not in sub.Coverage.glyphs:
                continue
            if sub.Format == 1:
                at = sub.Coverage.glyphs.index(left)
                for record in sub.PairSet[at].PairValueRecord:
                    if record.SecondGlyph == right:
                        return getattr(record.Value1, 'XAdvance', 0) or 0
            else:
                first = sub.ClassDef1.classDefs.get(left, 0)
                second = sub.ClassDef2.classDefs.get(right, 0)
                value = sub.Class1Record[first].Class2Record[second].Value1
                return getattr(value, 'XAdvance', 0) or 0 if value else 0
        return 0

    def layout(self, word, tracking):
        """(glyph name, x) of each letter in font units, and the whole width."""
        x, last, placed = 0, None, []
        for letter in word:
            name = self.cmap[ord(letter)]
            if last:
                x += self.kern(last, name) + tracking * self.units
            placed.append((name, x))
            x += self.glyphs[name].width
            last = name
        return placed, x


@lru_cache(maxsize=None)
def face(weight):
    return Face('Inter%s.otf' % weight)


def width(word, size, weight='-Medium', tracking=0.0):
    f = face(weight)
    return f.layout(word, tracking)[1] * size / f.units


def outline(word, size, x, baseline, weight='-Medium', anchor='middle', tracking=0.0, digits=1):
    """Path data of the word, its anchor at x."""
    f = face(weight)
    placed, total = f.layout(word, tracking)
    scale = size / f.units
    if anchor == 'middle':
        x -= total * scale / 2
    elif anchor == 'end':
        x -= total * scale
    pen = SVGPathPen(f.glyphs, ntos=number if digits == 1 else fine)
    for name, at in placed:
        f.glyphs[name].draw(TransformPen(pen, (scale, 0, 0, -scale, x + at * scale, baseline)))
    return pen.getCommands()


def cap_height(size, weight='-Medium'):
    f = face(weight)
    pen = BoundsPen(f.glyphs)
    f.glyphs[f.cmap[ord('H')]].draw(pen)
    return pen.bounds[3] * size / f.units
