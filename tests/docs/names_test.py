"""Compares the names and texts that CONTRIBUTING.md lists with the sources."""

import ast
import glob
import os
import re
import unittest

import documents
from environment import SOURCE

DOCUMENT = "CONTRIBUTING.md"
PRODUCT = ("bridge", "cefapp", "helper", "logging", "utils")

# Comments and literals. Only string literals have groups.
TOKEN = re.compile(
    r"//[^\n]*|/\*.*?\*/|'(?:[^'\\\n]|\\.)'|"
    r'R"\((?P<raw>.*?)\)"|"(?P<text>(?:[^"\\\n]|\\.)*)"', re.DOTALL)
IDENTIFIER = re.compile(r"\w+")
INCLUDE = re.compile(r'^#include "((?:%s)/\w+\.h)"' % "|".join(PRODUCT), re.MULTILINE)
ITEM = re.compile(r"^- (.*(?:\n  .*)*)", re.MULTILINE)
SPAN = re.compile(r"`([^`]+)`")


def section(title):
    """Returns the text below a heading of the third level, to the next heading."""
    return documents.read(DOCUMENT).partition(f"\n### {title}\n")[2].partition("\n#")[0]


def listed_names():
    """Returns pairs of a header and a name."""
    pairs = []
    for item in ITEM.findall(section("Names")):
        header, *names = [" ".join(span.split()) for span in SPAN.findall(item)]
        pairs += [(header, name) for name in names]
    return pairs


def listed_texts():
    """Returns the lines of the block of messages, and the short texts."""
    text = section("Texts")
    block = text.partition("```text\n")[2].partition("```")[0]
    spans = [span for item in ITEM.findall(text) for span in SPAN.findall(item)]
    return block.splitlines() + spans


def read(path):
    with open(os.path.join(SOURCE, path), encoding="utf-8") as file:
        return file.read()


def code(path):
    """Returns a source without comments and literals, with single spaces."""
    return " ".join(TOKEN.sub(" ", read(path)).split())


def declarations(header):
    """Returns the code of a header and of the product's headers that it includes."""
    included = INCLUDE.findall(read(header))
    return " ".join(map(code, [header, *included]))


def is_declared(name, text):
    if not IDENTIFIER.fullmatch(name):
        return re.search(r"(?<!\w)" + re.escape(name) + r"(?!\w)", text) is not None
    return re.search(rf"(?<![\w.>]){name}(?= ?[(){{}}\[\],;:=]| final\b| PLATFORM_)", text) is not None


def literals(path):
    """Returns the string literals of a source as the compiler joins them, without blanks and
    newlines at their ends."""
    joined = []
    end = None
    text = read(path)
    for token in TOKEN.finditer(text):
        if token["raw"] is None and token["text"] is None:
            continue
        value = token["raw"]
        if value is None:
            value = ast.literal_eval(f'"{token["text"]}"')
        if end is not None and not text[end:token.start()].strip():
            joined[-1] += value
        else:
            joined.append(value)
        end = token.end()
    return {value.strip() for value in joined}


class NamesTest(unittest.TestCase):
    maxDiff = None

    def test_headers_declare_listed_names(self):
        names = listed_names()
        self.assertGreater(len(names), 150)
        headers = {header: declarations(header) for header, _ in names}
        self.assertEqual([(header, name) for header, name in names
                          if not is_declared(name, headers[header])], [])

    def test_abstract_logger_keeps_order_of_operations(self):
        header = "logging/abstract_logger.h"
        listed = [name for path, name in listed_names() if path == header][1:]
        self.assertEqual(re.findall(r"virtual void (\w+)", code(header)), listed)

    def test_sources_contain_listed_texts(self):
        texts = listed_texts()
        self.assertGreater(len(texts), 70)
        found = set()
        for folder in PRODUCT:
            for path in glob.glob(os.path.join(SOURCE, folder, "*.h")) + \
                    glob.glob(os.path.join(SOURCE, folder, "*.cc")):
                found |= literals(path)
        self.assertEqual([text for text in texts if text not in found], [])


if __name__ == "__main__":
    unittest.main()
