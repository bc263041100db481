#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds that every source says under which licence it is: SPDX-License-Identifier in a comment within its first lines, with the
identifier of LICENSE."""
import pathlib
import re
import subprocess
import sys

# What can hold a comment. JSON and golden texts cannot, or may not.
SUFFIXES = {".h", ".cpp", ".py", ".cmake", ".in", ".sh", ".ui"}
NAMES = {"CMakeLists.txt"}
EXEMPT = ("tests/golden/", "tests/fuzz/corpus/")
FIRST_LINES = 5
LINE = re.compile(r'^\s*(?://|#|<!--|;|\.\\")\s*SPDX-License-Identifier:\s*(\S+)', re.M)


def is_source(path, head):
    if path.startswith(EXEMPT):
        return False
    name = pathlib.PurePosixPath(path)
    return name.suffix in SUFFIXES or name.name in NAMES or head.startswith("#!")


def fault_of(path, text, licence):
    """What is wrong with one file, or nothing."""
    head = "\n".join(text.splitlines()[:FIRST_LINES])
    if not is_source(path, head):
        return None
    found = LINE.findall(head)
    if not found:
        return f"{path}: no SPDX-License-Identifier in its first {FIRST_LINES} lines"
    return None if found == [licence] else f"{path}: {' and '.join(found)} is not {licence}"


def self_test():
    good = "SPDX-License-Identifier: GPL-3.0-or-later"
    other = "SPDX-License-Identifier: MIT"
    licence = "GPL-3.0-or-later"
    assert fault_of("a/b.h", f"// {good}\n#pragma once\n", licence) is None
    assert fault_of("scripts/x", f"#!/bin/sh\n# {good}\n", licence) is None
    assert fault_of("a/CMakeLists.txt", f"# {good}\n", licence) is None
    assert fault_of("a/b.h", "#pragma once\n", licence)
    assert fault_of("a/b.h", "\n" * FIRST_LINES + f"// {good}\n", licence)
    assert fault_of("a/b.h", f'const char* text = "{good}";\n', licence)
    assert fault_of("a/b.h", f"// {other}\n", licence)
    assert fault_of("a/b.h", f"// {good}\n// {other}\n", licence)
    assert fault_of("scripts/x", "#!/bin/sh\n", licence)
    assert fault_of("tests/a/use", "#!/bin/sh\n", licence)
    assert fault_of("a/page.1.in", f'.\\" {good}\n', licence) is None
    assert fault_of("scripts/lsan.supp", "leak:x\n", licence) is None
    assert fault_of("tests/golden/help.cpp", "text\n", licence) is None
    assert fault_of("docs/page.md", "text\n", licence) is None


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    top = pathlib.Path(sys.argv[1])
    licence = re.search(r"^SPDX-License-Identifier: (\S+)", (top / "LICENSE").read_text(), re.M).group(1)
    listed = subprocess.run(["git", "-C", top, "ls-files", "-z"], check=True, capture_output=True, text=True).stdout
    faults = []
    for path in filter(None, listed.split("\0")):
        if (top / path).is_file() and not (top / path).is_symlink():
            faults.append(fault_of(path, (top / path).read_text(errors="replace"), licence))
    faults = [fault for fault in faults if fault]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults or not listed else 0


if __name__ == "__main__":
    sys.exit(main())
