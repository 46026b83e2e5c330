"""The command line program, driven as a user does."""

import os
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

import ezdxf

PROGRAM = Path(os.environ["BRINDLE_BUILD_DIR"]) / "apps/cli/brindle"

TABLES = """  0\nSECTION\n  2\nTABLES
  0\nTABLE\n  2\nLTYPE\n 70\n1\n  0\nLTYPE\n  2\nCONTINUOUS\n  3\nSolid\n 73\n0\n 40\n0.0\n  0\nENDTAB
  0\nTABLE\n  2\nLAYER\n 70\n2\n  0\nLAYER\n  2\n0\n 62\n7\n  6\nCONTINUOUS
  0\nLAYER\n  2\n钢筋\n 62\n-3\n  6\nCONTINUOUS\n  0\nENDTAB
  0\nTABLE\n  2\nSTYLE\n 70\n1\n  0\nSTYLE\n  2\nHZ\n 40\n0.0\n 41\n0.7\n  3\nrs\n  4\nhztxt\n  0\nENDTAB
  0\nENDSEC
"""
BLOCKS = """  0\nSECTION\n  2\nBLOCKS
  0\nBLOCK\n  8\n0\n  2\n节点\n 70\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0
  0\nCIRCLE\n  8\n0\n 10\n1.0\n 20\n2.0\n 30\n0.0\n 40\n3.0\n  0\nENDBLK\n  0\nENDSEC
"""
LINE = "  0\nLINE\n  8\n钢筋\n 10\n1.0\n 20\n2.0\n 30\n0.0\n 11\n30.0\n 21\n40.0\n 31\n0.0\n"
TEXT = "  0\nTEXT\n  8\n0\n 10\n5.0\n 20\n6.0\n 40\n2.5\n  1\n梁\n  7\nHZ\n"
STRANGE = "  0\nLWPOLYLINE\n  8\n0\n 10\n99.0\n 20\n99.0\n"


def entities(text):
    return "  0\nSECTION\n  2\nENTITIES\n" + text + "  0\nENDSEC\n  0\nEOF\n"


DRAWING = TABLES + BLOCKS + entities(LINE + TEXT + LINE)


