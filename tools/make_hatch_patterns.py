"""Writes assets/hatches/brindle.pat, the library's own hatch patterns.

A pattern is a list of families of parallel lines. Those with straight lines through are stated as
such; those made of little figures (triangles, pebbles, tufts) are drawn on a grid that repeats as a
square cell, and each stroke becomes a family of its own.
"""

import math
from pathlib import Path

HEADER = """\
;; Hatch patterns of brindle, for millimetres on paper: a hatch's scale is the number of drawing
;; units that one millimetre stands for.
;;
;; Licence: the definitions are brindle's own and may be used under the project's licence.
;;
;; Form: "*NAME,description", then a line for each family of parallel lines:
;;   angle, x, y, dx, dy, dashes
;; (x, y) is a point of the first line. The next line lies dx further along the lines and dy to
;; their left. A dash above 0 is drawn, below 0 is a gap, 0 is a dot; without dashes the lines run
;; through. Angles are degrees. A line of two semicolons is a comment.
;;
;; Made by tools/make_hatch_patterns.py.
"""


def number(value):
    text = f"{value:.6f}".rstrip("0").rstrip(".")
    return "0" if text in ("", "-0") else text


def family(angle, x, y, dx, dy, *dashes):
    return ",".join(number(value) for value in (angle, x, y, dx, dy, *dashes))


def lines(angle, spacing, first=0.0):
    """Lines through, the first one so far to the right of the origin (seen along them)."""
    turn = math.radians(angle)
    return family(angle, first * math.sin(turn), -first * math.cos(turn), 0, spacing)


def lattice(cell, x, y, dx, dy, drawn, *more):
    """A stroke from (x, y) in the direction of the whole numbers (dx, dy), once in each cell."""
    shared = math.gcd(dx, dy)
    q, p = dx // shared, dy // shared
    length = math.hypot(q, p)
    # A whole step (m, n) to the next line on the left: q n - p m = 1.
    m, n = next((m, n) for m in range(-abs(q) - 1, abs(q) + 2) for n in range(-abs(p) - 1, abs(p) + 2)
                if q * n - p * m == 1)
    along = math.fmod(cell * (q * m + p * n) / length, cell * length)
    rest = cell * length - drawn - sum(abs(dash) for dash in more)
    return family(math.degrees(math.atan2(p, q)), x, y, along, cell / length, drawn, *more, -rest)


class Cell:
    """Strokes on a grid of whole numbers that repeats every `size` units of `unit` millimetres."""

    def __init__(self, size, unit):
        self.size, self.unit, self.families = size, unit, []

    def path(self, points, closed=False):
        ends = points[1:] + points[:1] if closed else points[1:]
        for (x1, y1), (x2, y2) in zip(points, ends):
            self.families.append(lattice(
                self.size * self.unit, x1 * self.unit, y1 * self.unit, x2 - x1, y2 - y1,
                math.hypot(x2 - x1, y2 - y1) * self.unit))
        return self

    def paths(self, *paths, closed=False):
        for points in paths:
            self.path(points, closed)
        return self

    def dots(self, *points):
        for x, y in points:
            self.families.append(
                lattice(self.size * self.unit, x * self.unit, y * self.unit, 1, 0, 0))
        return self


def strokes(dx, dy, *starts):
    return [[(x, y), (x + dx, y + dy)] for x, y in starts]


AGGREGATE = (
    Cell(24, 1)
    .paths([(2, 3), (5, 4), (3, 6)], [(13, 1), (16, 2), (14, 4)], [(8, 9), (9, 12), (6, 11)],
           [(19, 8), (22, 7), (21, 10)], [(3, 16), (6, 15), (5, 18)], [(13, 15), (15, 17), (12, 18)],
           [(20, 18), (22, 20), (19, 21)], [(8, 21), (11, 21), (9, 23)], closed=True)
    .dots((1, 8), (4, 10), (5, 1), (7, 6), (9, 2), (10, 14), (11, 7), (13, 10), (15, 6), (16, 13),
          (18, 4), (19, 14), (21, 2), (23, 13), (2, 21), (6, 20), (9, 18), (13, 21), (16, 20),
          (17, 10), (23, 16), (1, 13)).families)

