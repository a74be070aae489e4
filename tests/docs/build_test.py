"""The commands that configure, build, test and install. What takes minutes is only begun: those
commands themselves are what this project is checked with."""

import os
import re
import unittest

import documents
from surroundings import DocumentTest

PACKAGES = "docs/packaging.md"
CONFIGURE_RELEASE = documents.take("README.md", "cmake --preset release")
CONFIGURE_FOR_PACKAGES = documents.take(PACKAGES, "cmake --preset release")
BUILD_RELEASE = documents.take("README.md", "cmake --build --preset release")
BUILD_FOR_PACKAGES = documents.take(PACKAGES, "cmake --build --preset release")
CONFIGURE_DEV = documents.take("CONTRIBUTING.md", "cmake --preset dev")
BUILD_DEV = documents.take("CONTRIBUTING.md", "cmake --build --preset dev")
TEST_DEV = documents.take("CONTRIBUTING.md", "ctest --preset dev -R bridge")
INSTALL = documents.take("README.md", "cmake --install build/release")
INSTALL_FOR_PACKAGES = documents.take(PACKAGES, "cmake --install build/release --prefix DIR")
INSTALL_EXAMPLES = documents.take(PACKAGES,
                                  "cmake --install build/release --prefix DIR --component examples")

# What the tables say of an installation; that of a Mac is among it.
INSTALLED = re.compile(r"(bin|CEF|share)/[\w./-]*")
ON_A_MAC = ("CEF/Chromium",)


class PresetsTest(DocumentTest):
    def configure_and_build(self, configure, build):
        tree = self.make_tree()
        # The library and the compiler for TypeScript are in the user's own cache.
        self.run_command(configure, tree, environ=dict(os.environ))
        shown = self.run_command(build.rstrip("\n") + " -- -n HexHelper suite_host", tree)
        self.assertIn("bin/HexHelper", shown)
        return tree

    def test_a_release_is_built(self):
        self.assertEqual(CONFIGURE_FOR_PACKAGES, CONFIGURE_RELEASE)
        self.assertEqual(BUILD_FOR_PACKAGES, BUILD_RELEASE)
        self.configure_and_build(CONFIGURE_RELEASE, BUILD_RELEASE)

    def test_tests_are_built_and_chosen_by_a_pattern(self):
        tree = self.configure_and_build(CONFIGURE_DEV, BUILD_DEV)
        shown = self.run_command(TEST_DEV.rstrip("\n") + " -N", tree)
        names = re.findall(r"Test +#\d+: (\S+)", shown)
        self.assertTrue(names)
        self.assertEqual([name for name in names if "bridge" not in name], [])


class InstallationTest(DocumentTest):
    def setUp(self):
        super().setUp()
        self.tree = self.make_tree("release")
        self.prefix = os.path.join(self.tree, "DIR")

    def exists(self, path):
        return os.path.exists(os.path.join(self.prefix, path))

    def test_what_the_table_lists_is_installed(self):
        self.assertEqual(INSTALL, INSTALL_FOR_PACKAGES)
        self.run_command(INSTALL, self.tree)
        named = [span for span in documents.spans(PACKAGES)
                 if INSTALLED.match(span) and not span.startswith(ON_A_MAC)]
        self.assertGreater(len(named), 8)
        self.assertEqual([path for path in named if not self.exists(path)], [])
        self.assertFalse(self.exists("bin/suite_host"))

    def test_the_examples_are_installed_when_asked_for(self):
        self.run_command(INSTALL_EXAMPLES, self.tree)
        self.assertTrue(self.exists("bin/suite_host"))
        self.assertFalse(self.exists("CEF"))

    def test_links_of_installed_documents_lead_to_installed_files(self):
        self.run_command(INSTALL, self.tree)
        folder = os.path.join(self.prefix, "share", "doc", "velmora-cef-helper")
        names = [name for name in documents.documents()
                 if os.path.exists(os.path.join(folder, name))]
        self.assertIn("docs/logging.md", names)
        missing = [(name, target) for name in names for target in documents.links(name)
                   if not os.path.exists(os.path.join(folder, os.path.dirname(name), target))]
        self.assertEqual(missing, [])


if __name__ == "__main__":
    unittest.main()