class CommandLine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_program(self, *words, **streams):
        # The locale must not matter: output is UTF-8 in any.
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **streams}
        done = subprocess.run([PROGRAM, *words], env={"LC_ALL": "C", "PATH": "/"}, timeout=60,
                              cwd=self.folder, check=False, **streams)
        return (done.returncode, (done.stdout or b"").decode("utf-8"),
                (done.stderr or b"").decode("utf-8"))

    def write(self, name, text, encoding="gbk"):
        (self.folder / name).write_bytes(text.encode(encoding))
        return name

    def info(self, name):
        status, output, errors = self.run_program("info", name)
        self.assertEqual((status, errors), (0, ""))
        return output

    def test_help(self):
        for words in (["--help"], ["-h"], ["help"]):
            status, output, errors = self.run_program(*words)
            self.assertEqual((status, errors), (0, ""))
            for command in "info", "convert", "render", "mesh", "field":
                self.assertIn(f"\n  {command} ", output)
        for command in "info", "convert", "render", "mesh", "field":
            for words in ([command, "--help"], [command, "a", "b", "c", "-h"]):
                status, output, errors = self.run_program(*words)
                self.assertEqual((status, errors), (0, ""))
                self.assertTrue(output.startswith(f"usage: brindle {command} "), output)

    def test_bad_usage(self):
        cases = [
            ([], "usage: brindle COMMAND"),
            (["inform"], "unknown command inform"),
            (["--to"], "unknown command --to"),
            (["info"], "FILE is missing"),
            (["info", "a", "b"], "surplus argument b"),
            (["info", "--all", "a"], "unknown option --all"),
            (["info", "--", "--help", "b"], "surplus argument b"),
            (["convert", "--to", "r12"], "IN is missing"),
            (["convert", "a", "--to", "r12"], "OUT is missing"),
            (["convert", "a", "b"], "option --to is missing"),
            (["convert", "a", "b", "--to"], "option --to needs a value"),
            (["convert", "a", "b", "--to", "r13"], "--to takes r12, 2000 or dxb, not \"r13\""),
            (["convert", "a", "b", "--to="], "--to takes r12, 2000 or dxb, not \"\""),
            (["convert", "a", "b", "--to=r12", "--to=r12"], "option --to is given twice"),
            (["render", "a", "b.bmp"], "ends with .png, .pdf, .svg, .wmf or .emf"),
            (["render", "a", "b.png", "--size", "100"], "--size takes WxH"),
            (["render", "a", "b.png", "--size", "0x9"], "--size takes WxH"),
            (["render", "a", "b.png", "--size", "99999x9"], "--size takes WxH"),
            (["render", "a", "b.png", "--background", "red"], "--background takes black or white"),
            (["render", "a", "b.png", "--view", "30"], "--view takes two angles"),
            (["convert", "a", "b", "--to=r12", "--hatches=1"], "option --hatches takes no value"),
            (["field", "a"], "one of --contours, --step and --value is needed"),
            (["field", "a", "--contours", "3", "--step", "1", "--out", "b.dxf"], "one of --contours"),
            (["field", "a", "--contours", "1.5", "--out", "b.dxf"], "--contours takes a number"),
            (["field", "a", "--step", "0", "--out", "b.dxf"], "--step takes a step above 0"),
            (["field", "a", "--step", "1", "--out", "b.svg"], "--out ends with .dxf or .png"),
            (["field", "a", "--step", "1"], "option --out is missing"),
            (["field", "a", "--value", "1"], "--value takes X,Y"),
            (["field", "a", "--value", "1,1", "--component", "10"], "--component takes a value slot"),
            (["field", "a", "--step", "1", "--out", "b.png", "--bands", "20"], "--bands takes 19"),
        ]
        for words, message in cases:
            with self.subTest(words):
                status, output, errors = self.run_program(*words)
                self.assertEqual((status, output), (2, ""))
                self.assertIn(message, errors)
                self.assertIn("usage: brindle ", errors)
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_input_that_is_no_drawing(self):
        (self.folder / "directory").mkdir()
        self.write("empty.dxf", "")
        self.write("junk.dxf", "junk\n" * 1000)
        (self.folder / "zeros.dxf").write_bytes(bytes(100000))
        self.write("cut.dxf", TABLES)
        cases = [("missing.dxf", "No such file"), ("directory", "Is a directory"),
                 ("empty.dxf", "[301] 读入表段时错误"), ("junk.dxf", "[301] 读入表段时错误"),
                 ("zeros.dxf", "[301] 读入表段时错误"), ("cut.dxf", "找不到实体段的开始标志"),
                 ("junk.dxf/a", "Not a directory")]
        for name, message in cases:
            for words in (["info", name], ["convert", name, "out.dxf", "--to", "2000"]):
                with self.subTest(words):
                    status, output, errors = self.run_program(*words)
                    self.assertEqual((status, output), (1, ""))
                    self.assertIn(message, errors)
                    self.assertIn("brindle: ", errors)
                    self.assertIn(name, errors)
        self.assertFalse((self.folder / "out.dxf").exists())

    def test_info(self):
        self.write("图.dxf", "  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n2.5\n  0\nENDSEC\n" + DRAWING)
        self.assertEqual(self.info("图.dxf").splitlines(), [
            "drawing 图.dxf",
            "version none told",
            "encoding GBK (the process's; the file tells none)",
            "line type scale 2.5",
            "line types 1",
            "  CONTINUOUS: 0 dashes, length 0",
            "layers 2",
            "  0: colour 7, CONTINUOUS",
            "  钢筋: colour 3 (off), CONTINUOUS",
            "text styles 1",
            "  HZ: font rs + hztxt, height 0, width 0.7",
            "dimension styles 0",
            "blocks 1",
            "  节点: 1 entities",
            "entities 3",
            "  LINE: 2",
            "  TEXT: 1",
            "extent 1,2 to 30,40",
        ])

    def test_info_tells_what_the_model_lacks(self):
        self.write("a.dxf", TABLES + entities(STRANGE + LINE + STRANGE + "  0\nVERTEX\n"))
        self.assertIn("skipped\n  LWPOLYLINE: 2\nextent 1,2", self.info("a.dxf"))

    def test_info_without_entities(self):
        self.write("a.dxf", TABLES + entities(""))
        self.assertIn("\nentities 0\nextent none\n", self.info("a.dxf"))

    def test_encodings(self):
        def header(variable, code, value):
            return f"  0\nSECTION\n  2\nHEADER\n  9\n{variable}\n{code}\n{value}\n  0\nENDSEC\n"
        cases = [("utf-8-sig", "", "UTF-8 (byte-order mark)"),
                 ("utf-8", header("$ACADVER", "  1", "AC1027"), "UTF-8 (by the version)"),
                 ("gb18030", header("$DWGCODEPAGE", "  3", "gb18030"), "GB18030 (by $DWGCODEPAGE)"),
                 ("gbk", header("$ACADVER", "  1", "AC1015"),
                  "GBK (the process's; the file tells none)")]
        for encoding, start, told in cases:
            with self.subTest(encoding):
                self.write("a.dxf", start + DRAWING, encoding)
                output = self.info("a.dxf")
                self.assertIn(f"\nencoding {told}\n", output)
                self.assertIn("\n  钢筋: colour 3 (off)", output)

    def test_names_cannot_drive_the_terminal(self):
        self.write("a.dxf", DRAWING.replace("钢筋", "\x1b[2J\x07red"))
        output = self.info("a.dxf")
        self.assertIn("\n  \ufffd[2J\ufffdred: colour 3", output)

    def test_convert_both_ways(self):
        self.write("a.dxf", DRAWING)
        before = self.info("a.dxf").splitlines()
        steps = [("a.dxf", "b.dxf", "2000"), ("b.dxf", "c.dxf", "r12"), ("c.dxf", "c.dxf", "2000"),
                 ("c.dxf", "d.dxf", "r12")]
        for source, target, dialect in steps:
            status, output, errors = self.run_program("convert", source, target, "--to", dialect,
                                                      "--hatches")
            self.assertEqual((status, output, errors), (0, "", ""))
            content = (self.folder / target).read_bytes()
            self.assertEqual(b"AC1015" in content, dialect == "2000")
            self.assertIn("梁".encode("gbk"), content)
            after = self.info(target).splitlines()
            # Every line of the first listing but name and version stands in this one too, apart
            # from the counts of what AC1015 files have beside it: sheets and line types.
            missing = [line for line in before[2:] if line not in after]
            self.assertLessEqual(set(missing), {"line types 1", "blocks 1"})

    def test_convert_tells_losses_and_completes_tables(self):
        self.write("a.dxf", "  0\nSECTION\n  2\nTABLES\n  0\nENDSEC\n" + entities(STRANGE + LINE))
        status, output, errors = self.run_program("convert", "a.dxf", "b.dxf", "--to=r12")
        self.assertEqual((status, output), (0, ""))
        self.assertEqual(errors, "brindle: left out: 1 LWPOLYLINE\n")
        output = self.info("b.dxf")
        self.assertIn("\nlayers 1\n  0: colour 7", output)
        self.assertIn("\n  LINE: 1\n", output)

    def test_output_that_cannot_be_written(self):
        self.write("a.dxf", DRAWING)
        (self.folder / "directory").mkdir()
        for target in "missing/b.dxf", "directory", "/dev/full", "/proc/b.dxf":
            for dialect in "r12", "2000":
                with self.subTest((target, dialect)):
                    status, output, errors = self.run_program("convert", "a.dxf", target, "--to",
                                                              dialect)
                    self.assertEqual((status, output), (1, ""))
                    self.assertIn(f"brindle: can't write {target}\n", errors)
        with open("/dev/full", "wb") as full:
            status, _, errors = self.run_program("info", "a.dxf", stdout=full)
        self.assertEqual((status, errors), (1, "brindle: can't write to standard output\n"))
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["a.dxf", "directory"])

    def test_operands_that_look_like_options(self):
        self.write("--to", DRAWING)
        self.assertEqual(self.run_program("convert", "--to", "2000", "--", "--to", "-h")[0], 0)
        self.assertTrue((self.folder / "-h").exists())
        self.assertIn("LINE: 2", self.info("./-h"))

    def test_binary_form_keeps_the_drawing(self):
        name = self.write("a.dxf", DRAWING)
        self.assertEqual(self.run_program("convert", name, "a.dxb", "--to", "dxb"), (0, "", ""))
        text, binary = self.info(name), self.info("a.dxb")
        self.assertIn("version binary", binary)
        self.assertEqual(binary[binary.index("line type scale"):],
                         text[text.index("line type scale"):])
        self.assertEqual(self.run_program("convert", "a.dxb", "b.dxf", "--to", "r12"), (0, "", ""))
        self.assertEqual(len(ezdxf.readfile(self.folder / "b.dxf").modelspace()), 3)

    def test_render_makes_every_form(self):
        name = self.write("a.dxf", DRAWING.replace("62\n-3", "62\n3"))
        starts = {"png": b"\x89PNG", "pdf": b"%PDF", "svg": b"<?xml", "wmf": b"\xd7\xcd\xc6\x9a",
                  "emf": b"\x01\0\0\0"}
        for form, start in starts.items():
            with self.subTest(form):
                done = self.run_program("render", name, "a." + form, "--size=640x480")
                self.assertEqual(done, (0, "", ""))
                self.assertTrue((self.folder / ("a." + form)).read_bytes().startswith(start))
        picture = (self.folder / "a.png").read_bytes()
        self.assertEqual(struct.unpack(">II", picture[16:24]), (640, 480))
        # The line runs from the lower left to the upper right of what is free of the margin.
        svg = (self.folder / "a.svg").read_text()
        self.assertIn("#00ff00", svg.lower())
        for view, size in ((["--view", "30,60"], 1600), (["--background=black"], 1600)):
            self.assertEqual(self.run_program("render", name, "b.png", *view), (0, "", ""))
            picture = (self.folder / "b.png").read_bytes()
            self.assertEqual(struct.unpack(">I", picture[16:20]), (size,))

    def test_render_tells_what_is_missing_and_draws_the_rest(self):
        insert = "  0\nINSERT\n  8\n0\n  2\n节点\n 10\n0.0\n 20\n0.0\n"
        ring = BLOCKS.replace("  0\nENDBLK", insert + "  0\nENDBLK")
        name = self.write("a.dxf", TABLES + ring + entities(insert + LINE))
        status, _, errors = self.run_program("render", name, "a.svg", "--fonts", "nowhere")
        self.assertEqual(status, 0)
        self.assertIn("nowhere/TXT.SHX is missing", errors)
        self.assertIn("节点", errors)
        self.assertGreater(len((self.folder / "a.svg").read_bytes()), 500)
        status, _, errors = self.run_program("render", "missing.dxf", "b.svg")
        self.assertEqual(status, 1)
        self.assertFalse((self.folder / "b.svg").exists())

    # Two triangles over a unit square: the first value is 10 x, the second 10 y.
    def write_field(self, second_triangle="1,3,4"):
        corners = [(0, 0), (1, 0), (1, 1), (0, 1)]
        rows = [f"{x},{y},{10 * x},{10 * y}" + ",0" * 8 for x, y in corners]
        return self.write("a.chg", "\r\n".join(["4,2", *rows, "1,2,3", second_triangle, ""]))

    def test_field_tells_a_value(self):
        name = self.write_field()
        for words, told in [(["0.25,0.75"], "2.5"), (["0.25,0.75", "--component=1"], "7.5"),
                            (["3,0.9"], "10 (outside; of the nearest node)")]:
            self.assertEqual(self.run_program("field", name, "--value", *words),
                             (0, told + "\n", ""))

    def test_field_draws_its_contours(self):
        name = self.write_field()
        for words, values in [(["--contours", "3"], {2.5, 5, 7.5}), (["--step", "4"], {4, 8})]:
            self.assertEqual(self.run_program("field", name, *words, "--out", "a.dxf"), (0, "", ""))
            lines = ezdxf.readfile(self.folder / "a.dxf").modelspace().query("LINE")
            rim = [line for line in lines if line.dxf.layer == "RIM"]
            self.assertEqual(len(rim), 4)
            drawn = {round(line.dxf.start.x * 10, 3) for line in lines if line.dxf.layer == "CONTOUR"}
            self.assertEqual(drawn - {0}, values)
        words = "--step", "4", "--bands", "19", "--out", "a.png"
        self.assertEqual(self.run_program("field", name, *words), (0, "", ""))
        self.assertEqual(struct.unpack(">II", (self.folder / "a.png").read_bytes()[16:24]),
                         (1600, 1000))

    def test_field_refuses_what_is_none(self):
        self.write("junk.chg", "junk\n")
        for name, message in [("none.chg", "can't read the field"), ("junk.chg", "can't read the field"),
                              (self.write_field("1,3,9"), "a node that isn't there")]:
            for words in (["--value", "9,9"], ["--step", "1", "--out", "x.dxf"]):
                status, output, errors = self.run_program("field", name, *words)
                self.assertEqual((status, output), (1, ""))
                self.assertIn(message, errors)
        status, _, errors = self.run_program("field", self.write_field(), "--step", "1e-6", "--out",
                                             "x.dxf")
        self.assertEqual(status, 1)
        self.assertIn("more than 1000 contours", errors)
        self.assertFalse((self.folder / "x.dxf").exists())

    def test_mesh_draws_the_slab(self):
        slab = Path(os.environ["BRINDLE_SOURCE_DIR"]) / "examples/data/slab.txt"
        status, output, errors = self.run_program("mesh", str(slab), "slab.dxf")
        self.assertEqual((status, errors), (0, ""))
        triangles = int(output.split("triangles ")[1])
        drawing = ezdxf.readfile(self.folder / "slab.dxf")
        sides = [line for line in drawing.modelspace() if line.dxf.layer == "MESH"]
        # Each inner side borders two triangles, each outer one borders one.
        self.assertGreater(2 * len(sides), 3 * triangles)
        self.assertLess(len(sides), 3 * triangles)
        self.assertTrue(all(0 <= side.dxf.start.x <= 12 for side in sides))

    def test_mesh_names_the_wrong_line(self):
        cases = {
            "POINTS 3\n1,0,0\n3,1,0\n": "line 3: the lines of a section are numbered",
            "POINTS 3\n1,0,0\n2,nan,0\n": "line 3: this is no finite number",
            "## c\nPOINTS 1\n1,0\n": "line 3: a number is missing",
            "POINTS 3\n1,0,0\n": "the file ends inside a section",
            "POINTS 3\n1,0,0\n2,1,0\n3,0,1\nEDGES 1\n1,1,4\n": "line 6: there is no such point",
            "POINTS 2000000000\n": "line 1: the count must be",
            "LINES 3\n": "line 1: here stands POINTS",
            "": "at least 3 points",
        }
        for text, message in cases.items():
            status, _, errors = self.run_program("mesh", self.write("points.txt", text), "x.dxf")
            self.assertEqual(status, 1, text)
            self.assertIn(message, errors)
        self.assertFalse((self.folder / "x.dxf").exists())


if __name__ == "__main__":
    unittest.main()
