"""Writes PNG files of the kinds that the asset scripts need, with nothing beyond the standard library."""

import struct
import zlib

GREY, RGB, PALETTE, RGBA = 0, 2, 3, 6


def _chunk(name, data):
    body = name + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def _paeth(left, above, corner):
    estimate = left + above - corner
    distances = (abs(estimate - left), abs(estimate - above), abs(estimate - corner))
    return (left, above, corner)[distances.index(min(distances))]


def _filtered(row, previous, unit):
    """The row under the filter that leaves the smallest residue."""
    candidates = []
    for kind in range(5):
        out = bytearray()
        for i, value in enumerate(row):
            left = row[i - unit] if i >= unit else 0
            above = previous[i]
            corner = previous[i - unit] if i >= unit else 0
            guess = (0, left, above, (left + above) // 2, _paeth(left, above, corner))[kind]
            out.append((value - guess) & 255)
        candidates.append((sum(min(b, 256 - b) for b in out), kind, out))
    _, kind, out = min(candidates, key=lambda c: c[:2])
    return bytes([kind]) + bytes(out)


def encode(width, height, colour_type, rows, bits=8, palette=None):
    """The bytes of a PNG file. `rows`: packed rows of samples; `palette`: (r, g, b, a) entries for PALETTE."""
    chunks = [_chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, bits, colour_type, 0, 0, 0))]
    if palette is not None:
        chunks.append(_chunk(b"PLTE", b"".join(bytes(entry[:3]) for entry in palette)))
        chunks.append(_chunk(b"tRNS", bytes(entry[3] for entry in palette)))
    unit = {GREY: 1, RGB: 3, PALETTE: 1, RGBA: 4}[colour_type]
    previous = bytes(len(rows[0]))
    stream = b""
    for row in rows:
        # Differences of palette indices mean nothing, so such rows stay as they are.
        stream += b"\0" + row if colour_type == PALETTE else _filtered(row, previous, unit)
        previous = row
    chunks.append(_chunk(b"IDAT", zlib.compress(stream, 9)))
    chunks.append(_chunk(b"IEND", b""))
    return b"\x89PNG\r\n\x1a\n" + b"".join(chunks)
