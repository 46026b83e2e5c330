#!/usr/bin/python3
"""Draws lines of text in the two fonts as a device does without smoothing, into a PNG.

Usage: preview.py FONTS OUT.png [--sizes 12,16,24] [--width 1] [--zoom 3] [TEXT...]

An interpreter of its own, so that it can tell when fonts and library disagree.
"""

import argparse
import math
import struct
import zlib
from pathlib import Path

from fit import line_pixels, round_pixel
from shape_code import DIRECTIONS

SAMPLE = ["梁配筋图 KL-3(2) 300×600 C30 截面1-1", "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 +-=/*()",
          "abcdefghijklmnopqrstuvwxyz 4\x8420@100/200 \x801.50 \x7f\x81",
          "量筋截程鼻壁轴键龙钢混凝土强度等级弯矩剪力裂缝宽度", "说明：①本图尺寸以毫米计；②保护层25mm。",
          "\x82\x83\x84\x85\x86\x87\x88\x89\x8a\x8b\x8c\x8d\x8e\x8f Ⅰ Ⅱ Ⅲ ㈠ ⑴ αβγ ±≤≥°℃ あいアイ ДЖя ㄅㄆ ǎ"]


class Fonts:
    def __init__(self, folder):
        data = (folder / "TXT.SHX").read_bytes()
        count, = struct.unpack_from("<H", data, 28)
        at = 30 + 4 * count
        self.small = {}
        for i in range(count):
            code, length = struct.unpack_from("<HH", data, 30 + 4 * i)
            self.small[code] = data[at:at + length]
            at += length
        self.small_height = self.small.pop(0)[-4]
        data = (folder / "HZTXT.SHX").read_bytes()
        count = struct.unpack_from("<H", data, 27)[0] - 1
        _, length, at = struct.unpack_from("<HHI", data, 35)
        self.big_height = data[at + length - 4] + data[at + length - 3]
        self.big = {}
        for i in range(count):
            trail, lead, length, at = struct.unpack_from("<BBHI", data, 43 + 8 * i)
            self.big[lead, trail] = data[at:at + length]

    def glyph(self, character):
        """The shape and the height that it counts in."""
        if ord(character) < 161:
            return self.small.get(ord(character), self.small[ord("?")]), self.small_height
        return self.big[tuple(character.encode("gb2312"))], self.big_height


def moves(data):
    """(dx, dy, down) of a shape."""
    at, down = data.index(0) + 1, False
    while data[at]:
        code = data[at]
        at += 1
        if code in (1, 2):
            down = code == 1
        elif code == 8:
            yield *struct.unpack_from("bb", data, at), down
            at += 2
        elif code == 9:
            while data[at:at + 2] != b"\0\0":
                yield *struct.unpack_from("bb", data, at), down
                at += 2
            at += 2
        elif code > 15:
            x, y = DIRECTIONS[code & 15]
            yield x / 2 * (code >> 4), y / 2 * (code >> 4), down
        else:
            raise ValueError(f"code {code} is not used by these fonts")


def text_pixels(fonts, text, x, y, size, width):
    """The pixels of a text at (x, y), and where it ends."""
    out, at = [], (round_pixel(x), round_pixel(y))
    for character in text:
        data, height = fonts.glyph(character)
        for dx, dy, down in moves(data):
            x += dx * size / height * width
            y -= dy * size / height
            to = (round_pixel(x), round_pixel(y))
            if down:
                out += line_pixels(at, to)
            at = to
    return out, x


def write_png(path, rows, zoom):
    data = b"".join((b"\0" + bytes(v for v in row for _ in range(zoom))) * zoom for row in rows)

    def chunk(tag, body):
        return struct.pack(">I", len(body)) + tag + body + struct.pack(">I", zlib.crc32(tag + body))
    head = struct.pack(">IIBBBBB", len(rows[0]) * zoom, len(rows) * zoom, 8, 0, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) +
                     chunk(b"IDAT", zlib.compress(data)) + chunk(b"IEND", b""))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("fonts", type=Path)
    parser.add_argument("out", type=Path)
    parser.add_argument("text", nargs="*", default=SAMPLE)
    parser.add_argument("--sizes", default="12,16,24")
    parser.add_argument("--width", type=float, default=1)
    parser.add_argument("--zoom", type=int, default=3)
    options = parser.parse_intermixed_args()
    fonts, pixels, y, right = Fonts(options.fonts), [], 4, 0
    for size in map(int, options.sizes.split(",")):
        for text in options.text:
            y += math.ceil(size * 1.7)
            drawn, end = text_pixels(fonts, text, 6, y, size, options.width)
            pixels += drawn
            right = max(right, end)
    rows = [bytearray(b"\xff" * (int(right) + 8)) for _ in range(y + 14)]
    for x, y in pixels:
        rows[y][x] = 0
    write_png(options.out, rows, options.zoom)


if __name__ == "__main__":
    main()
