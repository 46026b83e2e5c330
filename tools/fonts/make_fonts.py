#!/usr/bin/python3
"""Builds TXT.SHX (Western) and HZTXT.SHX (GB2312) from free stroke data; README.md tells how.

Usage: make_fonts.py --hanzi DIR --hershey DIR --out DIR
"""

import argparse
import json
import math
from pathlib import Path

import shape_code
from drawing import drawing
from fit import fit, show_ends
from gb_symbols import Symbols
from hershey import read_jhf
from strokes import (bounds, level, quantise, simplify, square_bends, square_boxes, square_corners,
                     straighten, transform, trim, weld)
from symbols import SYMBOLS

# Both fonts count in the same units: capitals are HEIGHT high, and that is the height of a text.
# Where it is GRID pixels, each line of a glyph that can lies on a pixel.
GRID = 12
UNIT = 7
HEIGHT = GRID * UNIT
# Pixels of a character of the big font, from the base line, and the way to the next character.
HANZI_BOX = (0, -1, 13, 12)
HANZI_ADVANCE = 15 * UNIT
DIGIT_ADVANCE = 8 * UNIT
QUESTION_ADVANCE = HANZI_ADVANCE / 2  # two of them stand for a character that the big font lacks

TXT_NOTE = ("TXT: derived from the Hershey fonts (A. V. Hershey, U.S. National Bureau of Standards; "
            "format by J. Hurt, Cognition, Inc.). See NOTICE.")
HZTXT_NOTE = ("HZTXT: centre lines of strokes, changed 2026-11-21, from Arphic PL KaitiM GB and Arphic PL "
              "UKai, (C) 1999 Arphic Technology Co., Ltd. Arphic Public License: see ARPHICPL.TXT.")


def gb2312():
    """(row, cell, character) of every character of GB2312."""
    for row in range(1, 88):
        for cell in range(1, 95):
            try:
                yield row, cell, bytes([160 + row, 160 + cell]).decode("gb2312")
            except UnicodeDecodeError:
                pass


class Hanzi:
    """The strokes of a character in a cell of 100 units, cleaned of what a brush leaves."""

    def __init__(self, folder):
        self.folder = Path(folder)

    def __call__(self, character):
        path = self.folder / f"{character}.json"
        if not path.exists():
            return None
        strokes = json.loads(path.read_text("utf-8"))["medians"]
        k = 100 / 928  # the ink is in (48, -64, 976, 864)
        strokes = level(transform(strokes, k, k, -48 * k, 64 * k))
        strokes = trim([simplify(s, 1.0) for s in strokes])
        strokes = straighten([simplify(s, 2.0) for s in strokes])
        strokes = weld(square_corners(square_boxes(square_bends(strokes))))
        return [[(min(max(x, 0), 100), min(max(y, 0), 100)) for x, y in s] for s in strokes]


def to_box(strokes, box):
    """From the cell of 100 units, of which glyphs leave 2 free on each side, to pixels."""
    left, bottom, right, top = box
    kx, ky = (right - left) / 96, (top - bottom) / 96
    return transform(strokes, kx, ky, left - 2 * kx, bottom - 2 * ky)


def fill_cell(strokes):
    """Writing by brush leaves much room around a character, and a different one on each side: large
    characters come closer to filling the cell, all closer to its middle."""
    if not strokes:
        return strokes
    box, map_ = bounds(strokes), []
    for low, high in ((box[0], box[2]), (box[1], box[3])):
        extent, middle = high - low, (low + high) / 2
        larger = extent + (96 - extent) * 0.6 if extent > 55 else extent * 1.2
        to = 50 + (middle - 50) / 2
        to = min(max(to, 2 + larger / 2), 98 - larger / 2)
        map_.append((larger / extent if extent > 0 else 1, to, middle))
    (kx, to_x, x), (ky, to_y, y) = map_
    return transform(strokes, kx, ky, to_x - kx * x, to_y - ky * y)


def to_units(strokes):
    return show_ends(quantise(transform(strokes, UNIT, UNIT)), UNIT)


def straightened(strokes):
    """Lines that are level or upright but for rounding are made so."""
    return [[(round(x, 3), round(y, 3)) for x, y in s] for s in strokes]


