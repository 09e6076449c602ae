#!/usr/bin/env python3
"""Compares the archive commands with the bare work that they cannot avoid.

    benchmarks/archive_ratios.py [--build build/release] [--rounds 7]

Builds a package of just under 100,000,000 bytes, runs each command on one core,
and prints its processor time (user and system) as a ratio to the yardstick and
its peak memory as a ratio to the package or to its members. Yardsticks are
measured in the same run, turn by turn with the commands, and the best turn of each
is compared: memory that the system has to find first only ever adds to a time.

"extract" and "create" have two yardsticks. One reads its file into memory, where
the coding works on it; the strict one, without a goal, reads it through a small
buffer, as if memory cost nothing. Exits with 1 when a ratio is above its goal.
"""
import argparse
import filecmp
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile

LARGEST_PACKAGE = 99_999_999
INDEX_ALLOWANCE = 1_000
PIECE = 1 << 20
BYTES_PER_LINE, CHARACTERS_PER_LINE = 54, 73


def run(command, output=subprocess.DEVNULL):
    """Processor seconds and peak bytes of a command, which must succeed."""
    process = subprocess.Popen(command, stdout=output)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} failed with {process.returncode}")
    unit = 1 if sys.platform == "darwin" else 1024
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * unit


def make_member(folder):
    member = folder / "image.bin"
    size = (LARGEST_PACKAGE - INDEX_ALLOWANCE) // CHARACTERS_PER_LINE * BYTES_PER_LINE
    # In small pieces: what this process once held would count as its children's peak.
    noise = random.Random(1)
    with member.open("wb") as stream:
        while size > 0:
            size -= stream.write(noise.randbytes(min(size, PIECE)))
    manifest = folder / "manifest.json"
    entry = {"id": "emulex.grp", "version": "1.0", "description": "", "name": "emulex.grp",
             "path": member.name}
    manifest.write_text(json.dumps({"id": "RATIOS", "version": "1", "files": [entry]}))
    return member, manifest


def measure(corvane, yardstick, folder, rounds):
    member, manifest = make_member(folder)
    package, output, scratch = folder / "a.pkg", folder / "out.bin", folder / "scratch"
    commands = {
        "create": [corvane, "archive", "create", package, manifest],
        "version": [corvane, "archive", "version", package, "emulex.grp"],
        "list": [corvane, "archive", "list", package],
        "verify": [corvane, "archive", "verify", package],
        "extract": [corvane, "archive", "extract", package, "emulex.grp", output],
    }
    times = {name: [] for name in commands}
    peaks = {name: 0 for name in commands}
    bare = []
    for _ in range(rounds):
        for name, command in commands.items():
            seconds, peak = run(command)
            times[name].append(seconds)
            peaks[name] = max(peaks[name], peak)
        parts = json.loads(subprocess.check_output([yardstick, package, member, scratch]))
        with open(os.devnull, "wb") as null:
            parts["cat"], _ = run(["cat", package], null)
            parts["catMember"], _ = run(["cat", member], null)
        bare.append(parts)
    if not filecmp.cmp(output, member, shallow=False):
        sys.exit("the extracted file differs from the member")
    sizes = {"package": package.stat().st_size, "member": member.stat().st_size}
    return ({name: min(values) for name, values in times.items()}, peaks,
            {part: min(turn[part] for turn in bare) for part in bare[0]}, sizes)


def compare(times, peaks, bare, sizes):
    """Rows of label, command, yardstick's seconds, goal, bytes that the peak is held against, goal."""
    reading = bare["cat"] + bare["checksum"]
    decoding = bare["decode"] + bare["writeMember"]
    encoding = bare["encode"] + bare["writePackage"]
    package, member = sizes["package"], sizes["member"]
    return [
        ("version", "version", reading, 6.0, package, 1.15),
        ("list", "list", reading, 6.0, package, 1.15),
        ("extract", "extract", bare["readPackage"] + decoding, 1.4, package, 1.9),
        ("extract, strict", "extract", bare["cat"] + decoding, None, package, None),
        ("create", "create", bare["readMember"] + encoding, 1.6, member, 2.6),
        ("create, strict", "create", bare["catMember"] + encoding, None, member, None),
        ("verify", "verify", bare["readPackage"] + bare["checksum"] + bare["decode"], None,
         package, None),
    ]


def report(times, peaks, bare, sizes):
    print(f"package of {sizes['package']:,} bytes, member of {sizes['member']:,} bytes")
    print("bare work in seconds: " + ", ".join(f"{part} {bare[part]:.3f}" for part in bare))
    print(f"{'command':16}{'seconds':>9}{'yardstick':>11}{'ratio':>7}{'goal':>6}"
          f"{'peak MB':>9}{'ratio':>7}{'goal':>6}")
    kept = True
    for label, name, yardstick, time_goal, size, memory_goal in compare(times, peaks, bare, sizes):
        time_ratio, memory_ratio = times[name] / yardstick, peaks[name] / size
        print(f"{label:16}{times[name]:9.3f}{yardstick:11.3f}{time_ratio:7.2f}"
              f"{time_goal or '':>6}{peaks[name] / 1e6:9.1f}{memory_ratio:7.2f}"
              f"{memory_goal or '':>6}")
        kept &= time_goal is None or time_ratio <= time_goal
        kept &= memory_goal is None or memory_ratio <= memory_goal
    return kept


def take(build, rounds):
    """Measures the programs of a build on one core, and leaves the others as they were."""
    cores = os.sched_getaffinity(0) if hasattr(os, "sched_setaffinity") else None
    if cores:
        os.sched_setaffinity(0, {max(cores)})
    programs = build / "bin"
    try:
        with tempfile.TemporaryDirectory() as folder:
            return measure(programs / "corvane", programs / "archive_yardstick", pathlib.Path(folder), rounds)
    finally:
        if cores:
            os.sched_setaffinity(0, cores)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=pathlib.Path("build/release"))
    parser.add_argument("--rounds", type=int, default=7)
    arguments = parser.parse_args()
    sys.exit(0 if report(*take(arguments.build, arguments.rounds)) else 1)


if __name__ == "__main__":
    main()