PEBBLES = (
    Cell(16, 1)
    .paths([(1, 1), (4, 0), (6, 2), (5, 4), (2, 4)], [(8, 1), (11, 1), (12, 3), (10, 5), (8, 4)],
           [(0, 7), (3, 6), (5, 8), (4, 10), (1, 10)], [(7, 7), (9, 6), (12, 7), (12, 9), (8, 10)],
           [(14, 5), (15, 7), (14, 9), (13, 7)], [(2, 12), (5, 12), (6, 14), (3, 15)],
           [(8, 12), (11, 11), (13, 13), (11, 15), (9, 15)], closed=True).families)

SQRT3 = math.sqrt(3)

PATTERNS = [
    ("Lines", [
        ("LINE", "Parallel lines", [lines(0, 3)]),
        ("DASH", "Dashed lines", [family(0, 0, 0, 3, 3, 3, -3)]),
        ("DOTS", "Dots", [family(0, 0, 0, 1.5, 1.5, 0, -3)]),
        ("CROSS", "Small crosses", [family(0, 0, 0, 4, 4, 2, -6), family(90, 1, -1, 4, 4, 2, -6)]),
        ("NET", "Square net", [lines(0, 3), lines(90, 3)]),
        ("NET3", "Net of triangles", [lines(0, 4), lines(60, 4), lines(120, 4)]),
        ("HONEY", "Honeycomb", [family(0, 0, 0, 4.5, 1.5 * SQRT3, 3, -6),
                                family(120, 0, 0, 4.5, 1.5 * SQRT3, 3, -6),
                                family(60, 3, 0, 4.5, 1.5 * SQRT3, 3, -6)]),
    ]),
    ("Section lines of the materials", [
        ("ANSI31", "Iron, brick, masonry in general", [lines(45, 3)]),
        ("ANSI32", "Steel", [lines(45, 9), lines(45, 9, 3)]),
        ("ANSI33", "Bronze, brass, copper",
         [lines(45, 6), family(45, 3 / math.sqrt(2), -3 / math.sqrt(2), 0, 6, 3, -1.5)]),
        ("ANSI34", "Plastic, rubber", [lines(45, 18, 3 * i) for i in range(4)]),
        ("ANSI35", "Fire brick, refractories",
         [lines(45, 6),
          family(45, 3 / math.sqrt(2), -3 / math.sqrt(2), 0, 6, 7.5, -1.5, 0, -1.5)]),
        ("ANSI36", "Marble, slate, glass", [family(45, 0, 0, 5.25, 3, 7.5, -1.5, 0, -1.5)]),
        ("ANSI37", "Lead, zinc, insulation", [lines(45, 3), lines(135, 3)]),
        ("ANSI38", "Aluminium", [lines(45, 3), family(135, 0, 0, 6, 3, 7.5, -4.5)]),
        ("STEEL", "Steel in section", [lines(45, 4), lines(45, 4, 1)]),
        ("GLASS", "Glass", [lattice(15, 0, 0, 1, 1, 6), lattice(15, 0, 1.5, 1, 1, 3),
                            lattice(15, 7.5, 7.5, 1, 1, 6), lattice(15, 7.5, 9, 1, 1, 3)]),
    ]),
    ("Masonry", [
        ("BRICK", "Brickwork, half-brick bond", [lines(0, 6), family(90, 0, 0, 6, 12, 6, -6)]),
        ("BRICKSEC", "Brickwork in section", [lines(45, 4)]),
        ("BLOCK", "Blockwork", [lines(0, 10), family(90, 0, 0, 10, 10, 10, -10)]),
        ("TILE", "Square tiles", [lines(0, 10), lines(90, 10)]),
        ("STONE", "Squared stone", Cell(24, 1).paths(
            *([(0, y), (24, y)] for y in (0, 7, 12, 19)),
            *([(x, 0), (x, 7)] for x in (3, 14)), *([(x, 7), (x, 12)] for x in (0, 9, 18)),
            *([(x, 12), (x, 19)] for x in (5, 16)),
            *([(x, 19), (x, 24)] for x in (1, 11, 20))).families),
        ("RUBBLE", "Rubble", PEBBLES),
    ]),
    ("Concrete and mortar", [
        ("CONCRETE", "Plain concrete", AGGREGATE),
        ("RCONCRETE", "Reinforced concrete", [lines(45, 6 * math.sqrt(2)), *AGGREGATE]),
        ("MORTAR", "Mortar, plaster", Cell(10, 1).dots(
            (1, 2), (4, 1), (7, 3), (9, 6), (2, 5), (5, 4), (3, 8), (6, 7), (8, 9)).families),
    ]),
    ("Ground", [
        ("EARTH", "Earth", [
            *(family(0, 0, y, 6, 6, 6, -6) for y in (0.75, 3, 5.25)),
            *(family(90, x, 0, 6, 6, 6, -6) for x in (6.75, 9, 11.25))]),
        ("SOIL", "Natural soil", Cell(20, 1).paths(
            *strokes(5, 5, (0, 0), (2, 0), (4, 0), (10, 10), (12, 10), (14, 10)),
            *strokes(-5, 5, (13, 0), (15, 0), (3, 10), (5, 10))).families),
        ("SAND", "Sand", Cell(12, 1).dots(
            (0, 1), (3, 0), (5, 2), (8, 1), (10, 3), (1, 4), (4, 5), (7, 4), (9, 6), (11, 5),
            (2, 7), (5, 8), (8, 9), (11, 8), (0, 10), (3, 10), (6, 11), (9, 11)).families),
        ("GRAVEL", "Gravel", PEBBLES + Cell(16, 1).dots(
            (7, 0), (13, 1), (6, 5), (14, 11), (6, 10), (15, 3), (1, 13), (7, 14), (14, 14),
            (10, 0)).families),
        ("CLAY", "Clay", [lines(0, 6), family(0, 0, 2, 5, 6, 5, -5)]),
        ("ROCK", "Rock", Cell(16, 1).paths(
            [(0, 0), (5, 0), (8, 3), (5, 8), (0, 8)], [(8, 3), (14, 2), (16, 0)],
            [(5, 8), (9, 12), (15, 11), (16, 8)], [(9, 12), (7, 16)]).families),
        ("GRASS", "Grass", Cell(20, 1).paths(
            *([[(x, y), (x, y + 4)], [(x, y), (x - 2, y + 3)], [(x, y), (x + 2, y + 3)]][i]
              for x, y in ((4, 2), (14, 12), (15, 3), (5, 13)) for i in range(3))).families),
        ("WATER", "Water", Cell(24, 1).paths(
            *strokes(12, 0, (0, 0), (12, 12)), *strokes(7, 0, (2, 2), (15, 14)),
            *strokes(3, 0, (4, 4), (17, 16))).families),
    ]),
    ("Other materials", [
        ("WOOD", "Wood, along the grain", [
            family(0, 0, 0, 9, 6, 24, -3), family(0, 4, 2, -7, 6, 15, -2, 8, -2),
            family(0, 9, 3.5, 5, 6, 20, -7)]),
        ("INSUL", "Insulation", [*Cell(8, 1).path([(0, 0), (2, 6), (4, 0), (6, 6), (8, 0)]).families,
                                 lines(0, 8, 1)]),
        ("CORK", "Cork", [lines(0, 3), *Cell(6, 1).paths(
            [(1, 0), (0, 3)], [(4, 3), (3, 6)]).families]),
        ("GRATE", "Grating", [lines(0, 1), lines(90, 6)]),
    ]),
]


def main():
    parts = [HEADER]
    for title, patterns in PATTERNS:
        parts.append(f"\n;; --- {title.lower()}\n")
        for name, description, families in patterns:
            parts.append(f"*{name},{description}\n")
            parts.extend(line + "\n" for line in families)
    target = Path(__file__).resolve().parent.parent / "assets" / "hatches" / "brindle.pat"
    target.write_text("".join(parts), encoding="ascii")


if __name__ == "__main__":
    main()
