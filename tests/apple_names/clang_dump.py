"""Reads the syntax tree that clang prints.

clang's JSON has the same content, but clang 14 crashes when it writes Objective-C methods as JSON.
"""

import re
import subprocess

_LINE = re.compile(r"([ |`-]*)(\w+)(?: 0x[0-9a-f]+)?(.*)")
_TYPEDEF = re.compile(r"TypedefDecl 0x.* (\w+) '([^']+)'(?::'[^']+')?$", re.MULTILINE)
_ENUM = re.compile(r"EnumDecl 0x.* (\w+)(?: '[^']+'(?::'[^']+')?)?$", re.MULTILINE)
_TYPE = re.compile(r" '([^']*)'(?::'([^']*)')?")


class Node:
    def __init__(self, kind, text):
        self.kind = kind
        self.text = text
        self.children = []

    def type(self):
        """Returns the type as the source names it, but C++ types without typedefs."""
        named, plain = _TYPE.search(self.text).groups()
        return plain if plain and "::" in named else named

    def descendants(self):
        for child in self.children:
            yield child
            yield from child.descendants()

    def without_casts(self):
        """Returns the expression inside casts and parentheses."""
        node = self
        while re.search("Cast|Paren|ExprWithCleanups|Materialize", node.kind) and node.children:
            node = node.children[0]
        return node


class Compiler:
    """Runs `command`, a compiler with the options for a source, in `folder`."""

    def __init__(self, command, folder):
        self._command = [*command, "-w", "-fsyntax-only", "-Xclang", "-ast-dump"]
        self._folder = folder

    def dump(self, source):
        return self._run(str(source))

    def values(self, source, names):
        """Returns the value that each integer constant has at the end of the source."""
        members = [f"k{name} = static_cast<long long>({name})" for name in names]
        probe = f'#include "{source}"\nenum class Values : long long {{ {", ".join(members)} }};\n'
        constants = [node for node in tree(self._run("-", probe), "<stdin>").descendants()
                     if node.kind == "EnumConstantDecl"]
        return dict(zip(names, map(value, constants), strict=True))

    def _run(self, source, text=None):
        return subprocess.run([*self._command, source], cwd=self._folder, input=text, check=True,
                              stdout=subprocess.PIPE, text=True).stdout


def value(node):
    """Returns the value of an enumerator, or None if the source does not contain it."""
    return next((int(child.text.split()[-1]) for child in node.descendants()
                 if child.kind == "value"), None)


def typedefs(text):
    return dict(_TYPEDEF.findall(text))


def enums(text):
    return set(_ENUM.findall(text))


def tree(text, source):
    """Returns the declarations of the source itself. They must follow its last #include."""
    lines = text.splitlines()
    first = re.compile(r"[|`]-\w+ 0x[^<]*<" + re.escape(str(source)) + ":")
    start = next((number for number, line in enumerate(lines) if first.match(line)), len(lines))
    root = Node("TranslationUnitDecl", "")
    open_nodes = [root]
    for line in lines[start:]:
        if not (found := _LINE.match(line)):
            continue
        depth = len(found[1]) // 2
        node = Node(found[2], found[3])
        del open_nodes[depth:]
        open_nodes[-1].children.append(node)
        open_nodes.append(node)
    return root
