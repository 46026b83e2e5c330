"""Shape code: turns integer strokes into the byte code of the fonts and lays out the two files.

docs/formats/shx.md tells the form. Arcs (codes 10 to 13) are not used."""

import struct

# The 16 directions of vector bytes, doubled so that they are integers.
DIRECTIONS = [(2, 0), (2, 1), (2, 2), (1, 2), (0, 2), (-1, 2), (-2, 2), (-2, 1),
              (-2, 0), (-2, -1), (-2, -2), (-1, -2), (0, -2), (1, -2), (2, -2), (2, -1)]
DOWN, UP, MOVE, MOVES, END = b"\x01", b"\x02", b"\x08", b"\x09", b"\0"


def vector_bytes(dx, dy):
    """The move as vector bytes (high nibble length, low nibble direction), or None when its
    direction isn't one of the sixteen. Directions of half steps only take even lengths, so that
    the pen never leaves the integer grid."""
    for k, (ux, uy) in enumerate(DIRECTIONS):
        n = max(abs(dx), abs(dy))
        if ux * n == 2 * dx and uy * n == 2 * dy:
            most = 14 if k & 1 else 15
            out = []
            while n > 0:
                step = min(n, most)
                out.append(step << 4 | k)
                n -= step
            return bytes(out)
    return None


def single(dx, dy):
    """The shortest code for one move; of two alike, the one that is a single step."""
    vectors = vector_bytes(dx, dy)
    if vectors is not None and len(vectors) <= 1:
        return vectors
    return MOVE + struct.pack("bb", dx, dy)


def run(moves):
    """The shortest code for moves in one state of the pen: single moves, or lists of code 9."""
    best = [b""] + [None] * len(moves)
    for j in range(1, len(moves) + 1):
        code = best[j - 1] + single(*moves[j - 1])
        for i in range(j - 1):
            if len(best[i]) + 3 + 2 * (j - i) < len(code):
                body = b"".join(struct.pack("bb", *move) for move in moves[i:j])
                code = best[i] + MOVES + body + b"\0\0"
        best[j] = code
    return best[-1]


def pieces(dx, dy):
    """A move in pieces that signed bytes can hold."""
    count = max(1, -(-max(abs(dx), abs(dy)) // 127))
    done, out = (0, 0), []
    for i in range(1, count + 1):
        to = (dx * i // count, dy * i // count)
        out.append((to[0] - done[0], to[1] - done[1]))
        done = to
    return out


def shape(strokes, advance):
    """The data of a glyph: an empty name, each stroke reached with the pen up and drawn with the pen
    down, and at last the way, pen up, to (advance, 0). No state of the pen is taken for granted."""
    out, at, state = b"\0", (0, 0), None

    def go(points, wanted):
        nonlocal out, at, state
        moves = []
        for point in points:
            if point != at:
                moves += pieces(point[0] - at[0], point[1] - at[1])
            at = point
        if moves:
            out += (wanted if state != wanted else b"") + run(moves)
            state = wanted
    for stroke in strokes:
        go(stroke[:1], UP)
        go(stroke[1:], DOWN)
    go([(advance, 0)], UP)
    return out + END


def description(note, above, below):
    return note.encode("ascii") + b"\0" + bytes([above, below, 0, 0])


def small_font(title, note, above, below, glyphs):
    """glyphs: {code: shape data}."""
    items = [(0, description(note, above, below))] + sorted(glyphs.items())
    out = title.encode("ascii")[:24].ljust(24) + struct.pack("<HH", 0, max(glyphs))
    out += struct.pack("<H", len(items))
    out += b"".join(struct.pack("<HH", code, len(data)) for code, data in items)
    return out + b"".join(data for _, data in items)


def big_font(title, note, above, below, glyphs):
    """glyphs: {(lead, trail): shape data}."""
    about = description(note, above, below)
    out = title.encode("ascii")[:25].ljust(25)
    out += struct.pack("<HH", 8, len(glyphs) + 1)  # size and count of the records
    out += struct.pack("<HHH", 1, 0xA1, 0xFE)  # one range of lead bytes
    at = len(out) + 8 * (len(glyphs) + 1)
    out += struct.pack("<HHI", 0, len(about), at)
    at += len(about)
    for (lead, trail), data in sorted(glyphs.items()):
        out += struct.pack("<BBHI", trail, lead, len(data), at)
        at += len(data)
    return out + about + b"".join(data for _, data in sorted(glyphs.items()))
