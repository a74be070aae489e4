"""Tests of the schedule."""

import unittest

from schedule import ACTIONS, LEAD_IN, LEAD_OUT, make_schedule


class ScheduleTest(unittest.TestCase):
    def test_same_seed_gives_same_schedule(self):
        self.assertEqual(make_schedule(7, 600), make_schedule(7, 600))
        self.assertNotEqual(make_schedule(7, 600), make_schedule(8, 600))

    def test_short_run_has_every_action(self):
        self.assertEqual({event.action for event in make_schedule(1, 30)}, set(ACTIONS))

    def test_events_are_in_order_with_time_at_both_ends(self):
        times = [event.at for event in make_schedule(1, 60)]
        self.assertEqual(times, sorted(times))
        self.assertGreaterEqual(times[0], LEAD_IN)
        self.assertLessEqual(times[-1], 60 - LEAD_OUT)

    def test_events_of_action_do_not_overlap(self):
        ends = {}
        for event in make_schedule(1, 600):
            self.assertGreaterEqual(event.at, ends.get(event.action, 0))
            ends[event.action] = event.at + event.length

    def test_long_run_has_more_of_each_action(self):
        def count(seconds):
            return sum(event.action == "kill a renderer" for event in make_schedule(1, seconds))
        self.assertEqual(count(600), 10 * count(60))


if __name__ == "__main__":
    unittest.main()
