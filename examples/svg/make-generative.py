#!/usr/bin/env python3
"""Writes generative.svg: a flow-field line drawing for a pen plotter, four pens.

Usage: examples/svg/make-generative.py [OUTPUT]   (default: generative.svg beside this script)

Some 3,000 short strokes follow a smooth angle field over an A3 portrait sheet. Each stroke's pen
comes from a second, slower field, so the colours lie in broad bands of about equal share. Inside each pen's layer
the strokes are written in shuffled order, half of them backwards, so that the drawing order
says nothing about where the strokes are: plotted as written, the pen travels back and forth
across the sheet between strokes, which is what travel ordering is there to cut. The same seed
gives the same file, byte for byte. Standard library only.
"""
import math
import os
import random
import sys

SEED = 20240311
WIDTH, HEIGHT = 297.0, 420.0  # A3 portrait, millimetres
MARGIN = 20.0
STROKES = 3200
STEP = 1.2  # millimetres between the points of a stroke
PENS = [("#1b4965", "deep blue"), ("#c8553d", "brick red"), ("#2a9d8f", "teal"),
        ("#e9c46a", "ochre")]


class Field:
    """A smooth scalar field: a sum of a few sine waves with random directions and phases."""

    def __init__(self, rng, waves, wavelength):
        self.waves = []
        for _ in range(waves):
            direction = rng.uniform(0.0, 2.0 * math.pi)
            k = 2.0 * math.pi / (wavelength * rng.uniform(0.7, 1.4))
            self.waves.append((k * math.cos(direction), k * math.sin(direction),
                               rng.uniform(0.0, 2.0 * math.pi), rng.uniform(0.5, 1.0)))

    def at(self, x, y):
        total = sum(a * math.sin(kx * x + ky * y + p) for kx, ky, p, a in self.waves)
        weight = sum(a for _, _, _, a in self.waves)
        return total / weight  # in [-1, 1]


def inside(x, y):
    return MARGIN <= x <= WIDTH - MARGIN and MARGIN <= y <= HEIGHT - MARGIN


def trace(angle_field, rng):
    """One stroke: a list of points following the field from a random start."""
    x = rng.uniform(MARGIN, WIDTH - MARGIN)
    y = rng.uniform(MARGIN, HEIGHT - MARGIN)
    steps = rng.randint(8, 30)
    points = [(x, y)]
    for _ in range(steps):
        a = angle_field.at(x, y) * math.pi * 1.5
        x += STEP * math.cos(a)
        y += STEP * math.sin(a)
        if not inside(x, y):
            break
        points.append((x, y))
    return points


def path_data(points):
    first = "M%.1f,%.1f" % points[0]
    rest = " ".join("%.1f,%.1f" % p for p in points[1:])
    return first + " L" + rest


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    output = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "generative.svg")
    rng = random.Random(SEED)
    angle = Field(rng, 5, 260.0)
    colour = Field(rng, 3, 420.0)
    strokes = []
    while len(strokes) < STROKES:
        points = trace(angle, rng)
        if len(points) < 4:
            continue
        if rng.random() < 0.5:
            points.reverse()
        strokes.append((colour.at(*points[0]), points))
    # The pens share the strokes evenly: each takes one band of the colour field's values.
    ranked = sorted(range(len(strokes)), key=lambda i: strokes[i][0])
    layers = [[] for _ in PENS]
    for rank, i in enumerate(ranked):
        layers[rank * len(PENS) // len(strokes)].append(strokes[i][1])
    lines = [
        '<?xml version="1.0" encoding="UTF-8" standalone="no"?>',
        '<svg xmlns="http://www.w3.org/2000/svg" version="1.1" width="297mm" height="420mm"'
        ' viewBox="0 0 297 420">',
        "  <title>Flow field, four pens</title>",
        "  <desc>%d strokes along a smooth angle field, written by make-generative.py with seed"
        " %d. Each pen's strokes are in shuffled order.</desc>" % (STROKES, SEED),
        '  <rect x="10" y="10" width="277" height="400" fill="none" stroke="#1b4965"'
        ' stroke-width="0.3"/>',
    ]
    for (rgb, name), layer in zip(PENS, layers):
        rng.shuffle(layer)
        lines.append('  <g id="pen-%s" fill="none" stroke="%s" stroke-width="0.3"'
                     ' stroke-linecap="round" stroke-linejoin="round">' %
                     (name.replace(" ", "-"), rgb))
        lines.extend('    <path d="%s"/>' % path_data(points) for points in layer)
        lines.append("  </g>")
    lines.append("</svg>")
    with open(output + ".part", "w", newline="\n") as f:
        f.write("\n".join(lines) + "\n")
    os.replace(output + ".part", output)
    print("%s: %s" % (output, ", ".join("%d %s" % (len(layer), name)
                                        for (_, name), layer in zip(PENS, layers))))


if __name__ == "__main__":
    main()
