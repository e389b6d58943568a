# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes manual pages out of help pages."""
import re

FILES = r"""
.SH FILES
.TP
.I ~/.config/Tarnwick
Settings and cookies; below
.I $XDG_CONFIG_HOME
if that is set.
"""


def escaped(text):
    text = text.replace("\\", r"\e").replace("-", r"\-").replace("'", r"\(aq").replace("~", r"\(ti")
    return re.sub(r"^\.", r"\\&.", text)


def option_entry(option):
    names = ", ".join(rf"\fB{escaped(name)}\fR" for name in option.names)
    value = rf" \fI{escaped(option.value)}\fR" if option.value else ""
    return f".TP\n{names}{value}\n{escaped(option.help)}\n"


def example(page):
    return f".PP\nExample:\n.PP\n.nf\n.RS\n{escaped(page.example)}\n.RE\n.fi\n" if page.example else ""


def command_section(command):
    arguments = re.sub(r"^\[options\] ", "", command.usage)[len(command.command):].strip()
    text = f'.SS "{escaped(command.command)} {escaped(arguments)}"\n'.replace(' "\n', '"\n')
    text += escaped(command.description) + "\n"
    for name, help_text in command.arguments:
        text += f".TP\n.I {escaped(name)}\n{escaped(help_text)}\n"
    # Every command has the option --help, which the options of the program tell of.
    text += "".join(option_entry(option) for option in command.options if option.long != "--help")
    return text + example(command)


def page(program, date, other):
    """The manual page of a program; `other` is the program that it refers to."""
    text = f'.TH {program.program.upper()} 1 "{date}" "Tarnwick {program.version}" "User Commands"\n'
    text += f".SH NAME\n{escaped(program.program)} \\- {escaped(summary(program))}\n"
    text += f".SH SYNOPSIS\n.B {escaped(program.program)}\n{escaped(program.usage)}\n"
    text += f".SH DESCRIPTION\n{escaped(program.description)}\n"
    for name, help_text in program.arguments:
        text += f".TP\n.I {escaped(name)}\n{escaped(help_text)}\n"
    text += example(program)
    text += ".SH OPTIONS\n" + "".join(option_entry(option) for option in program.options)
    if program.commands:
        text += ".SH COMMANDS\n" + "".join(command_section(command) for command in program.commands)
    for note in program.notes:
        title, _, rest = note.partition(": ")
        text += f'.SH "{title.upper()}"\n{escaped(rest)}\n'
    return text + FILES.lstrip("\n") + f'.SH "SEE ALSO"\n.BR {escaped(other)} (1)\n'


def summary(program):
    """As a list of manual pages has it: without capital and full stop."""
    text = program.summary.rstrip(".")
    return text[0].lower() + text[1:]
