# SPDX-License-Identifier: LicenseRef-Proprietary
"""The pixels of PNG files."""

import struct
import zlib


def chunks(png):
    """The chunks of a PNG file, as (type, data)."""
    assert png.startswith(b"\x89PNG\r\n\x1a\n")
    at = 8
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        yield kind, png[at + 8 : at + 8 + length]
        at += length + 12


def paeth(left, above, corner):
    estimate = left + above - corner
    return min((left, above, corner), key=lambda value: abs(estimate - value))


def unfiltered(kind, line, above, depth):
    """A line of a PNG before its filter; depth is the number of bytes of a pixel."""
    line = bytearray(line)
    for i, byte in enumerate(line):
        left, corner = (line[i - depth], above[i - depth]) if i >= depth else (0, 0)
        add = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind]
        line[i] = (byte + add) & 0xFF
    return line


def picture(path):
    """Width, height and pixels of a PNG file of 8 bits a sample, in RGB or RGBA."""
    parts = list(chunks(path.read_bytes()))
    width, height, bits, colour_type = struct.unpack_from(">IIBB", dict(parts)[b"IHDR"])
    assert (bits, colour_type) in [(8, 2), (8, 6)]
    depth = 3 if colour_type == 2 else 4
    data = zlib.decompress(b"".join(data for kind, data in parts if kind == b"IDAT"))
    size = width * depth
    line, pixels = bytes(size), []
    for start in range(0, len(data), size + 1):
        line = unfiltered(data[start], data[start + 1 : start + 1 + size], line, depth)
        pixels += [tuple(line[i : i + 3]) for i in range(0, size, depth)]
    return width, height, pixels
