"""Collects Apple's messages, functions and constants that a source uses."""

import collections
import re

import c_types

# Apple's names begin with at least two capital letters, the project's with one.
APPLES = re.compile(r"k?[A-Z]{2}\w*[a-z]\w*|(?:objc|class|method|object|sel|ivar)_\w+|Gestalt")

# `receiver` is a class, another message, or None for an object of unknown class. `constants` has a
# list of names for each parameter.
Message = collections.namedtuple(
    "Message", "selector receiver is_class parameters constants result")
Call = collections.namedtuple("Call", "name parameters result")

_MESSAGE = re.compile(r"selector=(\S+)(?: class='([^']+)'| super \((\w+)\))?")
_REFERENCE = re.compile(r"(Function|Var|EnumConstant) 0x[0-9a-f]+ '(\w+)'")
_METHOD = re.compile(r"[-+] (\S+) '")


def _constants(node):
    """Returns the enumerators that an expression combines."""
    node = node.without_casts()
    if node.kind == "BinaryOperator":
        return [name for child in node.children for name in _constants(child)]
    found = _REFERENCE.search(node.text) if node.kind == "DeclRefExpr" else None
    return [found[2]] if found and found[1] == "EnumConstant" else []


class Uses:
    """`own_classes` maps each class that the source defines to its superclass."""

    def __init__(self, tree):
        self.messages, self.calls = [], []
        self.constants, self.objects, self.selectors = set(), set(), set()
        self.own_classes, self.own_selectors = {}, set()
        self._read(tree, None)

    def _read(self, node, own_class):
        if node.kind == "ObjCInterfaceDecl":
            name = node.text.split()[-1]
            own_class = name
            above = next(child for child in node.children if child.kind == "super")
            self.own_classes[name] = re.search(r"'(\w+)'", above.text)[1]
        elif node.kind == "ObjCImplementationDecl":
            own_class = node.text.split()[-1]
        elif node.kind == "ObjCMethodDecl":
            self.own_selectors.add(_METHOD.search(node.text)[1])
        elif node.kind == "ObjCMessageExpr":
            self.messages.append(self._message(node, own_class))
        elif node.kind == "ObjCSelectorExpr":
            self.selectors.add(node.text.split()[-1])
        elif node.kind == "CallExpr":
            self._add_call(node)
        elif node.kind == "DeclRefExpr":
            self._add_reference(node)
        for child in node.children:
            self._read(child, own_class)

    def _message(self, node, own_class):
        selector, receiving_class, above = _MESSAGE.search(node.text).groups()
        parameters = list(node.children)
        if receiving_class:
            receiver, is_class = receiving_class, True
        elif above:
            receiver, is_class = self.own_classes[own_class], above == "class"
        else:
            object_ = parameters.pop(0)
            receiver, is_class = c_types.class_of(object_.type()), False
            object_ = object_.without_casts()
            if receiver is None and object_.kind == "ObjCMessageExpr":
                receiver = self._message(object_, own_class)
        return Message(selector, receiver, is_class, [child.type() for child in parameters],
                       [_constants(child) for child in parameters], node.type())

    def _add_call(self, node):
        callee = _REFERENCE.search(node.children[0].without_casts().text)
        if not callee or not APPLES.fullmatch(callee[2]):
            return
        self.calls.append(Call(callee[2], [child.type() for child in node.children[1:]],
                               node.type()))
        if callee[2] == "NSSelectorFromString":
            self.selectors.update(re.search(r'"(.*)"', child.text)[1]
                                  for child in node.descendants() if child.kind == "StringLiteral")

    def _add_reference(self, node):
        found = _REFERENCE.search(node.text)
        if found and found[1] != "Function" and APPLES.fullmatch(found[2]):
            if found[1] == "EnumConstant" or c_types.class_of(node.type()) is None:
                self.constants.add(found[2])
            else:
                self.objects.add(found[2])
