"""Runs a real Chromium with the example of docs/service-configuration.md."""

import os
import shlex
import unittest

import documents
from environment import HelperTest

EXAMPLE = documents.take("docs/service-configuration.md", "<?xml")


class ServiceConfigurationTest(HelperTest):
    def test_renderer_receives_switches_of_example(self):
        with open(self.path("config.xml"), "w", encoding="utf-8") as file:
            file.write(EXAMPLE)
        self.show_page("app.sendMessage('host.quit', [0]);\n",
                       options="--helper=" + shlex.quote(os.environ["PROBE_HELPER"]),
                       configuration=self.path("config.xml"))
        with open(self.path("switches"), encoding="utf-8") as file:
            switches = file.read()
        self.assertIn("renderer auth-server-whitelist=[*.example.com,intranet] "
                      "auth-negotiate-delegate-whitelist=[*.example.com]\n", switches)

    def test_table_contains_elements_of_example(self):
        for name in ("AuthServerWhitelist", "AuthNegotiateDelegateWhitelist"):
            self.assertIn(f"<{name}>", EXAMPLE)
            self.assertIn(name, documents.spans("docs/service-configuration.md"))


if __name__ == "__main__":
    unittest.main()
