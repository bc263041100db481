#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws the picture of the outro "demo": resources/branding/draw_demo.py resources/branding/demo/outro.png"""
import math
import struct
import sys
import zlib

WIDTH, HEIGHT = 1280, 720
CENTRE = (640, 360)
RING, RING_WIDTH = 190, 22
WHITE, TEAL, AMBER = (245, 246, 248), (38, 166, 154), (255, 179, 0)


def coverage(distance):
    """Of a pixel whose centre lies this far inside (negative) or outside an edge."""
    return min(1.0, max(0.0, 0.5 - distance))


def ring(x, y):
    return abs(math.hypot(x - CENTRE[0], y - CENTRE[1]) - RING) - RING_WIDTH / 2


def glow(x, y):
    """A soft light behind the ring: alpha that is neither 0 nor 1 over a wide area."""
    distance = math.hypot((x - CENTRE[0]) / 1.6, y - CENTRE[1])
    return 0.55 * max(0.0, 1 - distance / 330) ** 2


def arrow(x, y):
    """Out of the ring to the right: a shaft and a head."""
    dx, dy = x - CENTRE[0], abs(y - CENTRE[1])
    shaft = max(abs(dx - 70) - 150, dy - 16)
    tip = (dx - 285) * 0.7071 + dy * 0.7071
    head = max(tip, 190 - dx)
    return min(shaft, head)


def bars(x, y):
    """A timeline's clips left of the arrow's beginning."""
    dx, dy = x - CENTRE[0] + 100, abs(y - CENTRE[1])
    return min(max(abs(dx) - 9, dy - 62), max(abs(dx + 30) - 9, dy - 36))


LAYERS = [(WHITE, lambda x, y: coverage(ring(x, y))), (TEAL, lambda x, y: coverage(bars(x, y))),
          (AMBER, lambda x, y: coverage(arrow(x, y)))]


def pixel(x, y):
    alpha = glow(x, y)
    colour = [channel * alpha for channel in TEAL]
    for layer, shape in LAYERS:
        opacity = shape(x, y)
        if opacity > 0:
            alpha = opacity + alpha * (1 - opacity)
            colour = [own * opacity + below * (1 - opacity) for own, below in zip(layer, colour)]
    if alpha <= 0:
        return b"\0\0\0\0"
    return bytes([round(channel / alpha) for channel in colour] + [round(alpha * 255)])


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def main():
    rows = b"".join(b"\0" + b"".join(pixel(x + 0.5, y + 0.5) for x in range(WIDTH)) for y in range(HEIGHT))
    header = struct.pack(">IIBBBBB", WIDTH, HEIGHT, 8, 6, 0, 0, 0)
    with open(sys.argv[1], "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) +
                   chunk(b"IEND", b""))


if __name__ == "__main__":
    main()
