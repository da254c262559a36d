"""Sound files by encoders that people use, in all of their modes, without tags but the encoder's own header.

make(folder) makes them, or finds them there, and returns their paths; needs lame, ffmpeg and twolame."""

import concurrent.futures
import os
import pathlib
import subprocess
import tempfile

SECONDS = 4.3
# Tones with a rhythm, noise that comes and goes, silence: so that variable bit rates vary.
SIGNAL = ("0.3*sin(880*PI*t)*lt(mod(t,1.1),1)+0.5*(random(0)-0.5)*lt(mod(t,2),0.7)|"
          "0.3*sin(1320*PI*t)*lt(mod(t,1.3),1)+0.3*(random(1)-0.5)*lt(mod(t,2),0.5)")

RATES = ("44.1", "48", "32", "22.05", "24", "16", "11.025", "12", "8")  # MPEG 1, 2, 2.5; kHz
MPEG2 = RATES[3:]
# Layer I has no encoder left: frames that allocate no bits to any sub-band; the header and the frame's length.
LAYER1_FRAMES = {"stereo": (b"\xff\xff\x68\x04", 288), "mono": (b"\xff\xff\xa8\xc4", 480),
                 "mpeg2": (b"\xff\xf7\x88\x04", 384)}
LAME_MODES = {
    "cbr": "-b {constant}", "abr": "--abr {average}", "vbr": "-V 4",
    "cbr-mono": "-m m -b {constant}", "abr-mono": "-m m --abr {average}", "vbr-mono": "-m m -V 4",
    "cbr-bare": "-t -b {constant}", "abr-bare": "-t --abr {average}", "vbr-bare": "-t -V 4",
    "cbr-mono-bare": "-t -m m -b {constant}", "vbr-mono-bare": "-t -m m -V 4",
}
LAME_FURTHER = {
    "simple": "-m s", "force": "-m f", "dual": "-m d", "insane": "--preset insane", "standard": "--preset standard",
    "vbr-old": "--vbr-old -V 2", "vbr0": "-V 0", "vbr9": "-V 9", "vbr-limits": "-V 4 -b 64 -B 160 -F", "nores": "--nores",
    "cbr32": "-b 32", "cbr40-mono": "-m m -b 40 --resample 32", "iso": "--strictly-enforce-ISO -b 160",
    "crc": "-p", "crc-vbr": "-p -V 4", "crc-mono": "-p -m m", "crc-mono-vbr": "-p -m m -V 4", "crc-bare": "-p -t",
    "crc-22": "-p --resample 22.05", "crc-22-vbr": "-p -V 4 --resample 22.05", "crc-8-mono": "-p -m m --resample 8",
    "free": "--freeformat -b 400", "free-bare": "-t --freeformat -b 640", "free-mono": "-m m --freeformat -b 48",
    "free-22": "-t --freeformat -b 200 --resample 22.05", "free-crc": "-p --freeformat -b 333",
    "original-copyright": "-c -o -e n",
}
FFMPEG_MODES = {
    "cbr": "-b:a 128k", "vbr": "-q:a 4", "abr": "-abr 1 -b:a 128k", "mono": "-ac 1 -q:a 6", "22": "-ar 22050 -q:a 5",
    "bare": "-q:a 4 -write_xing 0", "cbr-bare": "-b:a 192k -write_xing 0", "8": "-ar 8000 -ac 1 -b:a 16k",
}
TWOLAME_MODES = {
    "cbr": "-b 192", "mono": "-m mono -b 96", "joint": "-m joint -b 128", "crc": "-p -b 160", "vbr": "-V 5",
    "384": "-b 384", "cbr-48": "-b 224", "mpeg2": "-b 64", "mpeg2-mono": "-m mono -b 24", "padded": "-d -b 112", "free": "--freeformat -b 300",
}


def run(command, content=None):
    return subprocess.run(command, input=content, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def wave(path, rate=44100, seconds=SECONDS):
    """A WAV file of the signal, two channels."""
    if not path.exists():
        run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", f"aevalsrc='{SIGNAL}':s={rate}:d={seconds}", "-y", path])
    return path


def end_of(signal, seconds, mode):
    """The last so many seconds of a WAV file's content, encoded by lame, which writes its header only into files."""
    with tempfile.NamedTemporaryFile(suffix=".mp3") as encoded:
        run(["lame", "--quiet", "-q", "7", "-r", "-s", "44.1", *mode, "-", encoded.name],
            signal[-int(seconds * 44100) * 4:])
        return encoded.read()


def with_vbri(xing_file):
    """The encoder's header replaced by Fraunhofer's: no encoder here writes it."""
    content = xing_file.read_bytes()
    at = content.index(b"Xing") - 36
    frames, size = content[at + 44:at + 48], content[at + 48:at + 52]
    length = next(i for i in range(at + 100, len(content)) if content[i:i + 2] == content[at:at + 2])
    vbri = b"VBRI" + b"\0\1\4\x90\0\x4b" + size + frames + b"\0\x0a\0\1\0\2\0\x0a" + bytes(20)
    return content[:at + 4] + bytes(32) + vbri + bytes(length - at - 36 - len(vbri)) + content[length:]


def commands(folder):
    """The sound files and what makes each: (path, command)."""
    signal = folder / "signal.wav"
    for rate in RATES:
        fill = {"constant": 128 if rate not in MPEG2 else 32, "average": 140 if rate not in MPEG2 else 40}
        for name, mode in LAME_MODES.items():
            yield (f"lame-{rate}-{name}", ["lame", "--quiet", "--resample", rate, *mode.format(**fill).split(), signal])
    for name, mode in LAME_FURTHER.items():
        yield (f"lame-{name}", ["lame", "--quiet", *mode.split(), signal])
    for name, mode in FFMPEG_MODES.items():
        yield (f"ffmpeg-{name}", ["ffmpeg", "-v", "error", "-i", signal, "-map_metadata", "-1", "-id3v2_version", "0",
                                  "-codec:a", "libmp3lame", *mode.split(), "-f", "mp3", "-y"])
    for name, mode in TWOLAME_MODES.items():
        source = folder / ("signal-24000.wav" if "mpeg2" in name else
                           "signal-48000.wav" if "48" in name else "signal.wav")
        yield (f"twolame-{name}", ["twolame", "--quiet", *mode.split(), source])


def make(folder):
    folder.mkdir(parents=True, exist_ok=True)
    wave(folder / "signal.wav")
    for rate in (24000, 48000):
        wave(folder / f"signal-{rate}.wav", rate)

    def encode(entry):
        path = folder / f"{entry[0]}.mp3"
        if not path.exists():
            part = path.with_suffix(".part")
            run([*entry[1], part])
            part.rename(path)
        return path

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        paths = list(pool.map(encode, commands(folder)))
    made = {f"layer1-{name}": (header + bytes(length - 4)) * 300 for name, (header, length) in LAYER1_FRAMES.items()}
    made["vbri"] = with_vbri(folder / "lame-44.1-vbr.mp3")
    for name, content in made.items():
        paths.append(folder / f"{name}.mp3")
        paths[-1].write_bytes(content)
    return paths


if __name__ == "__main__":
    import sys
    print(*make(pathlib.Path(sys.argv[1])), sep="\n")
