"""Fits glyphs to a grid of pixels, so that their strokes stay apart in small sizes.

Everything here counts in pixels of the smallest size that must be legible; the device draws lines
of one pixel without smoothing, and leaves the last pixel of a line out.
"""

import math
from typing import NamedTuple

SAME_LEVEL = 0.45  # segments closer than this are one line
SHORTEST, STEEPEST = 1.2, 0.15  # a segment that counts as a line: length, slope
OVERLAP = 0.3  # how far two lines must run beside each other to need a gap
# Grid and distance of neighbouring lines. Two pixels leave one free between them; glyphs of too
# many lines for that get the widest of the distances that they have room for.
GRIDS = ((1, 2), (0.5, 1.5), (0.25, 1.25), (0.25, 1), (0.25, 0.75), (0.25, 0.5))


class Level(NamedTuple):
    """Parallel segments at about one coordinate: the spans that they cover, and their corners."""
    at: float
    spans: list
    corners: set

    def beside(self, other):
        return any(min(b, d) - max(a, c) > OVERLAP for a, b in self.spans for c, d in other.spans)


def levels(strokes, axis):
    """The lines of a glyph along the other axis, in order."""
    segments = []
    for stroke in strokes:
        for p, q in zip(stroke, stroke[1:]):
            length, off = abs(q[1 - axis] - p[1 - axis]), abs(q[axis] - p[axis])
            if length > SHORTEST and off < min(SAME_LEVEL, length * STEEPEST):
                segments.append(((p[axis] + q[axis]) / 2, p, q))
    segments.sort()
    found = []
    for at, p, q in segments:
        if not found or at - found[-1].at >= SAME_LEVEL:
            found.append(Level(at, [], set()))
        found[-1].spans.append(sorted((p[1 - axis], q[1 - axis])))
        found[-1].corners.update((p, q))
    return found


def place(lines, low, high):
    """Coordinates for the lines, each near its own, on the grid, far enough from each other."""
    count = len(lines)
    for step, gap in GRIDS:
        need = [[gap if j > i and lines[i].beside(lines[j]) else 0 for j in range(count)]
                for i in range(count)]
        least, most = [low] * count, [high] * count
        for i in range(count):
            least[i] = max([low] + [least[k] + need[k][i] for k in range(i)])
        for i in reversed(range(count)):
            most[i] = min([high] + [most[k] - need[i][k] for k in range(i + 1, count)])
        if any(a > b for a, b in zip(least, most)):
            continue

        def nearest(i, a, b):
            return min(max(math.floor(lines[i].at / step + 0.5) * step, a), b)
        up, down = [0.0] * count, [0.0] * count
        for i in range(count):
            up[i] = nearest(i, max([low] + [up[k] + need[k][i] for k in range(i)]), most[i])
        for i in reversed(range(count)):
            down[i] = nearest(i, least[i],
                              min([high] + [down[k] - need[i][k] for k in range(i + 1, count)]))
        # The mean of two solutions is one, and rounding all of it down keeps the distances.
        return [math.floor((a + b) / 2 / step + 0.25) * step for a, b in zip(up, down)]
    return [line.at for line in lines]


def warp(strokes, axis, low, high):
    """Moves the lines across `axis` to their places, and all between them in proportion."""
    lines = levels(strokes, axis)
    places = place(lines, low, high)
    values = sorted({p[axis] for s in strokes for p in s})
    anchors = [(line.at, to) for line, to in zip(lines, places)]
    if not anchors:  # curves and slants only: nothing to keep apart
        anchors = [(v, min(max(v, low), high)) for v in (values[0], values[-1])]
    # Beyond the outer lines everything goes along with them, as far as the grid reaches.
    (first, to_first), (last, to_last) = anchors[0], anchors[-1]
    anchors.insert(0, (values[0], max(low, min(to_first, values[0] + to_first - first))))
    anchors.append((values[-1], min(high, max(to_last, values[-1] + to_last - last))))

    moved = {p: between(anchors, p[axis]) for s in strokes for p in s}
    for line, to in zip(lines, places):
        moved.update((corner, to) for corner in line.corners)
    return [[tuple(moved[p] if k == axis else c for k, c in enumerate(p)) for p in s]
            for s in strokes]


def between(anchors, v):
    """The value at v of the broken line through the anchors."""
    for (a, to_a), (b, to_b) in zip(anchors, anchors[1:]):
        if v <= b:
            return to_b if b - a < 1e-9 else to_a + (to_b - to_a) * (v - a) / (b - a)
    return anchors[-1][1]


def fit(strokes, box):
    """The glyph on the grid of the box (left, bottom, right, top)."""
    if not strokes:
        return strokes
    left, bottom, right, top = box
    return warp(warp(strokes, 1, bottom, top), 0, left, right)


def round_pixel(v):
    """The pixel that a coordinate is drawn in."""
    return math.trunc(2 * v) - math.trunc(v)


def line_pixels(a, b):
    """The pixels of a line without its last one."""
    (x0, y0), (x1, y1) = a, b
    n = max(abs(x1 - x0), abs(y1 - y0))
    return [(x0 + round_pixel((x1 - x0) * k / n), y0 + round_pixel((y1 - y0) * k / n))
            for k in range(n)]


def stroke_pixels(stroke, unit):
    points = [(round_pixel(x / unit + 50), round_pixel(y / unit + 50)) for x, y in stroke]
    return [p for a, b in zip(points, points[1:]) for p in line_pixels(a, b)], points[-1]


def show_ends(strokes, unit):
    """Lengthens the strokes (in font units, `unit` a pixel) whose last pixel no other stroke draws
    by the little more than half a pixel that makes the device draw it."""
    out = []
    drawn = [stroke_pixels(s, unit) for s in strokes]
    for i, s in enumerate(strokes):
        pixels, end = drawn[i]
        if any(end in other for other, _ in drawn[:i] + drawn[i + 1:]) or end in pixels:
            out.append(s)
            continue
        (ax, ay), (bx, by) = s[-2], s[-1]
        dx, dy = bx - ax, by - ay
        most = max(abs(dx), abs(dy))
        for reach in range(unit // 2 + 1, unit + 2):
            longer = s[:-1] + [(bx + round(dx * reach / most), by + round(dy * reach / most))]
            pixels, _ = stroke_pixels(longer, unit)
            if end in pixels:
                break
        out.append(longer)
        drawn[i] = (pixels, None)
    return out

