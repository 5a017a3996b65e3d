"""The rows of the table: what Quillon does, and the other programs that do the same work."""
import dataclasses
import os
import subprocess
from typing import Callable

import check

RATE = 44100


@dataclasses.dataclass
class Run:
    """One program's way of doing a job."""
    name: str
    command: list[str]
    made: list[str]    # files it makes; removed before each run


@dataclasses.dataclass
class Row:
    name: str
    ours: Run
    others: list[Run]
    same: Callable[[Run, Run], str]    # compares what two runs made; says how


def ffmpeg(source, *how):
    return ["ffmpeg", "-nostdin", "-v", "error", "-y", "-i", source, *how]


def own(options, name):
    return os.path.join(options.programs, "quillon-bench-engine" if options.engine else name)


# ---------------------------------------------------------------- opening

SOURCES = [("MP3 CBR 192", "album-cbr192.mp3"), ("MP3 V2", "album-v2.mp3"), ("Ogg Vorbis", "album.ogg"),
           ("WMA", "album.wma"), ("WAV", "album.wav"), ("AVI with MP3", "album-mp3.avi")]


def opens(options, target):
    work, out = os.path.join(target, "tempCut.wav"), os.path.join(target, "out.wav")
    program = own(options, "quillon-bench")
    rows = []
    for name, file in SOURCES:
        source = os.path.join(options.album, file)
        ours = Run("Quillon", [program, "open", source, *([work] if options.engine else [])], [work])
        others = [Run("ffmpeg", ffmpeg(source, "-map", "0:a", "-c:a", "pcm_s16le", out), [out])]
        if file.endswith(".mp3") and check.installed("mpg123"):
            others.append(Run("mpg123", ["mpg123", "-q", "-w", out, source], [out]))
        if file.endswith(".wav"):
            others.append(Run("cp", ["cp", source, out], [out]))
        rows.append(Row("open " + name, ours, others, check.same_sound))
    return rows


# ---------------------------------------------------------------- saving one part

def part_stretch(album):
    """Minutes 10 to 20 in samples, or what there is of an album shorter than that."""
    total = check.samples_of(os.path.join(album, "album.wav"))
    ten = 600 * RATE
    return (ten, ten) if total >= 2 * ten else (0, min(ten, total))


def cut(source, start, length, target):
    """Cuts a stretch out of a WAV file, before any clock runs. The other programs get it ready made."""
    if not os.path.exists(target):
        subprocess.run(["sox", "-D", source, target, "trim", f"{start}s", f"{length}s"], check=True)
    return target


def saves(options, target):
    album = os.path.join(options.album, "album.wav")
    start, length = part_stretch(options.album)
    part = cut(album, start, length, os.path.join(options.album, "part.wav"))
    minutes = length / RATE / 60

    def row(format_name, suffix, *others):
        ours_out, out = os.path.join(target, "ours" + suffix), os.path.join(target, "theirs" + suffix)
        command = [own(options, "quillon-bench"), "save", format_name, album, str(start), str(length), ours_out]
        runs = [Run(name, [word.replace("OUT", out) for word in words], [out]) for name, words in others]
        ours = Run("Quillon", command, [ours_out])
        return Row(f"save {minutes:.0f} min as {format_name}", ours, runs, check.same_saves)

    return [
        row("MP3", ".mp3", ("lame", ["lame", "--quiet", "-b", "128", "-q", "3", "--noreplaygain", part, "OUT"])),
        row("OGG", ".ogg", ("oggenc", ["oggenc", "--quiet", "-q", "4", "-o", "OUT", part])),
        row("WMA", ".wma", ("ffmpeg", ffmpeg(part, "-c:a", "wmav2", "-b:a", "128k", "OUT"))),
        row("WAV", ".wav", ("sox", ["sox", "-D", album, "OUT", "trim", f"{start}s", f"{length}s"]),
            ("cp", ["cp", part, "OUT"])),
    ]


# ---------------------------------------------------------------- the sound of a video

def extracts(options, target):
    if options.engine:
        return []
    video = os.path.join(options.album, "album-pcm.avi")
    rows = []
    for name, suffix, how in [("MP3", ".mp3", ["-c:a", "libmp3lame", "-b:a", "128k", "-compression_level", "3"]),
                              ("OGG", ".ogg", ["-c:a", "libvorbis", "-q:a", "4"])]:
        ours_out, out = os.path.join(target, "film" + suffix), os.path.join(target, "theirs" + suffix)
        ours = Run("Quillon", [own(options, "quillon-bench"), "extract", name, video, ours_out], [ours_out])
        rows.append(Row(f"extract from AVI as {name}", ours, [Run("ffmpeg", ffmpeg(video, "-vn", *how, out), [out])],
                        check.same_saves))
    return rows


# ---------------------------------------------------------------- saving all parts

def parts_of(album):
    """Every part of the album as a WAV file, cut before any clock runs."""
    source = os.path.join(album, "album.wav")
    with open(os.path.join(album, "album.cuts"), encoding="ascii") as file:
        starts = [0] + [int(line) for line in file]
    ends = starts[1:] + [check.samples_of(source)]
    folder = os.path.join(album, "parts")
    os.makedirs(folder, exist_ok=True)
    return [cut(source, start, end - start, os.path.join(folder, f"{i:02}.wav"))
            for i, (start, end) in enumerate(zip(starts, ends), 1)]


def save_alls(options, target):
    if options.engine:
        return []
    parts = parts_of(options.album)
    album, cuts = (os.path.join(options.album, name) for name in ("album.wav", "album.cuts"))
    ours_made = [os.path.join(target, f"album-Part {i}.mp3") for i in range(1, len(parts) + 1)]
    made = [os.path.join(target, f"{i:02}.mp3") for i in range(1, len(parts) + 1)]
    ours = Run("Quillon", [own(options, "quillon-bench"), "save-all", "MP3", album, cuts, target], ours_made)
    encode = 'lame --quiet -b 128 -q 3 --noreplaygain "$1" "$(basename "$1" .wav).mp3"'

    def lames(count):
        # One process a part, `count` at a time.
        words = ["sh", "-c", 'count=$1; shift; printf "%s\\0" "$@" | xargs -0 -n 1 -P "$count" sh -c "$LAME" sh', "sh"]
        return Run(f"lame, {count} at once", ["env", "LAME=" + encode, *words, str(count), *parts], made)

    return [Row(f"save all {len(parts)} parts as MP3", ours, [lames(1), lames(2)], check.same_saves)]
