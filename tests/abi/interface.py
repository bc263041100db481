#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The binary interface that headers show, as abidw tells it.

    interface.py OUTPUT HEADERS FLAGS COMPILER   writes it to OUTPUT, and to OUTPUT.d what it was made from

HEADERS and FLAGS are files: of the headers' names, and of the compiler's flags, one a line.

The libraries of a build say too much of it, megabytes about each, and only where debugging information was asked for. So a small
library is made of the headers alone: a function for each class and enumeration that takes one, and for each function that must be
linked one with its parameters and its result. What abidw says of that is cut down to what the headers themselves define: of the
types of others (Qt, the standard library, Boost) the names are kept.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

from check_api import FUNCTIONS, TEMPLATES, must_be_linked, name_of, parsed
from clang.cindex import AccessSpecifier, CursorKind

TYPES = {CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.UNION_DECL, CursorKind.ENUM_DECL}
RECORDS = {"class-decl", "union-decl"}
# Every class with all of itself, whichever library holds its table; private names may be named here.
AS_IT_IS = ["-O0", "-g", "-femit-class-debug-always", "-fno-access-control", "-fvisibility=hidden", "-w", "-shared", "-fPIC"]
WORDS = ["--no-corpus-path", "--no-comp-dir-path", "--no-elf-needed", "--no-parameter-names", "--no-write-default-sizes",
         "--type-id-style", "hash"]
PLACE = ("filepath", "line", "column")


class Witness:
    """Source of the small library."""

    def __init__(self, headers):
        self.headers = set(headers)
        self.lines = [f'#include "{header}"' for header in headers]
        self.names = set()

    def read(self, cursor):
        for child in cursor.get_children():
            if cursor.kind == CursorKind.TRANSLATION_UNIT and str(child.location.file) not in self.headers:
                continue
            if child.kind == CursorKind.NAMESPACE:
                self.read(child)
            elif child.kind in TYPES and child.is_definition() and seen_by_others(child):
                self.add_type(child)
                self.read(child)
            elif child.kind in FUNCTIONS and must_be_linked(child):
                self.add_function(child)
            elif child.kind == CursorKind.VAR_DECL and cursor.kind in TYPES and child.access_specifier != AccessSpecifier.PRIVATE:
                self.add(f"of{child.mangled_name}", "", f"decltype(({name_of(child)}))")

    def add_type(self, cursor):
        taken = f"{spelled(cursor.type)}*"
        # Nobody but its specialisation tells Message::View<A> from Message::View<B>.
        self.add("takes_" + re.sub(r"\W+", "_", spelled(cursor.type)), taken, "void")

    def add_function(self, cursor):
        taken = [spelled(each) for each in cursor.type.argument_types()]
        if cursor.kind != CursorKind.FUNCTION_DECL and not cursor.is_static_method():
            taken.insert(0, ("const " if cursor.is_const_method() else "") + spelled(cursor.semantic_parent.type) + "*")
        without = cursor.kind in (CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR)
        # Not the function's own name: abidw would take the two for one.
        self.add(f"of{cursor.mangled_name}", ", ".join(taken), "void" if without else spelled(cursor.result_type))

    def add(self, name, taken, result):
        if name not in self.names:
            self.names.add(name)
            self.lines.append(f'extern "C" __attribute__((visibility("default"))) auto {name}({taken}) -> {result} {{ __builtin_trap(); }}')


def spelled(type_):
    return type_.get_canonical().spelling


def seen_by_others(cursor):
    """Whether the type has a name that others may use. What a template is made into is asked of where it is made."""
    scope = cursor
    while scope.kind != CursorKind.TRANSLATION_UNIT:
        if scope.access_specifier == AccessSpecifier.PRIVATE or scope.kind in TEMPLATES or not scope.spelling:
            return False
        scope = scope.semantic_parent
    return True


def told_by_abidw(source, compiler, flags, output):
    """Files are made beside the output."""
    text, library = output.with_suffix(".cpp"), output.with_suffix(".so")
    text.write_text(source)
    dependencies = ["-MD", "-MT", output, "-MF", f"{output}.d"]
    subprocess.run([compiler, *flags, *AS_IT_IS, *dependencies, "-o", library, text], check=True)
    return subprocess.run(["abidw", *WORDS, library], check=True, capture_output=True, text=True).stdout


