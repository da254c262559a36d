#!/usr/bin/env python3
"""lengths.py PROGRAM FOLDER: makes a corpus of sound files under the folder and compares what the program (bench/lengths.cpp)
measures with what decoders find: ffmpeg, mpg123 where that differs. Both may be a frame off."""

import concurrent.futures
import os
import pathlib
import random
import subprocess
import sys

import sounds
import wrappings


def damages(folder):
    """Files that are not whole any more, by name: what is made of a file and another one."""
    jpeg = wrappings.covers(folder)[0]
    noise = random.Random(5).randbytes(3000)
    return {
        "cut-end": lambda a, b: a[:len(a) * 3 // 5],
        "cut-start": lambda a, b: a[len(a) // 3:],
        "joined": lambda a, b: a + b,
        "joined-tags": lambda a, b: a + wrappings.ID3V1 + wrappings.id3v2(wrappings.picture(b"jpeg", jpeg)) + b,
        "joined-cut": lambda a, b: a[:len(a) // 2 + 7] + b,
        "garbage": lambda a, b: a[:len(a) // 2] + noise + a[len(a) // 2:],
        "noise-before": lambda a, b: noise + a,
        "noise-behind": lambda a, b: a + noise,
    }


def make_corpus(folder):
    made = sounds.make(folder / "sounds")
    corpus = folder / "corpus"
    corpus.mkdir(exist_ok=True)
    for old in corpus.glob("*.mp3"):
        old.unlink()
    kinds, broken = wrappings.kinds(folder), damages(folder)
    names = list(kinds)
    for i, path in enumerate(made):
        content = path.read_bytes()
        (corpus / path.name).write_bytes(content)
        kind = names[i % len(names)]
        before, behind = kinds[kind]
        (corpus / f"{path.stem}+{kind}.mp3").write_bytes(before + content + behind)
    for i, path in enumerate(made[::4]):
        rate = next((rate for rate in sounds.RATES if path.name.startswith(f"lame-{rate}-")), "44.1")
        other = (folder / "sounds" / f"lame-{rate}-vbr-bare.mp3").read_bytes()
        for name in list(broken)[i % 2::2]:
            (corpus / f"{path.stem}+{name}.mp3").write_bytes(broken[name](path.read_bytes(), other))
    return corpus


def count(command):
    return len(subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout) // 2


def by_ffmpeg(path):
    return count(["ffmpeg", "-v", "quiet", "-i", path, "-map", "0:a:0", "-ac", "1", "-f", "s16le", "-"])


def by_mpg123(path):
    return count(["mpg123", "-q", "-m", "-e", "s16", "-s", path])


def check(entry):
    """(whether it is right, whether a decoder says so to the sample, a line where it isn't ffmpeg).

    Where files are joined or hold garbage a decoder may lose another frame; those that give up at garbage tell what they
    make of the file without it."""
    path, samples, rate, whole = entry
    frame = 384 if "layer1" in path.name else 1152 if rate > 24000 or "twolame" in path.name else 576
    damage = path.stem.partition("+")[2]
    allowed = frame * (2 if damage.startswith(("joined", "garbage")) else 1)
    references = [("ffmpeg", by_ffmpeg, path), ("mpg123", by_mpg123, path)]
    if damage == "garbage":
        references += [("ffmpeg without", by_ffmpeg, whole), ("mpg123 without", by_mpg123, whole)]
    said = []
    for name, decode, what in references:
        decoded = decode(what)
        said.append(f"{name} {decoded}")
        off = abs(decoded - samples)
        if samples > 0 and off <= allowed:
            return True, off == 0, f"ok: {path.name}: {samples} samples, {', '.join(said)}" if len(said) > 1 else ""
    return False, False, f"WRONG: {path.name}: {samples} samples, {', '.join(said)}"


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    corpus = make_corpus(folder)
    lines = subprocess.run([program, corpus], check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()
    entries = [(corpus / name, int(samples), int(rate), folder / "sounds" / f"{name.split('+')[0]}.mp3")
               for samples, rate, name in (line.split(" ", 2) for line in lines)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(check, entries))
    print(*(line for _, _, line in results if line), sep="\n")
    right, same = (sum(result[i] for result in results) for i in (0, 1))
    print(f"{right} of {len(results)} files within a frame of a decoder, {same} to the sample")
    sys.exit(right < max(len(results), 300))


main()
