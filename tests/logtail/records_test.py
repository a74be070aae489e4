"""Tests of the parsing and the number of records."""

import json
import unittest

from support import LogtailTest, line, lines, text_of


class RecordsTest(LogtailTest):
    def test_separates_columns_and_keeps_separators_in_message(self):
        self.write("11/15/26 21:05:07:042 | [TRACE] | 4242 | HXPL | HexHelper | ApplicationContext"
                   " |  | TarnUtils | 77120 | a | b | c")
        self.assertEqual(json.loads(self.run_logtail("--json", self.log)), {
            "time": "2026-11-15T21:05:07.042", "level": "TRACE", "process": 4242, "domain": "HXPL",
            "sub_domain": "HexHelper", "component": "ApplicationContext", "detail1": "",
            "detail2": "TarnUtils", "thread": 77120, "message": "a | b | c"})

    def test_record_may_have_empty_message(self):
        self.write(line(""), line("next"))
        self.assertEqual(self.messages(self.log), ["", "next"])

    def test_other_lines_belong_to_previous_record(self):
        others = ["two", "", "11/15/26 21:05:07:042 | [INFO] | too few",
                  line("no such level", level="LOUD"),
                  line("no such month", time="13/15/26 21:05:07:042"),
                  line("no such hour", time="24:05:07:042")]
        self.write(line("one"), *others, line("three"))
        records = [json.loads(text) for text in self.shown("--json", self.log)]
        self.assertEqual([record["message"] for record in records],
                         ["\n".join(["one"] + others), "three"])

    def test_only_newline_ends_line(self):
        message = "a\rb\x0bc\x0cd\x1ce\u0085f\u2028g"
        self.write(line(message))
        records = [json.loads(text) for text in self.shown("--json", self.log)]
        self.assertEqual([record["message"] for record in records], [message])

    def test_shows_lines_before_first_record_unchanged(self):
        self.write("stray", "another", line("one"))
        self.assertEqual(self.shown(self.log), ["stray", "another", line("one")])
        first = json.loads(self.shown("--json", self.log)[0])
        self.assertEqual(first.pop("message"), "stray")
        self.assertEqual(set(first.values()), {None})

    def test_last_line_may_lack_newline(self):
        self.write_raw(text_of(line("one")) + line("two"))
        self.assertEqual(self.messages(self.log), ["one", "two"])
        self.assertEqual(self.messages("-n", "1", self.log), ["two"])

    def test_empty_log_shows_nothing(self):
        self.write_raw("")
        self.assertEqual(self.run_logtail(self.log), b"")


class CountTest(LogtailTest):
    def setUp(self):
        super().setUp()
        self.write(*lines("m", 25))

    def test_shows_ten_records_by_default(self):
        self.assertEqual(self.messages(self.log), [f"m {number}" for number in range(15, 25)])

    def test_shows_requested_number_of_records(self):
        self.assertEqual(self.messages("-n", "2", self.log), ["m 23", "m 24"])
        self.assertEqual(self.messages("--lines=26", self.log), [f"m {n}" for n in range(25)])
        self.assertEqual(self.messages("-n", "0", self.log), [])

    def test_shows_all_records_on_request(self):
        self.assertEqual(len(self.messages("-n", "all", self.log)), 25)

    def test_shows_all_records_with_time(self):
        self.assertEqual(len(self.messages("--since", "2026-01-01", self.log)), 25)
        self.assertEqual(len(self.messages("--until", "2027-01-01", self.log)), 25)

    def test_record_with_several_lines_counts_once(self):
        self.write(line("last"), "more", "and more")
        self.assertEqual(self.shown("-n1", self.log), [line("last"), "more", "and more"])

    def test_counts_selected_records(self):
        self.write(line("bad", level="ERROR"), *lines("n", 20))
        self.assertEqual(self.messages("-n", "1", "--level", "ERROR", self.log), ["bad"])

    def test_finds_last_records_of_long_log(self):
        self.write(*lines("long", 5000), mode="w")
        self.write(line("first of all", level="FATAL"), *lines("longer", 20000))
        self.assertEqual(self.messages("-n", "3", self.log),
                         [f"longer {number}" for number in range(19997, 20000)])
        self.assertEqual(self.messages("-n", "3", "-l", "FATAL", self.log), ["first of all"])
        self.assertEqual(len(self.messages("-n", "20002", self.log)), 20002)

    def test_shows_record_longer_than_read_window_completely(self):
        more = ["x" * 1000] * 300
        self.write(line("long"), *more, line("short"))
        self.assertEqual(self.shown("-n", "2", self.log), [line("long"), *more, line("short")])

    def test_line_in_message_is_not_record_wherever_reading_begins(self):
        # The last 64 KiB, which are read first, begin in the middle of the first line.
        inner = line("inner")
        rest = lines("m", 400)
        filler = line("x" * ((1 << 16) - len(text_of(inner, line(""), *rest))))
        self.write(line("outer " + inner), filler, *rest, mode="w")
        self.assertEqual(self.shown("-n", "402", self.log),
                         [line("outer " + inner), filler, *rest])


if __name__ == "__main__":
    unittest.main()
