# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the completions of shells out of help pages. What a value can be is seen by its name in the help."""
import re

from helptext import first_sentence

HEAD = "# Completion of tarnwick-cli, made from its help.\n"


def kind(value):
    """words, folders, an ending of files, files, or nothing to complete: what the name of a value stands for."""
    if re.fullmatch(r"[a-z0-9]+(\|[a-z0-9]+)+", value):
        return "words", value.split("|")
    if re.search(r"\bDIR$|_DIR$", value):
        return "folders", []
    endings = re.findall(r"\.(\w+)", re.sub(r"\.\.\.$", "", value))
    if endings:
        return "endings", endings
    if value.startswith("SOURCE"):
        return "endings", ["twk"]
    return ("files", []) if value.startswith("FILE") else ("none", [])


def argument_names(command):
    """Those of a command, as in ["TARGET_DIR", "SOURCE..."]."""
    return re.sub(r"^\[options\] ", "", command.usage)[len(command.command):].split()


def first_words(page):
    """The words that can stand behind the program's name, each with what may follow it: groups have several."""
    words = {}
    for command in page.commands:
        first, *rest = command.command.split()
        words.setdefault(first, []).extend(rest)
    return words


# bash


def bash_reply(value):
    what, items = kind(value)
    if what == "words":
        return f"words '{' '.join(items)}'"
    return {"folders": "folders", "endings": f"files '{'|'.join(items)}'", "files": "files ''", "none": ":"}[what]


def bash_command(command):
    names = " ".join(name for option in command.options for name in option.names)
    lines = [f"    '{command.command}')", "        case $previous in"]
    for option in command.options:
        if option.value:
            lines.append(f"            {' | '.join(option.names)}) _tarnwick_cli_{bash_reply(option.value)}; return ;;")
    lines.append("        esac")
    lines.append(f"        if [[ $current == -* ]]; then _tarnwick_cli_words '{names}'; return; fi")
    arguments = argument_names(command)
    if arguments:
        # The last one stands for all that follow. Which argument this is cannot be told from the values of options.
        lines.append(f"        _tarnwick_cli_{bash_reply(arguments[-1])}")
        if kind(arguments[0])[0] == "folders":
            lines.append("        _tarnwick_cli_folders")
    return "\n".join(lines + ["        ;;"])


def bash(page):
    words = first_words(page)
    groups = "\n".join(
        f"    {first}) command+=' '${{COMP_WORDS[2]-}}; [ \"$COMP_CWORD\" -gt 2 ] || "
        f"{{ _tarnwick_cli_words '{' '.join(rest)} --help'; return; }} ;;"
        for first, rest in words.items() if rest)
    top = " ".join(list(words) + [name for option in page.options for name in option.names])
    commands = "\n".join(bash_command(command) for command in page.commands)
    return f"""{HEAD}# shellcheck shell=bash disable=SC2207
_tarnwick_cli_words() {{ COMPREPLY+=($(compgen -W "$1" -- "$current")); }}
_tarnwick_cli_folders() {{ compopt -o filenames 2>/dev/null; COMPREPLY+=($(compgen -d -- "$current")); }}
_tarnwick_cli_files() {{
    local IFS=$'\\n' file
    compopt -o filenames 2>/dev/null
    for file in $(compgen -f -- "$current"); do
        [[ -n $1 && ! -d $file && ! $file =~ \\.($1)$ ]] || COMPREPLY+=("$file")
    done
}}

_tarnwick_cli() {{
    local current=${{COMP_WORDS[COMP_CWORD]}} previous=${{COMP_WORDS[COMP_CWORD - 1]}} command=${{COMP_WORDS[1]}}
    COMPREPLY=()
    if [ "$current" = '=' ]; then current=; elif [ "$previous" = '=' ]; then previous=${{COMP_WORDS[COMP_CWORD - 2]}}; fi
    if [ "$COMP_CWORD" -eq 1 ]; then
        _tarnwick_cli_words '{top}'
        return
    fi
    case $command in
{groups}
    esac
    case $command in
{commands}
    esac
}}
complete -F _tarnwick_cli tarnwick-cli
"""


# zsh


def zsh_quoted(text):
    return re.sub(r"([\[\]:])", r"\\\1", text).replace("'", "'\\''")


def zsh_action(value):
    what, items = kind(value)
    if what == "words":
        return f"({' '.join(items)})"
    return {"folders": "_files -/", "endings": f'_files -g "*.({"|".join(items)})"', "files": "_files", "none": ""}[what]


