#!/usr/bin/python3
"""Checks the includes of the tree against cmake/layers.txt.

Fails, with file:line, when a folder of brindle/ includes a folder that isn't listed for it or isn't
listed itself, when a toolkit header is included outside the backend and its users, and when a header or
source breaks one of the include habits that the build relies on. Usage: check_layers.py [ROOT]
"""

import re
import sys
from pathlib import Path

from source_tree import Layers, includes_of, is_internal, sources

TOOLKIT = re.compile(r"(Q[A-Z][A-Za-z0-9]*|Qt[A-Z][A-Za-z0-9]*/.+|q[a-z0-9]+\.h)")
TOOLKIT_FOLDERS = ("brindle/platform/qt", "tests/platform/qt", "tests/apps", "tests/package", "apps",
                   "examples", "benchmarks")
# They cost every user of a public header more than the header itself.
HEAVY = {"filesystem", "format", "iostream", "regex"}
UMBRELLA = "brindle/brindle.h"


def inside(path: str, folder: str) -> bool:
    return path.startswith(folder + "/")


def layer_fault(folder: str, target: str, layers: Layers) -> str:
    """Why brindle/<folder> may not include the header `target`, or nothing."""
    if target == UMBRELLA:
        return "the umbrella header is for users of the library"
    if not inside(target, "brindle"):
        return f'"{target}" is not a path from the root of the tree'
    other = str(Path(target).parent.relative_to("brindle"))
    if other == folder or other in layers.allowed.get(folder, ()):
        return ""
    if other not in layers.allowed:
        return f"brindle/{other} is not in cmake/layers.txt"
    return f"{folder} may not include {other}"


def check_file(root: Path, path: Path, layers: Layers) -> list[str]:
    name = path.relative_to(root).as_posix()
    folder = path.parent.relative_to(root).as_posix()
    in_library = inside(name, "brindle") and name != UMBRELLA
    public = in_library and path.suffix == ".h" and not is_internal(name)
    may_use_toolkit = any(inside(name, allowed) for allowed in TOOLKIT_FOLDERS)
    includes = includes_of(path)
    faults = []
    for include in includes:
        place = f"{name}:{include.line}"
        if TOOLKIT.fullmatch(include.path) and not may_use_toolkit:
            faults.append(f"{place}: toolkit header {include.path} outside the backend")
        elif in_library and include.quoted:
            fault = layer_fault(folder.removeprefix("brindle/"), include.path, layers)
            if fault:
                faults.append(f"{place}: {fault}")
        if public and not include.quoted and include.path in HEAVY:
            faults.append(f"{place}: <{include.path}> in a public header")
        if public and is_internal(include.path):
            faults.append(f"{place}: a public header includes {include.path}, which isn't installed")
    own_header = path.with_suffix(".h")
    if in_library and path.suffix == ".cpp" and own_header.exists():
        own = own_header.relative_to(root).as_posix()
        if not includes or includes[0].path != own:
            line = includes[0].line if includes else 1
            faults.append(f'{name}:{line}: the first include must be "{own}"')
    return faults


def check(root: Path) -> list[str]:
    """All faults of the tree, one line each."""
    layers = Layers(root / "cmake/layers.txt", "cmake/layers.txt")
    faults = list(layers.faults)
    for path in sources(root, "brindle"):
        folder = path.parent.relative_to(root / "brindle").as_posix()
        name = path.relative_to(root).as_posix()
        if folder not in layers.allowed and name != UMBRELLA:
            faults.append(f"{name}:1: folder {folder} is not in cmake/layers.txt")
    for path in sources(root, "brindle", "apps", "examples", "tests", "benchmarks", "fuzz"):
        faults += check_file(root, path, layers)
    return faults


def main() -> int:
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent).resolve()
    faults = check(root)
    for fault in faults:
        print(fault)
    count = len(list(sources(root, "brindle")))
    print(f"layers: {len(faults)} faults in {count} files" if faults else f"layers: {count} files")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
