"""Geometry on strokes (a glyph is a list of polylines of (x, y) points, y upwards)."""
import math


def simplify(points, tol):
    """Douglas-Peucker: drop points that lie within tol of the chord."""
    if len(points) < 3:
        return list(points)
    keep = [False] * len(points)
    keep[0] = keep[-1] = True
    todo = [(0, len(points) - 1)]
    while todo:
        a, b = todo.pop()
        (ax, ay), (bx, by) = points[a], points[b]
        dx, dy = bx - ax, by - ay
        ll = dx * dx + dy * dy
        worst, at = tol, -1
        for i in range(a + 1, b):
            px, py = points[i]
            if ll == 0:
                d = math.hypot(px - ax, py - ay)
            else:
                t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / ll))
                d = math.hypot(px - ax - t * dx, py - ay - t * dy)
            if d > worst:
                worst, at = d, i
        if at >= 0:
            keep[at] = True
            todo += [(a, at), (at, b)]
    return [p for p, k in zip(points, keep) if k]


def quantise(strokes):
    """Round to integer units; drop repeated points and points inside a straight run."""
    out = []
    for s in strokes:
        q = []
        for x, y in s:
            p = (int(math.floor(x + 0.5)), int(math.floor(y + 0.5)))
            if not q or q[-1] != p:
                q.append(p)
        i = 1
        while i < len(q) - 1:
            (ax, ay), (bx, by), (cx, cy) = q[i - 1], q[i], q[i + 1]
            cross = (bx - ax) * (cy - by) - (by - ay) * (cx - bx)
            dot = (bx - ax) * (cx - bx) + (by - ay) * (cy - by)
            if cross == 0 and dot > 0:
                del q[i]
            else:
                i += 1
        if len(q) == 1:                       # a dot: make it visible
            q.append((q[0][0] + 1, q[0][1]))
        if q:
            out.append(q)
    return out


def transform(strokes, sx=1.0, sy=1.0, tx=0.0, ty=0.0):
    return [[(x * sx + tx, y * sy + ty) for x, y in s] for s in strokes]


def bounds(strokes):
    xs = [p[0] for s in strokes for p in s]
    ys = [p[1] for s in strokes for p in s]
    return min(xs), min(ys), max(xs), max(ys)


def level(strokes):
    """Undo the upward slope of brush-style horizontals with a y-shear.

    The slope is the length-weighted median slope of the near-horizontal segments.
    A y-shear levels them all while verticals stay vertical and every crossing
    stays a crossing, so the structure of the character cannot be damaged."""
    seg = []
    for s in strokes:
        a, b = s[0], s[-1]
        for (ax, ay), (bx, by) in zip(s, s[1:]):
            dx, dy = bx - ax, by - ay
            if dx > 12 and abs(dy) < 0.25 * dx:      # units of a 100-unit cell
                seg.append((dy / dx, dx))
    if not seg:
        return strokes
    seg.sort()
    half, acc, k = sum(w for _, w in seg) / 2, 0.0, 0.0
    for slope, w in seg:
        acc += w
        if acc >= half:
            k = slope
            break
    k = max(-0.05, min(0.20, k))
    return [[(x, y - k * (x - 50)) for x, y in s] for s in strokes]


def straighten(strokes, ratio=0.12, upright_ratio=0.18):
    """Make almost horizontal / vertical segments exactly so (moves their end points)."""
    out = []
    for s in strokes:
        s = [list(p) for p in s]
        for a, b in zip(s, s[1:]):
            dx, dy = b[0] - a[0], b[1] - a[1]
            if dx > 12 and abs(dy) < ratio * dx:          # a left-going stroke is a "pie": leave it
                m = (a[1] + b[1]) / 2
                if a is s[0] and b is not s[-1]:
                    m = b[1]
                elif b is s[-1] and a is not s[0]:
                    m = a[1]
                a[1] = b[1] = m
            elif abs(dy) > 12 and abs(dx) < upright_ratio * abs(dy):
                m = (a[0] + b[0]) / 2
                if a is s[0] and b is not s[-1]:
                    m = b[0]
                elif b is s[-1] and a is not s[0]:
                    m = a[0]
                a[0] = b[0] = m
        out.append([tuple(p) for p in s])
    return out


def trim(strokes, longest=12.0, least=10.0, most=75.0):
    """Remove the short oblique ticks a brush leaves at the start and the end of a stroke:
    an end segment shorter than `longest`, at most half as long as its neighbour, that
    turns by `least`..`most` degrees.  Sharper turns are hooks, which belong to the character.
    The neighbour is extended by the tick's length along its own direction."""
    out = []
    for s in strokes:
        for _ in range(2):                    # once per end, by reversing
            s = s[::-1]
            if len(s) < 3:
                continue
            (ax, ay), (bx, by), (cx, cy) = s[:3]
            ux, uy, vx, vy = bx - ax, by - ay, cx - bx, cy - by
            lu, lv = math.hypot(ux, uy), math.hypot(vx, vy)
            if lu == 0 or lv == 0 or lu > longest or lu > lv / 2:
                continue
            along = (ux * vx + uy * vy) / lv
            angle = math.degrees(math.acos(max(-1.0, min(1.0, along / lu))))
            if least <= angle <= most:
                s = [(bx - vx / lv * along, by - vy / lv * along)] + list(s[2:])
        out.append(s)
    return out


