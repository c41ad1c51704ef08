"""COLORS.INI: the colours the program paints with, grouped, each text measured on its ground."""

import pictures
import tiles
from palette import bgr, rgb


def table(p):
    """Groups of (element, BACK, FOR)."""
    mean = tiles.background_mean(p, pictures.GLOWS['main'])
    button, pressed = (p.button, p.button_ink), (p.pressed, p.pressed_ink)
    panel, chosen = (p.panel, p.ink), (p.selected, p.selected_ink)
    slider, lead = (p.groove, p.ink), (p.accent, p.accent_ink)
    return (
        ('the form', (('Status', mean, p.ink), ('Accent', *lead), ('Surface', p.surface, p.ink),
                      ('Button', *button), ('ButtonPressed', *pressed), ('Edge', p.edge, p.ink),
                      ('Dim', p.panel, p.dim), ('Messagebox', p.surface, p.ink),
                      ('Keyboard', p.surface, p.ink), ('CustomButtons', p.states['normal'].top, p.ink))),
        ('lists of the music', (('MUSICGRID', *panel), ('MUSICGridSelected', *chosen),
                                ('MUSICGridTopLine', p.panel_line, p.dim),
                                ('MusicSlider', *slider),
                                ('JUKEBOXGRID', *panel), ('JUKEBOXGridSelected', *chosen))),
        ('the position', (('DurationSlider', p.groove, p.ink), ('DurationSliderON', *lead),
                          ('DurationSliderOFF', p.groove, p.ink),
                          ('DurationSliderKNOB', p.knob, p.knob_ink))),
        ('the play list', (('PlayListGrid', *panel), ('PlayListGridSelected', *chosen),
                           ('PlayListSlider', *slider), ('PlayListcontrols', *button),
                           ('PlayListSave', *lead), ('PlayListCancel', *button))),
        ('editing play lists', (('plwindow', p.surface, p.ink), ('plgrid', *panel),
                                ('plgridSelect', *chosen), ('plslider', *slider),
                                ('plcreate', *button), ('plrename', *button), ('pledit', *button),
                                ('pldelete', *button), ('pluseplaylist', *button),
                                ('pldone', *lead))),
        ('movies', (('MovieGrid', *panel), ('MovieGridSelected', *chosen),
                    ('MovieFullScreen', '#000000', '#EEF2F6'))),
        ('photos', (('PHOTOGRID', *panel), ('PhotogridSelect', *chosen))),
        ('lights', (('X10BACK', p.surface, p.ink), ('X10GRIDBACK', *panel), ('X10ON', *lead),
                    ('X10OFF', *button), ('X10DIM', p.selected, p.selected_ink),
                    ('X10BRIGHT', *pressed))),
    )


def ini(p, contrasts):
    rows = ['; %s: colours of the theme' % p.name,
            '; value = decimal of 0x00BBGGRR; ...BACK is a ground, ...FOR the text on it',
            '[COLORS]']
    for title, elements in table(p):
        rows += ['', '; ' + title]
        for name, back, front in elements:
            contrasts.note(p.name, '`%sFOR` on `%sBACK`' % (name, name), rgb(front), [rgb(back)])
            rows += ['%sBACK=%d' % (name, bgr(back)), '%sFOR=%d' % (name, bgr(front))]
    # Status text stands on every background, not only on its mean.
    for what, colour in (('status text', p.ink), ('secondary text', p.dim), ('accent', p.accent)):
        for x in pictures.GLOWS.values():
            contrasts.note(p.name, what + ' on the backgrounds', rgb(colour),
                           tiles.background_grid(p, x))
    return '\n'.join(rows) + '\n'
