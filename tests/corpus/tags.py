#!/usr/bin/python3
"""tags.py PROGRAM FOLDER: makes files of encoders' modes times kinds of tags below the folder, lets the program
(bench/tag_album.cpp) write the tags of albums into them, and asks mutagen, TagLib, eyeD3, ffprobe, id3v2 and file what
they show: all seven fields, and the length as before. Every other frame and the decoded sound have to be the same, bit
for bit; writing once more has to change nothing."""

import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys

import eyed3
import eyed3.id3
import mutagen.id3
import mutagen.mp3
import taglib

import tag_kinds

eyed3.log.setLevel("CRITICAL")
SIGNAL = "0.3*sin(880*PI*t)*lt(mod(t,0.5),0.4)+0.4*(random(0)-0.5)*lt(mod(t,0.9),0.3)|0.3*sin(1320*PI*t)"
MODES = {
    "cbr": "lame -b 128", "cbr-bare": "lame -t -b 128", "vbr": "lame -V 4", "vbr-bare": "lame -t -V 4",
    "abr-mono": "lame -m m --abr 96", "mono-bare": "lame -t -m m -b 64", "crc": "lame -p -V 2", "insane": "lame -b 320",
    "mpeg2": "lame -b 48 --resample 22.05", "mpeg2.5": "lame -b 64 --resample 8", "layer2": "twolame -b 192",
    "ffmpeg": "ffmpeg",
}
# What albums are called, by folder: plain, too long for a classic tag, outside the code page and ISO-8859-1.
TITLES = {"plain": "A title", "long": "Ünë très longue " * 20 + "title", "foreign": "Curly ’ 漢字 😀"}
LENGTHS_DIFFER = 0.06  # seconds: readers that guess count what stands behind the sound, 340 bytes at 48 kbit/s here


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def make_sounds(folder):
    folder.mkdir(parents=True, exist_ok=True)
    wave = folder / "signal.wav"
    if not wave.exists():
        output("ffmpeg", "-f", "lavfi", "-i", f"aevalsrc='{SIGNAL}':s=44100:d=1.3", "-y", wave)
    for name, mode in MODES.items():
        path = folder / f"{name}.mp3"
        if path.exists():
            continue
        if mode == "ffmpeg":
            output("ffmpeg", "-i", wave, "-map_metadata", "-1", "-id3v2_version", "0", "-q:a", "4", "-y", path)
        else:
            output(*mode.split(), "--quiet", wave, path)
    return {name: (folder / f"{name}.mp3").read_bytes() for name in MODES}


def make_corpus(folder, sounds):
    """The files, by path: the frames that have to be kept."""
    files = {}
    for i, (mode, sound) in enumerate(sounds.items()):
        for j, (kind, write) in enumerate(tag_kinds.KINDS.items()):
            album = folder / list(TITLES)[(i + j) % len(TITLES)]
            album.mkdir(parents=True, exist_ok=True)
            path = album / f"{kind}+{mode}.mp3"
            files[path] = write(path, sound)
    return files


def probe(path):
    shown = json.loads(output("ffprobe", "-v", "quiet", "-of", "json", "-show_format", path))["format"]
    return float(shown["duration"]), shown.get("tags", {})


def decoded(path):
    return output("ffmpeg", "-v", "quiet", "-i", path, "-map", "0:a:0", "-f", "md5", "-")


def lengths(path, duration):
    """By tool; none where it doesn't say. `duration`: what ffprobe says."""
    found = {"ffprobe": duration, "taglib": taglib.File(str(path)).length}
    try:
        found["mutagen"] = mutagen.mp3.MP3(path).info.length
    except mutagen.mp3.HeaderNotFoundError:
        pass
    loaded = eyed3.load(str(path))
    if loaded is not None and loaded.info is not None:
        found["eyed3"] = loaded.info.time_secs
    return found


