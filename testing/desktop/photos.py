"""The home of somebody whose holiday photos are there twice."""

import os
import random
import time
import zipfile

FRAMES = 900
BLOCK = 8192  # What the program reads at a time.

HOLIDAY = {
    "beach.jpg": 48_200,
    "boats.jpg": 61_040,
    "harbour.jpg": 183_120,
    "lighthouse.jpg": 52_377,
    "market.jpg": 39_904,
    "old town.jpg": 74_310,
    "sunset.jpg": 45_008,
}
PHONE_NAMES = {
    "IMG_0411.jpg": "beach.jpg",
    "IMG_0417.jpg": "boats.jpg",
    "IMG_0423.jpg": "harbour.jpg",
    "IMG_0431.jpg": "market.jpg",
    "IMG_0440.jpg": "sunset.jpg",
}
ALBUM_NAMES = ["beach.jpg", "harbour.jpg", "lighthouse.jpg", "old town.jpg"]


def content(name):
    return random.Random(name).randbytes(HOLIDAY.get(name, 30_000))


def write(file, data, day):
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_bytes(data)
    date = time.mktime((2023, 7, day, 16, 20, 40, 0, 0, -1))
    os.utime(file, (date, date))


def lay_out(home):
    pictures = home / "Pictures"
    for day, name in enumerate(HOLIDAY, 3):
        write(pictures / "Holiday" / name, content(name), day)
    for name, original in PHONE_NAMES.items():
        write(pictures / "Phone" / name, content(original), 20)
    for name in ALBUM_NAMES:
        write(pictures / "Album" / name, content(name), 24)
    for name in HOLIDAY:
        write(pictures / "Old copies" / name, content(name), 26)
    write(pictures / "Phone" / "IMG_0448.jpg", content("IMG_0448.jpg"), 20)
    write(home / "Documents" / "letter.txt", b"Dear Ann, the photos are coming.\r\n" * 4, 28)
    with zipfile.ZipFile(pictures / "album.zip", "w") as archive:
        archive.write(pictures / "Album" / "beach.jpg", "beach.jpg")
    lay_out_frames(pictures / "Timelapse")


def lay_out_frames(directory):
    """Files of one size that differ in their second block: each has to be compared with each, which
    takes long enough to press Pause meanwhile."""
    beginning = random.Random("frame").randbytes(BLOCK)
    for number in range(FRAMES):
        write(directory / f"frame-{number:04}.raw", beginning + f"{number:08}".encode() * 100, 12)
