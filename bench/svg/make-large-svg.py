#!/usr/bin/env python3
"""Writes the large SVG drawing of the import benchmark: about a million path segments.

Usage: bench/svg/make-large-svg.py OUTPUT [--paths 100000] [--segments 10] [--seed 7]

An A0 portrait sheet cut into a 10 x 10 grid of tiles, one <g> each with its own transform
(a translation; every third tile also turned a few degrees about its centre, every seventh
scaled down). The paths are spread evenly over the tiles; each is a moveto followed by
--segments drawing commands, about half lines (L), three in ten cubic Béziers (C) and two in
ten elliptical arcs (A), in absolute coordinates. Strokes come in six colours and four widths;
one path in twenty is also filled. The same arguments give the same file, byte for byte
(some 30 MB with the defaults). The file is written beside OUTPUT and renamed into place when
complete. Standard library only.
"""
import argparse
import os
import random
import sys

SHEET_W, SHEET_H = 841.0, 1189.0  # A0 portrait, millimetres
GRID = 10
TILE_W, TILE_H = SHEET_W / GRID, SHEET_H / GRID
COLOURS = ["#000000", "#d62828", "#003049", "#2a9d8f", "#f77f00", "#6a4c93"]
WIDTHS = ["0.18", "0.25", "0.35", "0.5"]


def clamp(v, low, high):
    return low if v < low else high if v > high else v


def path_data(rng, segments):
    """One path: a moveto and `segments` commands, kept inside the tile."""
    x = rng.uniform(5.0, TILE_W - 5.0)
    y = rng.uniform(5.0, TILE_H - 5.0)
    parts = ["M%.2f,%.2f" % (x, y)]
    for _ in range(segments):
        nx = clamp(x + rng.uniform(-6.0, 6.0), 0.0, TILE_W)
        ny = clamp(y + rng.uniform(-6.0, 6.0), 0.0, TILE_H)
        kind = rng.random()
        if kind < 0.5:
            parts.append("L%.2f,%.2f" % (nx, ny))
        elif kind < 0.8:
            parts.append("C%.2f,%.2f %.2f,%.2f %.2f,%.2f" % (
                clamp(x + rng.uniform(-4.0, 4.0), 0.0, TILE_W),
                clamp(y + rng.uniform(-4.0, 4.0), 0.0, TILE_H),
                clamp(nx + rng.uniform(-4.0, 4.0), 0.0, TILE_W),
                clamp(ny + rng.uniform(-4.0, 4.0), 0.0, TILE_H), nx, ny))
        else:
            r = rng.uniform(3.0, 8.0)
            parts.append("A%.2f,%.2f %d %d %d %.2f,%.2f" % (
                r, r * rng.uniform(0.5, 1.0), rng.randrange(0, 180, 15),
                rng.random() < 0.2, rng.random() < 0.5, nx, ny))
        x, y = nx, ny
    return " ".join(parts)


def tile_transform(index):
    column, row = index % GRID, index // GRID
    transform = "translate(%.2f %.2f)" % (column * TILE_W, row * TILE_H)
    if index % 3 == 0:
        transform += " rotate(%d %.2f %.2f)" % (index % 11 - 5, TILE_W / 2, TILE_H / 2)
    if index % 7 == 0:
        transform += " scale(0.9)"
    return transform


def write(output, paths, segments, seed):
    rng = random.Random(seed)
    tiles = GRID * GRID
    part = output + ".part"
    with open(part, "w", buffering=1 << 20, newline="\n") as f:
        f.write('<?xml version="1.0" encoding="UTF-8" standalone="no"?>\n'
                '<svg xmlns="http://www.w3.org/2000/svg" version="1.1" width="841mm" '
                'height="1189mm" viewBox="0 0 841 1189">\n'
                '  <title>Import benchmark: %d paths of %d segments, seed %d</title>\n' %
                (paths, segments, seed))
        for tile in range(tiles):
            count = paths // tiles + (1 if tile < paths % tiles else 0)
            f.write('  <g transform="%s" fill="none" stroke-linecap="round">\n' %
                    tile_transform(tile))
            for i in range(count):
                colour = COLOURS[rng.randrange(len(COLOURS))]
                width = WIDTHS[rng.randrange(len(WIDTHS))]
                fill = (' fill="%s" fill-opacity="0.3"' % colour) if i % 20 == 0 else ""
                f.write('    <path stroke="%s" stroke-width="%s"%s d="%s"/>\n' %
                        (colour, width, fill, path_data(rng, segments)))
            f.write("  </g>\n")
        f.write("</svg>\n")
    os.replace(part, output)


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("output", help="the SVG file to write")
    ap.add_argument("--paths", type=int, default=100_000, help="number of paths")
    ap.add_argument("--segments", type=int, default=10, help="drawing commands per path")
    ap.add_argument("--seed", type=int, default=7, help="random seed")
    a = ap.parse_args()
    if a.paths < 1 or a.segments < 1:
        sys.exit("make-large-svg: --paths and --segments must be at least 1")
    write(a.output, a.paths, a.segments, a.seed)
    print("%s: %d paths, %d segments" % (a.output, a.paths, a.paths * a.segments))


if __name__ == "__main__":
    main()
