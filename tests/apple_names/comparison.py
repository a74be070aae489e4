"""Compares uses and declarations of Apple's names with the SDK."""

import re

import rust_text
from uses import Message

_INTEGER = re.compile(r"[iu]\d+")


class Exceptions:
    """Names that are not compared. Each group of indented names follows a line with its reason."""

    def __init__(self, text):
        lines = [line for line in text.splitlines() if line and not line.startswith("#")]
        self._names = {line.strip() for line in lines if line.startswith(" ")}
        self._used = set()

    def allow(self, name):
        if name in self._names:
            self._used.add(name)
        return name in self._names

    def allow_selector(self, selector):
        """Allows a selector without a known class."""
        return any([self.allow(name) for name in sorted(self._names)
                    if name.endswith(f" {selector}]")])

    def unused(self):
        return sorted(self._names - self._used)


class Comparison:
    """Collects `problems` without duplicates."""

    def __init__(self, sdk, exceptions):
        self._sdk = sdk
        self._exceptions = exceptions
        self.problems = []

    def check_message(self, message, uses, types):
        owner = self._class_of(message.receiver)
        while owner in uses.own_classes:
            if message.selector in uses.own_selectors:
                return
            owner = uses.own_classes[owner]
        name = f"{'+' if message.is_class else '-'}[{owner or 'id'} {message.selector}]"
        owners = self._owners(owner)
        if owners == ():
            self._add(f"{name}: {owner} is not a class of the SDK")
            return
        methods = self._sdk.methods(message.selector, message.is_class, owners)
        if methods:
            self._compare(name, [self._kinds(method) for method in methods],
                          self._kinds_of_use(message, types))
            self._compare_constants(name, methods, message.constants)
        elif owner is None:
            if not self._exceptions.allow_selector(message.selector):
                self._add(f"{name} is unknown to the SDK")
        elif not any(self._exceptions.allow(name.replace(f"[{owner} ", f"[{above} "))
                     for above in owners):
            self._add(f"{name} is unknown to the SDK")

    def check_selector(self, selector, uses):
        if not (selector in uses.own_selectors or self._sdk.has_selector(selector) or
                self._exceptions.allow_selector(selector)):
            self._add(f"@selector({selector}) is unknown to the SDK")

    def check_function(self, name, function, types):
        """Checks a call or a declaration."""
        found = self._sdk.functions.get(name)
        if found is None:
            self._report(name, "is unknown to the SDK")
        else:
            self._compare(name, [self._kinds(found)], self._kinds_of_use(function, types))

    def check_constant(self, name, value):
        if name not in self._sdk.constants:
            self._report(name, "is unknown to the SDK")
            return
        expected = self._sdk.constants.value(name)
        # A value with its highest bit set may be signed here and unsigned in the SDK.
        if expected is None or value is None or (expected - value) % 2**64 != 0:
            self._report(name, f"is {expected} in the SDK, but {value} here")

    def check_object(self, name):
        kind = self._sdk.variables.get(name)
        if kind is None:
            self._report(name, "is unknown to the SDK")
        elif self._sdk.types.kind(kind) != "object":
            self._report(name, "is not an object in the SDK")

    def check_uncompared(self, name):
        """Reports a name that the crates cannot contain."""
        self._report(name, "cannot be compared with the SDK")

    def check_word(self, name, seen):
        """Checks a word of a source in which the compiler has found the names `seen`."""
        if name not in self._sdk:
            self._report(name, "is unknown to the SDK")
        elif name not in seen and (name in self._sdk.constants or name in self._sdk.functions or
                                   name in self._sdk.variables):
            self._report(name, "is a macro here, which hides it from the comparison")

    def _report(self, name, problem):
        if not self._exceptions.allow(name):
            self._add(f"{name} {problem}")

    def _add(self, problem):
        if problem not in self.problems:
            self.problems.append(problem)

    def _class_of(self, receiver):
        """Returns the class of a receiver, or None for an object of unknown class."""
        if not isinstance(receiver, Message):
            return receiver
        owner = self._class_of(receiver.receiver)
        for method in self._sdk.methods(receiver.selector, receiver.is_class, self._owners(owner)):
            result = rust_text.argument(method.result, "Option") or method.result
            name = rust_text.argument(result, "Retained")
            if name == "Self":
                return owner
            if name in self._sdk.superclasses:
                return name
        return None

    def _compare_constants(self, name, methods, constants):
        """Reports a constant of another enumeration than the parameter's."""
        enumeration = self._sdk.types.enumeration
        for position, names in enumerate(constants):
            expected = {enumeration(method.parameters[position]) for method in methods}
            for constant in names:
                found = enumeration(self._sdk.constants.type(constant))
                if found and None not in expected and found not in expected:
                    self._report(constant, f"is of {found} in the SDK, but {name} expects "
                                           f"{' or '.join(sorted(expected))}")

    def _owners(self, owner):
        """Returns None for an object of unknown class, and () for a class that the SDK lacks."""
        if owner is None:
            return None
        return self._sdk.owners(owner) if owner in self._sdk.superclasses else ()

    def _kinds(self, function):
        kind = self._sdk.types.kind
        return [kind(parameter) for parameter in function.parameters], kind(function.result)

    @staticmethod
    def _kinds_of_use(function, types):
        return [types.kind(item) for item in function.parameters], types.kind(function.result)

    def _compare(self, name, allowed, found):
        if not any(_agree(expected, found) for expected in allowed):
            expected = " or ".join(map(_shown, allowed))
            self._report(name, f"is {expected} in the SDK, but {_shown(found)} here")


def _agree(expected, found):
    """GNUstep declares some integers as enumerations, whose size does not matter."""
    expected, found = [[*parameters, result] for parameters, result in (expected, found)]
    return len(expected) == len(found) and all(
        one == other or other == "enum" and _INTEGER.fullmatch(one)
        for one, other in zip(expected, found))


def _shown(kinds):
    return f"({', '.join(kinds[0])}) -> {kinds[1]}"
