"""Whether two programs made the same thing: no time counts for work that was not done."""
import array
import functools
import os
import shutil
import subprocess

BLOCK = 1 << 20


def installed(program):
    return shutil.which(program) is not None


def samples_of(wav):
    """Samples per channel of a WAV file."""
    return int(subprocess.run(["soxi", "-s", wav], check=True, capture_output=True, text=True).stdout)


def data_start(file):
    """Moves to the first sample of a WAV file."""
    file.seek(12)
    while True:
        name, size = file.read(4), int.from_bytes(file.read(4), "little")
        if name == b"data":
            return
        if len(name) < 4:
            raise SystemExit(f"no sound in {file.name}")
        file.seek(size + size % 2, os.SEEK_CUR)


def largest_step(a, b):
    """Largest difference between two blocks of 16-bit samples."""
    if a == b:
        return 0
    return max(abs(x - y) for x, y in zip(array.array("h", a), array.array("h", b)))


def same_sound(ours, theirs):
    """Compares two 16-bit WAV files sample by sample."""
    with open(ours.made[0], "rb") as a, open(theirs.made[0], "rb") as b:
        data_start(a)
        data_start(b)
        missing = (os.path.getsize(a.name) - a.tell()) - (os.path.getsize(b.name) - b.tell())
        step = 0
        while (block := a.read(BLOCK)) and (other := b.read(BLOCK)):
            shorter = min(len(block), len(other))
            step = max(step, largest_step(block[:shorter], other[:shorter]))
    length = "same length" if missing == 0 else f"{missing // 4:+} samples"
    return f"{length}, {'same samples' if step == 0 else f'differs by up to {step}'}"


@functools.lru_cache(maxsize=None)
def decoded_samples(path, _changed):
    """Samples per channel that a decoder finds in a stereo file."""
    with subprocess.Popen(["ffmpeg", "-nostdin", "-v", "error", "-i", path, "-f", "s16le", "-"],
                          stdout=subprocess.PIPE) as decoder:
        count = sum(len(block) for block in iter(lambda: decoder.stdout.read(BLOCK), b""))
    if decoder.returncode != 0:
        raise SystemExit(f"can't be decoded: {path}")
    return count // 4


def same_saves(ours, theirs):
    """Compares lengths as a decoder finds them, and sizes."""
    differences = [decoded_samples(a, os.stat(a).st_mtime_ns) - decoded_samples(b, os.stat(b).st_mtime_ns)
                   for a, b in zip(ours.made, theirs.made, strict=True)]
    sizes = sum(map(os.path.getsize, ours.made)) / sum(map(os.path.getsize, theirs.made))
    worst = max(differences, key=abs)
    return f"{'same length' if worst == 0 else f'{worst:+} samples'}, size {sizes:.3f}"
