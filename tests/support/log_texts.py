"""Texts in the logs of tests."""

import re

# The lines of a file header. The group is the name of a field, or None for a separator.
HEADER = re.compile(r"\*{78}|(CRN Version|Bit|OS Locale|OS Name|OS Version): .*")
LETTERS = "abcdefghijklmnopqrstuvwxyz"


def numbered_text(writer, number, max_length):
    """Returns the free text of a numbered line, the same as tests/stress/numbered_line.cc."""
    seed = writer * 7919 + number
    length = seed * 2654435761 % 2**64 % (max_length + 1)
    begin = seed % 26
    return (LETTERS * (length // 26 + 2))[begin:begin + length]
