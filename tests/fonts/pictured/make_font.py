#!/usr/bin/env python3
"""Writes Pictured.ttf: a font without outlines, of which each letter is a PNG picture (CBDT, CBLC).

It has a black square of 32 dots for "A" and for U+10FFFD, which no other font of the tests has.
"""

import struct
import zlib
from pathlib import Path

FAMILY = "Pictured"
CHARACTERS = [0x41, 0x10FFFD]
GLYPHS = 1 + len(CHARACTERS)  # the first one stands for missing characters
UNITS = 1024
PPEM = 32


def png(size):
    def chunk(name, data):
        checked = name + data
        return struct.pack(">I", len(data)) + checked + struct.pack(">I", zlib.crc32(checked))

    rows = (b"\0" + b"\0\0\0\xff" * size) * size
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def head():
    return struct.pack(">IIIIHHQQhhhhHHhhh", 0x10000, 0x10000, 0, 0x5F0F3CF5, 3, UNITS, 0, 0,
                       0, 0, UNITS, UNITS, 0, 8, 2, 0, 0)


def hhea():
    return struct.pack(">IhhhHhhhhhhhhhhhH", 0x10000, UNITS, 0, 0, UNITS, 0, 0, UNITS, 1, 0, 0,
                       0, 0, 0, 0, 0, GLYPHS)


def maxp():
    return struct.pack(">IH13H", 0x10000, GLYPHS, *[0] * 13)


def os2():
    return struct.pack(">HhHHH11h10sIIII4sHHHhhhHHIIhhHHH", 4, UNITS, 400, 5, 0, *[0] * 11, bytes(10),
                       1, 1 << 25, 0, 0, b"    ", 0x40, CHARACTERS[0], 0xFFFF, UNITS, 0, 0, UNITS, 0,
                       1, 0, UNITS // 2, UNITS, 0, 32, 0)


def hmtx():
    return struct.pack(">Hh", UNITS, 0) * GLYPHS


def cmap():
    groups = b"".join(struct.pack(">III", character, character, glyph)
                      for glyph, character in enumerate(CHARACTERS, start=1))
    table = struct.pack(">HHIII", 12, 0, 16 + len(groups), 0, len(CHARACTERS)) + groups
    return struct.pack(">HHHHI", 0, 1, 3, 10, 12) + table


def name():
    texts = {1: FAMILY, 2: "Regular", 3: FAMILY, 4: FAMILY, 5: "1.0", 6: FAMILY}
    records, strings = b"", b""
    for number, text in texts.items():
        encoded = text.encode("utf-16-be")
        records += struct.pack(">HHHHHH", 3, 1, 0x409, number, len(encoded), len(strings))
        strings += encoded
    return struct.pack(">HHH", 0, len(texts), 6 + len(records)) + records + strings


def post():
    return struct.pack(">IIhhIIIII", 0x30000, 0, 0, 0, 0, 0, 0, 0, 0)


def pictures():
    """The tables CBDT and CBLC."""
    picture = png(PPEM)
    glyph = struct.pack(">BBbbBI", PPEM, PPEM, 0, PPEM, PPEM, len(picture)) + picture
    offsets = struct.pack(f">{GLYPHS + 1}I", *(i * len(glyph) for i in range(GLYPHS + 1)))
    index = struct.pack(">HHI", 0, GLYPHS - 1, 8) + struct.pack(">HHI", 1, 17, 4) + offsets
    line = struct.pack(">bbBbbbbbbbbb", PPEM, 0, PPEM, 0, 0, 0, 0, 0, PPEM, 0, 0, 0)
    size = struct.pack(">IIII", 56, len(index), 1, 0) + line * 2 + struct.pack(
        ">HHBBBb", 0, GLYPHS - 1, PPEM, PPEM, 32, 1)
    return (struct.pack(">HH", 3, 0) + glyph * GLYPHS,
            struct.pack(">HHI", 3, 0, 1) + size + index)


def font(tables):
    power = 1 << (len(tables).bit_length() - 1)
    directory = struct.pack(">IHHHH", 0x10000, len(tables), power * 16, power.bit_length() - 1,
                            len(tables) * 16 - power * 16)
    offset = 12 + 16 * len(tables)
    contents = b""
    for tag, data in sorted(tables.items()):
        padded = data + bytes(-len(data) % 4)
        total = sum(struct.unpack(f">{len(padded) // 4}I", padded)) & 0xFFFFFFFF
        directory += struct.pack(">4sIII", tag.encode(), total, offset + len(contents), len(data))
        contents += padded
    return directory + contents


if __name__ == "__main__":
    cbdt, cblc = pictures()
    Path(__file__).with_name("Pictured.ttf").write_bytes(font({
        "CBDT": cbdt, "CBLC": cblc, "OS/2": os2(), "cmap": cmap(), "head": head(), "hhea": hhea(),
        "hmtx": hmtx(), "maxp": maxp(), "name": name(), "post": post()}))
