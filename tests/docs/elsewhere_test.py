"""Pieces of the documents that other tests run, and how those say so."""

import unittest

import documents

PACKAGES = "docs/packaging.md"
NOTIFICATIONS = "docs/notifications.md"
PACKAGE_TEST = "tests/cmake/package_test.sh"
LIBRARY_TEST = "tests/cmake/library_test.sh"

# Document, beginning of the piece, file that runs it, words in that file.
RUN = [
    ("README.md", "tools/setup", "tools/demo", 'step "setting up" tools/setup'),
    ("CONTRIBUTING.md", "tools/setup maintainer", ".ci/run", "tools/setup maintainer"),
    (PACKAGES, "tools/setup maintainer", ".ci/run", "tools/setup maintainer"),
    ("README.md", "cmake --preset release -DCEF_ROOT", "tests/cmake/cef_root_test.sh",
     '-DCEF_ROOT="$root"'),
    ("README.md", "add_subdirectory", "tests/cmake/subproject_test.sh",
     "document README.md add_subdirectory"),
    ("docs/page-module.md", "// Sends an answer", "tests/docs/CMakeLists.txt",
     'docs/page-module.md "// Sends an answer"'),
    ("docs/logging.md", "#include <cstdio>", LIBRARY_TEST,
     "document docs/logging.md '#include <cstdio>'"),
    ("docs/logging.md", "cmake_minimum_required", LIBRARY_TEST,
     "document docs/logging.md cmake_minimum_required"),
    (PACKAGES, "cmake --install build/release --prefix DIR --component dev", LIBRARY_TEST,
     f"document {PACKAGES} 'cmake --install build/release --prefix DIR --component dev"),
    (PACKAGES, "cd build/release && cpack --config", LIBRARY_TEST,
     f"document {PACKAGES} 'cd build/release && cpack --config"),
    ("docs/logging.md", "*****", "tests/docs/CMakeLists.txt", 'docs/logging.md "*****"'),
    ("docs/logging.md", "/home/alice", "tests/docs/CMakeLists.txt", "docs/logging.md /home/alice"),
    ("CONTRIBUTING.md", "shared_log_stress", "tests/stress/stress_main.cc", '"--full"'),
    ("CONTRIBUTING.md", "log_route_stress", "tests/stress/stress_main.cc", '"--full"'),
    (PACKAGES, "cd build/release && cpack", PACKAGE_TEST, f"document {PACKAGES} 'cd build/release"),
    (PACKAGES, "tar --zstd", PACKAGE_TEST, f"document {PACKAGES} 'tar --zstd'"),
    (PACKAGES, "xvfb-run -a /usr/lib", PACKAGE_TEST, f"document {PACKAGES} 'xvfb-run -a /usr/lib"),
    # It installs with dpkg: apt would look for packages in the network.
    (PACKAGES, "sudo apt install", PACKAGE_TEST, f"document {PACKAGES} 'sudo apt install"),
    # It makes both packages with one call.
    (PACKAGES, "cpack -G TZST", "cmake/Packaging.cmake", "CPACK_GENERATOR TZST"),
    (PACKAGES, "cpack -G DEB", "cmake/Packaging.cmake", "CPACK_GENERATOR DEB"),
    # A preset of its own, which downloads what it compares with.
    ("docs/porting.md", "tools/lib/fetch_apple_names", ".ci/run", "tools/lib/fetch_apple_names"),
    ("docs/porting.md", "tools/lib/build gnustep", ".ci/run", "build_and_test gnustep"),
    ("docs/porting.md", "ctest --preset gnustep", ".ci/run", "build_and_test gnustep"),
    # A preset of its own, which downloads a compiler.
    ("docs/porting.md", "tools/lib/fetch_zig", ".ci/run", "tools/lib/fetch_zig"),
    ("docs/porting.md", "tools/lib/build darwin", ".ci/run", "build_and_test darwin"),
    ("docs/porting.md", "ctest --preset darwin", ".ci/run", "build_and_test darwin"),
    (NOTIFICATIONS, "busctl --user emit", "tests/docs/notifications_test.cc", "commands_[0]"),
    (NOTIFICATIONS, "gdbus emit", "tests/docs/notifications_test.cc", "commands_[1]"),
    (NOTIFICATIONS, "busctl --user monitor", "tests/docs/notifications_test.cc", "commands_[2]"),
]
for document, beginning, _, _ in RUN:
    documents.take(document, beginning)
# The one that docs/notifications.md shows.
REFRESH = documents.take("docs/man/HexHelper.1", "busctl")


class ElsewhereTest(unittest.TestCase):
    def test_each_is_run_where_it_is_said_to_be(self):
        for where in RUN:
            self.assertIn(where[3], documents.read(where[2]), where)

    def test_the_manual_page_has_a_command_of_the_document(self):
        self.assertEqual(REFRESH, documents.take(NOTIFICATIONS, "busctl --user emit").strip())


if __name__ == "__main__":
    unittest.main()
