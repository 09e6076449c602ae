#!/usr/bin/python3
"""Compares what the programs' --help says with the manual pages and the shells' completions.

options_test.py PROGRAMS-FOLDER
"""

import functools
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

SOURCES = pathlib.Path(__file__).resolve().parent.parent.parent
COMPLETIONS = SOURCES / "packaging/completions"
PROGRAMS = pathlib.Path(sys.argv.pop())

OPTION = re.compile(r"(?<![\w-])--[a-z][a-z-]+")
# What every command has, so a manual page says it once.
COMMON = {"--help", "--json"}


def output_of(*command, text=""):
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
    done = subprocess.run(command, input=text, capture_output=True, text=True, env=environment, timeout=60)
    if done.returncode != 0:
        raise RuntimeError(f"{command} ended with {done.returncode}: {done.stderr}")
    return done.stdout


def section(text, title):
    """The lines under a title of a help text."""
    found = re.search(rf"^{title}:\n((?: .*\n|\n(?= ))*)", text, re.MULTILINE)
    return found[1] if found else ""


@functools.cache
def commands(program):
    """Each command of a program as a tuple of words, () for the program itself, and its options."""
    found = {}

    def ask(path):
        text = output_of(PROGRAMS / program, *path, "--help")
        found[path] = set(re.findall(r"^ +(?:-\w, ?)?(--[a-z-]+)", section(text, "Options"), re.MULTILINE))
        for name in re.findall(r"^  (\w+)", section(text, "Subcommands"), re.MULTILINE):
            ask((*path, name))

    ask(())
    return found


def children(program, path):
    return {known[-1] for known in commands(program) if known[:-1] == path and known != path}


def window_options():
    text = output_of(PROGRAMS / "corvane-utility", "--help")
    return {option for option in OPTION.findall(section(text, "Options")) if option != "--help-all"}


def entries(page):
    """The entries of a manual page, each the words of its heading and its whole text."""
    source = (SOURCES / "docs/man" / page).read_text()
    source = re.sub(r"\\f[BIRP]|\"", "", source).replace("\\-", "-").replace("\\(dq", '"')
    for entry in re.split(r"^\.TP\n", source, flags=re.MULTILINE)[1:]:
        entry = entry.split("\n.SH")[0]
        heading = re.sub(r"^\.[A-Z]+ ", "", entry.split("\n")[0])
        yield heading.split(), entry


def described(program, path):
    """The options that a manual page describes for a command; nothing for an unknown one."""
    options = None
    for heading, entry in entries(f"{program}.1"):
        words = heading[1:] if heading[0] == "FILE" else heading
        if tuple(words[:len(path)]) == path:
            options = (options or set()) | set(OPTION.findall(entry))
    return options


class ManualTest(unittest.TestCase):
    def test_the_pages_describe_every_command_with_its_own_options(self):
        for program in ("corvane", "corvane-bench"):
            for path, options in commands(program).items():
                if not path or children(program, path):
                    continue
                with self.subTest(program=program, command=path):
                    self.assertEqual(described(program, path), options - COMMON)

    def test_the_pages_describe_the_options_of_the_programs(self):
        for program in ("corvane", "corvane-bench"):
            page = {heading[0] for heading, _ in entries(f"{program}.1") if heading[0].startswith("--")}
            with self.subTest(program=program):
                self.assertEqual(page, commands(program)[()] | COMMON)
        page = {heading[0] for heading, _ in entries("corvane-utility.1")}
        self.assertEqual(page, window_options())

    def test_the_pages_describe_nothing_that_is_not_there(self):
        for program in ("corvane", "corvane-bench"):
            known = set().union(*commands(program).values())
            text = (SOURCES / f"docs/man/{program}.1").read_text().replace("\\-", "-")
            self.assertEqual(set(OPTION.findall(text)) - known, set(), program)

    def test_the_page_of_the_bench_names_every_fault(self):
        schema = json.loads((SOURCES / "bench/schema.json").read_text())
        faults = set(schema["properties"]["faults"]["properties"])
        page = (SOURCES / "docs/man/corvane-bench.1").read_text().replace("\\-", "-")
        for fault in faults:
            self.assertIn(re.sub(r"-\d+$", "-", fault), page)

    def test_the_pages_have_nothing_to_complain_about(self):
        for page in (SOURCES / "docs/man").iterdir():
            done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", page],
                                  capture_output=True, text=True)
            self.assertEqual((done.returncode, done.stderr), (0, ""), page.name)


