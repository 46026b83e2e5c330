"""What the tools know about the source tree: its folders, layers and includes."""

import re
from pathlib import Path
from typing import Iterator, NamedTuple

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
SOURCE_SUFFIXES = {".h", ".hpp", ".inc", ".cpp", ".cc"}


class Include(NamedTuple):
    line: int
    quoted: bool
    path: str


def without_comments(text: str) -> str:
    """The text with its comments blanked and its lines in place; string literals are kept."""
    token = re.compile(
        r'//[^\n]*|/\*.*?(?:\*/|\Z)|R"([^()\\\s]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'',
        re.DOTALL,
    )

    def blank(match: re.Match) -> str:
        found = match.group(0)
        return "\n" * found.count("\n") if found.startswith("/") else found

    return token.sub(blank, text)


def includes_of(path: Path) -> list[Include]:
    """The include directives of a file, in their order."""
    found = []
    text = without_comments(path.read_text(encoding="utf-8", errors="replace"))
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            found.append(Include(number, match.group(1) == '"', match.group(2)))
    return found


def sources(root: Path, *folders: str) -> Iterator[Path]:
    """All C++ files under the given folders of the tree, sorted; folders that aren't there count as
    empty."""
    for folder in folders:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in SOURCE_SUFFIXES and path.is_file():
                yield path


def is_internal(path: str) -> bool:
    """Whether a header is nobody's business outside its folder."""
    return path.endswith("_internal.h")


class Layers:
    """cmake/layers.txt: folder -> the folders that it may include. `faults` has what is wrong with
    the list itself."""

    def __init__(self, path: Path, name: str):
        self.allowed: dict[str, set[str]] = {}
        self.faults: list[str] = []
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            line = line.split("#")[0].strip()
            if not line:
                continue
            place = f"{name}:{number}"
            folder, colon, neighbours = line.partition(":")
            folder = folder.strip()
            if not colon or not folder:
                self.faults.append(f"{place}: expected 'folder: neighbours'")
                continue
            if folder in self.allowed:
                self.faults.append(f"{place}: {folder} is listed twice")
            for neighbour in neighbours.split():
                # Only folders listed above: this is also what keeps the list free of cycles.
                if neighbour not in self.allowed:
                    self.faults.append(
                        f"{place}: {folder} may not include {neighbour}, which isn't listed above it"
                        " (a cycle, a wrong order or a slip)"
                    )
            self.allowed[folder] = set(neighbours.split())
