#!/usr/bin/env python3
"""albums.py PROGRAM FOLDER: makes albums as people have them under the folder, covers and all, and lets the program
(bench/lengths.cpp) find out which file is which track."""

import concurrent.futures
import os
import pathlib
import random
import subprocess
import sys

import sounds
import wrappings

TRACKS, LONGEST = 11, 36  # seconds


def covered(*sizes):
    """Leading tags with a JPEG cover of each of these sizes by turns; bytes."""
    def before(i, jpeg, png):
        size = sizes[i % len(sizes)]
        return wrappings.id3v2(wrappings.picture(b"jpeg", (jpeg * (size // len(jpeg) + 1))[:size]))
    return before


def with_png(i, jpeg, png):
    return wrappings.id3v2(wrappings.picture(b"png", png))


def bare(i, jpeg, png):
    return b""


ALBUMS = {
    "small JPEG covers": (["-b", "128"], covered(42_000, 0, 30_000)),
    "a large JPEG cover": (["-b", "128"], covered(1_000_000, *[0] * 10)),
    "large JPEG covers, 320 kbit/s": (["-b", "320"], covered(300_000, 100_000, 0, 700_000)),
    "PNG covers": (["-b", "128"], with_png),
    "MPEG 2": (["-b", "64", "--resample", "22.05"], with_png),
    "MPEG 2.5": (["-b", "16", "-a", "--resample", "8"], covered(40_000, 0)),
    "VBR, mono": (["-V", "4", "-a"], bare),
    "ABR, mono": (["--abr", "90", "-a"], bare),
    "VBR without header": (["-V", "2", "-t"], covered(60_000, 0)),
    "one of MPEG 2.5": (lambda i: ["-b", "16", "--resample", "8"] if i == 4 else ["-b", "128"], bare),
}


def make(folder, number, mode, before):
    """The album's files under names that tell nothing, and the tracks: the file of each and its CD frames."""
    folder.mkdir(parents=True, exist_ok=True)
    dice = random.Random(number)
    seconds = [8 + 2.5 * i + dice.random() for i in range(TRACKS)]  # an encoder's rounding and a pause can't mix them up
    dice.shuffle(seconds)
    pictures = wrappings.covers(folder.parent)
    wave = sounds.wave(folder.parent / "signal.wav", seconds=LONGEST).read_bytes()
    names = [f"{dice.randrange(1 << 32):08x}.mp3" for _ in seconds]
    for i, (name, length) in enumerate(zip(names, seconds)):
        if not (folder / name).exists():
            sound = sounds.end_of(wave, length, mode(i) if callable(mode) else mode)
            (folder / name).write_bytes(before(i, *pictures) + sound + wrappings.ID3V1)
    return names, [int((length + dice.uniform(0, 1)) * 75) for length in seconds]


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])

    def sort(entry):
        number, (title, (mode, before)) = entry
        names, frames = make(folder / f"album{number}", number, mode, before)
        found = sounds.run([program, folder / f"album{number}", *map(str, frames)]).decode().split()
        right = sum(name == other for name, other in zip(names, found, strict=True))
        return right, f"{right:>2} of {TRACKS} right: {title}"

    folder.mkdir(parents=True, exist_ok=True)
    wrappings.covers(folder)
    sounds.wave(folder / "signal.wav", seconds=LONGEST)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(sort, enumerate(ALBUMS.items())))
    print(*(line for _, line in results), sep="\n")
    sys.exit(any(right < TRACKS for right, _ in results))


main()
