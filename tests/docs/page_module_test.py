"""Tests the documents of the module for page authors in a page of a real Chromium: their scripts,
the C++ code that answers requests, and the encoded values."""

import json
import pathlib
import re
import shlex
import unittest

import documents
from environment import HelperTest, console, messages

DOCUMENT = "docs/page-module.md"
LOADING = documents.take(DOCUMENT, "<script src=")
REQUEST = documents.take(DOCUMENT, "VelmoraApp.request('document.copy'")
OVERVIEW = documents.take("page/README.md", "const { request, on, encode, decode }")
MODULE = documents.read("page/velmora-app.js")

# Runs before the module and answers like the suite.
SUITE = """
const send = app.sendMessage;
app.sendMessage = (name, args) => {
  send(name, args);
  if (name === 'settings.read') {
    send('host.send', [args[0], ['result', ['velmora.json', '{"text":"black"}']]]);
    send('host.send', ['theme.changed', ['dark']]);
  }
};
"""
# Runs after the example, and ends the run after all earlier messages came back.
END = """
app.setMessageCallback('end', () => {
  app.sendMessage('class', [document.documentElement.className]);
  app.sendMessage('host.quit', [0]);
});
app.sendMessage('host.send', ['end', []]);
"""

# These run before and after the example in its own browser.
PRINT = """
console.log = (text) => app.sendMessage('test.print', [text]);
"""
MISTAKES_AND_QUIT = """
const print = (error) => console.log(error.message);
VelmoraApp.request('document.copy', [5]).catch(print)
    .then(() => VelmoraApp.request('document.burn').catch(print))
    .then(() => app.sendMessage('test.quit'));
"""

# Defines `describe`, and reports for each of `samples`, a value and what it must be after it was
# encoded, has been to the browser and back, and was decoded.
ROUND_TRIPS = r"""
function describe(value) {
  if (typeof value === 'number') return Object.is(value, -0) ? '-0' : `${value}`;
  if (Array.isArray(value)) return `[${value.map(describe)}]`;
  if (value instanceof Uint8Array) return `bytes ${value}`;
  return JSON.stringify(value).replace(/[^ -~]/g, (unit) => `\\u${unit.charCodeAt(0)}`);
}

async function roundTrip(value) {
  try {
    const sent = VelmoraApp.encode(value());
    const [received] = await VelmoraApp.request('host.send', [['result', sent]]);
    return describe(VelmoraApp.decode(received));
  } catch (error) {
    return `throws ${error.name}`;
  }
}

(async () => {
  for (const [label, value, expected] of samples) {
    app.sendMessage('round trip', [label, await roundTrip(value), expected()]);
  }
  app.sendMessage('host.quit', [0]);
})();
"""

THROWS = re.compile(r"throws \w+")
TYPE_ERROR = "throws TypeError"

# Values for each row of the table of what travels, each with the expected result if it differs.
SAMPLES = {
    "string": [("'Grüße 👋'",), ("''",), ("'a\\0b'",), ("'x\\ud800y'",), ("'\\udc00\\ud800'",),
             ("'velmora.json'",)],
    "boolean": [("true",), ("false",)],
    "whole number from -2147483648 to 2147483647": [
        ("0",), ("1.0",), ("2147483647",), ("-2147483648",)],
    "whole number from 2147483648 to 4294967295": [
        ("2147483648",), ("4294967295",), ("[[4294967295]]",)],
    "`-0`": [("-0",)],
    "any other finite number": [
        ("4294967296",), ("-2147483649",), ("4294967294.5",), ("2 ** 60",), ("0.1",),
        ("Number.MAX_VALUE",)],
    "`NaN`, `Infinity`, `-Infinity`": [("NaN",), ("Infinity",), ("-Infinity",)],
    "array, including a subclass of `Array`": [
        ("[[1, [2]], []]",), ("new (class extends Array {})('a', 'b')", "['a', 'b']"),
        ("['velmora.json', '{}']",), ("[['velmora.list', ['velmora.list']], 'velmora.bytes']",),
        ("(() => { const list = []; list[0] = list; return list; })()", "throws RangeError")],
    "`null`, `undefined`, hole of the array": [
        ("null",), ("undefined", "null"), ("[1, , undefined]", "[1, null, null]")],
    "plain object, function, class, symbol": [
        ("({ a: 1, b: { c: [4294967295, null] }, 'ä\\ud800': '👋' })",), ("({})",),
        ("Object.create(null)", "({})"), ("({ a: undefined })", "({})"),
        ("new (class { constructor() { this.a = 1; } })()", "({ a: 1 })"),
        ("() => 1", TYPE_ERROR), ("class {}", TYPE_ERROR), ("Symbol('s')", TYPE_ERROR),
        ("({ a: () => 1 })", TYPE_ERROR), ("({ a: [NaN] })", TYPE_ERROR),
        ("({ a: new Map() })", TYPE_ERROR),
        ("(() => { const object = {}; object.a = object; return object; })()", TYPE_ERROR)],
    "`Date`, `RegExp`, `Error`, `Map`, `ArrayBuffer`, typed array": [
        ("new Date(0)", "'1970-01-01T00:00:00.000Z'"), ("/x/", TYPE_ERROR),
        ("new Error('x')", TYPE_ERROR), ("new Map()", TYPE_ERROR), ("new Set()", TYPE_ERROR),
        ("new Uint8Array([0, 127, 128, 255])",), ("new Uint8Array(0)",),
        ("new Uint8Array([1, 2]).buffer", "new Uint8Array([1, 2])"),
        ("new Uint16Array([1, 256, 2]).subarray(1, 2)", "new Uint8Array([0, 1])"),
        ("new DataView(new Uint8Array([1, 2, 3]).buffer, 1)", "new Uint8Array([2, 3])"),
        ("new Uint8Array(300000).fill(200)",)],
    "`new String(…)`, `new Number(…)`, `new Boolean(…)`": [
        ("new String('x')", "'x'"), ("new Number(5)", "5"), ("new Boolean(false)", "false")],
    "proxy, including one of an array": [
        ("new Proxy([1, [2]], {})", "[1, [2]]"), ("new Proxy({ a: 1 }, {})", "({ a: 1 })")],
    "element whose getter throws": [
        ("Object.defineProperty([1], 0, { get() { throw new URIError(); } })", "throws URIError")],
}


