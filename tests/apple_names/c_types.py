"""Reduces a C or Objective-C type to its kind.

Kinds are object, class, selector, bool, void, struct, enum, block, i8 to i64, u8 to u64, f32, f64,
and each of them after a "*" for a pointer to it.
"""

import re

_NAMED = {
    "BOOL": "bool", "bool": "bool", "_Bool": "bool", "id": "object", "instancetype": "object",
    "Class": "class", "SEL": "selector", "void": "void",
    "char": "i8", "signed char": "i8", "unsigned char": "u8",
    "short": "i16", "unsigned short": "u16", "int": "i32", "unsigned int": "u32",
    "long": "i64", "unsigned long": "u64", "long long": "i64", "unsigned long long": "u64",
    "float": "f32", "double": "f64",
}


def class_of(text):
    """Returns the class that the type is a pointer to, or None."""
    found = re.fullmatch(r"(\w+)(?:<.*>)? \*", _plain(text))
    return found[1] if found else None


def _plain(text):
    text = re.sub(r"\b(?:const|volatile|__strong|__autoreleasing)\b", "", text)
    return " ".join(text.split())


class Types:
    def __init__(self, typedefs, enums, classes):
        self._typedefs = typedefs
        self._enums = enums
        self._classes = classes

    def kind(self, text):
        text = _plain(text)
        if text in _NAMED:
            return _NAMED[text]
        if text.startswith("id<") or class_of(text) in self._classes:
            return "object"
        if "(^" in text:
            return "block"
        if text.endswith("*"):
            return "*" + self.kind(text[:-1])
        if text in self._enums or text.startswith("enum ") or "enum at " in text:
            return "enum"
        target = self._typedefs.get(text)
        return self.kind(target) if target not in (None, text) else "struct"
