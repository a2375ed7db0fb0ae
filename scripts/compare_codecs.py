"""Does the work of scripts/compare-codecs."""

import glob
import os
import random
import struct
import subprocess
import sys
import time
import zlib

# In levels: transform, enlargement and conversion of colours round in their own ways, and the
# program cuts colours to whole numbers where libjpeg rounds them.
JPEG_TOLERANCE = 6


class Program:
    """The program's codecs, in one process as long as it lives."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["build/debug/fuzz/decode-pictures"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def decode(self, name):
        """Width, height and RGB bytes from the top, or nothing where the file is refused."""
        self.process.stdin.write(name.encode() + b"\n")
        self.process.stdin.flush()
        lines = [self.process.stdout.readline() for _ in range(3)]
        if not lines[2]:
            raise SystemExit(f"The program ended while it read {name}")
        width, height = int(lines[0]), int(lines[1])
        samples = self.process.stdout.read(3 * width * height)
        return (width, height, samples) if lines[2] == b"\n" else None


def decode_by_peer(name, simd=False, transform="int"):
    """The same of libpng or libjpeg; a file with warnings counts as refused."""
    command = ["pngtopnm"] if name.endswith("png") else ["djpeg", "-dct", transform]
    environment = {**os.environ, "JSIMD_FORCENONE": "0" if simd else "1"}
    run = subprocess.run(command + [name], capture_output=True, env=environment)
    if run.returncode != 0 or run.stderr:
        return None
    magic, width, height, maximum, samples = parse_pnm(run.stdout)
    if magic == b"P4":
        return None
    if maximum > 255:
        samples = samples[::2]  # the high bytes
    if magic == b"P5":
        samples = bytes(sample for sample in samples for _ in range(3))
    return width, height, samples


def parse_pnm(data):
    fields = data.split(None, 4 if data[:2] != b"P4" else 3)
    magic, width, height = fields[0], int(fields[1]), int(fields[2])
    maximum = int(fields[3]) if magic != b"P4" else 1
    channels = 3 if magic == b"P6" else 1
    length = width * height * channels * (2 if maximum > 255 else 1)
    return magic, width, height, maximum, data[len(data) - length:] if length else b""


def difference(ours, theirs):
    """The largest difference of a sample; infinite where the sizes differ."""
    if ours[:2] != theirs[:2] or len(ours[2]) != len(theirs[2]):
        return float("inf")
    if ours[2] == theirs[2]:
        return 0
    return max(abs(a - b) for a, b in zip(ours[2], theirs[2]))


def flip_bits(data, begin=0):
    data = bytearray(data)
    reach = len(data) if random.random() < 0.5 else max(begin + 1, len(data) // 4)
    for _ in range(random.randint(1, 4)):
        data[random.randrange(min(begin, len(data) - 1), reach)] ^= 1 << random.randrange(8)
    return bytes(data)


def shuffle(parts):
    """Drops, repeats or exchanges parts of a file."""
    i, k = random.randrange(len(parts)), random.randrange(len(parts))
    kind = random.randrange(3)
    if kind == 0:
        del parts[i]
    elif kind == 1:
        parts.insert(k, parts[i])
    else:
        parts[i], parts[k] = parts[k], parts[i]


def png_chunks(data):
    chunks, at = [], 8
    while at + 12 <= len(data):
        length, = struct.unpack(">I", data[at:at + 4])
        chunks.append((data[at + 4:at + 8], data[at + 8:at + 8 + length]))
        at += length + 12
    return chunks


def png_file(chunks):
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
        for kind, body in chunks)


def mutate_samples(chunks):
    """Changes filtered samples and packs them anew in some way."""
    raw = zlib.decompress(b"".join(body for kind, body in chunks if kind == b"IDAT"))
    packer = zlib.compressobj(random.randrange(10), zlib.DEFLATED, 15, 8, random.randrange(5))
    packed = packer.compress(flip_bits(raw)) + packer.flush()
    cut = random.randrange(len(packed))
    first = [kind for kind, _ in chunks].index(b"IDAT")
    others = [chunk for chunk in chunks if chunk[0] != b"IDAT"]
    return others[:first] + [(b"IDAT", packed[:cut]), (b"IDAT", packed[cut:])] + others[first:]


def mutate_png(data):
    chunks = png_chunks(data)
    kind = random.randrange(5)
    if kind == 0:
        return flip_bits(data)
    if kind == 1:
        return data[:random.randrange(len(data))]
    if kind == 2:
        shuffle(chunks)
    elif kind == 3:
        chunks = mutate_samples(chunks)
    else:
        i = random.randrange(len(chunks))
        if chunks[i][1]:
            chunks[i] = (chunks[i][0], flip_bits(chunks[i][1]))
    return png_file(chunks)


def jpeg_segments(data):
    """The segments; a scan's data goes with its header, as does all that follows it."""
    within_scans = (0, *range(0xD0, 0xD8))
    segments, at = [], 2
    while at + 4 <= len(data):
        length, = struct.unpack(">H", data[at + 2:at + 4])
        end = at + 2 + length
        if data[at + 1] == 0xDA:
            while end + 1 < len(data) and (data[end] != 0xFF or data[end + 1] in within_scans):
                end += 1
        segments.append(data[at:end])
        at = end
    return segments


