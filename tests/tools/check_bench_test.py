"""A gate that cannot close protects nothing: the benchmark check must refuse what is too slow or was not measured."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).parent.parent.parent / "tools" / "check-bench"


def run(times, gates, exit_status=0):
    """Runs the check on a program that says it has taken these times (name, time, unit) of the processor."""
    report = {"benchmarks": [{"run_type": "iteration", "run_name": n, "cpu_time": t, "real_time": 10 - t, "time_unit": u,
                              "half": t / 2}
                             for n, t, u in times]}
    with tempfile.TemporaryDirectory() as folder:
        program = Path(folder) / "bench_x"
        program.write_text(f"#!/bin/sh\ncat <<'END'\n{json.dumps(report)}\nEND\nexit {exit_status}\n")
        program.chmod(0o755)
        file = Path(folder) / "gates.txt"
        file.write_text(gates)
        return subprocess.run([sys.executable, str(TOOL), folder, str(file)], capture_output=True, text=True, check=False)


class CheckBench(unittest.TestCase):
    def test_answers_by_the_shortest_of_the_runs(self):
        slow_and_fast = [("A", 9, "us"), ("A", 3, "us"), ("B", 1000, "ns"), ("B", 2, "us")]
        cases = [
            ("just allowed", slow_and_fast, "# remark\nbench_x A B 3\n", 0, 0),
            ("too slow", slow_and_fast, "bench_x A B 2.9\n", 0, 1),
            ("one of two too slow", slow_and_fast, "bench_x B A 1\nbench_x A B 2.9\n", 0, 1),
            ("a counter of one run against another", [("A", 9, "us")], "bench_x A:half A:cpu_time 0.5\n", 0, 0),
            ("a counter too high", [("A", 9, "us")], "bench_x A:half A:cpu_time 0.4\n", 0, 1),
            ("no such counter", [("A", 9, "us")], "bench_x A:third A:half 9\n", 0, 1),
            ("not measured", slow_and_fast, "bench_x C B 3\n", 0, 1),
            ("no such program", slow_and_fast, "bench_y A B 3\n", 0, 1),
            ("the program failed", slow_and_fast, "bench_x A B 3\n", 3, 1),
            ("by hand, just allowed", [("A/manual_time", 1, "us"), ("B", 3, "us")], "bench_x A/manual_time B 3\n", 0, 0),
            ("by hand, too slow", [("A/manual_time", 1, "us"), ("B", 3, "us")], "bench_x A/manual_time B 2.9\n", 0, 1),
            ("no gates", slow_and_fast, "# none\n", 0, 1),
        ]
        for name, times, gates, exit_status, expected in cases:
            with self.subTest(name):
                result = run(times, gates, exit_status)
                self.assertEqual(result.returncode, expected, result.stdout + result.stderr)
                self.assertEqual(result.stderr, "")


if __name__ == "__main__":
    unittest.main()
