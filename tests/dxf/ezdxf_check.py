"""What the writers give, read by an independent program and compared with the drawing model.

The sample drawings and the listings of their contents come from the tests' own program.
"""

import functools
import json
import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

import ezdxf

SAMPLES = ("full_r12", "full_2000", "empty_r12", "empty_2000")
# What the audit repairs: the fixed texts of the AC1015 form name an owner that no file has, and a
# second sheet without a layout. Anything else is a fault of ours.
KNOWN_REPAIRS = {"Fixed invalid owner handle in WIPEOUTVARIABLES(#1B2)",
                 "Removed orphaned layout BLOCK_RECORD \"*Paper_Space0\""}
STEEL_GRADES = {code: f"%%{code}" for code in range(130, 144)}
# A number in a file has ten decimals.
TOLERANCE = 1e-10
DEFAULTS = {"ltscale": 1.0, "halign": 0, "valign": 0, "rotation": 0, "width": 1.0}


def make_samples(folder):
    environment = dict(os.environ, BRINDLE_SAMPLE_DIR=folder)
    environment.pop("GTEST_OUTPUT", None)  # the report of this script's caller
    program = Path(os.environ["BRINDLE_BUILD_DIR"]) / "test_dxf"
    subprocess.run([program, "--gtest_filter=SampleDrawings.*"], env=environment, check=True,
                   stdout=subprocess.DEVNULL, timeout=60)


def each_sample(test):
    """Runs the test for each drawing, with its name and the listing of what must be in it."""
    @functools.wraps(test)
    def run(self):
        for name, drawing in self.drawings.items():
            with self.subTest(name):
                test(self, name, drawing, self.listings[name.split("_")[0]])
    return run


def record_of(entity):
    """The three words of the extended record, 0 for those that aren't there."""
    if not entity.has_xdata("QXACAD"):
        return [0, 0, 0]
    tags = entity.get_xdata("QXACAD")
    assert (tags[0].code, tags[0].value) == (1000, "QXEX"), tags
    words = [tag.value for tag in tags if tag.code == 1071]
    return words + [0] * (3 - len(words))


class SampleDrawings(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        make_samples(folder.name)
        # The files don't tell their code page.
        cls.drawings = {name: ezdxf.readfile(f"{folder.name}/{name}.dxf", encoding="gbk")
                        for name in SAMPLES}
        cls.listings = {name: json.loads(Path(folder.name, name + ".json").read_text("utf-8"))
                        for name in ("full", "empty")}

    def assert_close(self, actual, expected, what):
        if isinstance(expected, list):
            self.assertEqual(len(actual), len(expected), what)
            for a, e in zip(actual, expected):
                self.assert_close(a, e, what)
        else:
            self.assertLessEqual(abs(actual - expected), TOLERANCE * max(1, abs(expected)), what)

    def check_entity(self, entity, expected):
        kind = expected["kind"]
        self.assertEqual(entity.dxftype(), kind)
        self.assertEqual(entity.dxf.layer, expected["layer"])
        self.assertEqual(record_of(entity), expected["record"])
        if kind != "POINT":  # which has neither in a file
            self.assertEqual(entity.dxf.get("linetype", "BYLAYER"), expected["linetype"])
            self.assertEqual(entity.dxf.get("color", -1), expected["color"])
        for name, value in expected.items():
            if name in ("kind", "layer", "record", "linetype", "color", "align_point", "text"):
                continue
            actual = entity.dxf.get(name, DEFAULTS.get(name))
            if isinstance(value, str):
                self.assertEqual(actual, value, name)
            elif name == "valign" and value == 1:
                self.assertEqual(actual, 0)  # bottom is written as baseline
            else:
                self.assert_close(list(actual) if isinstance(value, list) else actual, value, name)
        if kind == "TEXT":
            self.assertEqual(entity.dxf.text, expected["text"].translate(STEEL_GRADES))
            if expected["halign"] or expected["valign"]:
                self.assert_close(list(entity.dxf.align_point), expected["align_point"], "align")

    def check_entities(self, entities, expected):
        self.assertEqual(len(entities), len(expected))
        for i, (entity, listed) in enumerate(zip(entities, expected)):
            with self.subTest(number=i, kind=listed["kind"]):
                self.check_entity(entity, listed)

    @each_sample
    def test_version_and_scale(self, name, drawing, listing):
        self.assertEqual(drawing.dxfversion, "AC1009" if name.endswith("r12") else "AC1015")
        self.assertEqual(drawing.header["$LTSCALE"], listing["ltscale"])

    @each_sample
    def test_entities(self, _name, drawing, listing):
        self.check_entities(list(drawing.modelspace()), listing["entities"])

    @each_sample
    def test_blocks(self, _name, drawing, listing):
        named = [block for block in drawing.blocks if not block.name.startswith("*")
                 and not block.name.startswith("$")]
        self.assertEqual([block.name for block in named],
                         [block["name"] for block in listing["blocks"]])
        for block, listed in zip(named, listing["blocks"]):
            self.assert_close(list(block.block.dxf.base_point), listed["base_point"], "base")
            self.check_entities(list(block), listed["entities"])

    @each_sample
    def test_tables(self, _name, drawing, listing):
        # What the reading program adds by itself.
        added = {"Defpoints", "ByLayer", "ByBlock", "Continuous", "Standard"}
        for table, names in (("linetypes", drawing.linetypes), ("layers", drawing.layers),
                             ("styles", drawing.styles), ("dimstyles", drawing.dimstyles)):
            found = {entry.dxf.name for entry in names}
            listed = {entry["name"] for entry in listing[table]}
            self.assertEqual(found - added, listed - added, table)
        for listed in listing["layers"]:
            layer = drawing.layers.get(listed["name"])
            self.assertEqual((layer.dxf.color, layer.dxf.linetype),
                             (listed["color"], listed["linetype"]))
            self.assertEqual(layer.is_off(), listed["color"] < 0)
        for listed in listing["styles"]:
            style = drawing.styles.get(listed["name"])
            self.assertEqual((style.dxf.font, style.dxf.bigfont),
                             (listed["font"], listed["bigfont"]))
            self.assert_close([style.dxf.height, style.dxf.width],
                              [listed["height"], listed["width"]], listed["name"])
        for listed in listing["linetypes"]:
            ltype = drawing.linetypes.get(listed["name"])
            self.assertEqual(ltype.dxf.description, listed["description"])
            tags = ltype.pattern_tags.tags
            self.assert_close([tag.value for tag in tags if tag.code == 49], listed["dashes"],
                              listed["name"])
            self.assert_close(tags.get_first_value(40), listed["length"], listed["name"])

    @each_sample
    def test_dimension_styles(self, name, drawing, listing):
        for listed in listing["dimstyles"]:
            style = drawing.dimstyles.get(listed["name"])
            for variable in ("dimscale", "dimasz", "dimtxt", "dimclrt", "dimtad"):
                self.assert_close(style.dxf.get(variable), listed[variable], variable)
            if name.endswith("2000"):
                self.assertEqual(style.dxf.dimtxsty, listed["text style"])

    @each_sample
    def test_audit(self, _name, drawing, _listing):
        audit = drawing.audit()
        self.assertEqual([error.message for error in audit.errors], [])
        repairs = {re.sub(r"BLOCK_RECORD\(#\w+\)", "BLOCK_RECORD", fix.message)
                   for fix in audit.fixes}
        self.assertLessEqual(repairs, KNOWN_REPAIRS)


if __name__ == "__main__":
    unittest.main()
