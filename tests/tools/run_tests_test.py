"""The counting of tests, on made-up build folders with real ctest entries."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[2] / "tools"

# Behaves as a googletest program does: leaves its report where GTEST_OUTPUT says.
PROGRAM = """#!/bin/sh
report=${GTEST_OUTPUT#xml:}$(basename "$0").xml
REPORT
exit STATUS
"""
CASES = {
    "passed": '<testcase classname="S" name="P" status="run"/>',
    "failed": '<testcase classname="S" name="F" status="run"><failure/></testcase>',
    "skipped": '<testcase classname="S" name="K" status="run"><skipped/></testcase>',
    "disabled": '<testcase classname="S" name="D" status="notrun"/>',
}
UNITTEST = """
import unittest
class T(unittest.TestCase):
    def test_a(self): pass
    def test_b(self):
        for word in "twice", "over":
            with self.subTest(word): self.assertTrue(%s)
unittest.main()
"""


class MadeUpBuild(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = Path(folder.name).resolve()
        (self.build / "CTestTestfile.cmake").write_text("")

    def add(self, name, command):
        with open(self.build / "CTestTestfile.cmake", "a", encoding="utf-8") as listing:
            quoted = " ".join(f'"{word}"' for word in command)
            listing.write(f'add_test("{name}" {quoted})\n')

    def add_program(self, name, cases=(), status=0, report=True):
        path = self.build / ("test_" + name.replace("/", "_"))
        xml = "<testsuites><testsuite>" + "".join(CASES[case] for case in cases)
        xml += "</testsuite></testsuites>"
        path.write_text(PROGRAM.replace("REPORT", f"echo '{xml}' >\"$report\"" if report else "")
                        .replace("STATUS", str(status)))
        path.chmod(0o755)
        self.add(name, [path])

    def add_script(self, name, text):
        path = self.build / "script.py"
        path.write_text(text)
        self.add(name, [sys.executable, path])

    def run_tests(self, *arguments):
        run = subprocess.run([sys.executable, "-B", TOOLS / "run_tests.py", self.build, *arguments],
                             capture_output=True, text=True, check=False)
        return run.returncode, run.stdout.splitlines()


class Counting(MadeUpBuild):
    def test_cases_of_programs_and_scripts_add_up(self):
        self.add_program("platform/base", ["passed"] * 3 + ["skipped", "disabled"])
        self.add_program("dxf", ["passed"] * 2)
        self.add_script("dxf/others", UNITTEST % "True")
        status, lines = self.run_tests()
        self.assertEqual((0, "7 passed, 0 failed"), (status, lines[-1]))
        self.assertIn("SKIPPED platform/base: S.K", lines)
        self.assertIn("SKIPPED platform/base: S.D", lines)

    def test_each_way_to_fail(self):
        cases = [  # how it is made, counting line, name that stands above it
            (lambda: self.add_program("dxf", ["passed", "failed"], 1), "1 passed, 1 failed",
             "FAILED dxf: S.F"),
            (lambda: self.add_program("dxf", ["passed"], 1), "1 passed, 1 failed",
             "FAILED dxf: the program failed as a whole"),
            (lambda: self.add_program("dxf", [], 139, report=False), "0 passed, 1 failed",
             "FAILED dxf: the program left no report"),
            (lambda: self.add_program("dxf", [], 0, report=False), "0 passed, 1 failed",
             "FAILED dxf: the program left no report"),
            (lambda: self.add("dxf", [self.build / "test_gone"]), "0 passed, 1 failed",
             "FAILED dxf"),
            (lambda: self.add_script("dxf/s", UNITTEST % "False"), "1 passed, 1 failed",
             "FAILED dxf/s: test_b (__main__.T.test_b)"),
            (lambda: self.add_script("dxf/s", "raise SystemExit(3)"), "0 passed, 1 failed",
             "FAILED dxf/s"),
            (lambda: None, "0 passed, 0 failed", "there are no tests"),
            (lambda: self.add_program("dxf", []), "0 passed, 0 failed", "there are no tests"),
        ]
        for make, counts, named in cases:
            with self.subTest(named=named, counts=counts):
                self.setUp()
                make()
                status, lines = self.run_tests()
                self.assertEqual((1, counts), (status, lines[-1]))
                self.assertIn(named, lines)

    def test_filter_takes_programs_by_name_then_cases(self):
        self.add_program("geometry", ["passed"])
        self.add_program("dxf", ["passed", "passed"])
        self.assertEqual("2 passed, 0 failed", self.run_tests("dxf")[1][-1])
        # No program is called so: all of them run, each asked for its cases of that name.
        self.assertEqual("3 passed, 0 failed", self.run_tests("Reader.Skips")[1][-1])


if __name__ == "__main__":
    unittest.main()
