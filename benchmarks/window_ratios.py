#!/usr/bin/python3
"""Compares the window's start and memory with those of an empty window of the same toolkit.

window_ratios.py BUILD-FOLDER [TURNS]

Both take turns on the same machine, on the display that QT_QPA_PLATFORM and DISPLAY name; medians
are compared. The bench is the demo with its six adapters, on which mandated waits take no time.
"""

import json
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

SOURCES = pathlib.Path(__file__).resolve().parent.parent
FIELDS = ("first paint", "list painted", "peak memory")


def run(*command):
    started = str(time.monotonic_ns())
    done = subprocess.run([command[0], started, *command[1:]], check=True, capture_output=True, text=True,
                          timeout=60)
    return [float(field) for field in done.stdout.split()]


def measure(build, turns=21):
    """For each field the median of the utility and that of the empty window."""
    with tempfile.TemporaryDirectory() as folder:
        demo = json.loads((SOURCES / "bench/demo.json").read_text())
        demo["clockRate"] = 1000
        bench = pathlib.Path(folder) / "demo.json"
        bench.write_text(json.dumps(demo))
        adapters = str(len(demo["adapters"]))
        utility, empty = [], []
        for _ in range(turns + 1):
            utility.append(run(build / "bin/window_start", bench, adapters))
            empty.append(run(build / "bin/empty_window"))
    # The first turn reads the program and the fonts into memory.
    return {name: (statistics.median(turn[field] for turn in utility[1:]),
                   statistics.median(turn[field] for turn in empty[1:]))
            for field, name in enumerate(FIELDS)}


def main():
    figures = measure(pathlib.Path(sys.argv[1]).resolve(), *map(int, sys.argv[2:3]))
    for name, (ours, theirs) in figures.items():
        unit = "KiB" if name == "peak memory" else "ms"
        print(f"{name:14} {ours:9.1f} {unit:3}  empty window {theirs:9.1f} {unit:3}  ratio {ours / theirs:5.2f}")


if __name__ == "__main__":
    main()
