#!/usr/bin/env python3
"""Reads the documents: their fenced blocks, the commands in the text, and the links.

A test selects a piece by its first words, and runs it unchanged.

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

# A command in the text has at least two words, and the first word is a program.
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
    """Returns language and content of each fenced block."""
    return _FENCED.findall(read(document))


def prose(document):
    """Returns the text without its fenced blocks."""
    return _FENCED.sub("", read(document))


def spans(document):
    """Returns the code spans of the text, each on one line."""
    return [" ".join(span.split()) for span in _SPAN.findall(prose(document))]


def links(document):
    """Returns the paths of relative links, relative to the document's folder and without anchors.

    The path of a link within the document is empty.
    """
    return [target.partition("#")[0] for target in targets(document)]


def targets(document):
    return [target for target in _LINK.findall(prose(document)) if "://" not in target]


def commands(block):
    """Returns the commands of a block. A backslash at the end of a line continues a command."""
    return re.findall(r"(?:.*\\\n)*.*\n", block)


def pieces(document):
    """Returns the fenced blocks, each command of a shell block, and the commands in the text.

    The pieces of a manual page are its examples.
    """
    if not document.endswith(".md"):
        return [example.replace(r"\-", "-") for example in _EXAMPLE.findall(read(document))]
    found = []
    for language, block in blocks(document):
        found += commands(block) if language == "sh" else [block]
    in_text = [span for span in spans(document) if _COMMAND.fullmatch(span)]
    # A span that another span begins with only mentions that command.
    found += [span for span in in_text
              if not any(other.startswith(span + " ") for other in in_text)]
    return list(dict.fromkeys(found))


def take(document, beginning):
    """Returns the piece of the document with this beginning.

    If several pieces have it, returns the piece that is equal to it. Raises LookupError unless
    exactly one piece remains.
    """
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
