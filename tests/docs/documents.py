#!/usr/bin/env python3
"""What the documents show: fenced blocks, commands within the text, examples of manual pages.

A test takes such a piece out of its document by the words that it begins with, and remembers no
words of it itself. completeness_test.py looks for pieces that no test has taken.

    documents.py DOCUMENT BEGINNING [FILE]   prints a piece, or writes it to a file, for tests in
                                             other languages
"""

import collections
import glob
import os
import re
import sys

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

_FENCED = re.compile(r"^```(\S*)\n(.*?)^```$", re.DOTALL | re.MULTILINE)
_LINK = re.compile(r"\]\(([^)]+)\)")
_SPAN = re.compile(r"`([^`]+)`")
_EXAMPLE = re.compile(r"^\.Dl (.*)$", re.MULTILINE)

# What within the text is a command: two words or more, the first one a program.
_COMMAND = re.compile(
    r"(tools/\w+|fuzz/run|bench/\w+/run|cmake|cpack|ctest|man|lnav|xvfb-run|tar|ipcs|ipcrm|otool|"
    r"apt|sudo|busctl|gdbus|codesign|logtail|suite_host|HexHelper|\w+_stress) .*", re.DOTALL)

# `kind` is the language of a fenced block, "prose" for a command within the text, "example" for one
# of a manual page. Each command of a block of shell commands is a piece of its own.
Piece = collections.namedtuple("Piece", "document kind text")

taken = set()


def _relative(*patterns):
    found = [name for pattern in patterns for name in glob.glob(os.path.join(SOURCE, pattern))]
    return sorted(os.path.relpath(name, SOURCE) for name in found)


def documents():
    return _relative("*.md", "docs/*.md", "page/*.md")


def manual_pages():
    return _relative("docs/man/*")


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


def _pieces_of_document(document):
    for language, block in blocks(document):
        for text in commands(block) if language == "sh" else [block]:
            yield Piece(document, language, text)
    found = [span for span in spans(document) if _COMMAND.fullmatch(span)]
    for span in found:
        # The beginning of another one only mentions it.
        if not any(other.startswith(span + " ") for other in found):
            yield Piece(document, "prose", span)


def _pieces_of_page(page):
    for example in _EXAMPLE.findall(read(page).partition(".Sh EXAMPLES\n")[2]):
        yield Piece(page, "example", example.replace(r"\-", "-"))


def pieces(document):
    """All pieces of a document or a manual page, each once."""
    found = _pieces_of_document if document.endswith(".md") else _pieces_of_page
    return list(dict.fromkeys(found(document)))


def all_pieces():
    return [piece for name in documents() + manual_pages() for piece in pieces(name)]


def take(document, beginning):
    """The text of the one piece of the document that begins so; the whole of it where that is a
    beginning of others, too."""
    found = [piece for piece in pieces(document) if piece.text.startswith(beginning)]
    whole = [piece for piece in found if piece.text.strip() == beginning]
    if len(whole or found) != 1:
        raise LookupError(f"{document} has {len(found)} pieces that begin with: {beginning}")
    piece = (whole or found)[0]
    taken.add(piece)
    return piece.text


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
