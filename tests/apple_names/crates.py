"""Reads Apple's names from the objc2 crates, which are generated from Apple's SDK."""

import collections
import re

import rust_text
from rust_constants import Constants
from rust_types import Types

# Types are Rust source text. `parameters` excludes the receiver.
Method = collections.namedtuple("Method", "owner is_class parameters result")
Function = collections.namedtuple("Function", "parameters result")

_OWNER = re.compile(r"^(?:impl|pub unsafe trait|    pub unsafe trait)\b", re.MULTILINE)
_METHOD = re.compile(r"#\[unsafe\(method\(([\w:]+)\)\)\]")
_CLASS = re.compile(r"^extern_class!\(", re.MULTILINE)
_SUPER = re.compile(r"#\[unsafe\(super\(")
_CONFORMANCE = re.compile(r"unsafe impl[^;{]*?\b(\w+)(?:<[^;{]*>)?\s+for\s+(\w+)")
_EXTERN = re.compile(r'extern "C(?:-unwind)?" (?=\{)')
_FUNCTION = re.compile(r"\bfn (\w+)(?=[(<])")
_VARIABLE = re.compile(r"pub static (\w+): ([^;=]+);")
_ALIAS = re.compile(r"^pub type (\w+)(?:<[^=]*>)? =\s*([^;]+);", re.MULTILINE)
_NEWTYPE = re.compile(r"^pub struct (\w+)\(pub ([^;]+)\);", re.MULTILINE)
_STRUCTURE = re.compile(r"^pub struct (\w+) \{", re.MULTILINE)
_GENERIC = re.compile(r"(\w+):")
_COMMENT = re.compile(r"^\s*//.*$", re.MULTILINE)


def _function_at(text, name_end):
    """Returns parameters and result of the function whose name ends at `name_end`."""
    start = rust_text.end_of_group(text, name_end) if text[name_end] == "<" else name_end
    end = rust_text.end_of_group(text, start)
    parameters = []
    for parameter in rust_text.split(text[start + 1:end - 1]):
        name, _, kind = parameter.partition(":")
        parameters.append((name.strip(), kind.strip()))
    result = re.match(r"\s*->\s*(.*?)\s*(?:where\b.*?)?[;{]", text[end:], re.DOTALL)
    return parameters, result[1] if result else "()"


class Sdk:
    """Holds the names of every source passed to add()."""

    def __init__(self):
        self.types = Types()
        self.constants = Constants()
        self.variables = {}
        self.functions = {}
        self.superclasses = {"NSObject": ()}
        self._methods = collections.defaultdict(list)
        self._protocols = collections.defaultdict(set)

    def __contains__(self, name):
        return (name in self.constants or name in self.variables or name in self.functions or
                name in self.superclasses or name in self.types)

    def add(self, text):
        text = _COMMENT.sub("", text)
        self._add_classes(text)
        self._add_methods(text)
        self._add_external(text)
        self.constants.add(text)
        for name, target in _ALIAS.findall(text) + _NEWTYPE.findall(text):
            self.types.aliases[name] = target
        self.types.structures.update(_STRUCTURE.findall(text))
        for protocol, owner in _CONFORMANCE.findall(text):
            self._protocols[owner].add(protocol)

    def owners(self, name):
        """Returns the classes and protocols whose methods a class has."""
        chain = (name, *self.superclasses[name])
        return [*chain, *sorted(set().union(*(self._protocols[owner] for owner in chain)))]

    def methods(self, selector, is_class, owners=None):
        """Returns the methods of `owners`, or those of all classes if `owners` is None."""
        return [method for method in self._methods[selector]
                if method.is_class == is_class and (owners is None or method.owner in owners)]

    def has_selector(self, selector):
        return bool(self._methods[selector])

    def _add_classes(self, text):
        for declaration in _CLASS.finditer(text):
            block = text[declaration.start():
                         rust_text.end_of_group(text, declaration.end() - 1)]
            above = block[_SUPER.search(block).end() - 1:]
            above = rust_text.split(above[1:rust_text.end_of_group(above, 0) - 1])
            name = re.search(r"pub struct (\w+)", block)[1]
            self.superclasses[name] = tuple(re.match(r"\w+", item)[0] for item in above)
            self.types.objects.add(name)

    def _add_methods(self, text):
        owners = [(found.start(), self._owner_at(text, found)) for found in _OWNER.finditer(text)]
        for found in _METHOD.finditer(text):
            name = _FUNCTION.search(text, found.end())
            parameters, result = _function_at(text, name.end())
            receiver = parameters[0][0] if parameters else ""
            is_class = receiver not in ("&self", "&mut self", "self", "this")
            parameters = [kind for _, kind in parameters[0 if is_class else 1:]
                          if kind != "MainThreadMarker"]  # exists only in Rust
            selector = found[1]
            # The last parameter, an NSError**, is the second half of the result.
            if selector.endswith(":_"):
                selector = selector[:-1]
                parameters.append("*mut *mut NSError")
                value = rust_text.split(rust_text.argument(result, "Result"))[0]
                result = "bool" if value == "()" else value
            owner = max(item for item in owners if item[0] < found.start())[1]
            if selector.count(":") != len(parameters):
                raise ValueError(f"{owner} {selector} has the parameters {parameters}")
            self._methods[selector].append(Method(owner, is_class, parameters, result))

    def _owner_at(self, text, found):
        position = found.end()
        if text[position] == "<":
            end = rust_text.end_of_group(text, position)
            # Type parameters of a class are objects.
            self.types.objects.update(_GENERIC.findall(text[position:end]))
            position = end
        return re.compile(r"\s*(\w+)").match(text, position)[1]

    def _add_external(self, text):
        for found in _EXTERN.finditer(text):
            block = text[found.end():rust_text.end_of_group(text, found.end())]
            for function in _FUNCTION.finditer(block):
                parameters, result = _function_at(block, function.end())
                self.functions[function[1]] = Function([kind for _, kind in parameters], result)
            self.variables.update(_VARIABLE.findall(block))


def read(folder):
    """Reads the generated sources of all crates in a folder."""
    sdk = Sdk()
    sources = sorted(folder.glob("*/src/generated/**/*.rs"))
    for source in sources:
        sdk.add(source.read_text())
    return sdk
