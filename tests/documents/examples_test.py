#!/usr/bin/python3
"""Runs the worked examples of docs/formats.md and README.md: the commands of each, in order.

examples_test.py PROGRAMS-FOLDER
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SOURCES = pathlib.Path(__file__).resolve().parent.parent.parent
PROGRAMS = pathlib.Path(sys.argv.pop()).resolve()


def text_of(document):
    return (SOURCES / document).read_text()


def blocks(document, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", text_of(document), re.MULTILINE | re.DOTALL)


class ExamplesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_commands(self, text):
        environment = {**os.environ, "PATH": f"{PROGRAMS}:{os.environ['PATH']}", "HOME": str(self.folder)}
        done = subprocess.run(["sh", "-eu", "-c", text], cwd=self.folder, env=environment, text=True,
                              capture_output=True, timeout=100)
        self.assertEqual(done.returncode, 0, text + done.stdout + done.stderr)
        return done.stdout

    def test_the_benches_of_the_readme(self):
        (self.folder / "bench").symlink_to(SOURCES / "bench")
        (commands,) = blocks("README.md", "sh")
        self.assertRegex(self.run_commands(commands), r"A - 3 .*Corvane2 10G SFP\+")

    def test_the_formats_and_their_journal(self):
        (bench,) = blocks("docs/formats.md", "json")
        state = json.loads(bench)
        state["clockRate"] = 1000
        (self.folder / "mac.json").write_text(json.dumps(state))
        commands = blocks("docs/formats.md", "sh")
        self.assertGreaterEqual(len(commands), 4)
        last = [self.run_commands(text) for text in commands][-1]

        def without_time(line):
            # When it happened and the number of the service differ from run to run.
            return {key: value for key, value in json.loads(line).items() if key not in ("t", "service")}

        printed = re.findall(r'^\{"t".*\}$', text_of("docs/formats.md"), re.MULTILINE)
        seen = [line for line in last.splitlines() if line.startswith("{")]
        self.assertEqual([without_time(line) for line in seen], [without_time(line) for line in printed])


unittest.main()
