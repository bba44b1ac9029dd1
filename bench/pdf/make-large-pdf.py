#!/usr/bin/env python3
"""Writes the PDF import benchmark's drawing: PAGES A1 pages (default 20), each with PATHS paths
(default 5,000): polylines, cubic Béziers and filled polygons in several colours and line widths,
some under a transform, and a title block of text in a standard font. The content streams are
FlateDecode-compressed, as drawing programs write them. Seeded, so every run writes the same
bytes. Standard library only.

Usage: bench/pdf/make-large-pdf.py OUT.pdf [--pages N] [--paths N]
"""
import argparse
import os
import random
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from pdfwriter import simple_document  # noqa: E402

# A1 landscape, in points.
WIDTH, HEIGHT = 2384, 1684
COLOURS = [(0, 0, 0), (0.8, 0.1, 0.1), (0.1, 0.5, 0.1), (0.1, 0.2, 0.8), (0.9, 0.6, 0.0)]
WIDTHS = [0.25, 0.5, 1.0, 2.0]


def number(value):
    return ("%.2f" % value).rstrip("0").rstrip(".")


def page_content(rng, paths, index):
    out = []
    for n in range(paths):
        kind = n % 4
        colour = rng.choice(COLOURS)
        x, y = rng.uniform(50, WIDTH - 150), rng.uniform(150, HEIGHT - 100)
        if kind == 0:
            # A polyline of 10 segments.
            out.append("%s %s %s RG %s w" % (*map(number, colour), number(rng.choice(WIDTHS))))
            points = ["%s %s m" % (number(x), number(y))]
            for _ in range(10):
                x += rng.uniform(-20, 20)
                y += rng.uniform(-20, 20)
                points.append("%s %s l" % (number(x), number(y)))
            out.append(" ".join(points) + " S")
        elif kind == 1:
            # A run of 4 cubic Béziers.
            out.append("%s %s %s RG %s w" % (*map(number, colour), number(rng.choice(WIDTHS))))
            parts = ["%s %s m" % (number(x), number(y))]
            for _ in range(4):
                c = [rng.uniform(-40, 40) for _ in range(6)]
                parts.append("%s %s %s %s %s %s c" % tuple(
                    number(v) for v in (x + c[0], y + c[1], x + c[2], y + c[3], x + c[4], y + c[5])))
                x, y = x + c[4], y + c[5]
            out.append(" ".join(parts) + " S")
        elif kind == 2:
            # A filled polygon of 6 corners.
            out.append("%s %s %s rg" % tuple(map(number, colour)))
            points = ["%s %s m" % (number(x), number(y))]
            for _ in range(5):
                points.append("%s %s l" % (number(x + rng.uniform(-30, 30)),
                                           number(y + rng.uniform(-30, 30))))
            out.append(" ".join(points) + " h f")
        else:
            # A rectangle, stroked, under a turn about its corner.
            angle = rng.uniform(0, 1)
            out.append("q %s %s %s %s %s %s cm %s %s %s RG 0.5 w 0 0 %s %s re S Q" % (
                number(1 - angle * angle / 2), number(angle), number(-angle),
                number(1 - angle * angle / 2), number(x), number(y), *map(number, colour),
                number(rng.uniform(5, 40)), number(rng.uniform(5, 40))))
    # The title block: a frame and a few lines of text.
    out.append("0 g 1 w 1800 40 540 90 re S BT /F1 18 Tf 1820 100 Td (Benchmark drawing) Tj "
               "0 -24 Td (Sheet %d) Tj 0 -24 Td (Scale 1:100  A1) Tj ET" % (index + 1))
    return "\n".join(part for part in out if part).encode()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("out")
    parser.add_argument("--pages", type=int, default=20)
    parser.add_argument("--paths", type=int, default=5000)
    options = parser.parse_args()
    rng = random.Random(20261124)
    contents = [page_content(rng, options.paths, i) for i in range(options.pages)]
    font = b"/Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> >>"
    data = simple_document(contents, WIDTH, HEIGHT, resources=font, compress=True)
    with open(options.out, "wb") as f:
        f.write(data)


if __name__ == "__main__":
    main()
