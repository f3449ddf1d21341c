#!/usr/bin/env python3
"""usage: report.py RESULT...

Prints one table of test results and as its last line `N passed, N failed, N skipped`.
Fails unless nothing failed and something was there. A RESULT is one of

  ran:WIDTH:FILE      a JUnit file that ctest has written
  failed:WIDTH:SUITE  a suite that failed as a whole, such as a build
  skipped:WIDTH:FILE  tests that could not be run, listed by ctest --show-only=json-v1; without the file they count as one

A test of ctest that runs several tests of one program counts as these: the folder `listings` beside the FILE says which
they are, and what the program wrote says what became of each.
"""

import collections
import json
import pathlib
import re
import sys
import xml.etree.ElementTree

OUTPUT_LINES = 80  # of one failed test
OUTPUT_TESTS = 25  # whose output is shown, of all that failed

PASSED, FAILED, SKIPPED = range(3)

# What GoogleTest writes when a test begins and when it ends. What the test wrote may stand before it on the line.
MARK = re.compile(r"\[( RUN      |       OK |  FAILED  |  SKIPPED )\] ([^\s,]+)(?:, where .*)?(?: \((\d+) ms\))?\s*$")
OUTCOMES = {"OK": PASSED, "FAILED": FAILED, "SKIPPED": SKIPPED}

# One test of a program, how long it took or what is known instead, and the lines that it wrote.
Single = collections.namedtuple("Single", "name outcome time output")


def suite_of(name, labels):
    """The room that a test belongs to: its first label, or what stands before the first slash or dot of its name."""
    if labels:
        return labels[0]
    return name.split("/")[0] if "/" in name else name.split(".")[0]


def outcome_of(case):
    """ctest writes <skipped> for a test that skipped itself and for a disabled one, and also for one whose program is
    missing: only its message tells."""
    if case.find("failure") is not None or case.find("error") is not None or case.get("status") == "fail":
        return FAILED
    skipped = case.find("skipped")
    if skipped is not None or case.get("status") in ("notrun", "disabled"):
        message = skipped.get("message", "") if skipped is not None else ""
        meant = case.get("status") == "disabled" or message.startswith("SKIP_") or message == "Disabled"
        return SKIPPED if meant else FAILED
    return PASSED


def labels_of(case):
    for entry in case.iter("property"):
        if entry.get("name") == "cmake_labels":
            return [label for label in entry.get("value", "").split(";") if label]
    return []


def output_of(case):
    texts = [part.get("message", "") + "\n" + (part.text or "") for tag in ("failure", "error") for part in case.iter(tag)]
    texts += [part.text or "" for tag in ("skipped", "system-out", "system-err") for part in case.iter(tag)]
    return [line.rstrip() for text in texts for line in text.splitlines() if line.strip()]


def listings_beside(path):
    """The tests of each program as tests/discover.cmake has listed them: {ctest's name: [GoogleTest's name]}."""
    listings = {}
    for listing in sorted(pathlib.Path(path).parent.glob("listings/*.txt")):
        for line in listing.read_text(encoding="utf-8").splitlines():
            name, _, single = line.split()
            listings.setdefault(name, []).append(single)
    return listings


def singles_of(names, output):
    """What became of each test that one program ran. A test that began and did not end has ended the program, so
    everything that was written after its beginning is its output."""
    began, ended, running = {}, {}, None
    for line in output:
        mark = MARK.search(line)
        kind, name = (mark[1].strip(), mark[2]) if mark else ("", "")
        if kind == "RUN":
            running = name
            began[running] = []
        elif running:
            began[running].append(line)
            if name == running:
                ended[running] = OUTCOMES[kind], f"{int(mark[3] or 0) / 1000:.1f} s"
                running = None
    singles = []
    for name in names:
        lost = (FAILED, "did not end") if name in began else (FAILED, "did not run")
        # GoogleTest's mark of a test that is switched off: it does not begin, which is no failure. There is none today.
        if "DISABLED_" in name and name not in began:
            lost = (SKIPPED, "disabled")
        singles.append(Single(name, *ended.get(name, lost), began.get(name, [])))
    return singles


