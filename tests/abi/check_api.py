#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds what the shared libraries export against what the installed headers declare.

    check_api.py HEADERS FLAGS LIBRARY...   HEADERS and FLAGS are files: of their names, and of the compiler's flags, one a line

What a header declares and does not define can be linked, unless it is private or pure; and what a library exports belongs to
something that a header declares.
"""
import pathlib
import re
import subprocess
import sys

from check_symbols import for_others
from clang import cindex
from clang.cindex import AccessSpecifier, CursorKind

FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.CONVERSION_FUNCTION}
TEMPLATES = {CursorKind.CLASS_TEMPLATE, CursorKind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION}
CLASSES = {CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL, CursorKind.UNION_DECL} | TEMPLATES
AROUND = CLASSES | {CursorKind.NAMESPACE, CursorKind.FRIEND_DECL}
NAMED = {CursorKind.FUNCTION_TEMPLATE, CursorKind.VAR_DECL}
OF_A_CLASS = re.compile(r"^(?:(?:vtable|VTT|typeinfo|typeinfo name) for |(?:non-virtual|virtual|covariant return) thunk to |guard variable for )+")


def parsed(headers, flags):
    text = "".join(f'#include "{header}"\n' for header in headers)
    unit = cindex.Index.create().parse("all.cpp", args=["-x", "c++", *flags], unsaved_files=[("all.cpp", text)])
    faults = [each for each in unit.diagnostics if each.severity >= cindex.Diagnostic.Error]
    if faults:
        sys.exit("\n".join(map(str, faults)))
    return unit


def name_of(cursor):
    names = []
    while cursor and cursor.kind != CursorKind.TRANSLATION_UNIT:
        names.insert(0, re.sub(r"^operator\W+$", "operator", cursor.spelling))
        cursor = cursor.semantic_parent
    return "::".join(filter(None, names))


class Api:
    """Names of classes, functions and variables that headers declare, and the symbols of those functions that must be linked;
    private classes that no header defines."""

    def __init__(self):
        self.names = set()
        self.closed = set()
        self.symbols = {}

    def read(self, cursor, headers):
        for child in cursor.get_children():
            if cursor.kind == CursorKind.TRANSLATION_UNIT and str(child.location.file) not in headers:
                continue
            if child.kind in CLASSES and child.access_specifier == AccessSpecifier.PRIVATE and not child.get_definition():
                self.closed.add(name_of(child))
            elif child.kind in AROUND:
                self.add(child)
                self.read(child, headers)
            elif child.kind in FUNCTIONS or child.kind in NAMED:
                self.add(child)
                if child.kind in FUNCTIONS and must_be_linked(child):
                    self.symbols[child.mangled_name] = f"{name_of(child)}, {child.location.file}:{child.location.line}"

    def add(self, cursor):
        if cursor.kind not in (CursorKind.NAMESPACE, CursorKind.FRIEND_DECL):
            self.names.add(name_of(cursor))

    def declares(self, name):
        """Whether what is called so is something that a header declares for others, or is inside it."""
        around = surroundings(name)
        return any(each in self.names for each in around) and not any(each in self.closed for each in around)


def must_be_linked(cursor):
    words = [token.spelling for token in cursor.get_tokens()]
    if cursor.is_pure_virtual_method() or cursor.get_definition() is not None or words[-2:] in (["=", "delete"], ["=", "default"]):
        return False
    scope = cursor
    while scope.kind != CursorKind.TRANSLATION_UNIT:
        if scope.access_specifier == AccessSpecifier.PRIVATE or scope.kind in TEMPLATES:
            return False
        scope = scope.semantic_parent
    return True


def exported(library):
    """Symbols that a library gives to embedders."""
    table = subprocess.run(["nm", "--dynamic", "--defined-only", "--extern-only", library], check=True, capture_output=True,
                           text=True).stdout
    return set(for_others(table))


def readable(symbols):
    text = subprocess.run(["c++filt"], input="\n".join(symbols), check=True, capture_output=True, text=True).stdout
    return dict(zip(symbols, text.splitlines()))


def surroundings(name):
    """Of what the linker calls so: its own name, without parameters, and those of the classes and namespaces around it."""
    name = re.sub(r"\[abi:\w+\]", "", OF_A_CLASS.sub("", name)).replace("(anonymous namespace)", "anonymous")
    name = re.sub(r"operator[^\w\s]+?(?=\(|$)", "operator", name)
    depth, kept = 0, ""
    for character in name:
        if character == "(" and depth == 0:
            break
        depth += (character == "<") - (character == ">")
        kept += character if depth == 0 and character != ">" else ""
    parts = kept.split(" ")[-1].split("::")
    return ["::".join(parts[:count]) for count in range(1, len(parts) + 1)]


def self_test():
    api = Api()
    api.names, api.closed = {"A::B", "A::C", "F", "A::free", "A::operator"}, {"A::B::Private"}
    assert api.declares("A::B::made(int)") and api.declares("vtable for A::B")
    assert api.declares("non-virtual thunk to A::C<X, Y<Z> >::~C()") and api.declares("void A::C<int>::set(int)")
    assert api.declares("F::F(int)") and api.declares("A::free[abi:cxx11](int) const")
    assert api.declares("A::operator<<(X<Y>&)") and api.declares("A::C<X>::operator()(int)")
    assert not api.declares("A::Inner::made(A::B)") and not api.declares("G::made(A::B)") and not api.declares("A::made()")
    assert not api.declares("A::B::Private::made()") and not api.declares("vtable for A::B::Private")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    headers = pathlib.Path(sys.argv[1]).read_text().split()
    api = Api()
    api.read(parsed(headers, pathlib.Path(sys.argv[2]).read_text().splitlines()).cursor, set(headers))
    symbols = set().union(*map(exported, sys.argv[3:]))
    faults = [f"declared, but not exported: {name}" for symbol, name in sorted(api.symbols.items()) if symbol not in symbols]
    faults += [f"exported, but no installed header declares it: {name}" for name in sorted(set(readable(sorted(symbols)).values()))
               if not api.declares(name)]
    if not api.symbols:
        faults.append("the headers declare nothing")
    print("\n".join(faults) or f"{len(api.symbols)} functions of {len(headers)} headers can be linked")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
