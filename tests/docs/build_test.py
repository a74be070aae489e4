"""Runs the documents' commands that configure, build, test and install.

Builds and tests take minutes and run elsewhere, so these tests only list their steps.
"""

import os
import re
import unittest

import documents
from environment import DocumentTest

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

# Paths of an installation in the tables. Those of macOS are among them.
INSTALLED = re.compile(r"(bin|CEF|share)/[\w./-]*")
ON_A_MAC = ("CEF/Chromium",)


class PresetsTest(DocumentTest):
    def configure_and_build(self, configure, build):
        tree = self.make_tree()
        # The library and the compiler for TypeScript are in the user's cache.
        self.run_command(configure, tree, environ=dict(os.environ))
        shown = self.run_command(build.rstrip("\n") + " -- -n HexHelper suite_host", tree)
        self.assertIn("bin/HexHelper", shown)
        return tree

    def test_configures_and_builds_release(self):
        self.assertEqual(CONFIGURE_FOR_PACKAGES, CONFIGURE_RELEASE)
        self.assertEqual(BUILD_FOR_PACKAGES, BUILD_RELEASE)
        self.configure_and_build(CONFIGURE_RELEASE, BUILD_RELEASE)

    def test_builds_tests_and_selects_by_pattern(self):
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

    def test_installs_paths_of_table(self):
        self.assertEqual(INSTALL, INSTALL_FOR_PACKAGES)
        self.run_command(INSTALL, self.tree)
        named = [span for span in documents.spans(PACKAGES)
                 if INSTALLED.match(span) and not span.startswith(ON_A_MAC)]
        self.assertGreater(len(named), 8)
        self.assertEqual([path for path in named if not self.exists(path)], [])
        self.assertFalse(self.exists("bin/suite_host"))

    def test_installs_examples_on_request(self):
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
