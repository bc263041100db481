#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the binary interface that the installed headers show against the written one of this version, by abidiff.

    check_baseline.py TOP VERSION INTERFACE             against TOP/abi/EditorExport-VERSION.abi
    check_baseline.py --refresh TOP VERSION INTERFACE   writes that, unless programs built before would not survive it

VERSION is that of the SONAMEs, INTERFACE a file that interface.py has written.
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

import interface

# Each name is broken in its own way, but for those that a program survives.
BROKEN = ["Grown", "Swapped", "Held", "Based", "Inserted", "Turned", "NoLongerVirtual", "Renumbered", "returned", "gone", "Gone"]
BEFORE = """
#include <string>
#include <vector>
struct Grown { int a; };
struct Swapped { std::string a; std::string b; };
struct Held { std::vector<int> a; };
struct Based { virtual ~Based(); };
class Inserted { public: virtual void a(); virtual void c(); };
class Turned { public: virtual void a() = 0; virtual void b() = 0; };
class NoLongerVirtual { public: virtual void a(); virtual void b(); };
enum class Renumbered { A, B, C };
int returned();
void gone();
struct Gone { int a; };
"""
BROKEN_NOW = """
#include <string>
#include <vector>
struct Grown { int a; int b; };
struct Swapped { std::string b; std::string a; };
struct Held { std::vector<long> a; };
struct Base { virtual ~Base(); };
struct Based : Base { ~Based() override; };
class Inserted { public: virtual void a(); virtual void b(); virtual void c(); };
class Turned { public: virtual void b() = 0; virtual void a() = 0; };
class NoLongerVirtual { public: virtual void a(); void b(); };
enum class Renumbered { A, C, B };
long returned();
"""
MORE_NOW = BEFORE.replace("A, B, C", "A, B, C, D").replace("virtual ~Based();", "virtual ~Based(); void more();") + """
struct New { int a; };
New made();
"""


def difference(before, now):
    """What a program built before would not survive, as text; empty if there is nothing of that."""
    if not shutil.which("abidiff"):
        sys.exit("missing: abidiff; scripts/setup test installs it")
    done = subprocess.run(["abidiff", "--no-added-syms", before, now], capture_output=True, text=True)
    # 4: something changed; 8: a symbol or a place in a table is gone, with 4.
    if done.returncode not in (0, 4, 8, 12):
        sys.exit(f"abidiff ended with {done.returncode}: {done.stderr}")
    return interface.readable(done.stdout) if done.returncode else ""


def self_test(compiler):
    with tempfile.TemporaryDirectory() as folder:
        header = pathlib.Path(folder, "made-up.h")

        def told(name, text):
            header.write_text("#pragma once\n" + text)
            output = pathlib.Path(folder, f"{name}.abi")
            interface.write_interface(output, [str(header)], ["-std=c++17"], compiler)
            return output

        before = told("before", BEFORE)
        assert difference(before, told("same", BEFORE)) == ""
        assert difference(before, told("more", MORE_NOW)) == ""
        report = difference(before, told("broken", BROKEN_NOW))
    missed = [name for name in BROKEN if name not in report]
    if missed:
        sys.exit(f"{report}not noticed: {missed}")


def check(top, version, now, refresh):
    baseline = top / "abi" / f"EditorExport-{version}.abi"
    others = [path for path in baseline.parent.glob("*.abi") if path != baseline]
    broken = difference(baseline, now) if baseline.is_file() else ""
    if broken:
        return (f"{broken}\nA program built with {version} would not survive this. Raise the second number of the version in CMakeLists.txt "
                f"and run scripts/refresh-symbols.\nIf nobody has been given a {version} yet, remove abi/{baseline.name} and run it all the same.")
    if refresh:
        shutil.copyfile(now, baseline)
        for path in others:
            path.unlink()
    elif others or not baseline.is_file():
        return f"abi/{baseline.name} is what there should be, alone; scripts/refresh-symbols writes it"
    return ""


def main():
    arguments = sys.argv[1:]
    if arguments[0] == "--self-test":
        self_test(arguments[1])
        return 0
    refresh = arguments[0] == "--refresh"
    top, version, now = arguments[refresh:]
    fault = check(pathlib.Path(top), version, pathlib.Path(now), refresh)
    print(fault, end="\n" if fault else "")
    return 1 if fault else 0


if __name__ == "__main__":
    sys.exit(main())