def shown_fields(path, probed):
    """Title, artist, album, year, genre, track and comment as each tool shows them; a comment of ours may be described."""
    tags = mutagen.id3.ID3(path)
    comments = [comment.text[0] for comment in tags.getall("COMM") if comment.desc in ("", "Comments")]
    shown = {"mutagen": [str(tags[name]) for name in ("TIT2", "TPE1", "TALB", "TDRC", "TCON", "TRCK")] + comments}
    values = taglib.File(str(path)).tags
    shown["taglib"] = [values[name][0] for name in ("TITLE", "ARTIST", "ALBUM", "DATE", "GENRE", "TRACKNUMBER")]
    shown["taglib"] += values.get("COMMENT") or values["COMMENT:COMMENTS"]
    tag = eyed3.id3.Tag()
    tag.parse(str(path), eyed3.id3.ID3_V2)
    comment = next(comment.text for comment in tag.comments if comment.description in ("", "Comments"))
    shown["eyed3"] = [tag.title, tag.artist, tag.album, str(tag.getBestDate()), tag.genre.name, str(tag.track_num[0]),
                      comment]
    values = {key.lower(): value for key, value in probed.items()}
    shown["ffprobe"] = [values.get(key) for key in ("title", "artist", "album", "date", "genre", "track")]
    shown["ffprobe"].append(values.get("comment") or values.get("comments"))
    return shown


def check(path, kept, before, bare, wanted):
    """What is wrong with a tagged file that was `before`."""
    wrong = []
    content = path.read_bytes()
    version, frames, _, end = tag_kinds.parse(content)
    if tag_kinds.foreign(frames) != kept:
        wrong.append(f"frames differ: {[(name, len(data)) for name, _, data in tag_kinds.foreign(frames)]}")
    if content[end:end + 3] == b"ID3" or content[-128:-125] != b"TAG":
        wrong.append("an old header is left, or there is no ID3v1 tag")
    sound = decoded(path)
    if sound != bare["sound"]:
        original = path.with_suffix(".before")
        original.write_bytes(before)
        if sound != decoded(original):
            wrong.append("the sound differs")
    duration, probed = probe(path)
    for tool, fields in shown_fields(path, probed).items():
        if fields != wanted:
            wrong.append(f"{tool} shows {fields}")
    for tool, length in lengths(path, duration).items():
        known = bare["lengths"].get(tool)
        if known is None or abs(length - known) > (1 if tool == "taglib" else LENGTHS_DIFFER):
            wrong.append(f"{tool} shows {length} s, without tags {known}")
    if wanted[0].isascii() and version == 3:
        listed = output("id3v2", "-l", path).decode("latin-1")
        if not all(value in listed for value in wanted):
            wrong.append(f"id3v2 shows {listed}")
    if f"ID3 version 2.{version}.0" not in output("file", path).decode():
        wrong.append("file sees no tag")
    return wrong


def look_at(path):
    return {"sound": decoded(path), "lengths": lengths(path, probe(path)[0])}


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    sounds = make_sounds(folder / "sounds")
    for old in folder.glob("*/*+*.*"):
        old.unlink()
    files = make_corpus(folder, sounds)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        bare = dict(zip(MODES, pool.map(look_at, [folder / "sounds" / f"{mode}.mp3" for mode in MODES])))
        before = {path: path.read_bytes() for path in files}
        for album, title in TITLES.items():
            output(program, folder / album, title, "A Künstler")
        once = {path: path.read_bytes() for path in files}
        for album, title in TITLES.items():
            output(program, folder / album, title, "A Künstler")
        numbers = {path: i + 1 for album in TITLES
                   for i, path in enumerate(sorted((folder / album).glob("*.mp3"), key=lambda path: path.name))}

        def all_of(path):
            title = f"{TITLES[path.parent.name]} {numbers[path]}"
            wanted = [title, "A Künstler", "An album", "1974", "Rock", str(numbers[path]), "Tagged By Tagrix"]
            try:
                wrong = check(path, files[path], before[path], bare[path.stem.split("+")[1]], wanted)
            except Exception as error:  # whatever a reader says of the file
                wrong = [repr(error)]
            return wrong + (["writing again changed it"] if path.read_bytes() != once[path] else [])

        results = dict(zip(files, pool.map(all_of, files)))
    failed = {path: wrong for path, wrong in results.items() if wrong}
    for path, wrong in failed.items():
        print(path.relative_to(folder), *wrong, sep="\n  ")
    print(f"{len(files) - len(failed)} of {len(files)} files are tagged as they should be")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
