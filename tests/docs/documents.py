#!/usr/bin/env python3
"""Reads the documents: their fenced blocks, the commands within the text, and the links.

A test names such a piece by its first words and runs the piece as it is in the document.

    documents.py DOCUMENT BEGINNING [FILE]   prints a piece, or writes it to a file, for tests in
                                             other languages
"""

import glob
import os
import re
import sys

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

_FENCED = re.compile(r"^```(\S*)\n(.*?)^```$", re.DOTALL | re.MULTILINE)
_LINK = re.compile(r"\]\(([^)]+)\)")
_SPAN = re.compile(r"`([^`]+)`")
_EXAMPLE = re.compile(r"^\.Dl (.*)$", re.MULTILINE)

# A command within the text has two words or more. The first one is a program.
_COMMAND = re.compile(
    r"(tools/\w+|logtail/logtail|fuzz/run|bench/\w+/run|cmake|cpack|ctest|man|lnav|xvfb-run|tar|"
    r"ipcs|ipcrm|otool|apt|sudo|busctl|gdbus|codesign|logtail|suite_host|HexHelper|\w+_stress) .*",
    re.DOTALL)


def _relative(*patterns):
    found = [name for pattern in patterns for name in glob.glob(os.path.join(SOURCE, pattern))]
    return sorted(os.path.relpath(name, SOURCE) for name in found)


def documents():
    return _relative("*.md", "docs/*.md", "page/*.md")


def read(document):
    with open(os.path.join(SOURCE, document), encoding="utf-8") as file:
        return file.read()


def blocks(document):
    """Language and content of each fenced block."""
    return _FENCED.findall(read(document))


def prose(document):
    """The text without its fenced blocks."""
    return _FENCED.sub("", read(document))


def spans(document):
    """What stands in backticks within the text, on one line each."""
    return [" ".join(span.split()) for span in _SPAN.findall(prose(document))]


def links(document):
    """Where relative links of the text lead to, from the document's folder, without the place in
    the document; empty for a place in the same one."""
    return [target.partition("#")[0] for target in targets(document)]


def targets(document):
    return [target for target in _LINK.findall(prose(document)) if "://" not in target]


def commands(block):
    """The commands of a block, those with a backslash at a line's end whole."""
    return re.findall(r"(?:.*\\\n)*.*\n", block)


def pieces(document):
    """Returns the fenced blocks, each command of a shell block, and the commands within the text.
    The pieces of a manual page are its examples."""
    if not document.endswith(".md"):
        return [example.replace(r"\-", "-") for example in _EXAMPLE.findall(read(document))]
    found = []
    for language, block in blocks(document):
        found += commands(block) if language == "sh" else [block]
    in_text = [span for span in spans(document) if _COMMAND.fullmatch(span)]
    # A span that is the beginning of another one only mentions that command.
    found += [span for span in in_text
              if not any(other.startswith(span + " ") for other in in_text)]
    return list(dict.fromkeys(found))


def take(document, beginning):
    """Returns the piece of the document that begins like this. If several pieces do, returns the one
    that is equal."""
    found = [piece for piece in pieces(document) if piece.startswith(beginning)]
    whole = [piece for piece in found if piece.strip() == beginning]
    if len(whole or found) != 1:
        raise LookupError(f"{document} has {len(found)} pieces that begin with: {beginning}")
    return (whole or found)[0]


def main(document, beginning, file=None):
    text = take(document, beginning).rstrip("\n") + "\n"
    if file is None:
        sys.stdout.write(text)
        return
    with open(file, "w", encoding="utf-8") as output:
        output.write(text)


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(*sys.argv[1:])