class CompletionCase:
    """What each shell's completion must offer."""

    def test_options(self):
        for program in ("corvane", "corvane-bench"):
            for path, options in commands(program).items():
                with self.subTest(program=program, command=path):
                    self.assertEqual(self.offered([program, *path, "--"]), options)
        self.assertEqual(self.offered(["corvane-utility", "--"]), window_options())

    def test_commands(self):
        for path in ((), ("archive",), ("update",)):
            with self.subTest(command=path):
                self.assertEqual(self.offered(["corvane", *path, ""]), children("corvane", path))
        offered = self.offered(["corvane-bench", "some.json", ""])
        self.assertLessEqual(children("corvane-bench", ()), offered)

    def test_a_command_behind_options(self):
        words = ["corvane", "--bench", "update", "--json", "set", "B2", "--"]
        self.assertEqual(self.offered(words), commands("corvane")[("set",)])

    def test_values(self):
        for option, values in (("--mode", {"low-latency", "balanced", "high-throughput", "server"}),
                               ("--topology", {"ptp", "loop"}), ("--speed", {"auto", "2", "4", "8", "16"})):
            self.assertEqual(self.offered(["corvane", "set", "B2", option, ""]), values)


class BashTest(CompletionCase, unittest.TestCase):
    def offered(self, words):
        script = (f"source '{COMPLETIONS}/corvane.bash'\n"
                  'COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))\n_corvane\nprintf "%s\\n" "${COMPREPLY[@]}"')
        return set(output_of("bash", "-c", script, "bash", *words).split())


class FishTest(CompletionCase, unittest.TestCase):
    def offered(self, words):
        script = f"source '{COMPLETIONS}/{words[0]}.fish'; complete -C '{' '.join(words)}'"
        return {line.split("\t")[0] for line in output_of("fish", "--no-config", "-c", script).splitlines()}


class ZshTest(unittest.TestCase):
    """The functions of zsh's completion, one for each command, are read and not run."""

    @classmethod
    def setUpClass(cls):
        text = (COMPLETIONS / "_corvane").read_text()
        cls.functions = dict(re.findall(r"^(\w[\w-]*)\(\) \{(.*?)\}$", text, re.MULTILINE | re.DOTALL))

    def test_zsh_reads_it(self):
        output_of("zsh", "--no-exec", str(COMPLETIONS / "_corvane"))

    def test_options(self):
        for program in ("corvane", "corvane-bench"):
            for path, options in commands(program).items():
                name = self.function_name(program, path)
                with self.subTest(function=name):
                    body = self.functions[name]
                    common = {"--help"} if "_corvane_command" in body else COMMON
                    self.assertEqual(set(OPTION.findall(body)) | common, options)
        self.assertEqual(set(OPTION.findall(self.functions["_corvane_corvane-utility"])), window_options())

    def test_commands(self):
        for program, path in (("corvane", ()), ("corvane", ("archive",)), ("corvane", ("update",)), ("corvane-bench", ())):
            body = self.functions[self.function_name(program, path)]
            named = set(re.findall(r"'(\w+):", body))
            self.assertEqual(named, children(program, path), path)

    def function_name(self, program, path):
        if program == "corvane-bench":
            return f"_corvane_bench_{path[0]}" if path else "_corvane_corvane-bench"
        return "_".join(["_corvane", *(("corvane",) if len(path) < 2 else ()), *path])


unittest.main()
