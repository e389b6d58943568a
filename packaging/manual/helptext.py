# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads what the programs print for --help. The manual pages and the completions are made from that."""
import itertools
import os
import re
import subprocess
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Option:
    names: list  # with their dashes, the long one last
    value: str  # the help's name for the value; empty for a switch
    help: str

    @property
    def long(self):
        return self.names[-1]


@dataclass
class Help:
    """One help page, which is that of a program or of a command."""

    program: str
    command: str = ""  # empty for the page of the program
    usage: str = ""  # behind the program's name
    description: str = ""
    example: str = ""
    options: list = field(default_factory=list)
    arguments: list = field(default_factory=list)  # pairs of name and help
    commands: list = field(default_factory=list)  # the pages of the commands
    notes: list = field(default_factory=list)  # further paragraphs
    version: str = ""

    @property
    def summary(self):
        return first_sentence(self.description)


def first_sentence(text):
    return re.split(r"(?<=\.)\s+(?=[A-Z])", text.strip())[0]


def ask(program, *words):
    """What the program prints. No setting of the caller may change it."""
    environment = {"LC_ALL": "C.UTF-8", "PATH": os.environ["PATH"], "QT_QPA_PLATFORM": "offscreen"}
    return subprocess.run([program, *words], capture_output=True, text=True, check=True, env=environment).stdout


def entries(block):
    """Pairs of the left and the right column. A left text that fills its column has its right one on the next line."""
    pairs = []
    for line in block:
        new = re.fullmatch(r"  (\S.*?)(?:  +(\S.*))?", line)
        if new:
            pairs.append((new[1], new[2] or ""))
        else:
            pairs[-1] = (pairs[-1][0], (pairs[-1][1] + " " + line.strip()).strip())
    return pairs


def option_from(left, right):
    value = re.search(r"<(.+)>", left)
    return Option(re.findall(r"(?<!\S)--?[\w-]+", left), value[1] if value else "", right)


def blocks(text):
    """The paragraphs, each with its title if it has one; a text without title begins each page."""
    for block in text.strip("\n").split("\n\n"):
        lines = block.split("\n")
        title = lines[0][:-1] if re.fullmatch(r"(Commands|Options|Arguments|Example):", lines[0]) else ""
        yield title, lines[1:] if title else lines


def read(program, command=""):
    """The page of a program, or of one of its commands."""
    text = ask(program, *command.split(), "--help")
    page = Help(Path(program).name, command)
    for title, lines in blocks(text):
        if not title and lines[0].startswith("Usage: "):
            page.usage = lines[0].split(" ", 2)[2]
            page.description = " ".join(lines[1:])
        elif title == "Example":
            page.example = lines[0].strip()
        elif title == "Options":
            page.options = [option_from(*entry) for entry in entries(lines)]
        elif title == "Arguments":
            page.arguments = entries(lines)
        elif title == "Commands":
            page.commands = [read(program, name_of(left)) for left, _ in entries(lines)]
        else:
            page.notes.append(" ".join(line.strip() for line in lines))
    if not page.usage or not page.options:
        raise SystemExit(f"{program} {command} --help is not understood")
    if not command:
        page.version = ask(program, "--version").split()[1]
    return page


def name_of(usage):
    """The command's name is in small letters; behind it stand its arguments, or its summary, with a capital."""
    return " ".join(itertools.takewhile(str.islower, usage.split()))
