#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws editor-export.svg's shapes as a PNG: resources/desktop/draw_icon.py resources/desktop/editor-export-128.png 128"""
import math
import struct
import sys
import zlib

GROUND, WHITE, TEAL, AMBER = (31, 58, 68), (245, 246, 248), (38, 166, 154), (255, 179, 0)
ARROW = [(60, 58), (86, 58), (86, 46), (112, 64), (86, 82), (86, 70), (60, 70)]
SAMPLES = 4  # a side of each pixel


def in_box(x, y, left, top, width, height, radius):
    dx = max(left + radius - x, 0, x - (left + width - radius))
    dy = max(top + radius - y, 0, y - (top + height - radius))
    return math.hypot(dx, dy) <= radius


def in_polygon(x, y, points):
    inside = False
    for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
        if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
            inside = not inside
    return inside


def to_edge(x, y, points):
    def distance(ax, ay, bx, by):
        share = ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / ((bx - ax) ** 2 + (by - ay) ** 2)
        share = min(1, max(0, share))
        return math.hypot(x - ax - share * (bx - ax), y - ay - share * (by - ay))
    return min(distance(*a, *b) for a, b in zip(points, points[1:] + points[:1]))


def colour_at(x, y):
    """None where the icon is transparent."""
    if to_edge(x, y, ARROW) <= 1.5:
        return GROUND
    if in_polygon(x, y, ARROW):
        return AMBER
    if in_box(x, y, 40, 52, 5, 24, 2) or in_box(x, y, 49, 44, 5, 40, 2):
        return TEAL
    if abs(math.hypot(x - 56, y - 64) - 32) <= 4:
        return WHITE
    return GROUND if in_box(x, y, 8, 8, 112, 112, 24) else None


def pixel(column, row, scale):
    steps = [(index + 0.5) / SAMPLES for index in range(SAMPLES)]
    found = [colour_at((column + x) * scale, (row + y) * scale) for y in steps for x in steps]
    shown = [colour for colour in found if colour]
    if not shown:
        return b"\0\0\0\0"
    return bytes(round(sum(channel) / len(shown)) for channel in zip(*shown)) + bytes([round(255 * len(shown) / len(found))])


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def main():
    side = int(sys.argv[2])
    rows = b"".join(b"\0" + b"".join(pixel(x, y, 128 / side) for x in range(side)) for y in range(side))
    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    with open(sys.argv[1], "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


if __name__ == "__main__":
    main()
