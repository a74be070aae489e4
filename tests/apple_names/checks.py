"""Finds differences between the project's sources and headers and Apple's SDK."""

import re

import c_types
import clang_dump
from comparison import Comparison
from declarations import Declarations
from uses import Uses

_WORD = re.compile(r"\b(?:NS|CF|SC|FS)[A-Z]\w*[a-z]\w*")
_NO_CODE = re.compile(r'//[^\n]*|"(?:\\.|[^"\\\n])*"|^ *#[^\n]*', re.MULTILINE)


class Checks:
    def __init__(self, sdk, exceptions):
        self._sdk = sdk
        self._exceptions = exceptions

    def problems_of_source(self, compiler, source):
        """Checks the names that a source uses."""
        comparison = Comparison(self._sdk, self._exceptions)
        dump = compiler.dump(source)
        tree = clang_dump.tree(dump, source)
        if not tree.children:
            raise ValueError(f"clang reports no declaration in {source}")
        uses = Uses(tree)
        types = self._types(dump, uses.own_classes)
        for message in uses.messages:
            comparison.check_message(message, uses, types)
        for call in uses.calls:
            comparison.check_function(call.name, call, types)
        for selector in sorted(uses.selectors):
            comparison.check_selector(selector, uses)
        for name in sorted(uses.objects):
            comparison.check_object(name)
        for name, value in compiler.values(source, sorted(uses.constants)).items():
            comparison.check_constant(name, value)
        seen = {call.name for call in uses.calls} | uses.constants | uses.objects
        for word in sorted(set(_WORD.findall(_NO_CODE.sub("", source.read_text())))):
            comparison.check_word(word, seen)
        return [f"{source.name}: {problem}" for problem in comparison.problems]

    def problems_of_header(self, header):
        """Checks the declarations of a header that replaces one of Apple's."""
        comparison = Comparison(self._sdk, self._exceptions)
        text = header.read_text()
        dump = clang_dump.Compiler(["clang++", "-x", "c++"], header.parent).dump(header)
        declared = Declarations(clang_dump.tree(dump, header), text)
        types = self._types(dump, ())
        for name, function in declared.functions.items():
            comparison.check_function(name, function, types)
        for name, value in declared.constants.items():
            comparison.check_constant(name, value)
        for name in sorted(declared.structures | declared.macros):
            comparison.check_uncompared(name)
        return [f"{header.name}: {problem}" for problem in comparison.problems]

    def _types(self, dump, own_classes):
        return c_types.Types(clang_dump.typedefs(dump), clang_dump.enums(dump),
                             {*self._sdk.superclasses, *own_classes})
