"""Tags of all kinds around a sound, by the programs that people use and by hand where none of them writes it.

KINDS: by name, a function that writes a file of the sound and returns the frames in it that have to be kept, each as
(id, flags, data); needs mutagen, eyeD3, id3v2 and ffmpeg."""

import functools
import pathlib
import random
import struct
import subprocess

import eyed3.id3
import mutagen.id3 as m3

OURS = {"TIT2", "TRCK", "TPE1", "TALB", "TYER", "TDRC", "TCON"}
OLD = [("TIT2", 0, b"\0An old title"), ("TPE1", 0, b"\0Somebody"), ("TALB", 0, b"\0Something"),
       ("TYER", 0, b"\x001901"), ("TCON", 0, b"\0(17)"), ("TRCK", 0, b"\x0099/100"),
       ("COMM", 0, b"\0eng\0An old comment")]
OLD4 = [("TDRC", *rest) if name == "TYER" else (name, *rest) for name, *rest in OLD]  # as 2.4 has it
RATING = ("POPM", 0, b"me@home\0\xff\0\0\0\7")
LYRICS = ("USLT", 0, b"\1eng\xff\xfe\0\0\xff\xfel\0a\0")
SOUNDCHECK = ("COMM", 0, b"\0engiTunNORM\0 000002C1 0000035E")
OTHERS = [RATING, LYRICS, SOUNDCHECK, ("PRIV", 0, b"owner\0\xff\xe0\xff\0\xff\xff"), ("TXXX", 0, b"\0mood\0calm"),
          ("UFID", 0, b"http://musicbrainz.org\0" + b"1234"), ("XYZ1", 0, b"nobody knows"), ("TPE2", 0, b"\0Various")]


def syncsafe(size):
    return bytes(size >> shift & 127 for shift in (21, 14, 7, 0))


def frame(entry, version, plain_sizes=None):
    name, flags, data = entry
    if version == 2:
        return name.encode() + len(data).to_bytes(3, "big") + data
    plain = version == 3 if plain_sizes is None else plain_sizes
    return name.encode() + (len(data).to_bytes(4, "big") if plain else syncsafe(len(data))) + struct.pack(">H", flags) + data


def tag(body, version, flags=0):
    head = bytes([version, 0, flags]) + syncsafe(len(body))
    return b"ID3" + head + body + (b"3DI" + head if flags & 0x10 else b"")


def frames(entries, version, plain_sizes=None):
    return b"".join(frame(entry, version, plain_sizes) for entry in entries)


def unsynchronised(data):
    result = bytearray()
    for i, byte in enumerate(data):
        result.append(byte)
        if byte == 0xFF and (i + 1 == len(data) or data[i + 1] >= 0xE0 or data[i + 1] == 0):
            result.append(0)
    return bytes(result)


def parse(content):
    """The version of the tag that a file begins with, its frames as they stand there, and how much padding follows."""
    assert content[:3] == b"ID3" and content[3] in (3, 4) and content[5] == 0, content[:10]
    version, at, kept = content[3], 10, []
    end = 10 + functools.reduce(lambda size, byte: size << 7 | byte, content[6:10])
    while at < end and content[at]:
        digits = content[at + 4:at + 8]
        assert version == 3 or max(digits) < 128
        size = functools.reduce(lambda value, byte: value << (8 if version == 3 else 7) | byte, digits)
        kept.append((content[at:at + 4].decode(), int.from_bytes(content[at + 8:at + 10], "big"),
                     content[at + 10:at + 10 + size]))
        at += 10 + size
    assert at <= end and not any(content[at:end])
    return version, kept, end - at, end


def foreign(entries):
    def ours(name, data):
        described = data[4:].lstrip(b"\xff\xfe")
        return name in OURS or (name == "COMM" and (described[:1] == b"\0" or described.startswith(b"Comments\0")))
    return [entry for entry in entries if not ours(entry[0], entry[2])]


@functools.cache
def cover(kind, size=300):
    return subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"mandelbrot=s={size}x{size}", "-frames:v", "1",
                           *(["-q:v", "2", "-c:v", "mjpeg"] if kind == "jpeg" else ["-c:v", "png"]), "-f", "image2pipe",
                           "-"], check=True, stdout=subprocess.PIPE).stdout


def picture(kind, size=300):
    return ("APIC", 0, b"\0image/" + kind.encode() + b"\0\3cover\0" + cover(kind, size))


def ape(header=True):
    items = b"".join(struct.pack("<II", len(value), 0) + key + b"\0" + value for key, value in
                     ((b"REPLAYGAIN_TRACK_GAIN", b"-6.54 dB"), (b"REPLAYGAIN_TRACK_PEAK", b"0.988")))
    def block(flags):
        return b"APETAGEX" + struct.pack("<IIII", 2000, len(items) + 32, 2, flags) + bytes(8)
    has = 1 << 31 if header else 0
    return (block(has | 1 << 29) if header else b"") + items + block(has)


V1 = b"TAG" + b"An old title".ljust(124, b"\0") + b"\x11"
LYRICS3 = b"LYRICSBEGININD0000200LYR00011[00:01]la la"
LYRICS3 += b"%06d" % len(LYRICS3) + b"LYRICS200"


def by_hand(before, kept, behind=b""):
    """A kind with these bytes before and behind the sound."""
    def write(path, sound):
        path.write_bytes(before + sound + behind)
        return kept
    return write


