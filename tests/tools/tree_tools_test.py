"""The layer checker and the umbrella tool, on small made-up trees."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools"
sys.path.insert(0, str(TOOLS))

import check_layers  # noqa: E402

LAYERS = "# a comment\nbase:\ngeometry: base\nplatform/qt: base\n"
UMBRELLA = "#pragma once\n// umbrella: begin\n// umbrella: end\nusing namespace brindle;\n"


class MadeUpTree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.put("cmake/layers.txt", LAYERS)
        self.put("brindle/base/text.h", "#pragma once\n#include <string>\n")

    def put(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def tool(self, name, *arguments):
        return subprocess.run([sys.executable, "-B", TOOLS / name, *arguments, self.root],
                              capture_output=True, text=True, check=False,
                              env=dict(os.environ, PYTHONDONTWRITEBYTECODE="1"))


class Layers(MadeUpTree):
    def test_an_include_is_judged_by_its_folder(self):
        cases = [  # file, its text, what the fault line says; "" for none
            ("geometry/a.h", '#include "brindle/base/text.h"', ""),
            ("geometry/a.h", '#include "brindle/geometry/b.h"', ""),
            ("base/a.cpp", '\n#include "brindle/geometry/b.h"', "brindle/base/a.cpp:2: base may not"),
            ("base/a.cpp", '#  include  "brindle/geometry/b.h" // c', "a.cpp:1: base may not include"),
            ("base/a.cpp", '// #include "brindle/geometry/b.h"', ""),
            ("base/a.cpp", '/*\n#include "brindle/geometry/b.h"\n*/', ""),
            ("base/a.cpp", '/* */\n\n#include "brindle/geometry/b.h"', "a.cpp:3:"),
            ("base/a.cpp", 'auto s = "/*";\n#include "brindle/geometry/b.h"', "a.cpp:2:"),
            ("geometry/a.h", '#include "brindle/geometry/deep/b.h"', "geometry/deep is not in"),
            ("geometry/a.h", '#include "b.h"', '"b.h" is not a path from the root'),
            ("geometry/a.h", '#include "../base/text.h"', "is not a path from the root"),
            ("geometry/a.h", '#include "brindle/brindle.h"', "umbrella header is for users"),
            ("mesh/a.h", "#pragma once", "brindle/mesh/a.h:1: folder mesh is not in"),
            ("stray.h", "#pragma once", "brindle/stray.h:1: folder . is not in"),
            ("geometry/a.h", "#include <QString>", "a.h:1: toolkit header QString"),
            ("geometry/a.h", "#include <QtGui/qimage.h>", "toolkit header QtGui/qimage.h"),
            ("geometry/a.h", "#include <qglobal.h>", "toolkit header qglobal.h"),
            ("platform/qt/a.h", "#include <QString>", ""),
            ("platform/qt/a.h", '#include "brindle/geometry/b.h"', "platform/qt may not include"),
            ("geometry/a.h", "#include <quadmath.h>\n", "toolkit header quadmath.h"),
            ("geometry/a.h", "#include <queue>", ""),
            ("geometry/a.h", "#include <filesystem>", "<filesystem> in a public header"),
            ("geometry/a.cpp", "#include <filesystem>", ""),
            ("geometry/a_internal.h", "#include <regex>", ""),
            ("geometry/a.h", '#include "brindle/base/b_internal.h"', "isn't installed"),
            ("geometry/a.cpp", '#include "brindle/base/b_internal.h"', ""),
            ("base/text.cpp", '#include <string>\n#include "brindle/base/text.h"',
             'text.cpp:1: the first include must be "brindle/base/text.h"'),
            ("base/text.cpp", '#include "brindle/base/text.h"\n#include <string>', ""),
        ]
        for name, text, expected in cases:
            with self.subTest(name=name, text=text):
                self.put("brindle/" + name, text)
                faults = check_layers.check(self.root)
                if expected:
                    self.assertEqual(1, len(faults), faults)
                    self.assertIn(expected, faults[0])
                else:
                    self.assertEqual([], faults)
                (self.root / "brindle" / name).unlink()

    def test_toolkit_headers_outside_the_library(self):
        for folder, allowed in [("tests/platform/qt", True), ("tests/geometry", False),
                                ("apps/viewer", True), ("fuzz", False), ("benchmarks", True)]:
            with self.subTest(folder=folder):
                self.put(folder + "/a.cpp", "#include <QImage>\n")
                self.assertEqual(allowed, not check_layers.check(self.root))
                (self.root / folder / "a.cpp").unlink()

    def test_the_list_itself(self):
        cases = [
            ("base: geometry\ngeometry: base\n", "layers.txt:1: base may not include geometry"),
            ("base: base\n", "layers.txt:1: base may not include base"),
            ("base:\ngeometry: bsae\n", "layers.txt:2: geometry may not include bsae"),
            ("base:\nbase:\n", "layers.txt:2: base is listed twice"),
            ("base\n", "layers.txt:1: expected"),
        ]
        for text, expected in cases:
            with self.subTest(text=text):
                self.put("cmake/layers.txt", text)
                self.assertIn(expected, "\n".join(check_layers.check(self.root)))

    def test_exit_status(self):
        self.assertEqual(0, self.tool("check_layers.py").returncode)
        self.put("brindle/base/a.cpp", '#include "brindle/geometry/b.h"\n')
        run = self.tool("check_layers.py")
        self.assertEqual(1, run.returncode)
        self.assertIn("brindle/base/a.cpp:1: ", run.stdout)

    def test_an_empty_tree_is_no_success(self):
        (self.root / "brindle/base/text.h").unlink()
        self.assertEqual(1, self.tool("check_layers.py").returncode)


class Umbrella(MadeUpTree):
    def test_lists_public_headers_from_the_bottom_up(self):
        self.put("brindle/brindle.h", UMBRELLA)
        for name in ["geometry/b.h", "geometry/a.h", "geometry/c_internal.h", "platform/qt/q.h"]:
            self.put("brindle/" + name, "#pragma once\n")
        self.assertEqual(1, self.tool("umbrella.py", "--check").returncode)
        self.assertEqual(0, self.tool("umbrella.py").returncode)
        text = (self.root / "brindle/brindle.h").read_text(encoding="utf-8")
        self.assertEqual(
            '#pragma once\n// umbrella: begin\n#include "brindle/base/text.h"\n\n'
            '#include "brindle/geometry/a.h"\n#include "brindle/geometry/b.h"\n'
            "// umbrella: end\nusing namespace brindle;\n", text)
        self.assertEqual(0, self.tool("umbrella.py", "--check").returncode)

    def test_names_a_header_that_is_gone(self):
        self.put("brindle/brindle.h", UMBRELLA)
        self.tool("umbrella.py")
        (self.root / "brindle/base/text.h").rename(self.root / "brindle/base/string.h")
        run = self.tool("umbrella.py", "--check")
        self.assertEqual(1, run.returncode)
        self.assertIn('to go: #include "brindle/base/text.h"', run.stdout)
        self.assertIn('missing: #include "brindle/base/string.h"', run.stdout)


if __name__ == "__main__":
    unittest.main()
