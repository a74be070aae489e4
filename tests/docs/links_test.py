"""Nothing that the documents show stays untried, and nothing that they point to is missing."""

import importlib
import os
import re
import unittest

import documents
from surroundings import SOURCE

LANGUAGES = {"sh", "text", "cpp", "cmake", "js", "json", "python", "xml", "html", "mermaid"}

# Folders that a path in a document begins with when it is one of the source tree.
FOLDERS = ("bench", "bridge", "cef_binding", "cefapp", "cmake", "docs", "examples", "fuzz",
           "helper", "logging", "packaging", "page", "platform", "tests", "tools", "utils", ".ci")
PATH = re.compile(r"(?:%s)/[\w./-]*" % "|".join(map(re.escape, FOLDERS)))


def import_all_tests():
    folder = os.path.dirname(os.path.abspath(__file__))
    for name in sorted(os.listdir(folder)):
        if name.endswith("_test.py"):
            importlib.import_module(name[:-3])


def headings(document):
    """The places that a link can name, as code hosts make them of headings."""
    titles = re.findall(r"^#+ (.*)$", documents.prose(document), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-") for title in titles}


class CompletenessTest(unittest.TestCase):
    maxDiff = None

    def test_each_block_names_its_language(self):
        unnamed = [(document, text.splitlines()[0])
                   for document in documents.documents()
                   for language, text in documents.blocks(document) if language not in LANGUAGES]
        self.assertEqual(unnamed, [])

    def test_each_piece_is_taken_by_a_test(self):
        import_all_tests()
        self.assertGreater(len(documents.all_pieces()), 50)
        self.assertEqual([piece for piece in documents.all_pieces()
                          if piece not in documents.taken], [])

    def test_links_lead_to_files_and_headings(self):
        wrong = []
        for document in documents.documents():
            for target in documents.targets(document):
                name, _, heading = target.partition("#")
                path = os.path.normpath(os.path.join(os.path.dirname(document), name))
                path = path if name else document
                if not os.path.exists(os.path.join(SOURCE, path)):
                    wrong.append((document, target))
                elif heading and heading not in headings(path):
                    wrong.append((document, target))
        self.assertEqual(wrong, [])

    def test_paths_of_the_source_tree_exist(self):
        words = {(document, word) for document in documents.documents()
                 for span in documents.spans(document) for word in span.split()}
        paths = {(document, word) for document, word in words if PATH.fullmatch(word)}
        self.assertGreater(len(paths), 40)
        self.assertEqual([where for where in sorted(paths)
                          if not os.path.exists(os.path.join(SOURCE, where[1]))], [])

    def test_presets_are_described(self):
        described = set(documents.spans("CONTRIBUTING.md"))
        presets = re.findall(r'"name": "(\w+)",\s+"displayName"',
                             documents.read("CMakePresets.json"))
        self.assertGreater(len(presets), 5)
        self.assertEqual([preset for preset in presets if preset not in described], [])


if __name__ == "__main__":
    unittest.main()
