#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds that every installed header compiles alone and against the installed ones alone: check_headers.py TOP TREE COMPILER

A header that a source of the same name includes first has been compiled alone by the build; the others are compiled here, each
in a file of its own, and all of them together in one."""
import concurrent.futures
import pathlib
import re
import shutil
import subprocess
import sys

ROOTS = ("multimediacore/src", "editor/src/library", "apps")
FIRST = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.M)


def is_first_of_its_source(top, header):
    for root in ROOTS:
        source = (top / root / header).with_suffix(".cpp")
        found = FIRST.search(source.read_text()) if source.is_file() else None
        if found and found.group(1) == header:
            return True
    return False


def compiled(folder, name, includes, command):
    """What the compiler says of a file that includes these; empty when it takes it."""
    source = folder / f"{name}.cpp"
    source.write_text("".join(f'#include "{each}"\n' for each in includes))
    done = subprocess.run([*command, "-c", source, "-o", source.with_suffix(".o")], capture_output=True, text=True)
    return "" if done.returncode == 0 else f"{name}: {done.stderr or done.returncode}"


def main():
    top, tree, compiler = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    include = tree / "include/EditorExport"
    headers = sorted(path.relative_to(include).as_posix() for path in include.rglob("*.h"))
    if not headers:
        print(f"{include}: no headers")
        return 1
    flags = subprocess.run(["pkg-config", "--cflags", "Qt5Core", "Qt5Gui"], check=True, capture_output=True, text=True).stdout
    cache = [ccache] if (ccache := shutil.which("ccache")) else []
    command = [*cache, compiler, "-std=c++17", "-fPIC", "-Wall", "-Wextra", "-Werror", f"-I{include}", *flags.split()]
    alone = [header for header in headers if not is_first_of_its_source(top, header)]
    # Always the same place, where a compiler cache knows the files again.
    folder = tree.with_name(tree.name + ".headers")
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        tasks = [pool.submit(compiled, folder, "all", headers, command)]
        tasks += [pool.submit(compiled, folder, header.replace("/", "_"), [header], command) for header in alone]
        faults = [fault for fault in (task.result() for task in tasks) if fault]
    shutil.rmtree(folder)
    print("\n".join(faults) or f"{len(headers)} headers, {len(alone)} of them compiled alone here")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
