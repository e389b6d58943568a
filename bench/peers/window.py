# SPDX-License-Identifier: GPL-3.0-or-later
"""The window: its start, its filter, and its longest standstill."""
import os

from peers import lists, site, system
from peers.work import Row, Work

LINKS = 1_000_000
FEWER_LINKS = 100_000


def startup(place):
    plugins = system.program("empty_window").parent / "plugins"
    settings = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_PLUGIN_PATH=str(plugins),
                    QT_QPA_GENERIC_PLUGINS="first_paint", TARNWICK_DATA=str(place.memory / "data"))

    def shown(name):
        return lambda: {name: system.run([system.program(name)], env=settings).seconds * 1000}

    return Work([shown("tarnwick"), shown("empty_window")] * 5,
                [Row("start to a window that can be used", "an empty main window", "tarnwick", ("empty_window",), "ms",
                     1.6)])


def make_page_of_links(file, count):
    """Writes a page of links to a port where nobody answers, so that only the search and the window work."""
    with file.open("w") as page:
        for number in range(count):
            page.write(f'<a href="http://127.0.0.1:1/section{number // 10_000}/issue{number // 100}/page{number}.html">')


def window(place):
    links = FEWER_LINKS if place.quick else LINKS
    server = site.serve(place, "links", lambda folder: make_page_of_links(folder / "links.html", links))
    target = place.fresh("exports")

    def driven():
        lines = system.run([system.program("bench_window"), "lists", lists.search_file(place),
                            server.origin + "/links.html", target]).output.splitlines()
        values = {name: [float(value) for value in rest] for name, *rest in (line.split("\t") for line in lines)}
        return {"applied": values["apply, five tests"][1] / 1000, "bytes": values["bytes an item"][0],
                "shown": values["rows shown"][0]} | {
                    f"standstill: {name}": value[0] for name, value in values.items() if len(value) == 2}

    return Work([driven, *lists.awks(place)], [
        Row("Apply with five tests, 1 million items", "awk on the search file", "applied", ("mawk", "gawk"), "s", 0.25),
        Row("memory of an item in the window, but for its URL", "", "bytes", (), "bytes", 600),
        Row(f"longest standstill, 1 million items, search of {links:,}", "", "standstill: ", (), "ms", 50),
    ], alike="shown")
