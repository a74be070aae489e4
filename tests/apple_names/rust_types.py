"""Reduces a Rust type to its kind, with the names that c_types.py uses."""

import re

import rust_text

SCALARS = {
    "()": "void", "c_void": "void", "bool": "bool", "Sel": "selector",
    "c_char": "i8", "c_schar": "i8", "i8": "i8", "c_uchar": "u8", "u8": "u8",
    "c_short": "i16", "i16": "i16", "c_ushort": "u16", "u16": "u16", "unichar": "u16",
    "c_int": "i32", "i32": "i32", "c_uint": "u32", "u32": "u32",
    "libc::uid_t": "u32", "libc::gid_t": "u32",
    "c_long": "i64", "c_longlong": "i64", "i64": "i64", "isize": "i64", "NSInteger": "i64",
    "c_ulong": "u64", "c_ulonglong": "u64", "u64": "u64", "usize": "u64", "NSUInteger": "u64",
    "c_float": "f32", "f32": "f32", "c_double": "f64", "f64": "f64", "CGFloat": "f64",
    # Types that the crates declare by hand.
    "Bool": "bool", "Boolean": "u8", "NSComparisonResult": "i64", "NSDecimal": "struct",
    "NSPoint": "struct", "NSRange": "struct", "NSRect": "struct", "NSSize": "struct",
}


class Types:
    """Holds the classes, aliases and structures that the sources declare."""

    def __init__(self):
        self.objects = {"AnyObject", "NSObject", "Self"}
        self.aliases = {}
        self.structures = set()

    def __contains__(self, name):
        return (name in SCALARS or name in self.objects or name in self.aliases or
                name in self.structures)

    def enumeration(self, text):
        """Returns the integer type that has its own constants, or None."""
        name = None
        while text in self.aliases:
            name, text = text, self.aliases[text]
        return name if text in SCALARS else None

    def kind(self, text):
        """Returns the kind of a type. Raises LookupError for an unknown type."""
        text = re.sub(r"'static\s+", "", text).strip()
        for wrapper in ("Option", "Retained", "Allocated"):
            inner = rust_text.argument(text, wrapper)
            if inner is not None:
                return self.kind(inner) if wrapper == "Option" else "object"
        inner = rust_text.argument(text, "NonNull")
        if inner is None and (pointer := re.match(r"(?:&mut|&|\*mut|\*const)\s*", text)):
            inner = text[pointer.end():]
        return self._kind_of_value(text) if inner is None else self._kind_of_pointer(inner, text)

    def _kind_of_pointer(self, inner, text):
        name = re.match(r"[\w:]*", inner)[0]
        if name == "AnyClass":
            return "class"
        if name == "ProtocolObject" or self._is_object(name):
            # An object that the callee may replace is a pointer to a pointer.
            return "*object" if text.startswith("&mut") else "object"
        return "block" if name == "block2::DynBlock" else "*" + self.kind(inner)

    def _is_object(self, name):
        while name in self.aliases:
            name = re.match(r"\w*", self.aliases[name])[0]
        return name in self.objects

    def _kind_of_value(self, text):
        if text in SCALARS:
            return SCALARS[text]
        if text in self.aliases:
            return self.kind(self.aliases[text])
        # Core Foundation's types are opaque, and their crate is not read.
        if text in self.structures or re.fullmatch(r"CF[A-Z]\w*", text):
            return "struct"
        if self._is_object(re.match(r"\w*", text)[0]):
            return "object"
        raise LookupError(f"the crates' type {text} is unknown")
