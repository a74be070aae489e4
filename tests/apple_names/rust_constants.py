"""Evaluates the integer constants that Rust sources declare."""

import re

_PLAIN = re.compile(r"^pub (?:const|static) (\w+): (\w+) =\s*([^;]+);", re.MULTILINE)
_MEMBER = re.compile(r'#\[doc\(alias = "(\w+)"\)\](?:\s*#\[[^\n]*\])*'
                     r"\s*(?:pub )?const (\w+)(?:: Self)? =\s*([^;]+);")
_OWNER = re.compile(r"^ *impl (\w+)", re.MULTILINE)
# A structure around a value, a cast, or the access to the value of a structure.
_WRAPPING = re.compile(r"\b[A-Z]\w*(?=\()|\bas \w+|\.0\b")
_WORD = re.compile(r"0x[\da-fA-F]+|[A-Za-z]\w*(?:::\w+)*")
_ARITHMETIC = re.compile(r"[\d\s()<|&~+-]+")
_LIMITS = {"NSIntegerMax": 2**63 - 1, "NSUIntegerMax": 2**64 - 1}


class Constants:
    """Finds constants by their names in C."""

    def __init__(self):
        self._types = {}
        self._expressions = {}
        self._names = {}  # keys are the names in Rust

    def __contains__(self, name):
        return name in self._expressions

    def add(self, text):
        for name, kind, expression in _PLAIN.findall(text):
            self._types[name], self._expressions[name] = kind, expression
        owners = [(found.start(), found[1]) for found in _OWNER.finditer(text)]
        for found in _MEMBER.finditer(text):
            owner = max(item for item in owners if item[0] < found.start())[1]
            self._names[f"{owner}::{found[2]}"] = found[1]
            self._types[found[1]], self._expressions[found[1]] = owner, found[3]

    def type(self, name):
        """Returns the type of a constant, or None for an unknown constant."""
        return self._types.get(name)

    def value(self, name):
        """Returns the value of a constant, or None if it is not an integer or not understood."""
        expression = _WRAPPING.sub("", self._expressions[name]).replace("!", "~")
        numbers = _WORD.sub(lambda word: self._number(word[0], self._types[name]), expression)
        if not _ARITHMETIC.fullmatch(numbers):
            return None
        return eval(numbers, {"__builtins__": {}})  # only digits and operators

    def _number(self, word, owner):
        """Returns the value of a word as text, or the word itself without a value."""
        if word.startswith("0x"):
            return str(int(word, 16))
        name = self._names.get(re.sub(r"^Self::", owner + "::", word), word)
        if name in self._expressions:
            return str(self.value(name))
        return str(_LIMITS.get(name, word))
