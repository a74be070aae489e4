"""Runs the browser process of README.md, which the build compiles as the program my_host."""

import unittest

from environment import HelperTest

PAGE = """<!DOCTYPE html>
<script>
app.setMessageCallback('greeting.answer', (name, args) => {
  if (args[0] !== 'welcome') return false;
  app.removeMessageCallback(name);
  app.sendMessage('greeting', [`${name} ${args[1]}`]);
  window.close();
  return true;
});
app.sendMessage('greeting', ['hello', 42]);
</script>
"""


class HostTest(HelperTest):
    def test_page_receives_answer_and_ends_host(self):
        tree = self.make_tree("release")
        with open(self.path("page.html"), "w", encoding="utf-8") as page:
            page.write(PAGE)
        output, _ = self.run_with_helpers(
            f'xvfb-run -a build/release/bin/my_host "$(realpath build/release)" '
            f"'file://{self.path('page.html')}'", tree, temporary="/proc/self/cwd")
        self.assertEqual(output.splitlines(), ["greeting: hello", "greeting: greeting.answer 2"])

    def test_prints_usage_for_wrong_arguments(self):
        tree = self.make_tree("release")
        shown = self.run_command(
            "build/release/bin/my_host 2>&1; [ $? = 2 ] && echo status 2", tree)
        self.assertRegex(shown, r"^usage: my_host FOLDER URL.*\nstatus 2\n$")


if __name__ == "__main__":
    unittest.main()