def cut_down(told, headers):
    """To what the headers define, what it is made of, and the names of the rest."""
    root = ElementTree.fromstring(told)
    close_others(root, set(headers))
    needed = ids_needed(root)
    for part in list(root):
        if part.tag == "abi-instr":
            sweep(part, needed)
            part.attrib.pop("path", None)
    for part in root:
        put_in_order(part)
    for element in root.iter():
        for attribute in PLACE:
            element.attrib.pop(attribute, None)
        element.text = None
    ElementTree.indent(root, " ")
    return ElementTree.tostring(root, encoding="unicode") + "\n"


def put_in_order(element):
    """Each namespace once, and all in it by name: abidw writes what it meets first, and a small change would move much."""
    if element.tag not in ("abi-instr", "namespace-decl"):
        return
    spaces, others = {}, []
    for child in element:
        if child.tag == "namespace-decl" and child.get("name") in spaces:
            spaces[child.get("name")].extend(child)
        elif child.tag == "namespace-decl":
            spaces[child.get("name")] = child
        else:
            others.append(child)
    element[:] = sorted(spaces.values(), key=lambda child: child.get("name")) + \
        sorted(others, key=lambda child: (child.tag, child.get("name", ""), child.get("id", "")))
    for child in element:
        put_in_order(child)


def close_others(element, headers):
    """Types of others have their names, and inside them only types that somebody may name."""
    if element.get("filepath") and element.get("filepath") not in headers:
        if element.tag in RECORDS:
            element[:] = [child for child in element if child.tag == "member-type"]
            element.attrib.pop("size-in-bits", None)
            element.set("is-declaration-only", "yes")
        elif element.tag == "enum-decl":
            element[:] = [child for child in element if child.tag == "underlying-type"]
    for child in element:
        close_others(child, headers)


def named_in(element):
    """Ids that an element names, but not those that types inside it name: these are needed for themselves."""
    yield from (element.get(key) for key in ("type-id", "naming-typedef-id") if element.get(key))
    for child in element:
        if child.tag != "member-type":
            yield from named_in(child)


def ids_needed(root):
    parents = {child: parent for parent in root.iter() for child in parent}
    of_id = {element.get("id"): element for element in root.iter() if element.get("id")}
    needed, to_look_at = set(), []
    for function in root.iter("function-decl"):
        if parents[function].tag != "member-function":
            to_look_at += named_in(function)
    while to_look_at:
        id_ = to_look_at.pop()
        if id_ in needed or id_ not in of_id:
            continue
        needed.add(id_)
        to_look_at += named_in(of_id[id_])
        around = parents[of_id[id_]]
        while around is not root:
            to_look_at += [around.get("id")] if around.get("id") else []
            around = parents[around]
    return needed


def sweep(element, needed):
    """Removes types that nobody needs, and what was left empty."""
    for child in list(element):
        if child.get("id"):
            if child.get("id") not in needed:
                element.remove(child)
                continue
        elif child.tag == "function-decl" and element.tag in ("abi-instr", "namespace-decl") and not child.get("elf-symbol-id"):
            element.remove(child)
            continue
        sweep(child, needed)
        if child.tag in ("namespace-decl", "member-type") and len(child) == 0:
            element.remove(child)


def write_interface(output, headers, flags, compiler):
    if not shutil.which("abidw"):
        sys.exit("missing: abidw; scripts/setup test installs it")
    witness = Witness(headers)
    witness.read(parsed(headers, flags).cursor)
    told = told_by_abidw("\n".join(witness.lines) + "\n", compiler, flags, output)
    output.write_text(cut_down(told, headers))


def readable(report):
    """The functions of the small library by the names of what they stand for."""
    report = re.sub(r"\bof_Z", "_Z", report)
    return subprocess.run(["c++filt"], input=report, check=True, capture_output=True, text=True).stdout


def main():
    output, headers, flags, compiler = sys.argv[1:]
    headers, flags = (pathlib.Path(path).read_text().splitlines() for path in (headers, flags))
    write_interface(pathlib.Path(output), headers, flags, compiler)


if __name__ == "__main__":
    main()
