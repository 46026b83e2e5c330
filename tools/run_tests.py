#!/usr/bin/python3
"""Runs the tests of a build folder by ctest and counts the cases inside them.

Usage: run_tests.py BUILD_DIR [FILTER]. FILTER is a part of the name of test programs ("dxf",
"platform/"); when no program is so called, a part of the names of cases ("Reader.Skips"). The last line
is "N passed, N failed" alone. Exit status 0 only when something ran and nothing failed.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from typing import NamedTuple


class Count(NamedTuple):
    passed: int
    failed: list[str]  # names
    skipped: list[str]


def registered_tests(build: Path) -> dict[str, list[str]]:
    """Name -> command of each of ctest's entries."""
    listing = subprocess.run(["ctest", "--test-dir", str(build), "--show-only=json-v1"],
                             check=True, capture_output=True, text=True).stdout
    return {test["name"]: test.get("command", []) for test in json.loads(listing)["tests"]}


def googletest_count(report: Path, entry: str) -> Count:
    """The cases of one googletest program, as its report has them."""
    passed, failed, skipped = 0, [], []
    for case in ElementTree.parse(report).iter("testcase"):
        name = f"{entry}: {case.get('classname')}.{case.get('name')}"
        if case.find("failure") is not None or case.find("error") is not None:
            failed.append(name)
        elif case.get("status") != "run" or case.find("skipped") is not None:
            skipped.append(name)
        else:
            passed += 1
    return Count(passed, failed, skipped)


def script_count(output: str, entry: str, ok: bool) -> Count:
    """The cases of a script: unittest's own count, or one for a script that isn't a unittest."""
    ran = re.findall(r"^Ran (\d+) tests? in ", output, re.MULTILINE)
    if not ran:
        return Count(1, [], []) if ok else Count(0, [entry], [])
    # A case with several failed sub-tests stands there several times, and counts once.
    bad = set(re.findall(r"^(?:FAIL|ERROR): (\S+ \(\S+\))", output, re.MULTILINE))
    skipped = re.findall(r"^(?:OK|FAILED) \(.*skipped=(\d+)", output, re.MULTILINE)
    lost = int(skipped[-1]) if skipped else 0
    passed = max(int(ran[-1]) - len(bad) - lost, 0)
    return Count(passed, [f"{entry}: {name}" for name in sorted(bad)],
                 [f"{entry}: a case"] * lost)


def entry_count(entry: str, command: list[str], ok: bool, output: str, reports: Path) -> Count:
    """The cases behind one entry of ctest. An entry that failed has at least one failed case, whatever
    its report says: it may have crashed, leaked or not started."""
    report = reports / (Path(command[0]).name + ".xml") if command else None
    if report and report.exists():
        try:
            count = googletest_count(report, entry)
        except ElementTree.ParseError:
            count = Count(0, [f"{entry}: broken report"], [])
    elif command and Path(command[0]).name.startswith("test_"):
        count = Count(0, [f"{entry}: the program left no report"], [])
    else:
        count = script_count(output, entry, ok)
    if not ok and not count.failed:
        count = Count(count.passed, [f"{entry}: the program failed as a whole"], count.skipped)
    return count


def run(build: Path, entries: dict[str, list[str]], case_filter: str) -> list[Count]:
    reports = build / "test_reports"
    shutil.rmtree(reports, ignore_errors=True)
    reports.mkdir(parents=True)
    summary = reports / "ctest.junit"
    environment = dict(os.environ, GTEST_OUTPUT=f"xml:{reports}/", GTEST_COLOR="no")
    if case_filter:
        environment["GTEST_FILTER"] = f"*{case_filter}*"
    names = "|".join(re.escape(name) for name in entries)
    subprocess.run(["ctest", "--test-dir", str(build), "--output-on-failure", "--no-tests=error",
                    "--parallel", str(os.cpu_count() or 1), "--tests-regex", f"^({names})$",
                    "--test-output-size-passed", "1000000", "--test-output-size-failed", "1000000",
                    "--output-junit", str(summary)], env=environment, check=False)
    counts = []
    seen = set()
    for case in ElementTree.parse(summary).iter("testcase"):
        entry = case.get("name")
        seen.add(entry)
        counts.append(entry_count(entry, entries[entry], case.get("status") == "run",
                                  case.findtext("system-out") or "", reports))
    counts += [Count(0, [f"{entry}: not run"], []) for entry in entries if entry not in seen]
    return counts


def main() -> int:
    build = Path(sys.argv[1]).resolve()
    wanted = sys.argv[2] if len(sys.argv) > 2 else ""
    entries = registered_tests(build)
    chosen = {name: command for name, command in entries.items() if wanted in name}
    case_filter = ""
    if not chosen:
        case_filter = wanted
        chosen = {name: command for name, command in entries.items()
                  if command and Path(command[0]).name.startswith("test_")}
    counts = run(build, chosen, case_filter) if chosen else []
    failed = [name for count in counts for name in count.failed]
    skipped = [name for count in counts for name in count.skipped]
    passed = sum(count.passed for count in counts)
    for name in skipped:
        print(f"SKIPPED {name}")
    for name in failed:
        print(f"FAILED {name}")
    if not passed and not failed:
        print(f"no test matches '{wanted}'" if wanted else "there are no tests")
    print(f"{passed} passed, {len(failed)} failed", flush=True)
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
