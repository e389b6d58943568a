# SPDX-License-Identifier: GPL-3.0-or-later
"""Formats the results as a table for the terminal, which is also Markdown."""

HEADINGS = ["work", "Tarnwick", "lowest to highest", "beside", "its value", "ratio", "target", "verdict"]


def number(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def cells(result):
    row = result.row
    low, high = result.spread
    with_unit = f"{{}} {row.unit}"
    bound = "at least" if row.at_least else "at most"
    alone = result.peer is None
    return [row.work, with_unit.format(number(result.own)), f"{number(low)} to {number(high)}",
            row.beside or result.name, "" if alone else with_unit.format(number(result.peer)),
            "" if alone else f"{result.figure:.2f}",
            f"{bound} {row.target:g}" + (f" {row.unit}" if alone else ""),
            "met" if result.is_met else "MISSED"]


def formatted(results):
    lines = [HEADINGS, *map(cells, results)]
    widths = [max(len(line[column]) for line in lines) for column in range(len(HEADINGS))]
    lines.insert(1, ["-" * width for width in widths])
    return "\n".join("| " + " | ".join(map(str.ljust, line, widths)) + " |" for line in lines)
