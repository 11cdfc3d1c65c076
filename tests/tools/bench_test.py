"""What tools/bench makes of the benchmarks' results."""
import importlib.machinery
import importlib.util
import pathlib
import sys
import unittest
import xml.dom.minidom

sys.dont_write_bytecode = True
TOOLS = pathlib.Path(__file__).resolve().parents[2] / "tools"
sys.path.insert(0, str(TOOLS))
import log_plot

loader = importlib.machinery.SourceFileLoader("bench", str(TOOLS / "bench"))
bench = importlib.util.module_from_spec(importlib.util.spec_from_loader("bench", loader))
loader.exec_module(bench)

# (ours, floor, goal, verdict)
VERDICTS = [
    (3, 2, "ratio <= 1.5", "met"), (3.1, 2, "ratio <= 1.5", "not met"),
    (4, 2, "ratio >= 2", "met"), (3.9, 2, "ratio >= 2", "not met"),
    (50, None, "ours <= 50", "met"), (51, 100, "ours <= 50", "not met"),
    (51, 2, "-", ""),
]
RESULTS = ("figure\ta run\tms\t3000\t2000\tthe floor\tratio <= 1.2\n"
           "growth\tversions\trun\t5\t0.002\tbare\t0.001\n"
           "figure\tan exponent\t\t1.125\t-\t\tours <= 1.2\n"
           "growth\tversions\trun\t50\t0.004\tbare\t0.001\n")


class Results(unittest.TestCase):
    def test_verdicts(self):
        for ours, floor, goal, expected in VERDICTS:
            figure = bench.Figure("stage", "ms", ours, floor, "floor", goal)
            self.assertEqual(bench.verdict(figure), expected, figure)

    def test_rows_of_the_table(self):
        figures, _ = bench.read_results(RESULTS)
        self.assertEqual([bench.row(figure) for figure in figures], [
            ["a run", "3,000 ms", "2,000 ms (the floor)", "1.500", "≤ 1.2", "not met"],
            ["an exponent", "1.12", "", "", "≤ 1.2", "met"]])

    def test_a_curve_and_its_floor(self):
        _, points = bench.read_results(RESULTS)
        self.assertEqual(bench.series_of(points), [
            (("run", [(5, 0.002), (50, 0.004)]), ("bare", [(5, 0.001), (50, 0.001)]))])


class Plot(unittest.TestCase):
    def test_places_are_logarithmic_and_inside(self):
        series = [(("ours & <co>", [(1, 1e-3), (10, 1e-2), (10_000, 10)]), ("floor", [(1, 1e-3), (10_000, 1)]))]
        picture = xml.dom.minidom.parseString(log_plot.plot("title", "unit", series))
        places = [(float(each.getAttribute("cx")), float(each.getAttribute("cy")))
                  for each in picture.getElementsByTagName("circle")]
        (x0, y0), (x1, y1), (x2, y2), *floor = places
        self.assertAlmostEqual((x2 - x0) / (x1 - x0), 4, places=1)
        self.assertAlmostEqual((y0 - y2) / (y0 - y1), 4, places=1)
        self.assertEqual(floor[0], (x0, y0))
        self.assertGreater(floor[1][1], y2)
        for x, y in places:
            self.assertTrue(0 < x < log_plot.WIDTH and 0 < y < log_plot.HEIGHT, (x, y))

    def test_one_size_alone(self):
        log_plot.plot("title", "unit", [(("ours", [(10, 0.01)]), ("floor", [(10, 0.01)]))])


if __name__ == "__main__":
    unittest.main()
