"""Tests that growing series are found, and that fluctuating series are not."""

import unittest

from figures import (ERRORS, LEAST_JUDGED, MAX_SLOPE, WARM_UP, WINDOW, Figures, inflation,
                     percentile, slope_of)

END = WARM_UP + LEAST_JUDGED + 60


class SlopeTest(unittest.TestCase):
    def growth(self, value, begin=0, documents=lambda second: 5):
        slope = slope_of([(begin + second, documents(second), value(second))
                          for second in range(END)])
        return round(slope.growth, 6)

    def test_short_series_has_no_slope(self):
        self.assertIsNone(slope_of([(second, 5, 100) for second in range(WARM_UP + 60)]))

    def test_constant_series_is_flat(self):
        self.assertEqual(self.growth(lambda second: 100), 0)

    def test_growth_is_relative_to_mean(self):
        slope = slope_of([(second, 5, 6000 + second) for second in range(END)])
        self.assertAlmostEqual(slope.growth, 60 / 6200, 3)
        self.assertAlmostEqual(slope.error, 0)

    def test_ignores_growth_during_warm_up(self):
        self.assertEqual(self.growth(lambda second: min(second, WARM_UP)), 0)

    def test_warm_up_begins_with_process(self):
        self.assertEqual(self.growth(lambda second: min(second, WARM_UP), begin=1000), 0)

    def test_ignores_peaks(self):
        self.assertEqual(self.growth(lambda second: 100 + second * (second % 7 == 0)), 0)

    def test_ignores_dips(self):
        self.assertEqual(self.growth(lambda second: 100 * (second % 20 != 0)), 0)

    def test_ignores_growth_that_documents_explain(self):
        self.assertEqual(self.growth(lambda second: 100 + second // 60,
                                     documents=lambda second: 5 + second // 60), 0)


class InflationTest(unittest.TestCase):
    def test_independent_residuals_need_no_inflation(self):
        self.assertEqual(inflation([0, 0, 0]), 1)
        self.assertEqual(inflation([1, -1, 1, -1]), 1)

    def test_residuals_in_steps_inflate_variance(self):
        self.assertAlmostEqual(inflation([1, 1, 1, 1, -1, -1, -1, -1]), (1 + 5 / 8) / (1 - 5 / 8))


class FiguresTest(unittest.TestCase):
    def test_reports_growing_process(self):
        figures = Figures()
        figures.names[7] = "leak"
        figures.samples[7, "descriptors"] = [(second, 5, 10 + second // 10)
                                             for second in range(END)]
        figures.samples[7, "threads"] = [(second, 5, 10) for second in range(END)]
        self.assertEqual(len(figures.slopes()), 2)
        self.assertEqual(len(figures.problems()), 1)
        self.assertIn("descriptors of leak grow: +", figures.problems()[0])

    def test_accepts_memory_that_is_returned(self):
        figures = Figures()
        figures.names[7] = "busy"
        figures.samples[7, "kilobytes"] = [
            (second, 5, 1000 + (10 * (second - WARM_UP) if second < END - WINDOW else 0))
            for second in range(END)]
        slope = figures.slopes()[0][2]
        self.assertGreater(slope.growth - ERRORS * slope.error, MAX_SLOPE)
        self.assertEqual(figures.problems(), [])

    def test_second_contains_latencies_of_its_messages_alone(self):
        figures = Figures()
        figures.note_latency(5)
        figures.end_second(1, 0)
        figures.note_latency(1)
        figures.note_latency(2)
        self.assertEqual(figures.end_second(2, 0).median, 1.5)
        self.assertEqual(figures.latencies_in_milliseconds()[0], 2000)

    def test_percentile_of_few_values_exists(self):
        self.assertIsNone(percentile([], 50))
        self.assertEqual(percentile([3], 99), 3)
        self.assertEqual(percentile(list(range(101)), 99), 99)


if __name__ == "__main__":
    unittest.main()
