"""Runs the commands of docs/debugging.md, and the script of docs/suite-host.md."""

import json
import re
import shlex
import unittest

import documents
from environment import LOG, SOURCE, HelperTest, environment

DOCUMENT = "docs/debugging.md"
DEVTOOLS = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host --devtools")
INSPECTOR = documents.take(DOCUMENT, "build/dev/bin/suite_host --window")
PLAY = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host --stdin")
LINES = documents.take(DOCUMENT, '{"send"')
FOLLOW = documents.take(DOCUMENT, "logtail/logtail -f")
RAISE = documents.take(DOCUMENT, "mkdir -p")
WAIT = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host --timeout=0 --switch=renderer")
PAUSED = documents.take(DOCUMENT, "Renderer (4242)").strip()
ATTACH = documents.take(DOCUMENT, "gdb -p")
PREFIX = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host --switch=renderer-cmd-prefix")
LIMIT = documents.take(DOCUMENT, "ulimit")
CRASH = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host chrome://crash")
BACKTRACE = documents.take(DOCUMENT, "gdb -batch")
VERBOSE = documents.take(DOCUMENT, "xvfb-run -a build/dev/bin/suite_host --switch=log-severity")
SCRIPT = documents.take("docs/suite-host.md", "import json")

# This page stays open; the demo's page ends the run.
PAGE = "<!DOCTYPE html><script>app.sendMessage('greeting', ['hello'])</script>"
GREETED = """
app.setMessageCallback('greeting.answer', (name, args) => {
  app.sendMessage('done', args);
  return true;
});
app.sendMessage('greeting', []);
"""


class DebuggingTest(HelperTest):
    def setUp(self):
        super().setUp()
        self.tree = self.make_tree("dev", "release")
        self.page = self.path("page.html")
        self.write_page(PAGE)

    def write_page(self, text):
        with open(self.page, "w", encoding="utf-8") as page:
            page.write(text)

    def with_own_page(self, command):
        return command.strip().replace("examples/pages/demo.html", shlex.quote(self.page))

    def run_here(self, script):
        return self.run_with_helpers(script, self.tree, temporary="/proc/self/cwd")

    def run_reading(self, start, script):
        """Runs a script together with a command. The script reads the command's output and errors
        from descriptor 3, and writes its input to descriptor 4. Returns the output of both."""
        return self.run_here(f"""
            set -e
            mkfifo input
            exec 3< <({start} <input 2>&1) 4>input
            read_until() {{
              while read -r line <&3; do
                echo "$line"
                [[ $line =~ $1 ]] && return
              done
              return 1
            }}
            {script}
            cat <&3""")[0]

    def events(self, output):
        return [json.loads(line) for line in output.splitlines() if line.startswith('{"event"')]

    def test_devtools_list_page_and_browser_shows_list(self):
        start = self.with_own_page(DEVTOOLS).replace("9222", "0") + " --stdin"
        show = INSPECTOR.strip().replace("http://127.0.0.1:9222", '"$url"')
        output = self.run_reading(start, f"""
            read_until '"devtools","url":"([^"]+)"'
            url=${{BASH_REMATCH[1]}}
            read_until '"event":"load"'
            curl --silent --show-error "$url/json"
            mkfifo inspector
            exec 5<>inspector
            xvfb-run -a {show} --stdin <&5 | while read -r event; do
              echo "$event"
              [[ $event != *'"load"'* ]] || echo '{{"quit": 0}}' >&5
            done
            echo '{{"quit": 0}}' >&4""")
        self.assertIn('"webSocketDebuggerUrl"', output)
        self.assertRegex(output, r'"event":"load","browser":1,"url":"http://127[^"]+","status":200')

    def test_executes_typed_lines(self):
        write = "".join(f"echo {shlex.quote(line)} >&4\n" for line in LINES.splitlines())
        self.write_page(f"<!DOCTYPE html><script>{GREETED}</script>")
        output = self.run_reading(self.with_own_page(PLAY), "read_until greeting\n" + write)
        events = self.events(output)
        self.assertIn({"event": "message", "browser": 1, "name": "done",
                       "args": ["welcome", 7, 1.5]}, events)
        self.assertIn({"event": "screenshot", "browser": 1, "file": "page.png"}, events)
        self.assertIn({"event": "quit", "code": 0}, events)
        self.assertEqual([event for event in events if event["event"] == "error"], [])

    def test_script_answers_page(self):
        self.write_page(f"<!DOCTYPE html><script>{GREETED}</script>")
        with open(self.path("script.py"), "w", encoding="utf-8") as file:
            file.write(SCRIPT.replace('"page.html"', repr(self.page)) +
                       "print(json.dumps(event), host.wait())\n")
        output, _ = self.run_here("python3 " + shlex.quote(self.path("script.py")))
        self.assertEqual(output, '{"event": "quit", "code": 0} 0\n')

    def test_marker_file_raises_level_of_followed_log(self):
        self.run_here(f"{RAISE.strip()} && build/dev/bin/HexHelper")
        with open(self.path(LOG), encoding="utf-8") as log:
            self.assertIn("[DEBUG]", log.read())
        follow = FOLLOW.strip().replace("-f", "-n all", 1)
        shown = self.run_command(follow, SOURCE, environment(self.home))
        self.assertIn("START Velmora CEF Helper", shown)

    def test_renderer_waits_for_debugger(self):
        paused = re.escape(PAUSED).replace("4242", "([0-9]+)").replace("\\ ", " ")
        attach = ATTACH.strip().replace("4242", "$pid").replace("gdb ", "gdb -q -batch ")
        output = self.run_reading(self.with_own_page(WAIT) + " --stdin", f"""
            pattern={shlex.quote(paused)}
            read_until "$pattern"
            pid=${{BASH_REMATCH[1]}}
            echo '{{"send": "stop here"}}' >&4
            {attach} -ex 'bt 1' -ex detach 2>&1 || kill -USR1 "$pid"
            echo '{{"quit": 0}}' >&4""")
        if "ptrace: Operation not permitted" in output:
            self.skipTest("this system does not let gdb attach to a process")
        self.assertRegex(output, "hit Breakpoint 1, .*DispatchMessage")

    def test_renderer_that_crashes_in_gdb_prints_backtrace(self):
        crash = PREFIX.strip().replace("examples/pages/demo.html", "chrome://crash")
        output, _ = self.run_here(f"{crash} || [ $? = 4 ]")
        if "Operation not permitted" in output:
            self.skipTest("this system does not let gdb run a program")
        self.assertIn("SIGSEGV", output)
        self.assertRegex(output, r"#0 .*libcef\.so")

    def test_crash_leaves_core_file(self):
        with open("/proc/sys/kernel/core_pattern", encoding="ascii") as file:
            pattern = file.read().strip()
        if pattern != "core":
            self.skipTest("this system keeps core files elsewhere: " + pattern)
        output, _ = self.run_here(f"{LIMIT}{{ {CRASH.strip()} || [ $? = 4 ]; }}\n"
                                  f"mv core.* core 2>/dev/null\n{BACKTRACE}")
        self.assertRegex(output, r"#0 .*libcef\.so")

    def test_switches_turn_on_log_of_chromium(self):
        _, errors = self.run_here(VERBOSE)
        self.assertIn(":VERBOSE1:", errors)


if __name__ == "__main__":
    unittest.main()
