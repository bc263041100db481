#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds what the shared libraries export against the lists in the repository.

    check_symbols.py TOP LIBRARY...             every library exports what TOP/abi/NAME.symbols lists, no more and no less
    check_symbols.py --refresh TOP LIBRARY...   writes the lists

Names are as people read them, so that the two or three bodies of a constructor are one line. What the version of a symbol keeps
for other libraries and programs of this repository (LIBRARY_PRIVATE) is left out.
"""
import pathlib
import re
import subprocess
import sys


def exported(library):
    """Names of all that a library defines for others, in order."""
    table = subprocess.run(["nm", "--dynamic", "--defined-only", "--extern-only", library], check=True, capture_output=True,
                           text=True).stdout
    read = subprocess.run(["c++filt"], input="\n".join(for_others(table)), check=True, capture_output=True, text=True).stdout
    return sorted(set(read.splitlines()))


def for_others(table):
    """Of what nm tells. A version is a symbol of its own, an absolute one."""
    symbols = [line.split()[-2:] for line in table.splitlines()]
    return [name.partition("@")[0] for kind, name in symbols if kind != "A" and not name.endswith("_PRIVATE")]


def name_of(library):
    return re.match(r"lib(\w+)\.so", pathlib.Path(library).name).group(1)


def difference(name, found, listed):
    return [f"{name} exports what is not listed: {symbol}" for symbol in found if symbol not in set(listed)] + \
           [f"{name} lacks what is listed: {symbol}" for symbol in listed if symbol not in set(found)]


def check(top, libraries):
    faults = []
    for library in libraries:
        path = top / "abi" / f"{name_of(library)}.symbols"
        if not path.is_file():
            faults.append(f"{path}: no such list")
            continue
        faults += difference(name_of(library), exported(library), path.read_text().splitlines())
    known = {name_of(library) for library in libraries}
    faults += [f"{path.name}: a list of no library" for path in sorted((top / "abi").glob("*.symbols")) if path.stem not in known]
    return faults


def self_test():
    assert difference("A", ["x", "y"], ["x", "y"]) == []
    assert difference("A", ["x", "y"], ["x"]) == ["A exports what is not listed: y"]
    assert difference("A", ["x"], ["x", "y"]) == ["A lacks what is listed: y"]
    assert for_others("01 T a@@L_0.1\n00 A L_PRIVATE\n02 T b@@L_PRIVATE\n03 W c") == ["a", "c"]
    assert name_of("/lib/libKestraQt.so.0.1") == "KestraQt"


def main():
    arguments = sys.argv[1:]
    if arguments == ["--self-test"]:
        self_test()
        return 0
    refresh = arguments[0] == "--refresh"
    top, libraries = pathlib.Path(arguments[refresh]), arguments[refresh + 1:]
    if refresh:
        for library in libraries:
            (top / "abi" / f"{name_of(library)}.symbols").write_text("\n".join(exported(library)) + "\n")
        return 0
    faults = check(top, libraries)
    print("\n".join(faults), end="\n" if faults else "")
    if faults:
        print("scripts/refresh-symbols writes the lists anew. What is gone or another now needs another SONAME.")
    return 1 if faults or not libraries else 0


if __name__ == "__main__":
    sys.exit(main())