class Report:
    def __init__(self):
        self.rows = collections.OrderedDict()
        self.failures = []

    def add(self, suite, width, outcome):
        self.rows.setdefault(width, {}).setdefault(suite, [0, 0, 0])[outcome] += 1

    def fail(self, title, output):
        cut = len(output) - OUTPUT_LINES
        self.failures.append((title, [f"... {cut} lines before these"] + output[cut:] if cut > 0 else output))

    def ran(self, width, path):
        try:
            cases = list(xml.etree.ElementTree.parse(path).iter("testcase"))
        except (OSError, xml.etree.ElementTree.ParseError) as error:
            self.fail(f"{path}: {error}", [])
            cases = []
        if not cases:
            self.add("(no tests)", width, FAILED)
        listings = listings_beside(path)
        for case in cases:
            name, outcome = case.get("name", ""), outcome_of(case)
            suite, title, output = suite_of(name, labels_of(case)), f"{width}: {name}", output_of(case)
            singles = singles_of(listings.get(name, []), output)
            for single in singles:
                self.add(suite, width, single.outcome)
                if single.outcome == FAILED:
                    own = "" if single.name in name else f": {single.name}"
                    self.fail(f"{title}{own} ({single.time})", single.output)
            # All of them may be well and the program end badly after them.
            if not singles or outcome == FAILED and all(single.outcome != FAILED for single in singles):
                self.add(suite, width, outcome)
                if outcome == FAILED:
                    self.fail(f"{title} ({float(case.get('time') or 0):.1f} s)", output)

    def failed(self, width, suite):
        self.add(suite, width, FAILED)

    def skipped(self, width, path):
        try:
            with open(path, encoding="utf-8") as file:
                tests = json.load(file)["tests"]
        except (OSError, ValueError, KeyError):
            tests = []
        if not tests:
            self.add("(all)", width, SKIPPED)
        listings = listings_beside(path)
        for test in tests:
            labels = [entry["value"] for entry in test.get("properties", []) if entry["name"] == "LABELS"]
            for _ in listings.get(test["name"], [None]):
                self.add(suite_of(test["name"], labels[0] if labels else []), width, SKIPPED)

    def show_failures(self):
        # Those that say something come first.
        failures = sorted(self.failures, key=lambda failure: not failure[1])
        for name, output in failures[:OUTPUT_TESTS]:
            print(f"\nFAILED {name}")
            for line in output:
                print(f"    {line}")
        for name, _ in failures[OUTPUT_TESTS:]:
            print(f"FAILED {name}")

    def show_table(self):
        """Prints the table and the last line, and returns the three sums."""
        lines = [("suite", "width", "passed", "failed", "skipped")]
        sums = [0, 0, 0]
        for width, suites in self.rows.items():
            for suite, counts in sorted(suites.items()):
                lines.append((suite, width, *map(str, counts)))
                sums = [old + new for old, new in zip(sums, counts)]
        sizes = [max(map(len, column)) for column in zip(*lines)]
        print()
        for line in lines:
            texts = [cell.ljust(size) for cell, size in zip(line[:2], sizes)]
            texts += [cell.rjust(size) for cell, size in zip(line[2:], sizes[2:])]
            print("  ".join(texts))
        print(f"\n{sums[PASSED]} passed, {sums[FAILED]} failed, {sums[SKIPPED]} skipped")
        return sums


def main(arguments):
    if not arguments or arguments[0] in ("-h", "--help"):
        print(__doc__.strip())
        return 0 if arguments else 2
    report = Report()
    for argument in arguments:
        kind, width, rest = argument.split(":", 2)
        {"ran": report.ran, "failed": report.failed, "skipped": report.skipped}[kind](width, rest)
    report.show_failures()
    return 1 if report.show_table()[FAILED] else 0


if __name__ == "__main__":
    # Test output may hold characters that the terminal's encoding lacks.
    sys.stdout.reconfigure(errors="backslashreplace")
    sys.exit(main(sys.argv[1:]))