def is_defined(name, data, theirs, tolerance):
    """Whether libjpeg tells what the pixels are.

    Samples far out of range wrap around or are cut off in it, depending on the transform and on
    whether its vector code runs, and it smooths progressive pictures that lack a scan. Nothing says
    what those ought to be."""
    if name.endswith("png"):
        return True
    others = [decode_by_peer(name, simd=True), decode_by_peer(name, transform="float")]
    return is_complete(jpeg_segments(data)) and all(
        other and difference(other, theirs) <= tolerance for other in others)


def is_complete(segments):
    """Whether the scans, if progressive, bring all bits of all coefficients."""
    if not any(segment[1] == 0xC2 for segment in segments):
        return True
    missing = {}  # the lowest bit that has come, by component and coefficient
    for segment in segments:
        if segment[1] == 0xDA:
            count = segment[4]
            start, end, bits = segment[5 + 2 * count:8 + 2 * count]
            for component in segment[5:5 + 2 * count:2]:
                missing.update({(component, k): bits % 16 for k in range(start, end + 1)})
    components = {component for component, _ in missing}
    return not any(missing.get((component, k), 1) for component in components for k in range(64))


def mutate_jpeg(data):
    segments = jpeg_segments(data)
    kind = random.randrange(5)
    if kind == 0:
        return flip_bits(data)
    if kind == 1:
        return data[:random.randrange(len(data))]
    if kind == 2:
        shuffle(segments)
    else:
        # In scans and tables, behind marker and length.
        i = random.randrange(len(segments))
        segments[i] = flip_bits(segments[i], 4)
    return data[:2] + b"".join(segments) + data[-2:]


def compare(seconds, kind, extension, program, mutate, tolerance):
    names = sorted(glob.glob(f"tests/data/{kind}/*.{extension}"))
    sources = [open(name, "rb").read() for name in names]
    counts = {(ours, theirs): 0 for ours in (True, False) for theirs in (True, False)}
    largest, undefined, faults = 0, 0, 0
    name = f"out/compare/current.{extension}"
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        data = mutate(random.choice(sources))
        with open(name, "wb") as file:
            file.write(data)
        ours, theirs = program.decode(name), decode_by_peer(name)
        counts[ours is not None, theirs is not None] += 1
        if ours and theirs:
            found = difference(ours, theirs)
            if found <= tolerance:
                largest = max(largest, found)
            elif not is_defined(name, data, theirs, tolerance):
                undefined += 1
            else:
                faults += 1
                os.replace(name, f"out/compare/{zlib.crc32(data):08x}-{found}.{extension}")
    peer = "libpng" if kind == "png" else "libjpeg"
    print(f"{kind}: {sum(counts.values())} files; taken by both {counts[True, True]}, "
          f"by the program only {counts[True, False]}, by {peer} only {counts[False, True]}, "
          f"by none {counts[False, False]}; largest difference {largest}, "
          f"left open by the format {undefined}, pictures that differ {faults}")
    return faults


def main():
    seconds = float(sys.argv[1])
    os.makedirs("out/compare", exist_ok=True)
    program = Program()
    faults = compare(seconds / 2, "png", "png", program, mutate_png, 0)
    faults += compare(seconds / 2, "jpeg", "jpg", program, mutate_jpeg, JPEG_TOLERANCE)
    sys.exit(1 if faults else 0)


main()