def western(strokes, advance, number):
    """A letter of the Hershey fonts: capitals of 21 units become HEIGHT, widths three quarters of
    that, and the room beside the glyph two thirds of it."""
    kx, ky = HEIGHT / 21 * 0.75, HEIGHT / 21
    if not strokes:
        return [], math.ceil(advance * kx / UNIT / 1.3) * UNIT
    left, _, right, _ = bounds(strokes)
    if (right - left) * kx >= 2 * UNIT:  # an even number of pixels: the middle is on one too
        kx = round((right - left) * kx / (2 * UNIT)) * 2 * UNIT / (right - left)
    if number:
        start = (DIGIT_ADVANCE - UNIT - (right - left) * kx) / 2
        start, advance = round((start + UNIT / 2) / UNIT) * UNIT, DIGIT_ADVANCE
    else:
        start = round(left * kx * 0.66 / UNIT) * UNIT
        ink = start + (right - left) * kx
        advance = math.ceil((ink + max(1.4 * UNIT, (advance - right) * kx * 0.66)) / UNIT) * UNIT
    strokes = transform(strokes, kx / UNIT, ky / UNIT, (start - left * kx) / UNIT)
    box = bounds(strokes)
    return fit(strokes, (box[0], -4, math.ceil(box[2]), GRID + 2)), advance


def build_small(hershey):
    glyphs = {}
    for i, (advance, strokes) in enumerate(read_jhf(hershey / "futural.jhf")[:95]):
        code = 32 + i
        strokes, advance = western(strokes, advance, chr(code).isdigit())
        if code == ord("?"):
            advance = math.ceil(QUESTION_ADVANCE)
        glyphs[code] = shape_code.shape(to_units(strokes), advance)
    for code, (advance, text) in SYMBOLS.items():
        strokes = transform(drawing(text), HEIGHT / 21 / UNIT, HEIGHT / 21 / UNIT)
        advance = math.ceil(advance * HEIGHT / 21 / UNIT) * UNIT
        glyphs[code] = shape_code.shape(to_units(strokes), advance)
    return shape_code.small_font("Brindle TXT", TXT_NOTE, HEIGHT, 4 * UNIT, glyphs), len(glyphs)


def build_big(hanzi, hershey):
    symbols, glyphs, missing = Symbols(hershey, hanzi), {}, []
    for row, cell, character in gb2312():
        strokes = hanzi(character) if row >= 16 else symbols.glyph(row, cell, character)
        if strokes is None:
            missing.append(character)
            continue
        if row == 9:  # frames join their neighbours: the whole cell, and no grid
            strokes = transform(strokes, 0.15, 0.15, 0, -1.5)
        else:
            strokes = [simplify(s, 2.0) for s in strokes]
            strokes = to_box(fill_cell(strokes) if row >= 16 else strokes, HANZI_BOX)
            strokes = fit(straightened(strokes), HANZI_BOX)
        glyphs[160 + row, 160 + cell] = shape_code.shape(to_units(strokes), HANZI_ADVANCE)
    # The reader takes above plus below as the height of a text: below stays 0.
    return shape_code.big_font("Brindle HZTXT", HZTXT_NOTE, HEIGHT, 0, glyphs), len(glyphs), missing


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--hanzi", required=True, type=Path, help="folder of hanzi-writer-data")
    parser.add_argument("--hershey", required=True, type=Path, help="folder of the .jhf files")
    parser.add_argument("--out", required=True, type=Path, help="folder of the two fonts")
    options = parser.parse_args()
    options.out.mkdir(parents=True, exist_ok=True)
    small, count = build_small(options.hershey)
    (options.out / "TXT.SHX").write_bytes(small)
    print(f"TXT.SHX: {len(small)} bytes, {count} shapes")
    big, count, missing = build_big(Hanzi(options.hanzi), options.hershey)
    (options.out / "HZTXT.SHX").write_bytes(big)
    print(f"HZTXT.SHX: {len(big)} bytes, {count} shapes, missing: {''.join(missing) or 'none'}")


if __name__ == "__main__":
    main()