def _hit(p, d, a, b):
    """Parameter t of the ray p + t*d meeting the segment a-b, or None."""
    ex, ey = b[0] - a[0], b[1] - a[1]
    det = d[0] * -ey + d[1] * ex
    if abs(det) < 1e-9:
        return None
    rx, ry = a[0] - p[0], a[1] - p[1]
    t = (rx * -ey + ry * ex) / det
    u = (d[0] * ry - d[1] * rx) / det
    return t if -0.02 <= u <= 1.02 else None


def weld(strokes, reach=5.0):
    """Close the small gaps (or cut the small overshoots) between the end of a stroke
    and another stroke: medians end inside the ink of a brush stroke, about half a
    pen width short of the stroke they touch.  Ends that already cross are left."""
    out = [[tuple(p) for p in s] for s in strokes]
    for i, s in enumerate(out):
        for end in (0, -1):
            p = s[end]
            nxt = s[1] if end == 0 else s[-2]
            d = (p[0] - nxt[0], p[1] - nxt[1])
            n = math.hypot(*d)
            if n == 0:
                continue
            d = (d[0] / n, d[1] / n)
            best = None
            for j, o in enumerate(out):
                if j == i:
                    continue
                for a, b in zip(o, o[1:]):
                    t = _hit(p, d, a, b)
                    if t is not None and 0 < t <= reach and t < n + reach and (best is None or abs(t) < abs(best[0])):
                        best = (t, (p[0] + t * d[0], p[1] + t * d[1]))
            if best is None:
                for j, o in enumerate(out):
                    if j == i:
                        continue
                    for q in (o[0], o[-1]):               # end to end (corners)
                        dist = math.hypot(p[0] - q[0], p[1] - q[1])
                        if 0 < dist <= reach and (best is None or dist < best[0]):
                            best = (dist, q)
            if best is not None and n > 3:
                s[end] = best[1]
    return out


def square_corners(strokes, reach=8.0):
    """Where an upright and a level stroke end near each other, both end at the corner between them:
    a brush starts boxes with a tick, and lets strokes overlap."""
    out = [list(s) for s in strokes]
    ends = [(i, end) for i in range(len(out)) for end in (0, -1)]

    def at(i, end):
        return out[i][end], out[i][1 if end == 0 else -2]
    for i, end in ends:
        for j, other in ends:
            if i == j or not is_level(*at(i, end)) or not is_upright(*at(j, other)):
                continue
            (ax, ay), (bx, by) = out[i][end], out[j][other]
            if abs(ax - bx) <= reach and abs(ay - by) <= reach:
                out[i][end] = out[j][other] = (bx, ay)
    return out


def is_level(a, b):
    return abs(a[1] - b[1]) < 0.1 * abs(a[0] - b[0])


def is_upright(a, b, ratio=0.1):
    return abs(a[0] - b[0]) < ratio * abs(a[1] - b[1])


def square_bends(strokes, longest=12.0):
    """Where a short slant leads from a level segment to an upright one, the two meet at a corner."""
    out = []
    for s in strokes:
        s = list(s)
        i = 1
        while i + 2 < len(s):
            a, b, c, d = s[i - 1:i + 3]
            if is_level(a, b) and is_upright(c, d, 0.3) and math.dist(b, c) <= longest:
                s[i:i + 2] = [(c[0], b[1])]
            i += 1
        out.append(s)
    return out


def square_boxes(strokes, reach=16.0):
    """A box of three strokes, its left side, its top with the right side, and its bottom, gets
    level and upright sides that end where they meet: a brush draws it tapering, with ends that
    stick out."""
    out = [list(s) for s in strokes]
    for i, left in enumerate(out[:-2]):
        top = out[i + 1]
        if len(left) > 3 or not is_upright(left[0], left[-1], 0.5):
            continue
        if not 3 <= len(top) <= 5 or not is_level(top[0], top[1]):
            continue
        if math.dist(left[0], top[0]) > reach or not is_upright(top[1], top[-1], 0.6):
            continue
        bottoms = [s for s in out[i + 2:] if len(s) == 2 and is_level(*s)
                   and math.dist(left[-1], s[0]) <= reach and math.dist(top[-1], s[1]) <= reach]
        if bottoms:
            bottom = min(bottoms, key=lambda s: s[0][1])
            x0 = (left[0][0] + left[-1][0]) / 2
            x1 = (max(p[0] for p in top) + top[-1][0]) / 2
            y0, y1 = (bottom[0][1] + min(left[-1][1], top[-1][1], bottom[0][1])) / 2, top[0][1]
            left[:] = [(x0, y1), (x0, y0)]
            top[:] = [(x0, y1), (x1, y1), (x1, y0)]
            bottom[:] = [(x0, y0), (x1, y0)]
    return out
