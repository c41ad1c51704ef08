#!/usr/bin/env python3
"""compose.py DIRECTORY: plays the tunes of tunes.py into song files below DIRECTORY/<Artist>/<Album>.

MP3 with ID3v1 and ID3v2.3 tags and a cover, and one Ogg Vorbis with Vorbis comments and a cover. The same input
makes the same music. Needs python3-numpy, lame, ffmpeg, librsvg2-bin and imagemagick.
"""
import base64
import pathlib
import re
import subprocess
import sys
import tempfile
import wave

import numpy as np

import synth
import tunes

MODES = {"major": (0, 2, 4, 5, 7, 9, 11), "minor": (0, 2, 3, 5, 7, 8, 10),
         "dorian": (0, 2, 3, 5, 7, 9, 10)}
NAMES = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}


class Key:
    def __init__(self, name, mode):
        letter, flat, octave = re.fullmatch(r"([A-G])(b?)(\d)", name).groups()
        self.home = NAMES[letter] - len(flat) + 12 * (int(octave) + 1)  # as a MIDI number
        self.steps = MODES[mode]

    def hertz(self, degree, half_steps=0):
        """Of a scale degree counted from 0, over all octaves."""
        note = self.home + 12 * (degree // 7) + self.steps[degree % 7] + half_steps
        return 440 * 2 ** ((note - 69) / 12)


def notes(melody):
    """(beat, degree from 0, half steps, beats) of a melody."""
    beat = 0.0
    for word in melody.replace("|", " ").split():
        name, _, length = word.partition(":")
        length = float(length or 1)
        if name != "r":
            octave = name.count("'") - name.count(",")
            yield beat, int(name[0]) - 1 + 7 * octave, name.count("#") - name.count("b"), length
        beat += length


def chords(text):
    """The degrees of each chord, from 0, lowest first."""
    for word in text.split():
        root, _, seventh = word.partition("-")
        root = int(root) - 1
        yield [root, root + 2, root + 4] + ([root + 6] if seventh else [])


def near(degrees, low, high):
    """The chord's degrees moved by octaves into [low, high)."""
    out = []
    for degree in degrees:
        while degree < low:
            degree += 7
        while degree >= high:
            degree -= 7
        out.append(degree)
    return sorted(out)


# How each style accompanies one bar: (stage, key, chord, time of the bar, seconds a beat, bar number)

def piano_bar(stage, key, chord, at, beat, _):
    stage.put(synth.bass(key.hertz(chord[0] - 14), beat * 3.6), at, 0.5)
    for degree in near(chord, -5, 2):
        stage.put(synth.pad(key.hertz(degree), beat * 4), at, 0.55, 0.1 * degree)
    broken = near(chord, -7, 0)
    for i in range(8):
        degree = broken[(0, 1, 2, 1)[i % 4] % len(broken)]
        stage.put(synth.piano(key.hertz(degree), beat * 0.5), at + i * beat / 2, 0.34, -0.35)


def waltz_bar(stage, key, chord, at, beat, number):
    stage.put(synth.bass(key.hertz(chord[0 if number % 2 == 0 else 2] - 14), beat), at, 0.6)
    for i in (1, 2):
        for degree in near(chord, -6, 1):
            stage.put(synth.piano(key.hertz(degree), beat * 0.6), at + i * beat, 0.26, -0.3)
    for degree in near(chord, -5, 2):
        stage.put(synth.pad(key.hertz(degree), beat * 3), at, 0.3, 0.3)


def picked_bar(stage, key, chord, at, beat, number):
    stage.put(synth.bass(key.hertz(chord[0] - 7), beat * 1.8), at, 0.55)
    stage.put(synth.bass(key.hertz(chord[2] - 14), beat * 1.6), at + 2 * beat, 0.45)
    strings = near(chord, -4, 4) + [near(chord, -4, 4)[0] + 7]
    for i, string in enumerate((0, 2, 1, 3, 0, 2, 3, 1)):
        stage.put(synth.guitar(key.hertz(strings[string]), beat * 0.9), at + i * beat / 2,
                  0.42 if i % 4 == 0 else 0.3, -0.4)
    if number >= 2:
        for i in range(4):
            stage.put(synth.kick() if i % 2 == 0 else synth.brush(), at + i * beat,
                      0.32 if i % 2 == 0 else 0.4)
            stage.put(synth.tick(), at + (i + 0.5) * beat, 0.8, 0.3)


def synth_bar(stage, key, chord, at, beat, number):
    for degree in near(chord, -4, 3):
        stage.put(synth.pad(key.hertz(degree), beat * 4), at, 0.6, 0.12 * degree)
    tones = near(chord, 0, 7) + [near(chord, 0, 7)[0] + 7]
    for i in range(8):
        stage.put(synth.pulse(key.hertz(tones[(0, 1, 2, 3, 2, 3, 1, 2)[i]]), beat * 0.4),
                  at + i * beat / 2, 0.26, 0.5 * (-1) ** i)
    for i, half in enumerate((0, 3, 4, 7)):
        stage.put(synth.bass(key.hertz(chord[0] - 14 + (7 if i == 3 else 0)), beat * 0.7),
                  at + half * beat / 2, 0.55)
    if number >= 1:
        for i in range(4):
            stage.put(synth.kick(), at + i * beat, 0.42)
            stage.put(synth.tick(), at + (i + 0.5) * beat, 1.2, -0.3)
            if i % 2:
                stage.put(synth.brush(), at + i * beat, 0.42, 0.1)


STYLES = {  # accompaniment, the melody's instrument, its octave in degrees, its level
    "piano": (piano_bar, synth.piano, 0, 0.85),
    "waltz": (waltz_bar, synth.bell, 0, 0.75),
    "picked": (picked_bar, synth.lead, 7, 0.5),
    "synth": (synth_bar, synth.lead, 0, 0.62),
}


def play(song):
    accompany, voice, octave, level = STYLES[song["style"]]
    key, beat = Key(song["key"], song["mode"]), 60 / song["tempo"]
    bars = list(chords(song["chords"]))
    melody = list(notes(song["melody"]))
    sung = max(at + length for at, _, _, length in melody)
    if sung > song["bar"] * len(bars) + 1e-6:
        raise ValueError(f"{song['title']}: {sung} beats of melody over {len(bars)} bars")
    seconds = song["bar"] * len(bars) * beat + 2.5
    stage = synth.Stage(seconds)
    for number, chord in enumerate(bars):
        accompany(stage, key, chord, number * song["bar"] * beat, beat, number)
    for at, degree, half_steps, length in melody:
        stage.put(voice(key.hertz(degree + octave, half_steps), length * beat * 0.95), at * beat, level,
                  0.12)
    return stage.finish(seconds, song["room"])


def cover(name):
    drawing = pathlib.Path(__file__).parent / "covers" / f"{name}.svg"
    png = subprocess.run(["rsvg-convert", "-w", "500", "-h", "500", drawing], check=True,
                         capture_output=True).stdout
    return subprocess.run(["convert", "png:-", "-strip", "-sampling-factor", "4:2:0", "-quality", "84",
                           "jpeg:-"], input=png, check=True, capture_output=True).stdout


def picture_block(jpeg):
    """A picture block of FLAC (xiph.org, "FLAC - format"), as a Vorbis comment holds it."""
    def words(*numbers):
        return b"".join(number.to_bytes(4, "big") for number in numbers)

    front, kind = 3, b"image/jpeg"
    block = words(front, len(kind)) + kind + words(0, 500, 500, 24, 0, len(jpeg)) + jpeg
    return base64.b64encode(block).decode()


def id3v2(song, picture):
    """An ID3v2.3.0 tag (id3.org/id3v2.3.0): text frames in ISO-8859-1, then one APIC."""
    def frame(name, body):
        return name + len(body).to_bytes(4, "big") + b"\0\0" + body

    def words(name, text):
        return frame(name, b"\0" + text.encode("latin-1"))

    frames = words(b"TIT2", song["title"]) + words(b"TPE1", song["artist"]) + \
        words(b"TALB", song["album"]) + words(b"TYER", song["year"]) + \
        words(b"TRCK", str(song["track"])) + \
        frame(b"APIC", b"\0image/jpeg\0\x03\0" + picture) + bytes(64)
    size = len(frames)
    return b"ID3\x03\0\0" + bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0)) + frames


