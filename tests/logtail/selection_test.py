"""Tests of the selection of records."""

import time
import unittest

from support import LogtailTest, line

LEVELS = ["TRACE", "DEBUG", "INFO", "WARN", "ERROR", "FATAL"]


def time_in_log(seconds_ago):
    # The tests use UTC.
    return time.strftime("%m/%d/%y %H:%M:%S:000", time.gmtime(time.time() - seconds_ago))


class ColumnsTest(LogtailTest):
    def chosen(self, *arguments):
        return self.messages("-n", "all", *arguments, self.log)

    def test_level_selects_same_and_higher_levels(self):
        self.write(*[line(level, level=level) for level in LEVELS])
        for number, level in enumerate(LEVELS):
            self.assertEqual(self.chosen("--level", level), LEVELS[number:])
            self.assertEqual(self.chosen("--level", str(10 * number + 10)), LEVELS[number:])
        self.assertEqual(self.chosen("--level", "warn"), LEVELS[3:])
        self.assertEqual(self.chosen("--level", "35"), LEVELS[3:])

    def test_selects_process_by_complete_number(self):
        self.write(*[line(str(process), process=process) for process in (42, 424, 7)])
        self.assertEqual(self.chosen("--process", "42"), ["42"])
        self.assertEqual(self.chosen("--process", "42", "-p", "7"), ["42", "7"])

    def test_selects_thread_by_number(self):
        self.write(*[line(str(thread), thread=thread) for thread in (1, 11, 2)])
        self.assertEqual(self.chosen("--thread", "1"), ["1"])
        self.assertEqual(self.chosen("-t", "1", "-t", "2"), ["1", "2"])

    def test_selects_component_by_name_or_pattern(self):
        names = ["AppHandler", "AppHandlerExtra", "Renderer", "apphandler"]
        self.write(*[line(name, component=name) for name in names])
        self.assertEqual(self.chosen("--component", "AppHandler"), names[:1])
        self.assertEqual(self.chosen("--component", "App*"), names[:2])
        self.assertEqual(self.chosen("-c", "Ren?erer", "-c", "[a]*"), names[2:])

    def test_searches_messages_alone(self):
        self.write(line("HexHelper starts"), line("ends"), line("starts again"))
        self.assertEqual(self.chosen("--grep", "HexHelper|^st"),
                         ["HexHelper starts", "starts again"])
        self.assertEqual(self.chosen("-g", "^ends$", "-g", "again"), ["ends", "starts again"])
        self.assertEqual(self.chosen("-g", "(?i)ENDS"), ["ends"])

    def test_searches_all_lines_of_message(self):
        self.write(line("one"), "needle", line("two"))
        self.assertEqual(self.shown("--grep", "needle", self.log), [line("one"), "needle"])

    def test_record_must_match_all_options(self):
        self.write(line("a", level="ERROR", process=1), line("b", level="ERROR", process=2),
                   line("c", level="INFO", process=1))
        self.assertEqual(self.chosen("--level", "ERROR", "--process", "1"), ["a"])

    def test_shows_line_without_columns_unless_column_is_restricted(self):
        self.write("stray", line("one"))
        for option in (["-l", "0"], ["-p", "4242"], ["-t", "77120"], ["-c", "*"],
                       ["--since", "2001-01-01"], ["--until", "2099-01-01"]):
            self.assertEqual(self.chosen(*option), ["one"], option)
        self.assertEqual(self.chosen("--grep", "^stray$"), ["stray"])


class TimesTest(LogtailTest):
    def setUp(self):
        super().setUp()
        self.write(line("a", time="11/14/26 23:59:59:999"), line("b", time="11/15/26 00:00:00:000"),
                   line("c", time="11/15/26 21:05:07:042"), line("d", time="01/01/27 00:00:00:000"))

    def since(self, moment):
        return "".join(self.messages("--since", moment, self.log))

    def until(self, moment):
        return "".join(self.messages("--until", moment, self.log))

    def test_range_includes_both_ends(self):
        self.assertEqual(self.since("2026-11-15T21:05:07.042"), "cd")
        self.assertEqual(self.since("2026-11-15T21:05:07.043"), "d")
        self.assertEqual(self.until("2026-11-15T21:05:07.042"), "abc")
        self.assertEqual(self.until("2026-11-15T21:05:07.041"), "ab")
        self.assertEqual(self.messages("--since", "2026-11-15", "--until", "2026-12-31", self.log),
                         ["b", "c"])

    def test_accepts_several_forms_of_dates_and_times(self):
        for moment in ("2026-11-15 00:00", "2026-11-15T00:00:00", "2026-11-15",
                       "11/15/26 00:00:00:000", "2026-11-15T00:00:00Z",
                       "2026-11-15T02:00:00+02:00"):
            self.assertEqual(self.since(moment), "bcd", moment)

    def test_duration_counts_back_from_now(self):
        self.write(line("3h", time=time_in_log(10800)), line("90m", time=time_in_log(5400)),
                   line("20s", time=time_in_log(20)), mode="w")
        for moment, expected in (("4h", ["3h", "90m", "20s"]), ("120m", ["90m", "20s"]),
                                 ("4000s", ["20s"]), ("1d", ["3h", "90m", "20s"])):
            self.assertEqual(self.messages("--since", moment, self.log), expected, moment)
        self.assertEqual(self.messages("--until", "2h", self.log), ["3h"])

    def test_clock_time_means_today(self):
        # The result does not depend on a change of the day during the test.
        self.write(line("past", time=time_in_log(2 * 86400)),
                   line("future", time=time_in_log(-2 * 86400)), mode="w")
        for clock in ("00:00", "12:30:15", "23:59:59.999"):
            self.assertEqual(self.since(clock), "future", clock)
            self.assertEqual(self.until(clock), "past", clock)


if __name__ == "__main__":
    unittest.main()