def by_mutagen(version, behind=b""):
    def write(path, sound):
        path.write_bytes(sound + behind)
        made = m3.ID3()
        made.add(m3.TIT2(1, "An old title"))
        made.add(m3.TCON(1, "Jazz"))
        made.add(m3.TDRC(1, "1901"))
        made.add(m3.COMM(1, "eng", "", "An old comment"))
        made.add(m3.APIC(1, "image/jpeg", 3, "", cover("jpeg")))
        made.add(m3.USLT(1, "eng", "", "la la l\u00e0"))
        made.add(m3.POPM("me", 255, 3))
        made.add(m3.TXXX(1, "mood", "\u6f22"))
        made.save(path, v2_version=version, v1=0)
        return foreign(parse(path.read_bytes())[1])
    return write


def by_eyed3(path, sound):
    path.write_bytes(sound)
    made = eyed3.id3.Tag()
    made.version = eyed3.id3.ID3_V2_3
    made.title, made.artist, made.album = "An old title", "Som\u00e9body", "Something"
    made.images.set(3, cover("png"), "image/png", "cover")
    made.lyrics.set("la la", "", b"eng")
    made.comments.set("noted", "a description")
    made.save(str(path), version=eyed3.id3.ID3_V2_3)
    return foreign(parse(path.read_bytes())[1])


def by_id3v2(path, sound):
    path.write_bytes(sound)
    subprocess.run(["id3v2", "-t", "An old title", "-a", "Somebody", "--TPE2", "Various", "--TCOM", "A composer", path],
                   check=True, stdout=subprocess.DEVNULL)
    return foreign(parse(path.read_bytes())[1])


def huge(path, sound):
    """A picture of more than 2 MiB, with no frame sync in it."""
    big = ("APIC", 0, b"\0image/jpeg\0\3\0" + random.Random(1).randbytes(2_300_000).replace(b"\xff", b"\0"))
    path.write_bytes(tag(frames([*OLD, big], 3), 3) + sound)
    return [big]


def version2():
    old = frames([("TT2", 0, b"\0An old title"), ("TP1", 0, b"\0Somebody"), ("TYE", 0, b"\x001901"),
                  ("PIC", 0, b"\0JPG\3cover\0" + cover("jpeg")), ("ULT", 0, b"\0eng\0la la"),
                  ("POP", 0, RATING[2]), ("TP2", 0, b"\0Various"), ("CRM", 0, b"owner\0what\0x")], 2)
    return tag(old + bytes(100), 2), [("APIC", 0, b"\0image/jpeg\0\3cover\0" + cover("jpeg")),
                                      ("USLT", 0, b"\0eng\0la la"), RATING, ("TPE2", 0, b"\0Various"),
                                      ("PRIV", 0, b"Tagrix ID3v2.2 CRM\0owner\0what\0x")]


def make_kinds():
    jpeg, png = picture("jpeg"), picture("png")
    marked = ("PRIV", 2, unsynchronised(b"owner\0\xff\xe0\xff\0"))  # unsynchronised by its own flag
    long = ("TXXX", 0, b"\0long\0" + b"x" * 3000)
    whole3 = frames([*OLD, jpeg, *OTHERS], 3)
    extended3 = (6).to_bytes(4, "big") + bytes(6)
    extended4 = syncsafe(6) + b"\1\0"
    return {
        "none": by_hand(b"", []),
        "v1": by_hand(b"", [], V1),
        "v2.2": by_hand(*version2(), V1),
        "v2.3": by_hand(tag(whole3, 3), [jpeg, *OTHERS], V1),
        "v2.3-padding": by_hand(tag(whole3 + bytes(3000), 3), [jpeg, *OTHERS]),
        "v2.3-unsync": by_hand(tag(unsynchronised(whole3), 3, 0x80), [jpeg, *OTHERS]),
        "v2.3-extended": by_hand(tag(extended3 + whole3, 3, 0x40), [jpeg, *OTHERS]),
        "v2.3-empty": by_hand(tag(bytes(500), 3), []),
        "v2.3-mixed-sizes": by_hand(tag(frames([long, *OTHERS], 3, False), 3), [long, *OTHERS]),
        "v2.3-bare-png": by_hand(tag(frames([png], 3), 3), [png]),
        "v2.4": by_hand(tag(frames([*OLD4, png, *OTHERS, marked], 4), 4), [png, *OTHERS, marked], V1),
        "v2.4-unsync": by_hand(tag(frames([*OLD4, marked, SOUNDCHECK], 4), 4, 0x80), [marked, SOUNDCHECK]),
        "v2.4-extended": by_hand(tag(extended4 + frames([*OLD4, jpeg], 4), 4, 0x40), [jpeg]),
        "v2.4-footer": by_hand(tag(frames([*OLD4, jpeg, *OTHERS], 4), 4, 0x10), [jpeg, *OTHERS]),
        "v2.4-mixed-sizes": by_hand(tag(frames([long, *OTHERS], 4, True), 4), [long, *OTHERS]),
        "appended": by_hand(b"", [jpeg], tag(frames([*OLD4, jpeg], 4), 4, 0x10) + V1),
        "several": by_hand(tag(frames([*OLD, RATING], 3), 3) + tag(frames([*OLD, jpeg, RATING], 3) + bytes(99), 3),
                           [RATING, jpeg]),
        "several-2.2": by_hand(version2()[0] + tag(frames([*OLD, LYRICS], 3), 3), [*version2()[1], LYRICS]),
        "ape": by_hand(b"", [], ape()),
        "ape-v1": by_hand(tag(whole3, 3), [jpeg, *OTHERS], ape(False) + V1),
        "lyrics3": by_hand(tag(whole3, 3), [jpeg, *OTHERS], LYRICS3 + V1),
        "all": by_hand(tag(whole3, 3), [jpeg, *OTHERS], ape() + LYRICS3 + V1),
        "huge": huge,
        "mutagen-2.3": by_mutagen(3),
        "mutagen-2.4": by_mutagen(4, ape()),
        "eyed3": by_eyed3,
        "id3v2": by_id3v2,
    }


KINDS = make_kinds()
