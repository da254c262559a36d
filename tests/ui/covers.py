#!/usr/bin/python3
"""covers.py make RECORD FOLDER: albums with covers as people have them, as long as the tracks of a disc record. Each is
a folder with its files under names that tell nothing (album), their bare sounds in the order of the disc (sounds) and
the cover.
covers.py check FOLDER: each of the files that the window test left there (tagged) has the cover, bit for bit, as
mutagen sees it, and opens as a picture of its width and height, as ffmpeg does."""

import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import sys

import mutagen.id3

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "corpus"))
import sounds
import tag_kinds as kinds


def v2_2(kind, size):
    picture = ("PIC", 0, b"\0JPG\3cover\0" + kinds.cover(kind, size))
    return kinds.tag(kinds.frames([("TT2", 0, b"\0An old title"), picture], 2), 2)


def v2_3(kind, size):
    return kinds.tag(kinds.frames([*kinds.OLD, kinds.picture(kind, size)], 3), 3)


def v2_3_unsynchronised(kind, size):
    return kinds.tag(kinds.unsynchronised(v2_3(kind, size)[10:]), 3, 0x80)


def v2_4_with_clip(kind, size):
    """Some silence in frames of 128 kbit/s beside the cover."""
    clip = ("GEOB", 0, b"\0audio/mpeg\0\0a clip\0" + (b"\xff\xfb\x90\x64" + bytes(413)) * 100)
    return kinds.tag(kinds.frames([*kinds.OLD4, kinds.picture(kind, size), clip], 4), 4)


# What lame is told, the covers, and the tags before, by turns, and behind. Counted as sound, the covers are some
# seconds long, about what the tracks differ by, or a minute.
ALBUMS = {
    "constant": ("-b 128", ("jpeg", 325), [v2_3], kinds.V1),  # 42 KB
    "large": ("-b 128", ("jpeg", 2450), [v2_3], kinds.V1),  # 1 MB
    "png": ("-b 64 --resample 22.05", ("png", 420), [v2_3], b""),
    "mono": ("-V 4 -a -t", ("jpeg", 325), [v2_4_with_clip], kinds.V1),
    "old": ("-V 4", ("jpeg", 325), [v2_2, v2_3_unsynchronised], kinds.ape()),
}


def track_lengths(record):
    """In seconds."""
    text = record.read_text("latin-1")
    frames = [int(offset) for offset in re.findall(r"^#\t(\d+)$", text, re.M)]
    frames.append(int(re.search(r"Disc length: (\d+)", text)[1]) * 75)
    return [(end - start) / 75 for start, end in zip(frames, frames[1:])]


def make(record, folder):
    lengths = track_lengths(record)
    folder.mkdir(parents=True, exist_ok=True)
    signal = sounds.wave(folder / "signal.wav", seconds=max(lengths) + 1).read_bytes()

    def make_track(entry):
        (name, (mode, cover, tags, behind)), i = entry
        sound = folder / name / "sounds" / f"{i + 1}.mp3"
        if not sound.exists():
            sound.write_bytes(sounds.end_of(signal, lengths[i], mode.split()))
        unknown = folder / name / "album" / f"{random.Random(i).randrange(1 << 32):08x}.mp3"
        unknown.write_bytes(tags[i % len(tags)](*cover) + sound.read_bytes() + behind)

    for name, (_, cover, _, _) in ALBUMS.items():
        shutil.rmtree(folder / name / "album", ignore_errors=True)
        for new in ("album", "sounds"):
            (folder / name / new).mkdir(parents=True, exist_ok=True)
        (folder / name / "cover").write_bytes(kinds.cover(*cover))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(make_track, [(album, i) for album in ALBUMS.items() for i in range(len(lengths))]))


def check(folder):
    def wrong(path):
        name = path.parents[1].name
        _, (kind, size), _, _ = ALBUMS[name]
        cover = (folder / name / "cover").read_bytes()
        pictures = [(shown.mime, shown.data == cover) for shown in mutagen.id3.ID3(path).getall("APIC")]
        opened = sounds.run(["ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "stream=width,height",
                             "-of", "csv=p=0", path]).decode().split()
        right = pictures == [(f"image/{kind}", True)] and opened == [f"{size},{size}"]
        return [] if right else [f"{name}/{path.name}: pictures, and whether they are the same: {pictures}, {opened}"]

    tagged = [path for name in ALBUMS for path in sorted((folder / name / "tagged").glob("*.mp3"))]
    made = [path for name in ALBUMS for path in (folder / name / "album").iterdir()]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        lost = sum(pool.map(wrong, tagged), [])
    print(*lost, f"{len(tagged) - len(lost)} of {len(made)} files have their covers", sep="\n")
    return bool(lost) or len(tagged) != len(made)


if __name__ == "__main__":
    arguments = [pathlib.Path(argument) for argument in sys.argv[2:]]
    sys.exit({"make": make, "check": check}[sys.argv[1]](*arguments))
