#!/usr/bin/python3
"""clips.py DIRECTORY: makes the two clips of a first start in DIRECTORY.

"Harbour at Dusk.mp4": a ferry comes in while the lamps go on. "Above the Clouds.mov": a flight at dawn, with
a second sound track (the cabin's hum) and subtitles beside it. H.264 and AAC, 640 x 360. Needs python3-numpy,
python3-cairo and ffmpeg.
"""
import pathlib
import sys
import tempfile
import wave

import numpy as np

import film
from clouds import Clouds
from harbour import Harbour

SIZE = (640, 360)
HARBOUR_SECONDS, CLOUDS_SECONDS = 14, 12
SUBTITLES = ((0.5, 3.5, "Good morning from the flight deck."), (4.0, 7.5, "Below us, nothing but clouds;"),
             (7.8, 11.5, "ahead, the sun of a new day."))


def harbour():
    scene = Harbour(*SIZE)
    for number in range(HARBOUR_SECONDS * film.RATE):
        t = number / film.RATE
        yield scene.frame(t, 0.75 * t / HARBOUR_SECONDS, 0.012 * t, 0.45 + 0.085 * t, 1.0)


def clouds():
    scene = Clouds(*SIZE)
    for number in range(CLOUDS_SECONDS * film.RATE):
        yield scene.frame(number / film.RATE)


def hum(path, seconds):
    """What is heard in the cabin: the engines' low tones and the air along the hull."""
    count, rate = seconds * 44100, 44100
    t = np.arange(count) / rate
    spectrum = np.fft.rfft(np.random.default_rng(3).standard_normal(count))
    pitch = np.fft.rfftfreq(count, 1 / rate)
    air = np.fft.irfft(spectrum * np.exp(-pitch / 700) * (pitch > 30), count)
    sound = 0.12 * air / air.std() + 0.10 * np.sin(2 * np.pi * 92 * t) + 0.06 * np.sin(2 * np.pi * 138.5 * t)
    sound *= np.minimum(1, np.minimum(t, seconds - t))
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(rate)
        out.writeframes((sound.clip(-1, 1) * 32767).astype("<i2").tobytes())


def moment(seconds):
    return "00:00:%02d,%03d" % (int(seconds), round(seconds % 1 * 1000))


def make(work, target):
    coded = ("-c:v", "libx264", "-preset", "veryslow", "-threads", "1", "-pix_fmt", "yuv420p", "-g", "50",
             "-c:a", "aac", "-b:a", "64k", "-movflags", "+faststart")
    film.music(work / "harbour.wav", HARBOUR_SECONDS, key="D4", mode="major", tempo=88, style="waltz", bar=3,
               room=0.4, chords="1 6 4 5 1 4 1",
               melody="5:2 3 | 1':2 7 | 6:2 4 | 5:3 | 3 5 1' | 6:2 4 | 3:1 1:2")
    film.encode(harbour(), SIZE, [work / "harbour.wav"], target / "Harbour at Dusk.mp4", *coded, "-crf", "27",
                "-metadata", "title=Harbour at Dusk")
    film.music(work / "clouds.wav", CLOUDS_SECONDS, key="F4", mode="major", tempo=96, style="synth", room=0.4,
               chords="1 4 6 5", melody="5:1 1':1 7:.5 5:.5 3:1 | 6:2 5 4 | 3:1.5 5:.5 1':2 | 7:1 5:1 5:2")
    hum(work / "hum.wav", CLOUDS_SECONDS)
    film.encode(clouds(), SIZE, [work / "clouds.wav", work / "hum.wav"], target / "Above the Clouds.mov", *coded,
                "-b:a:1", "40k", "-crf", "26", "-metadata", "title=Above the Clouds",
                "-metadata:s:a:0", "title=Music", "-metadata:s:a:0", "language=eng",
                "-metadata:s:a:1", "title=Cabin", "-metadata:s:a:1", "language=eng", "-disposition:a:1", "0")
    (target / "Above the Clouds.srt").write_text("\n".join(
        "%d\n%s --> %s\n%s\n" % (number, moment(begin), moment(end), line)
        for number, (begin, end, line) in enumerate(SUBTITLES, 1)), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as folder:
        make(pathlib.Path(folder), pathlib.Path(sys.argv[1]))
