#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""check.py MANUAL WINDOW CONSOLE: tests the manual pages and completions in the folder MANUAL against the help that the
programs print, by the tools that read them: groff, bash, zsh and fish."""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

MANUAL, WINDOW, CONSOLE = Path(sys.argv[1]), sys.argv[2], sys.argv[3]
failures = 0


def run(*words, stdin=None, **options):
    environment = {name: value for name, value in os.environ.items() if "DISPLAY" not in name}
    return subprocess.run(words, capture_output=True, text=True, input=stdin, env=environment, **options)


def names_in(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]+", text))


def options_of(command):
    """The options that the help names at the beginnings of its lines."""
    text = run(CONSOLE, *command.split(), "--help").stdout
    return names_in("\n".join(re.findall(r"^  (-.*)$", text, re.MULTILINE)))


def commands():
    """All commands, as the help lists them: their words are in small letters, those of their arguments are not."""
    listed = re.search(r"^Commands:\n((?:  .*\n)+)", run(CONSOLE, "--help").stdout, re.MULTILINE)
    return re.findall(r"^  ([a-z]+(?: [a-z]+)*)(?= |$)", listed[1], re.MULTILINE)


def check(name, needed=None):
    """Runs the function below at once, and reports as Qt's tests do."""
    def runner(function):
        global failures
        if needed and not shutil.which(needed):
            print(f"SKIP   : packaging::{name}() without {needed}")
            return
        try:
            function()
            print(f"PASS   : packaging::{name}()")
        except AssertionError as error:
            failures += 1
            print(f"FAIL!  : packaging::{name}() {error}")
    return runner


def same(actual, expected, where):
    assert set(actual) == set(expected), f"{where}: {sorted(set(actual) ^ set(expected))}"


def bash_offers(line, folder="."):
    """What bash offers at the end of a line."""
    script = f"""source {MANUAL}/tarnwick-cli.bash
        COMP_LINE=$1 COMP_POINT=${{#1}}
        read -ra COMP_WORDS <<<"$1"
        [ "${{1% }}" = "$1" ] || COMP_WORDS+=("")
        COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1))
        _tarnwick_cli
        printf '%s\\n' "${{COMPREPLY[@]}}" """
    return run("bash", "-c", script, "-", line, cwd=folder).stdout.split()


def fish_offers(line, folder="."):
    result = run("fish", "--no-config", "-c", f"source {MANUAL}/tarnwick-cli.fish; complete -C '{line}'", cwd=folder)
    return [offer.split("\t")[0] for offer in result.stdout.splitlines()]


def check_offers(offers):
    for command in COMMANDS:
        same(offers(f"tarnwick-cli {command} --"), options_of(command), command)
    groups = {}
    for command in COMMANDS:
        first, *rest = command.split()
        groups.setdefault(first, []).extend(rest)
    same([word for word in offers("tarnwick-cli ") if not word.startswith("-")], groups, "the commands")
    for group in filter(groups.get, groups):
        same([word for word in offers(f"tarnwick-cli {group} ") if not word.startswith("-")], groups[group], group)
    same(offers("tarnwick-cli list --format "), {"tsv", "urls", "json", "table"}, "--format")
    with tempfile.TemporaryDirectory() as folder:
        for name in "a.twk", "b.txt":
            Path(folder, name).touch()
        Path(folder, "sub").mkdir()
        for line in "list ", "search www.example.org --save ":
            files = offers("tarnwick-cli " + line, folder)
            # fish offers other files, too, but after those that fit.
            assert files.index("a.twk") < (files + ["b.txt"]).index("b.txt"), f"{line}: {files}"
            assert offers is fish_offers or "b.txt" not in files, f"{line}: {files}"
        folders = [name.rstrip("/") for name in offers("tarnwick-cli cookies clear --cookies ", folder)]
        same(folders, {"sub"}, "--cookies")


COMMANDS = commands()


@check("helpListsTheCommands")
def _():
    # The other tests would find nothing wrong with an empty list, or with one that is cut short.
    assert len(COMMANDS) == len(set(COMMANDS)) and {"search", "cookies show"} <= set(COMMANDS), COMMANDS
    for command in COMMANDS:
        assert "--help" in options_of(command), command


@check("everyCommandAndOptionIsInTheManual")
def _():
    page = (MANUAL / "tarnwick-cli.1").read_text().replace("\\-", "-").replace("\\fB", " ")
    for command in COMMANDS:
        section = re.search(rf'^\.SS "{command}\b.*?(?=^\.S)', page, re.MULTILINE | re.DOTALL)
        assert section, f"{command} is missing"
        same(names_in("\n".join(re.findall(r"^ -.*$", section[0], re.MULTILINE))), options_of(command) - {"--help"},
             command)


@check("manualHasNoMistakes", "groff")
def _():
    for name in "tarnwick.1", "tarnwick-cli.1":
        result = run("groff", "-man", "-ww", "-Tutf8", str(MANUAL / name))
        assert not result.stderr and not result.returncode, result.stderr


@check("bashCompletes")
def _():
    check_offers(bash_offers)


@check("fishCompletes", "fish")
def _():
    check_offers(fish_offers)


@check("zshReadsItsCompletion", "zsh")
def _():
    text = (MANUAL / "_tarnwick-cli").read_text()
    result = run("zsh", "-fn", str(MANUAL / "_tarnwick-cli"))
    assert not result.stderr, result.stderr
    for command in COMMANDS:
        section = re.search(rf"^    '{command}'\).*?^        ;;", text, re.MULTILINE | re.DOTALL)
        assert section, f"{command} is missing"
        same(names_in("\n".join(re.findall(r"^ +'.*?\[", section[0], re.MULTILINE))), options_of(command), command)


@check("programsNameTheirVersionWithoutDisplay")
def _():
    line = re.compile(r"tarnwick(-cli)? (\d+\.\d+\.\d+ \((commit [0-9a-f]{7,}\+?, )?Qt 6\.\d+\.\d+\))\n")
    versions = [line.fullmatch(run(program, "--version").stdout) for program in (WINDOW, CONSOLE)]
    assert all(versions) and versions[0][2] == versions[1][2], versions
    assert run(WINDOW, "--help").stdout.startswith("Usage: ")


sys.exit(1 if failures else 0)
