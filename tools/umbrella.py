#!/usr/bin/python3
"""Keeps the include list of brindle/brindle.h: every public header of every layer but the toolkit's.

Usage: umbrella.py [--check] [ROOT]. Without --check the list is rewritten; with it, a public header
that isn't in the list, or a line that shouldn't be, is a fault.
"""

import sys
from pathlib import Path

from source_tree import Layers, is_internal

BEGIN = "// umbrella: begin\n"
END = "// umbrella: end\n"
LEFT_OUT = {"platform/qt"}  # a program without the toolkit includes brindle.h too


def public_headers(root: Path) -> list[list[str]]:
    """The public headers, a list for each layer, the lowest first."""
    layers = []
    for folder in Layers(root / "cmake/layers.txt", "cmake/layers.txt").allowed:
        if folder in LEFT_OUT:
            continue
        names = [path.relative_to(root).as_posix()
                 for path in (root / "brindle" / folder).glob("*.h")]
        # In the formatter's order, so that it leaves the list alone.
        headers = sorted((name for name in names if not is_internal(name)), key=str.lower)
        if headers:
            layers.append(headers)
    return layers


def rewritten(text: str, layers: list[list[str]]) -> str:
    """The umbrella header's text with its list replaced."""
    before, begin, rest = text.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        raise SystemExit("brindle/brindle.h: the lines 'umbrella: begin' and 'umbrella: end' are gone")
    blocks = ["".join(f'#include "{header}"\n' for header in headers) for headers in layers]
    return before + begin + "\n".join(blocks) + end + after


def main() -> int:
    arguments = sys.argv[1:]
    check = "--check" in arguments
    roots = [argument for argument in arguments if argument != "--check"]
    root = Path(roots[0] if roots else Path(__file__).parent.parent).resolve()
    path = root / "brindle/brindle.h"
    layers = public_headers(root)
    text = path.read_text(encoding="utf-8")
    wanted = rewritten(text, layers)
    if check:
        have, want = set(text.splitlines()), set(wanted.splitlines())
        for line in sorted(want - have):
            print(f"brindle/brindle.h:1: missing: {line}")
        for line in sorted(have - want):
            print(f"brindle/brindle.h:1: to go: {line}")
        if wanted != text:
            print("brindle/brindle.h:1: the list is out of date, run ./dev umbrella")
            return 1
    elif wanted != text:
        path.write_text(wanted, encoding="utf-8")
    print(f"umbrella: {sum(map(len, layers))} headers")
    return 0


if __name__ == "__main__":
    sys.exit(main())