def rows_below(document, heading):
    """Returns the cells of a table's rows."""
    table = documents.read(document).split(heading + "\n", 1)[1].split("\n|---|---|\n", 1)[1]
    return [re.split(r" \| ", line[2:-2]) for line in table.split("\n\n", 1)[0].splitlines()]


def sample_of(label, value, expected=None):
    """Returns the source of one element of the array `samples`."""
    throws = expected is not None and THROWS.fullmatch(expected)
    result = repr(expected) if throws else f"describe({expected or value})"
    return f"[{json.dumps(label)}, () => {value}, () => {result}],\n"


class PageModuleTest(HelperTest):
    def test_page_uses_each_function(self):
        visit = self.show_page(SUITE, MODULE, OVERVIEW, END)
        self.assertEqual(console(visit), ['{"text":"black"}'])
        self.assertEqual(messages(visit, "class"), [["dark"]])

    def test_page_loads_script(self):
        with open(self.path("velmora-app.js"), "w", encoding="utf-8") as script:
            script.write(MODULE)
        visit = self.show_page("</script>\n" + LOADING + "<script>",
                               "app.sendMessage('loaded', [typeof VelmoraApp.request]);", END)
        self.assertEqual(messages(visit, "loaded"), [["function"]])

    def test_code_for_suite_answers_requests(self):
        page = pathlib.Path(self.path("page.html"))
        scripts = (PRINT, MODULE, REQUEST, MISTAKES_AND_QUIT)
        page.write_text("".join(f"<script>{script}</script>\n" for script in scripts),
                        encoding="utf-8")
        command = ("cd build/release/bin && xvfb-run -a ./page_module_host $PWD/HexHelper "
                   + shlex.quote(page.as_uri()))
        printed, _ = self.run_with_helpers(command, self.make_tree("release"),
                                           temporary="/proc/self/cwd")
        self.assertEqual(printed.splitlines(),
                         ["1 of 2 pages", "copied to copy of report.odt",
                          "document.copy takes a path", "unknown request document.burn"])


class ValuesTest(HelperTest):
    maxDiff = None

    def test_encodes_and_decodes_each_row_of_what_travels(self):
        rows = [cells[0] for cells in rows_below("docs/page-api.md", "### What travels")]
        self.assertEqual(list(SAMPLES), rows)
        samples = "".join(sample_of(label, *sample)
                          for label, values in SAMPLES.items() for sample in values)
        visit = self.show_page(MODULE, f"const samples = [\n{samples}];\n{ROUND_TRIPS}")
        trips = messages(visit, "round trip")
        self.assertEqual(len(trips), sum(map(len, SAMPLES.values())))
        self.assertEqual([trip for trip in trips if trip[1] != trip[2]], [])

    def test_encodes_values_as_in_table(self):
        rows = [[cell.strip("`") for cell in cells] for cells in rows_below(DOCUMENT, "## Values")]
        self.assertGreater(len(rows), 5)
        values = ", ".join(value for value, _ in rows)
        visit = self.show_page(MODULE, f"app.sendMessage('encoded', VelmoraApp.encode([{values}]));"
                               "app.sendMessage('host.quit', [0]);")
        self.assertEqual(messages(visit, "encoded"),
                         [[json.loads(encoded) for _, encoded in rows]])

    def test_decode_refuses_values_that_were_not_encoded(self):
        wrong = {
            "['velmora.other', 1]": "TypeError", "['velmora.number', '1.5']": "TypeError",
            "['velmora.number', '']": "TypeError", "['velmora.number', 5]": "5",
            "['velmora.number', '9007199254740991']": "9007199254740991",
            "['velmora.number', '9007199254740993']": "RangeError",
            "['velmora.json', '{']": "SyntaxError",
            "['velmora.bytes', '*']": "InvalidCharacterError",
            "[['velmora.other']]": "TypeError", "['velmora']": "velmora"}
        script = "".join(
            f"try {{ results.push(`${{VelmoraApp.decode({value})}}`); }}"
            "catch (error) { results.push(error.name); }\n" for value in wrong)
        visit = self.show_page(MODULE, f"const results = [];\n{script}"
                               "app.sendMessage('results', results);"
                               "app.sendMessage('host.quit', [0]);")
        self.assertEqual(messages(visit, "results"), [list(wrong.values())])


if __name__ == "__main__":
    unittest.main()
