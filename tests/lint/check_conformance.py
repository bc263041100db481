#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds docs/conformance.md and docs/material.md against the tests: every test that they name exists, and no behaviour stands
there without one."""
import pathlib
import re
import sys

# The cells of a row: the last one names tests.
DOCUMENTS = {"docs/conformance.md": ["Behaviour", "Tests"], "docs/material.md": ["Material", "What happens", "Tests"]}
# TEST, TEST_F, TEST_P, TYPED_TEST and rapidcheck's RC_GTEST_PROP, RC_GTEST_FIXTURE_PROP.
MACRO = re.compile(r"^\s*(?:TYPED_)?(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP|TYPED_TEST_P)\s*\(\s*"
                   r"(\w+)\s*,\s*(\w+)\s*[,)]", re.M)
NAME = re.compile(r"`(?:\w+/)?(\w+)\.(\w+)(?:/\w+)?`")
LINT = re.compile(r"`(lint\.\w+|consumer\.\w+|abi\.\w+|e2e\.\w+)`")


def tests_of(text):
    return {f"{suite}.{name}" for suite, name in MACRO.findall(text)}


def faults_of(document, head, tests):
    """What is wrong, as "line: reason". A row of a table has as many cells as its head, and the tests in the last one."""
    faults = []
    for number, line in enumerate(document.splitlines(), 1):
        if not line.startswith("|") or re.fullmatch(r"[|\s:-]+", line):
            continue
        cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if len(cells) != len(head):
            faults.append(f"{number}: a row has {len(head)} cells, this one {len(cells)}")
            continue
        if cells == head:
            continue
        named = [f"{suite}.{name}" for suite, name in NAME.findall(cells[-1])]
        if not named and not cells[-1].startswith("No test: "):
            faults.append(f"{number}: neither a test nor a reason why there is none: {cells[0][:60]}")
        faults += [f"{number}: no such test: {name}" for name in named
                   if name not in tests and not LINT.fullmatch(f"`{name}`")]
    return faults


def self_test():
    tests = tests_of("TEST(Box, Opens) {\nTEST_F(Box,\n       Closes) {\nRC_GTEST_PROP(Box, Holds, ()) {\n")
    assert tests == {"Box.Opens", "Box.Closes", "Box.Holds"}, tests
    cells = ["Behaviour", "Tests"]
    head = "| Behaviour | Tests |\n|---|---|\n"
    assert faults_of(head + "| it opens | `Box.Opens`, `All/Box.Closes/0` |", cells, tests) == []
    assert faults_of(head + "| it sings | `Box.Sings` |", cells, tests) == ["3: no such test: Box.Sings"]
    assert len(faults_of(head + "| it sings | |", cells, tests)) == 1
    assert len(faults_of(head + "| it | sings | `Box.Opens` |", cells, tests)) == 1
    assert faults_of(head + "| its private members' order | No test: nothing outside can see it |", cells, tests) == []


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    top = pathlib.Path(sys.argv[1])
    tests = set()
    for path in (top / "tests").rglob("*.cpp"):
        tests |= tests_of(path.read_text())
    faults = [f"{document}:{fault}" for document, head in DOCUMENTS.items()
              for fault in faults_of((top / document).read_text(), head, tests)]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