def id3v1(song):
    def field(text, length):
        return text.encode("latin-1")[:length].ljust(length, b"\0")

    return b"TAG" + field(song["title"], 30) + field(song["artist"], 30) + field(song["album"], 30) + \
        field(song["year"], 4) + field("", 30) + bytes([song["genre"]])


def write(song, folder):
    target = folder / song["artist"] / song["album"] / f"{song['track']:02} {song['title']}.{song['kind']}"
    target.parent.mkdir(parents=True, exist_ok=True)
    samples = play(song)
    with tempfile.TemporaryDirectory() as work:
        plain = f"{work}/plain.wav"
        with wave.open(plain, "wb") as out:
            out.setnchannels(2)
            out.setsampwidth(2)
            out.setframerate(synth.RATE)
            out.writeframes((samples.T * 32767).astype("<i2").tobytes())
        if song["kind"] == "mp3":
            subprocess.run(["lame", "--quiet", "-b", "96", "-q", "2", plain, f"{work}/out.mp3"],
                           check=True)
            body = pathlib.Path(f"{work}/out.mp3").read_bytes()
            target.write_bytes(id3v2(song, cover(song["cover"])) + body + id3v1(song))
        else:
            tags = [word for name, value in (
                ("title", song["title"]), ("artist", song["artist"]), ("album", song["album"]),
                ("date", song["year"]), ("tracknumber", song["track"]),
                ("METADATA_BLOCK_PICTURE", picture_block(cover(song["cover"])))) for word in
                ("-metadata", f"{name}={value}")]
            subprocess.run(["ffmpeg", "-v", "error", "-y", "-i", plain, "-c:a", "libvorbis", "-q:a", "2",
                            "-bitexact", *tags, str(target)], check=True)
    left, right = np.abs(samples).max(axis=1)
    print(f"{target.name}: {samples.shape[1] / synth.RATE:.1f} s, {target.stat().st_size // 1000} kB, "
          f"peaks {left:.2f} {right:.2f}, rms {np.sqrt((samples ** 2).mean()):.3f}")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    for each in tunes.SONGS:
        write(each, pathlib.Path(sys.argv[1]))
