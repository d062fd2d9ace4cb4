#!/usr/bin/python3
"""Speed of the Python package on one million DATE9. values from a NumPy
array: to a list of str, and to NumPy arrays of fixed-width fields ("U" and
"S"). Prints the best of five runs of each. Run from a checkout after a
build (or with XFMT_LIBRARY set):

    /usr/bin/python3 bench/python_speed.py
"""

import os
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "python"))

import numpy as np  # noqa: E402

import xfmt  # noqa: E402

N = 1_000_000
TARGETS = {"list of str": 0.3, "NumPy array, dtype U": 0.05, "NumPy array, dtype S": 0.05}


def best(fn, runs=5):
    """Best wall time and best process CPU time: on a shared machine the CPU
    time is the cost of the work itself."""
    wall, cpu = [], []
    for _ in range(runs):
        t, c = time.perf_counter(), time.process_time()
        fn()
        wall.append(time.perf_counter() - t)
        cpu.append(time.process_time() - c)
    return min(wall), min(cpu)


def main():
    rng = np.random.default_rng(20261123)
    days = rng.integers(10957, 10957 + 14976, N).astype("float64")  # 1990-2030
    f = xfmt.Formatter("DATE9.")
    cases = {
        "list of str": lambda: f.format(days),
        "NumPy array, dtype U": lambda: f.format(days, as_array=True),
        "NumPy array, dtype S": lambda: f.format(days, as_array=True, dtype="S"),
    }
    assert f.format(days[:3]) == list(f.format(days[:3], as_array=True))
    print("1,000,000 DATE9. values from a NumPy array (best of 5; load average %.1f):" % os.getloadavg()[0])
    for name, fn in cases.items():
        wall, cpu = best(fn)
        print("  %-22s wall %6.3f s   CPU %6.3f s   (target < %.2f s)" % (name, wall, cpu, TARGETS[name]))


if __name__ == "__main__":
    main()
