"""What sound files are wrapped in: tags of all kinds, byte by byte, the odd ones included that no library writes."""

import struct

import sounds


def syncsafe(size):
    return bytes(size >> shift & 127 for shift in (21, 14, 7, 0))


def id3v2(body, version=3, footer=False):
    head = bytes([version, 0, 0x10 if footer else 0]) + syncsafe(len(body))
    return b"ID3" + head + body + (b"3DI" + head if footer else b"")


def picture(mime, content):
    body = b"\0image/" + mime + b"\0\3\0" + content
    return b"APIC" + len(body).to_bytes(4, "big") + b"\0\0" + body


def ape(version, with_header, at_front=False):
    items = struct.pack("<II", 6, 0) + b"REPLAYGAIN_TRACK_GAIN\0-6.5dB"
    def block(flags):
        return b"APETAGEX" + struct.pack("<IIII", version, len(items) + 32, 1, flags) + bytes(8)
    has = 1 << 31 if with_header else 0
    return (block(has | 1 << 29) if with_header else b"") + items + block(has)


ID3V1 = b"TAG" + b"A title".ljust(124, b"\0") + b"\x11"
EXTENDED = b"TAG+" + bytes(223)
LYRICS = b"LYRICSBEGININD0000200LYR00011[00:01]la \xff\xfb\x90"
LYRICS2 = LYRICS + b"%06d" % len(LYRICS) + b"LYRICS200"
LYRICS1 = b"LYRICSBEGINla la \xff\xfb\x90\x64 laLYRICSEND"


def covers(folder):
    """A photograph-like JPEG, full of FF bytes, and a PNG."""
    for name, options in (("cover.jpg", ["-q:v", "2"]), ("cover.png", [])):
        if not (folder / name).exists():
            sounds.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "mandelbrot=s=420x420", "-frames:v", "1", *options,
                        "-y", folder / name])
    return [(folder / name).read_bytes() for name in ("cover.jpg", "cover.png")]


def kinds(folder):
    """What files are wrapped in: by name, the bytes before and behind."""
    jpeg, png = covers(folder)
    false_frames = (b"\xff\xfb\x90\x64" + bytes(200)) * 40
    text = b"TIT2" + (8).to_bytes(4, "big") + b"\0\0\0A title"
    with_jpeg = id3v2(text + picture(b"jpeg", jpeg))
    return {
        "jpeg": (with_jpeg + bytes(64), ID3V1),
        "png": (id3v2(text + picture(b"png", png)), b""),
        "2.2": (id3v2(b"TT2\0\0\x08\0A title", 2), ID3V1),
        "2.4-footer": (id3v2(text + b"PRIV" + syncsafe(len(false_frames)) + b"\0\0" + false_frames, 4, True), b""),
        "several": (id3v2(text) + with_jpeg + id3v2(text, 4, True), ape(2000, True) + ID3V1),
        "ape2": (b"", ape(2000, True)),
        "ape1": (b"", ape(1000, False) + ID3V1),
        "ape-front": (ape(2000, True), b""),
        "lyrics1": (b"", LYRICS1 + ID3V1),
        "lyrics2": (with_jpeg, LYRICS2 + ID3V1),
        "all-behind": (b"", ape(2000, True) + LYRICS2 + EXTENDED + ID3V1),
        "appended": (b"", id3v2(text, 4, True)),
        "old-header": (id3v2(text) + b"ID3\3\0\0\0\0\x0f\x76", b""),
        "padding": (id3v2(text + bytes(5000)), bytes(3000)),
    }
