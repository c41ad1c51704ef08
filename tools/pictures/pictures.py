#!/usr/bin/python3
"""pictures.py DIRECTORY [NAME...]: paints the photos and the ads of a first start in DIRECTORY, or those named.

DIRECTORY/Photos gets a picture and the folders Coast and Night Flight, DIRECTORY/ADDS three ads with a time for
one of them. Every photo says when it was taken; some are stored turned and say how. Needs python3-numpy,
python3-cairo, python3-pil and, for the ads, Inter (fonts-inter) and rsvg-convert. The same versions give the same
bytes.
"""
import io
import pathlib
import sys

from PIL import Image

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "clips"))
import ads  # noqa: E402
import coast  # noqa: E402
import night  # noqa: E402

WIDE, TALL = (1600, 1067), (1067, 1600)
EXIF, ORIENTATION, TAKEN = 0x8769, 0x0112, 0x9003
# How a picture with that orientation is stored.
STORED = {1: None, 3: Image.ROTATE_180, 6: Image.ROTATE_90, 8: Image.ROTATE_270}
LARGEST_PHOTO, LARGEST_AD = 244 * 1024, 190 * 1024

PHOTOS = (  # path, scene, size as seen, orientation, when taken
    ("Still Water.jpg", coast.still_water, WIDE, 1, "2026:08:19 07:12:40"),
    ("Coast/Balloon Morning.jpg", coast.sea_of_hills, WIDE, 1, "2026:05:02 06:34:18"),
    ("Coast/Dunes at First Light.jpg", coast.dunes, WIDE, 3, "2026:03:28 06:58:03"),
    ("Coast/Evening Shore.jpg", coast.evening_shore, TALL, 6, "2026:06:21 21:41:55"),
    ("Coast/Harbour at Dusk.jpg", coast.harbour, WIDE, 1, "2026:06:22 22:05:11"),
    ("Coast/Lighthouse in Fog.jpg", coast.lighthouse, TALL, 8, "2026:09:30 08:20:47"),
    ("Coast/Moon over the Sea.jpg", coast.moon, WIDE, 1, "2026:09:26 22:47:30"),
    ("Coast/Terraces.jpg", coast.terraces, WIDE, 1, "2026:04:11 07:40:09"),
    ("Night Flight/Above the Clouds.jpg", night.above_clouds, WIDE, 1, "2026:10:14 18:22:36"),
    ("Night Flight/Aurora.jpg", night.aurora, TALL, 6, "2026:10:17 23:58:21"),
    ("Night Flight/Cabin Window.jpg", night.cabin_window, TALL, 1, "2026:10:15 09:05:50"),
    ("Night Flight/City Lights.jpg", night.city, WIDE, 1, "2026:10:14 20:31:02"),
    ("Night Flight/Stars and a Wing.jpg", night.moonlit, WIDE, 3, "2026:10:14 22:16:44"),
)
ADS = (("ad1.jpg", ads.harbour_tour, None), ("ad2.jpg", ads.lumen_quay, 15), ("ad3.jpg", ads.paper_orchard, None))


def encoded(picture, largest, exif=None):
    """The JPEG of the best quality that is not larger."""
    low, high, best = 40, 93, None
    while low <= high:
        quality = (low + high) // 2
        out = io.BytesIO()
        picture.save(out, "JPEG", quality=quality, optimize=True, **({"exif": exif} if exif else {}))
        if out.tell() <= largest:
            low, best = quality + 1, out.getvalue()
        else:
            high = quality - 1
    if best is None:
        raise SystemExit("pictures: a picture does not fit into %d bytes" % largest)
    return best


def photo(scene, size, orientation, taken):
    picture = Image.fromarray(scene(size[0] * 5 // 4, size[1] * 5 // 4)).resize(size, Image.LANCZOS)
    if STORED[orientation] is not None:
        picture = picture.transpose(STORED[orientation])
    exif = Image.Exif()
    exif[ORIENTATION] = orientation
    exif[EXIF] = {TAKEN: taken}
    return encoded(picture, LARGEST_PHOTO, exif)


def write(path, data):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)
    print("%s: %d bytes" % (path, len(data)))


def make(target, names):
    for path, scene, size, orientation, taken in PHOTOS:
        if not names or pathlib.Path(path).stem in names:
            write(target / "Photos" / path, photo(scene, size, orientation, taken))
    for name, draw, seconds in ADS:
        if not names or pathlib.Path(name).stem in names:
            write(target / "ADDS" / name, encoded(Image.fromarray(draw()), LARGEST_AD))
            if seconds:
                write((target / "ADDS" / name).with_suffix(".tim"), b"%d\n" % seconds)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    make(pathlib.Path(sys.argv[1]), sys.argv[2:])
