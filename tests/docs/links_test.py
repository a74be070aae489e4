"""Checks that links and paths in the documents exist."""

import os
import re
import unittest

import documents
from environment import SOURCE

# A path in the source tree begins with one of these folders.
FOLDERS = ("bench", "bridge", "cef_binding", "cefapp", "cmake", "docs", "examples", "fuzz",
           "helper", "logging", "logtail", "packaging", "page", "platform", "support", "tests",
           "tools", "utils", ".ci")
PATH = re.compile(r"(?:%s)/[\w./-]*" % "|".join(map(re.escape, FOLDERS)))


def headings(document):
    """Returns the anchors that code hosts generate from the headings."""
    titles = re.findall(r"^#+ (.*)$", documents.prose(document), re.MULTILINE)
    return {re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-") for title in titles}


class LinksTest(unittest.TestCase):
    maxDiff = None

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

    def test_paths_of_source_tree_exist(self):
        words = {(document, word) for document in documents.documents()
                 for span in documents.spans(document) for word in span.split()}
        paths = {(document, word) for document, word in words if PATH.fullmatch(word)}
        self.assertGreater(len(paths), 40)
        self.assertEqual([where for where in sorted(paths)
                          if not os.path.exists(os.path.join(SOURCE, where[1]))], [])


if __name__ == "__main__":
    unittest.main()
