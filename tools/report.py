#!/usr/bin/env python3
"""usage: report.py RESULT...

Prints one table of test results and as its last line `N passed, N failed, N skipped`.
Fails unless nothing failed and something was there. A RESULT is one of

  ran:WIDTH:FILE      a JUnit file that ctest has written
  failed:WIDTH:SUITE  a suite that failed as a whole, such as a build
  skipped:WIDTH:FILE  tests that could not be run, listed by ctest --show-only=json-v1; without the file they count as one
"""

import collections
import json
import sys
import xml.etree.ElementTree

OUTPUT_LINES = 80  # of one failed test
OUTPUT_TESTS = 25  # whose output is shown, of all that failed

PASSED, FAILED, SKIPPED = range(3)


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
    lines = [line.rstrip() for text in texts for line in text.splitlines() if line.strip()]
    cut = len(lines) - OUTPUT_LINES
    return [f"... {cut} lines before these"] + lines[cut:] if cut > 0 else lines


class Report:
    def __init__(self):
        self.rows = collections.OrderedDict()
        self.failures = []

    def add(self, suite, width, outcome):
        self.rows.setdefault(width, {}).setdefault(suite, [0, 0, 0])[outcome] += 1

    def ran(self, width, path):
        try:
            cases = list(xml.etree.ElementTree.parse(path).iter("testcase"))
        except (OSError, xml.etree.ElementTree.ParseError) as error:
            self.failures.append((f"{path}: {error}", []))
            cases = []
        if not cases:
            self.add("(no tests)", width, FAILED)
        for case in cases:
            name, outcome = case.get("name", ""), outcome_of(case)
            self.add(suite_of(name, labels_of(case)), width, outcome)
            if outcome == FAILED:
                seconds = float(case.get("time") or 0)
                self.failures.append((f"{width}: {name} ({seconds:.1f} s)", output_of(case)))

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
        for test in tests:
            labels = [entry["value"] for entry in test.get("properties", []) if entry["name"] == "LABELS"]
            self.add(suite_of(test["name"], labels[0] if labels else []), width, SKIPPED)

    def show_failures(self):
        for name, output in self.failures[:OUTPUT_TESTS]:
            print(f"\nFAILED {name}")
            for line in output:
                print(f"    {line}")
        for name, _ in self.failures[OUTPUT_TESTS:]:
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
