"""Colours of the shipped themes and the arithmetic of contrast."""

from dataclasses import dataclass

MINIMUM_CONTRAST = 4.5


def rgb(text):
    """'#RRGGBB' as three numbers of 0..255."""
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def hexed(colour):
    return '#%02X%02X%02X' % tuple(min(255, max(0, round(c))) for c in colour)


def mix(under, over, share):
    """`over` laid on `under` with an opacity of `share`."""
    return tuple(u + (o - u) * share for u, o in zip(under, over))


def bgr(text):
    """The decimal of 0x00BBGGRR, the way COLORS.INI writes a colour."""
    r, g, b = rgb(text)
    return b << 16 | g << 8 | r


def luminance(colour):
    def linear(c):
        c /= 255
        return c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4
    r, g, b = (linear(c) for c in colour)
    return 0.2126 * r + 0.7152 * g + 0.0722 * b


def contrast(a, b):
    a, b = luminance(a), luminance(b)
    return (max(a, b) + 0.05) / (min(a, b) + 0.05)


class Contrasts:
    """Every pair met while drawing, with the lowest contrast of each."""

    def __init__(self):
        self.lowest = {}

    def note(self, theme, pair, front, backs):
        worst = min(contrast(front, back) for back in backs)
        if worst < MINIMUM_CONTRAST:
            raise SystemExit('draw: %s, %s reaches only %.2f:1' % (theme, pair, worst))
        row = self.lowest.setdefault(pair, {})
        row[theme] = min(worst, row.get(theme, worst))

    def table(self):
        themes = [p.name for p in PALETTES]
        rows = ['| pair | %s |' % ' | '.join(themes), '|---|' + '---:|' * len(themes)]
        for pair, row in self.lowest.items():
            rows.append('| %s | %s |' % (pair, ' | '.join('%.1f' % row[t] for t in themes)))
        return '\n'.join(rows) + '\n'


@dataclass(frozen=True)
class State:
    """How a tile looks in one of its states."""
    top: str            # body, upper end of the gradient
    bottom: str         # body, lower end
    edge: str           # hairline colour
    edge_top: float     # its opacity at the top and at the bottom
    edge_bottom: float
    icon: str
    word: str
    shadow: float       # opacity of the lower shadow edge
    glow: float = 0.0   # opacity of the glow that rises from the base
    lamp: str = ''      # the small bar at the base; '' = none


@dataclass(frozen=True)
class Palette:
    name: str
    sky: tuple          # background: upper, middle and lower colour
    glow: str           # the dawn at the lower edge of the background
    glow_share: float
    limb: str           # splash: the horizon, and how strong the light along it
    limb_share: float
    accent: str
    accent_ink: str     # text on a surface filled with the accent
    glow_lit: str       # glow inside a lit tile
    shade: str          # shadow edges
    soft: float         # opacity of the soft inside of an icon
    record: float       # opacity of the record in the stand-in for a cover
    ink: str            # primary text and icons
    dim: str            # secondary text
    panel: str          # lists
    panel_line: str     # heading line of the lists
    selected: str       # selected row
    selected_ink: str
    surface: str        # dialog cards
    button: str
    button_ink: str
    pressed: str
    pressed_ink: str
    groove: str         # slider grooves
    knob: str           # slider knobs
    knob_ink: str
    edge: str
    art: tuple          # stand-in for a cover, upper and lower colour
    folder: tuple       # photo folder: back, front top, front bottom, arrow
    folder_held: tuple  # the same while touched
    badge: tuple        # the mark's own tile, upper and lower colour
    states: dict


MERIDIAN = Palette(
    name='MERIDIAN',
    sky=('#18212C', '#0F151C', '#0A0D12'),
    glow='#E39A45', glow_share=0.20,
    limb='#FFD9A0', limb_share=0.42,
    accent='#F5B85F', accent_ink='#1C1306', glow_lit='#F5A94A', shade='#000000',
    soft=0.2, record=0.16,
    ink='#EEF2F6', dim='#A9B6C4',
    panel='#121921', panel_line='#1A232D',
    selected='#44351E', selected_ink='#FFD596',
    surface='#18212B', button='#2A3440', button_ink='#EEF2F6',
    pressed='#F0AE57', pressed_ink='#1C1306',
    groove='#2B3642', knob='#FFE3B5', knob_ink='#1C1306', edge='#3A4653',
    art=('#2A3542', '#141B23'),
    folder=('#3B4B5B', '#5C7085', '#3F5061', '#FFFFFF'),
    folder_held=('#9A6D2C', '#FFD28E', '#E9A24D', '#1C1306'),
    badge=('#2B3847', '#0C1117'),
    states={
        'normal': State('#2C3743', '#1B232D', '#FFFFFF', 0.20, 0.04, '#EEF2F6', '#EEF2F6', 0.45),
        'pressed': State('#FFD28E', '#E9A24D', '#FFF3DC', 0.85, 0.15, '#1C1306', '#1C1306', 0.45),
        'lit': State('#2D2D2D', '#2A2722', '#FFD596', 0.30, 0.55, '#FFC672', '#FFEFD6', 0.45,
                     0.48, '#FFC672'),
        'off': State('#1D2630', '#151C24', '#FFFFFF', 0.11, 0.03, '#A9B6C4', '#A9B6C4', 0.35,
                     0.0, '#3A4653'),
        'quiet': State('#1D2630', '#151C24', '#FFFFFF', 0.11, 0.03, '#B9C5D1', '#B9C5D1', 0.35),
    })

DAYBREAK = Palette(
    name='DAYBREAK',
    sky=('#F4F6F8', '#E8ECF0', '#D9DFE6'),
    glow='#FFD6A0', glow_share=0.62,
    limb='#FFFFFF', limb_share=0.95,
    accent='#934504', accent_ink='#FFFFFF', glow_lit='#FFB457', shade='#24364A',
    soft=0.11, record=0.06,
    ink='#18222D', dim='#4A5868',
    panel='#FAFBFC', panel_line='#EBEFF3',
    selected='#FCE3C2', selected_ink='#6E3403',
    surface='#FFFFFF', button='#E9EDF2', button_ink='#18222D',
    pressed='#A65511', pressed_ink='#FFFFFF',
    groove='#C9D1DA', knob='#7A3903', knob_ink='#FFFFFF', edge='#C3CCD5',
    art=('#F0F3F6', '#D3DBE3'),
    folder=('#8C9DAE', '#D3DCE5', '#AFBECC', '#18222D'),
    folder_held=('#6E3403', '#AF5D14', '#934706', '#FFFFFF'),
    badge=('#33475D', '#131D28'),
    states={
        'normal': State('#FFFFFF', '#F0F3F6', '#24364A', 0.10, 0.24, '#18222D', '#18222D', 0.16),
        'pressed': State('#AF5D14', '#934706', '#5E2C02', 0.35, 0.70, '#FFFFFF', '#FFFFFF', 0.22),
        'lit': State('#FFFBF5', '#FFF1DE', '#934504', 0.40, 0.75, '#934504', '#5E2C02', 0.18,
                     0.50, '#B55A0B'),
        'off': State('#EAEEF2', '#E1E6EC', '#24364A', 0.08, 0.16, '#4A5868', '#4A5868', 0.08,
                     0.0, '#BAC4CE'),
        'quiet': State('#EAEEF2', '#E1E6EC', '#24364A', 0.08, 0.16, '#41505F', '#41505F', 0.08),
    })

PALETTES = (MERIDIAN, DAYBREAK)
