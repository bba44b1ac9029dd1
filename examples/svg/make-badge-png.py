#!/usr/bin/env python3
"""Writes the 64 x 48 badge picture embedded in embedded-image.svg, as a PNG in base64.

Usage: examples/svg/make-badge-png.py [--png FILE]

The picture: a blue-to-teal gradient, a white ring around a gold square set on its corner, and a
dark bar under it. Prints the base64 text for the data: address of the <image> element (wrapped
at 76 columns); --png also writes the PNG itself. Standard library only.
"""
import argparse
import base64
import math
import struct
import zlib

WIDTH, HEIGHT = 64, 48


def chunk(kind, data):
    crc = zlib.crc32(kind + data) & 0xFFFFFFFF
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", crc)


def pixel(x, y):
    """The RGB colour of pixel (x, y)."""
    cx, cy = 32.0, 21.0
    px, py = x + 0.5, y + 0.5
    dx, dy = px - cx, py - cy
    r = math.hypot(dx, dy)
    if abs(dx) + abs(dy) <= 11.0:
        return (232, 176, 40)
    if 14.0 <= r <= 17.0:
        return (250, 250, 245)
    if 41 <= y <= 44 and 12 <= x <= 51:
        return (30, 40, 60)
    t = (x + y) / float(WIDTH + HEIGHT - 2)
    return (int(30 + 20 * t), int(80 + 100 * t), int(170 - 30 * t))


def png_bytes():
    rows = bytearray()
    for y in range(HEIGHT):
        rows.append(0)  # filter type None
        for x in range(WIDTH):
            rows.extend(pixel(x, y))
    header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 2, 0, 0, 0)  # 8-bit RGB
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b""))


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("--png", help="also write the PNG to this file")
    a = ap.parse_args()
    data = png_bytes()
    if a.png:
        with open(a.png, "wb") as f:
            f.write(data)
    text = base64.b64encode(data).decode("ascii")
    for i in range(0, len(text), 76):
        print(text[i:i + 76])


if __name__ == "__main__":
    main()
