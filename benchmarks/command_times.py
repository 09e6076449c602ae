#!/usr/bin/env python3
"""How long the commands that people and scripts run most make them wait, at real time.

    benchmarks/command_times.py [--build build/release] [--rounds 5]

The benches' clocks run at the rate of a real one, so what the driver is given to settle counts. The
yardstick is `corvane --version`, which starts the program and does nothing. The least of the rounds
is taken: other work on the computer only ever adds to it.
"""
import argparse
import json
import pathlib
import subprocess
import sys
import tempfile
import time

SOURCES = pathlib.Path(__file__).resolve().parent.parent
# What is run, on which bench, and within how many seconds it is to be done.
COMMANDS = [
    (("list",), "demo", None),
    (("show", "A1"), "demo", 0.2),
    (("list",), "sixty-four", 4.0),
]


def seconds(corvane, arguments, rounds):
    """The least of some rounds."""
    best = None
    for _ in range(rounds):
        start = time.monotonic()
        done = subprocess.run([corvane, *arguments], capture_output=True, timeout=300)
        taken = time.monotonic() - start
        if done.returncode != 0:
            sys.exit(f"corvane {' '.join(map(str, arguments))} failed: {done.stderr.decode()}")
        best = taken if best is None else min(best, taken)
    return best


def real_time_bench(name, folder):
    bench = json.loads((SOURCES / f"bench/{name}.json").read_text())
    bench["clockRate"] = 1
    path = pathlib.Path(folder) / f"{name}.json"
    path.write_text(json.dumps(bench))
    return path


def measure(build, rounds=5):
    """Rows of command line, seconds, the yardstick's seconds, goal in seconds."""
    corvane = build / "bin/corvane"
    bare = seconds(corvane, ["--version"], rounds)
    rows = []
    with tempfile.TemporaryDirectory() as folder:
        for command, name, goal in COMMANDS:
            bench = real_time_bench(name, folder)
            taken = seconds(corvane, ["--bench", bench, *command], rounds)
            rows.append((f"corvane {' '.join(command)}, {name} bench", taken, bare, goal))
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=pathlib.Path("build/release"))
    parser.add_argument("--rounds", type=int, default=5)
    arguments = parser.parse_args()
    kept = True
    for what, taken, bare, goal in measure(arguments.build, arguments.rounds):
        print(f"{what:36}{taken:8.3f} s  goal {goal or '-':>4}  {taken / bare:7.1f} times --version")
        kept &= goal is None or taken <= goal
    sys.exit(0 if kept else 1)


if __name__ == "__main__":
    main()
