"""A small synthesizer: notes of a few instruments, mixed into a stereo buffer, with a room around it.

All signals are float arrays at RATE; a note is given by its frequency in Hz and its length in seconds.
"""
import numpy as np

RATE = 44100
_noise = np.random.default_rng(7)


def _time(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def _ends(signal, attack, release):
    """Soft ends, so that nothing clicks; both in seconds."""
    a, r = max(1, int(attack * RATE)), max(1, int(release * RATE))
    signal[:a] *= np.linspace(0, 1, min(a, len(signal)))[:len(signal[:a])]
    signal[-r:] *= np.linspace(1, 0, min(r, len(signal)))[-len(signal[-r:]):]
    return signal


def piano(hertz, seconds):
    """Struck strings: partials slightly sharp, the high ones fading first."""
    t = _time(seconds + 0.9)
    out = np.zeros_like(t)
    for n in range(1, 9):
        f = hertz * n * np.sqrt(1 + 0.0004 * n * n)
        if f > 9000:
            break
        fade = np.exp(-t * (1.1 + 0.55 * n) * (hertz / 330) ** 0.4)
        out += np.sin(2 * np.pi * f * t) * fade / n ** 1.45
    held = np.where(t < seconds, 1.0, np.exp(-(t - seconds) * 7))
    return _ends(out * held, 0.004, 0.05) * 0.5


def guitar(hertz, seconds):
    """A plucked string: partials weighted by where it was plucked."""
    t = _time(seconds + 1.2)
    out = np.zeros_like(t)
    for n in range(1, 13):
        if hertz * n > 8000:
            break
        weight = abs(np.sin(np.pi * n * 0.21)) / n ** 1.15
        out += weight * np.sin(2 * np.pi * hertz * n * t + 0.3 * n) * np.exp(-t * (1.6 + 0.5 * n))
    held = np.where(t < seconds, 1.0, np.exp(-(t - seconds) * 5))
    return _ends(out * held, 0.002, 0.05) * 0.55


def bell(hertz, seconds):
    t = _time(seconds + 1.5)
    swing = np.sin(2 * np.pi * hertz * 3.5 * t) * 1.6 * np.exp(-t * 5)
    return _ends(np.sin(2 * np.pi * hertz * t + swing) * np.exp(-t * 2.2), 0.003, 0.2) * 0.4


def lead(hertz, seconds):
    """A soft reed with a late vibrato."""
    t = _time(seconds + 0.15)
    vibrato = 0.006 * np.sin(2 * np.pi * 5.2 * t) * np.clip((t - 0.25) * 3, 0, 1)
    phase = 2 * np.pi * np.cumsum(hertz * (1 + vibrato)) / RATE
    out = sum(np.sin(n * phase) * a for n, a in ((1, 1), (2, 0.32), (3, 0.42), (4, 0.1), (5, 0.14)))
    return _ends(out, 0.045, 0.13) * 0.28


def pad(hertz, seconds):
    """Three slightly detuned voices that swell."""
    t = _time(seconds + 0.8)
    out = np.zeros_like(t)
    for cents, turn in ((-5, 0.1), (0, 1.9), (5, 3.1)):
        f = hertz * 2 ** (cents / 1200)
        for n in range(1, 6):
            out += np.sin(2 * np.pi * f * n * t + turn * n) / n ** 1.9
    return _ends(out, 0.35, 0.8) * 0.13


def bass(hertz, seconds):
    t = _time(seconds + 0.08)
    out = np.sin(2 * np.pi * hertz * t) + 0.35 * np.sin(4 * np.pi * hertz * t) * np.exp(-t * 4) \
        + 0.12 * np.sin(6 * np.pi * hertz * t) * np.exp(-t * 7)
    return _ends(out * (0.65 + 0.35 * np.exp(-t * 5)), 0.006, 0.08) * 0.5


def pulse(hertz, seconds):
    """The short, round note of an arpeggio."""
    t = _time(seconds + 0.25)
    out = sum(np.sin(2 * np.pi * hertz * n * t) / n * np.exp(-t * (3 + 3 * n)) for n in (1, 2, 3, 5))
    return _ends(out, 0.003, 0.1) * 0.4


def _hiss(seconds, low, high):
    """Noise between two frequencies."""
    n = int(seconds * RATE)
    spectrum = np.fft.rfft(_noise.standard_normal(n))
    f = np.fft.rfftfreq(n, 1 / RATE)
    spectrum[(f < low) | (f > high)] = 0
    out = np.fft.irfft(spectrum, n)
    return out / (np.abs(out).max() or 1)


def kick():
    t = _time(0.32)
    return np.sin(2 * np.pi * (48 * t + 2.6 * (1 - np.exp(-t * 34)))) * np.exp(-t * 13) * 0.85


def brush():
    t = _time(0.2)
    return _hiss(0.2, 900, 6500) * np.exp(-t * 22) * 0.3


def tick():
    t = _time(0.06)
    return _hiss(0.06, 6000, 12000) * np.exp(-t * 70) * 0.13


class Stage:
    """Where the notes are put: seconds from the start, side from -1 (left) to 1 (right)."""

    def __init__(self, seconds):
        self.sides = np.zeros((2, int((seconds + 4) * RATE)))

    def put(self, signal, at, level=1.0, side=0.0):
        begin = int(at * RATE)
        signal = signal[:self.sides.shape[1] - begin]
        turn = (side + 1) * np.pi / 4
        self.sides[0, begin:begin + len(signal)] += signal * level * np.cos(turn)
        self.sides[1, begin:begin + len(signal)] += signal * level * np.sin(turn)

    def finish(self, seconds, room):
        """The room's answer, soft peaks, -1 dB at the loudest, and a fade at the end."""
        n = self.sides.shape[1]
        size = 1 << (n + RATE * 2).bit_length()
        out = np.empty_like(self.sides)
        for i, dry in enumerate(self.sides):
            t = _time(1.8)
            answer = np.random.default_rng(31 + i).standard_normal(len(t)) * np.exp(-t * 4.2)
            answer[:int(0.013 * RATE)] = 0
            answer /= np.sqrt((answer ** 2).sum())
            wet = np.fft.irfft(np.fft.rfft(dry, size) * np.fft.rfft(answer, size), size)[:n]
            out[i] = dry + room * wet
        out = out[:, :int(seconds * RATE)]
        out /= np.abs(out).max()
        out = np.tanh(out * 1.35)
        fade = int(2.2 * RATE)
        out[:, -fade:] *= np.linspace(1, 0, fade) ** 1.5
        return out / np.abs(out).max() * 0.89
