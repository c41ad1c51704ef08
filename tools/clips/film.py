"""What the clips and the disc share: tunes played to a length, frames piped into FFmpeg."""
import pathlib
import subprocess
import sys
import tempfile
import wave

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "songs"))
import compose  # noqa: E402
import synth  # noqa: E402

RATE = 25  # pictures a second


def music(path, seconds, **song):
    """Writes a tune of tools/songs as WAV, cut or padded to the length, with an end that fades."""
    samples = compose.play({"title": path.name, "bar": 4, **song})[:, :int(seconds * synth.RATE)]
    fade = int(1.2 * synth.RATE)
    samples[:, -fade:] *= [1 - i / fade for i in range(fade)]
    with wave.open(str(path), "wb") as out:
        out.setnchannels(2)
        out.setsampwidth(2)
        out.setframerate(synth.RATE)
        out.writeframes((samples.T * 32767).astype("<i2").tobytes())


def run(*words, **how):
    subprocess.run([str(word) for word in words], check=True, **how)


def encode(frames, size, sounds, target, *how):
    """frames: pictures as arrays of bytes; sounds: WAV files, a track each; how: FFmpeg's words."""
    tracks = [word for sound in sounds for word in ("-i", sound)]
    maps = [word for i in range(len(sounds) + 1) for word in ("-map", i)]
    command = ["ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pix_fmt", "rgb24",
               "-s", "%dx%d" % size, "-r", RATE, "-i", "-", *tracks, *maps, "-fflags", "+bitexact",
               "-flags:v", "+bitexact", "-flags:a", "+bitexact", *how, target]
    with tempfile.TemporaryFile() as errors:
        coder = subprocess.Popen([str(word) for word in command], stdin=subprocess.PIPE, stderr=errors)
        try:
            for frame in frames:
                coder.stdin.write(frame.tobytes())
        except BrokenPipeError:
            pass
        coder.stdin.close()
        if coder.wait():
            errors.seek(0)
            raise SystemExit("film: %s\n%s" % (target, errors.read().decode(errors="replace")))
