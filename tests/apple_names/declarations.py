"""Reads a header that replaces one of Apple's."""

import collections
import re

import clang_dump

Function = collections.namedtuple("Function", "parameters result")

_FUNCTION = re.compile(r"(\w+) '([^']*?) ?\(")
_STRUCTURE = re.compile(r"struct (\w+) definition")
_MACRO = re.compile(r"^ *# *define (\w+)", re.MULTILINE)


class Declarations:
    def __init__(self, tree, text):
        self.functions = {}
        self.constants = {}
        # Names only, because the crates contain neither.
        self.structures = set()
        self.macros = set(_MACRO.findall(text))
        for node in tree.descendants():
            self._add(node)

    def _add(self, node):
        if node.kind == "FunctionDecl":
            name, result = _FUNCTION.search(node.text).groups()
            self.functions[name] = Function(
                [child.type() for child in node.children if child.kind == "ParmVarDecl"], result)
        elif node.kind == "EnumConstantDecl":
            name = re.search(r"(\w+) '", node.text)[1]
            self.constants[name] = clang_dump.value(node)
        elif node.kind == "CXXRecordDecl" and (found := _STRUCTURE.search(node.text)):
            self.structures.add(found[1])