def zsh_option(option):
    text = f"[{zsh_quoted(first_sentence(option.help))}]"
    value = f":{zsh_quoted(option.value)}:{zsh_action(option.value)}" if option.value else ""
    repeat = "*" if "Repeatable" in option.help else ""
    if len(option.names) == 1 or repeat:
        return "\n".join(f"            '{repeat}{name}{text}{value}' \\" for name in option.names)
    names = " ".join(option.names)
    return f"            '({names})'{{{','.join(option.names)}}}'{text}{value}' \\"


def zsh_command(command):
    lines = [f"    '{command.command}')", "        _arguments -S \\"]
    lines += [zsh_option(option) for option in command.options]
    arguments = argument_names(command)
    for number, name in enumerate(arguments, 1):
        place = "*" if name.endswith("...") else number
        lines.append(f"            '{place}:{zsh_quoted(name)}:{zsh_action(name)}' \\")
    lines[-1] = lines[-1].removesuffix(" \\")
    return "\n".join(lines + ["        ;;"])


def zsh_described(pairs):
    return "\n".join(f"            '{zsh_quoted(name)}:{zsh_quoted(text)}'" for name, text in pairs)


def zsh(page):
    summaries = {command.command: command.summary for command in page.commands}
    words = first_words(page)
    top = zsh_described((first, summaries.get(first, "Commands: " + ", ".join(rest))) for first, rest in words.items())
    groups = ""
    for first, rest in words.items():
        if rest:
            groups += f"""    if [[ $command == {first} ]]; then
        if (( CURRENT == 2 )); then
            described=(
{zsh_described((word, summaries[f"{first} {word}"]) for word in rest)}
            )
            _describe command described
            return
        fi
        command+=" $words[2]"
        shift words
        (( CURRENT-- ))
    fi
"""
    commands = "\n".join(zsh_command(command) for command in page.commands)
    options = "\n".join(zsh_option(option) for option in page.options)
    return f"""#compdef tarnwick-cli
{HEAD}
_tarnwick-cli() {{
    local command
    local -a described
    if (( CURRENT == 2 )); then
        described=(
{top}
        )
        _describe command described
        _arguments \\
{options.removesuffix(" " + chr(92))}
        return
    fi
    command=$words[2]
    shift words
    (( CURRENT-- ))
{groups}    case $command in
{commands}
    esac
}}

_tarnwick-cli "$@"
"""


# fish


def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def fish_values(value):
    what, items = kind(value)
    if what == "words":
        return f" -x -a {fish_quoted(' '.join(items))}"
    if what == "folders":
        return " -x -a '(__fish_complete_directories)'"
    if what == "endings":
        return " -k -x -a " + fish_quoted("".join(f"(__fish_complete_suffix .{item})" for item in items))
    return " -r -F" if what == "files" else " -x"


def fish_option(option, condition):
    letters = "".join(f" -s {name[1:]}" for name in option.names if not name.startswith("--"))
    value = fish_values(option.value) if option.value else ""
    return (f"complete -c tarnwick-cli -n {fish_quoted(condition)}{letters} -l {option.long[2:]}{value}"
            f" -d {fish_quoted(first_sentence(option.help))}")


def fish(page):
    lines = [HEAD.rstrip("\n"), "complete -c tarnwick-cli -f"]
    lines += [fish_option(option, "__fish_use_subcommand") for option in page.options]
    for first, rest in first_words(page).items():
        if rest:
            lines.append(f"complete -c tarnwick-cli -n __fish_use_subcommand -a {first}"
                         f" -d {fish_quoted('Commands: ' + ', '.join(rest))}")
    for command in page.commands:
        *group, last = command.command.split()
        before = f"__fish_seen_subcommand_from {group[0]}" if group else "__fish_use_subcommand"
        lines.append(f"complete -c tarnwick-cli -n {fish_quoted(before)} -a {last} -d {fish_quoted(command.summary)}")
        inside = "; and ".join(f"__fish_seen_subcommand_from {word}" for word in command.command.split())
        lines += [fish_option(option, inside) for option in command.options]
        for name in argument_names(command):
            if kind(name)[0] != "none":
                lines.append(f"complete -c tarnwick-cli -n {fish_quoted(inside)}{fish_values(name)}")
    return "\n".join(lines) + "\n"
