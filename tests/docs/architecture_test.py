"""The diagram in docs/architecture.md shows the includes of the sources."""

import glob
import os
import re
import unittest

import documents
from environment import SOURCE

DOCUMENT = "docs/architecture.md"
DRAWING = documents.take(DOCUMENT, "flowchart")

# Headers of other projects, by their names in the drawing.
OTHERS = {
    "CEF": r"include/",
    "CoreServices": r"CoreServices/",
    "Foundation": r"Foundation/",
    "SystemConfiguration": r"SystemConfiguration/",
    "libX11": r"X11/",
    "libplist": r"plist/",
    "libpng": r"png\.h",
    "libsystemd": r"systemd/",
    "libxml2": r"libxml/",
    "nlohmann-json": r"nlohmann/",
}
# Headers of every system.
SYSTEM = re.compile(r"(arpa|mach|netinet|sys)/|[^/]*$")

NODE = re.compile(r'  (\w+)(?:\["(.*)"\]|\(\["(.*)"\]\))$')
ARROW = re.compile(r'  (\w+) -(?:- "(.*)" -)?-> (\w+(?: & \w+)*)$')
INCLUDE = re.compile(r'^#(?:include|import) ([<"])([^>"]+)[>"]', re.MULTILINE)


class Drawing:
    """Contains the names of the nodes in `names`. `arrows` maps pairs of names to the header in the
    arrow's label, or to None."""

    def __init__(self, text):
        nodes = {}
        self.arrows = {}
        for line in text.splitlines()[1:]:
            node, arrow = NODE.match(line), ARROW.match(line)
            if node:
                nodes[node[1]] = (node[2] or node[3]).split(", ")
            elif arrow:
                for end in arrow[3].split(" & "):
                    for name in nodes[end]:
                        self.arrows[nodes[arrow[1]][0], name] = arrow[2]
            else:
                raise ValueError("neither a node nor an arrow: " + line)
        self.names = {name for names in nodes.values() for name in names}


def sources(folder):
    found = []
    for pattern in ("*.h", "*.cc", "*.mm"):
        found += glob.glob(os.path.join(SOURCE, folder, "**", pattern), recursive=True)
    return found


def includes(folder):
    for path in sources(folder):
        with open(path, encoding="utf-8") as file:
            yield from INCLUDE.findall(file.read())


def relations(folders):
    """Returns the headers that each module includes of each other module, by pairs of names."""
    found = {}
    for folder in folders:
        for quote, path in includes(folder):
            name = module_of(path, folders)
            if name is None and quote == "<" and SYSTEM.match(path):
                continue
            if name != folder:
                found.setdefault((folder, name or path), set()).add(os.path.basename(path))
    return found


def module_of(path, folders):
    for folder in folders:
        if path.startswith(folder):
            return folder
    for name, beginning in OTHERS.items():
        if re.match(beginning, path):
            return name
    return None


class DrawingTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.drawing = Drawing(DRAWING)
        self.folders = sorted(name for name in self.drawing.names if name.endswith("/"))

    def test_contains_all_modules(self):
        lists = re.findall(r"^ *add_subdirectory\((\w+[\w/]*)\)$", documents.read("CMakeLists.txt"),
                           re.MULTILINE)
        apart = {"bench", "cef_binding", "fuzz", "support", "tests"}
        self.assertEqual(self.folders, sorted(name + "/" for name in set(lists) - apart))

    def test_arrows_match_includes(self):
        found = relations(self.folders)
        self.assertEqual(sorted(self.drawing.arrows), sorted(found))

    def test_labeled_arrows_match_single_header(self):
        found = relations(self.folders)
        for ends, header in self.drawing.arrows.items():
            if header:
                self.assertEqual(found[ends], {header}, ends)

    def test_binding_includes_no_module(self):
        self.assertEqual([path for _, path in includes("cef_binding")
                          if module_of(path, self.folders) in self.folders], [])


if __name__ == "__main__":
    unittest.main()
