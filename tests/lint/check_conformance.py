#!/usr/bin/env python3
"""Holds docs/conformance.md against the tests: every test it names exists, and no behaviour stands there without one."""
import pathlib
import re
import sys

DOCUMENT = "docs/conformance.md"
# TEST, TEST_F, TEST_P, TYPED_TEST and rapidcheck's RC_GTEST_PROP, RC_GTEST_FIXTURE_PROP.
MACRO = re.compile(r"^\s*(?:TYPED_)?(?:TEST|TEST_F|TEST_P|RC_GTEST_PROP|RC_GTEST_FIXTURE_PROP|TYPED_TEST_P)\s*\(\s*"
                   r"(\w+)\s*,\s*(\w+)\s*[,)]", re.M)
NAME = re.compile(r"`(?:\w+/)?(\w+)\.(\w+)(?:/\w+)?`")
LINT = re.compile(r"`(lint\.\w+|consumer\.\w+|e2e\.\w+)`")


def tests_of(text):
    return {f"{suite}.{name}" for suite, name in MACRO.findall(text)}


def faults_of(document, tests):
    """What is wrong, as "line: reason". A row of a table is `| behaviour | tests |`."""
    faults = []
    for number, line in enumerate(document.splitlines(), 1):
        if not line.startswith("|") or re.fullmatch(r"[|\s:-]+", line):
            continue
        cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if len(cells) != 2:
            faults.append(f"{number}: a row has two cells, this one {len(cells)}")
            continue
        if cells == ["Behaviour", "Tests"]:
            continue
        named = [f"{suite}.{name}" for suite, name in NAME.findall(cells[1])]
        if not named and not cells[1].startswith("No test: "):
            faults.append(f"{number}: neither a test nor a reason why there is none: {cells[0][:60]}")
        faults += [f"{number}: no such test: {name}" for name in named
                   if name not in tests and not LINT.fullmatch(f"`{name}`")]
    return faults


def self_test():
    tests = tests_of("TEST(Box, Opens) {\nTEST_F(Box,\n       Closes) {\nRC_GTEST_PROP(Box, Holds, ()) {\n")
    assert tests == {"Box.Opens", "Box.Closes", "Box.Holds"}, tests
    head = "| Behaviour | Tests |\n|---|---|\n"
    assert faults_of(head + "| it opens | `Box.Opens`, `All/Box.Closes/0` |", tests) == []
    assert faults_of(head + "| it sings | `Box.Sings` |", tests) == ["3: no such test: Box.Sings"]
    assert len(faults_of(head + "| it sings | |", tests)) == 1
    assert faults_of(head + "| its private members' order | No test: nothing outside can see it |", tests) == []


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    top = pathlib.Path(sys.argv[1])
    tests = set()
    for path in (top / "tests").rglob("*.cpp"):
        tests |= tests_of(path.read_text())
    faults = faults_of((top / DOCUMENT).read_text(), tests)
    for fault in faults:
        print(f"{DOCUMENT}:{fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
