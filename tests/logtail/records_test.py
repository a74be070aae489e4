"""What is a record, and how many are shown."""

import json
import unittest

from support import LogtailTest, line, lines, text_of


class RecordsTest(LogtailTest):
    def test_columns_are_told_apart_and_the_message_may_hold_separators(self):
        self.write("11/15/26 21:05:07:042 | [TRACE] | 4242 | HXPL | HexHelper | ApplicationContext"
                   " |  | TarnUtils | 77120 | a | b | c")
        self.assertEqual(json.loads(self.run_logtail("--json", self.log)), {
            "time": "2026-11-15T21:05:07.042", "level": "TRACE", "process": 4242, "domain": "HXPL",
            "sub_domain": "HexHelper", "component": "ApplicationContext", "detail1": "",
            "detail2": "TarnUtils", "thread": 77120, "message": "a | b | c"})

    def test_an_empty_message_is_a_record(self):
        self.write(line(""), line("next"))
        self.assertEqual(self.messages(self.log), ["", "next"])

    def test_lines_that_are_not_of_the_form_belong_to_the_record_before(self):
        others = ["two", "", "11/15/26 21:05:07:042 | [INFO] | too few",
                  line("no such level", level="LOUD"),
                  line("no such month", time="13/15/26 21:05:07:042"),
                  line("no such hour", time="24:05:07:042")]
        self.write(line("one"), *others, line("three"))
        records = [json.loads(text) for text in self.shown("--json", self.log)]
        self.assertEqual([record["message"] for record in records],
                         ["\n".join(["one"] + others), "three"])

    def test_only_a_newline_ends_a_line(self):
        message = "a\rb\x0bc\x0cd\x1ce\u0085f\u2028g"
        self.write(line(message))
        records = [json.loads(text) for text in self.shown("--json", self.log)]
        self.assertEqual([record["message"] for record in records], [message])

    def test_lines_before_the_first_record_are_shown_as_they_are(self):
        self.write("stray", "another", line("one"))
        self.assertEqual(self.shown(self.log), ["stray", "another", line("one")])
        first = json.loads(self.shown("--json", self.log)[0])
        self.assertEqual(first.pop("message"), "stray")
        self.assertEqual(set(first.values()), {None})

    def test_a_last_line_without_newline_is_a_line(self):
        self.write_raw(text_of(line("one")) + line("two"))
        self.assertEqual(self.messages(self.log), ["one", "two"])
        self.assertEqual(self.messages("-n", "1", self.log), ["two"])

    def test_an_empty_log_shows_nothing(self):
        self.write_raw("")
        self.assertEqual(self.run_logtail(self.log), b"")


class CountTest(LogtailTest):
    def setUp(self):
        super().setUp()
        self.write(*lines("m", 25))

    def test_ten_records_are_shown_by_default(self):
        self.assertEqual(self.messages(self.log), [f"m {number}" for number in range(15, 25)])

    def test_as_many_are_shown_as_are_asked_for(self):
        self.assertEqual(self.messages("-n", "2", self.log), ["m 23", "m 24"])
        self.assertEqual(self.messages("--lines=26", self.log), [f"m {n}" for n in range(25)])
        self.assertEqual(self.messages("-n", "0", self.log), [])

    def test_all_are_shown_when_asked_for(self):
        self.assertEqual(len(self.messages("-n", "all", self.log)), 25)

    def test_all_are_shown_when_a_time_is_named(self):
        self.assertEqual(len(self.messages("--since", "2026-01-01", self.log)), 25)
        self.assertEqual(len(self.messages("--until", "2027-01-01", self.log)), 25)

    def test_a_record_counts_once_whatever_its_lines(self):
        self.write(line("last"), "more", "and more")
        self.assertEqual(self.shown("-n1", self.log), [line("last"), "more", "and more"])

    def test_records_are_counted_after_they_are_chosen(self):
        self.write(line("bad", level="ERROR"), *lines("n", 20))
        self.assertEqual(self.messages("-n", "1", "--level", "ERROR", self.log), ["bad"])

    def test_the_last_ones_are_found_in_a_long_log(self):
        self.write(*lines("long", 5000), mode="w")
        self.write(line("first of all", level="FATAL"), *lines("longer", 20000))
        self.assertEqual(self.messages("-n", "3", self.log),
                         [f"longer {number}" for number in range(19997, 20000)])
        self.assertEqual(self.messages("-n", "3", "-l", "FATAL", self.log), ["first of all"])
        self.assertEqual(len(self.messages("-n", "20002", self.log)), 20002)

    def test_a_record_longer_than_what_is_read_at_once_is_shown_in_whole(self):
        more = ["x" * 1000] * 300
        self.write(line("long"), *more, line("short"))
        self.assertEqual(self.shown("-n", "2", self.log), [line("long"), *more, line("short")])

    def test_a_line_in_a_message_is_no_record_wherever_reading_begins(self):
        # The last 64 KiB, which are read first, begin in the midst of the first line.
        inner = line("inner")
        rest = lines("m", 400)
        filler = line("x" * ((1 << 16) - len(text_of(inner, line(""), *rest))))
        self.write(line("outer " + inner), filler, *rest, mode="w")
        self.assertEqual(self.shown("-n", "402", self.log),
                         [line("outer " + inner), filler, *rest])


if __name__ == "__main__":
    unittest.main()
