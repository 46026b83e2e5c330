"""Installs the build, moves the installed tree, and uses it as a stranger would: a program of its own
by find_package and by pkg-config. The program is the one in README.md."""

import os
import re
import shlex
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ["BRINDLE_SOURCE_DIR"])
BUILD = Path(os.environ["BRINDLE_BUILD_DIR"])
OUTSIDE = SOURCE / "tests/package/outside"
WITH_QT = re.search(r"^BRINDLE_QT:\w+=(ON|1|TRUE)$", (BUILD / "CMakeCache.txt").read_text(), re.MULTILINE)


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False,
                          **options)
    if done.returncode:
        raise AssertionError(f"{shlex.join(map(str, command))}\n{done.stdout}\n{done.stderr}")
    return done.stdout


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.work = Path(folder.name).resolve()
        run("cmake", "--install", BUILD, "--prefix", cls.work / "installed")
        cls.prefix = cls.work / "moved"
        (cls.work / "installed").rename(cls.prefix)
        cls.libdir = next(cls.prefix.glob("lib*/**/libbrindle.so")).parent

    def check_program(self, program, **options):
        """Runs the program of README.md in a folder of its own and looks at what it leaves."""
        folder = self.work / (program.name + "_ran")
        folder.mkdir()
        run(program, cwd=folder, **options)
        text = (folder / "a.dxf").read_text(encoding="ascii")
        self.assertIn("AC1015", text)
        self.assertRegex(text, r"\n *0\r?\nLINE\r?\n")
        self.assertTrue(text.rstrip().endswith("EOF"))
        lines = [line.strip() for line in text.splitlines()]
        pairs = iter(zip(lines[::2], lines[1::2]))
        readme = (SOURCE / "README.md").read_text(encoding="utf-8")
        listing = re.search(r"^```\n(  2 ENTITIES\n.*?)^```", readme, re.MULTILINE | re.DOTALL)
        for line in listing.group(1).splitlines():
            self.assertIn(tuple(line.split()), pairs, "the listing in README.md, in its order")

    def test_find_package(self):
        build = self.work / "outside"
        run("cmake", "-S", OUTSIDE, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={self.prefix}",
            f"-DWITH_QT={'ON' if WITH_QT else 'OFF'}")
        run("cmake", "--build", build)
        self.check_program(build / "outside")
        if WITH_QT:
            self.assertRegex(run(build / "outside_qt"), r"^6\.\d+\.\d+\n$")

    @unittest.skipUnless(shutil.which("pkg-config"), "no pkg-config")
    def test_pkg_config(self):
        environment = dict(os.environ, PKG_CONFIG_PATH=str(self.libdir / "pkgconfig"))
        names = {"brindle": "main.cpp", "brindle-qt": "qt_main.cpp"}
        if not WITH_QT:
            del names["brindle-qt"]
        for name, source in names.items():
            flags = shlex.split(run("pkg-config", "--cflags", "--libs", name, env=environment))
            program = self.work / name
            run("g++", "-std=c++20", OUTSIDE / source, "-o", program, *flags, f"-Wl,-rpath,{self.libdir}")
        self.check_program(self.work / "brindle")

    def test_headers_and_libraries(self):
        headers = {path.relative_to(self.prefix / "include").as_posix()
                   for path in (self.prefix / "include").rglob("*.h")}
        included = set(re.findall(r'^#include "(.+)"$', (SOURCE / "brindle/brindle.h").read_text(),
                                  re.MULTILINE))
        self.assertLessEqual(included | {"brindle/brindle.h"}, headers)
        self.assertEqual([], [name for name in headers if name.endswith("_internal.h")])
        needed = run("readelf", "--dynamic", self.libdir / "libbrindle.so")
        self.assertNotRegex(needed, r"NEEDED.*Qt", "the library must run without the toolkit")

    def test_readme_has_the_program(self):
        program = (OUTSIDE / "main.cpp").read_text(encoding="utf-8")
        self.assertIn(f"```cpp\n{program}```", (SOURCE / "README.md").read_text(encoding="utf-8"))


if __name__ == "__main__":
    unittest.main()
