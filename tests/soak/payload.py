"""Random arguments of messages, and their checksum. Its counterpart is page/payload.js."""

import math
import random
import struct
import zlib

MAX_TEXT = 1 << 20     # UTF-16 units
MAX_ELEMENTS = 20000
LETTERS = "abcdefghijklmnopqrstuvwxyz 0123456789\"\\\n\0äß€語"
ASTRAL = "𝄞😀"


def log_uniform(generator, limit):
    """Returns a number from 0 to `limit`. All orders of magnitude are equally likely."""
    return int(math.exp(generator.random() * math.log(limit + 1))) - 1


def random_text(generator, limit):
    length = log_uniform(generator, limit)
    piece = "".join(generator.choice(LETTERS) for _ in range(min(length, 50)))
    text = (piece * (length // 50 + 1))[:length]
    return text + generator.choice(ASTRAL) if length % 3 == 0 else text


def random_int(generator):
    return generator.randint(-2**31, 2**31 - 1)


def random_scalar(generator):
    kind = generator.randrange(6)
    if kind == 0:
        return random_int(generator)
    if kind == 1:
        return generator.uniform(-1e9, 1e9)
    if kind == 2:
        return generator.choice([-0.0, 0.5, 1e-300, 1.7976931348623157e308, 2.0**53])
    if kind == 3:
        return generator.random() < 0.5
    if kind == 4:
        return None
    return random_text(generator, 60)


def random_payload(generator):
    """Returns an empty list, a long string, or a list of numbers, strings, lists or a mixture."""
    kind = generator.randrange(7)
    if kind == 0:
        return []
    if kind == 1:
        return [random_text(generator, MAX_TEXT)]
    count = log_uniform(generator, MAX_ELEMENTS)
    if kind == 2:
        return [random_int(generator) for _ in range(count)]
    if kind == 3:
        return [generator.uniform(-1, 1) for _ in range(count)]
    if kind == 4:
        return [str(generator.random()) for _ in range(count // 2)]
    if kind == 5:
        return [[random_scalar(generator) for _ in range(generator.randrange(12))]
                for _ in range(count // 12)]
    return [random_scalar(generator) for _ in range(count // 4)]


def random_payload_of(seed):
    return random_payload(random.Random(seed))


def _pieces(value):
    if value is None:
        yield b"n"
    elif isinstance(value, bool):
        yield b"t" if value else b"f"
    elif isinstance(value, (int, float)):
        yield b"d" + struct.pack("<d", value)
    elif isinstance(value, str):
        units = value.encode("utf-16-le")
        yield b"s" + struct.pack("<I", len(units) // 2) + units
    elif value and all(type(element) in (int, float) for element in value):
        yield b"a" + struct.pack(f"<I{len(value)}d", len(value), *value)
    else:
        yield b"l" + struct.pack("<I", len(value))
        for element in value:
            yield from _pieces(element)


def checksum(value):
    """Returns a CRC-32 over kinds, lengths, bits of numbers and units of strings."""
    return zlib.crc32(b"".join(_pieces(value)))
