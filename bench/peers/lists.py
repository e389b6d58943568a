# SPDX-License-Identifier: GPL-3.0-or-later
"""Work on a list of a million items: opening, saving, filtering, memory; and how fast pages are read."""
import json
import os
import resource
import shutil

from peers import system
from peers.work import Row, Work

ITEMS = 1_000_000
FEWER = 100_000
SMALL = 10_000
# The five tests of shapes::fiveTests, in the order in which Tarnwick makes them.
TESTS = ('$4 >= 1 && $4 <= 6 && $3 >= 2000 && $3 <= 1000000 && ($2 == "text/html" || $2 == "image/png") '
         '&& (index($1, "story") || index($1, "9")) && index($1, "http://www.example.org:80/") == 1')


def search_file(place, items=ITEMS):
    """A search file of so many items, made once."""
    file = place.memory / f"{items}.twk"
    if not file.exists():
        system.run([system.program("make_search"), items, file])
    return file


def item_lines(place):
    """The items of a search file without its header."""
    lines = place.memory / "items.tsv"
    if not lines.exists():
        with search_file(place).open("rb") as whole, lines.open("wb") as items:
            while whole.readline() != b"Results:\r\n":
                pass
            shutil.copyfileobj(whole, items)
    return lines


def opened(file):
    return system.run([system.program("tarnwick-cli"), "list", file, "--min-depth", 99, "--format", "urls"])


def opening(place):
    script = place.memory / "import.sql"
    script.write_text('.mode ascii\n.separator "\\t" "\\n"\n'
                      "create table items(url, mime, size, depth, state, status, reference, language, referer);\n"
                      f".import {item_lines(place)} items\n")

    def sqlite():
        with script.open() as commands:
            return {"sqlite3": system.run(["sqlite3", ":memory:"], stdin=commands).seconds}

    return Work([lambda: {"open": opened(search_file(place)).seconds}, sqlite],
                [Row("opening a search file, 1 million items", "sqlite3 .import, in memory", "open", ("sqlite3",), "s",
                     0.6)])


def nanoseconds(program, case, items, folder):
    """What a benchmark takes for one item of a list of so many."""
    output = system.run([system.program(program), "--benchmark_format=json", f"--benchmark_filter=^{case}/{items}/"],
                        cwd=folder).output
    return 1e9 / json.loads(output)["benchmarks"][0]["items_per_second"]


def saving(place):
    original = place.disk / "original.twk"
    shutil.copyfile(search_file(place), original)

    def cat():
        copy = place.disk / "copy.twk"
        seconds = system.run(["sh", "-c", 'cat "$1" >"$2"; sync "$2"', "sh", original, copy]).seconds
        copy.unlink()
        return {"cat": seconds}

    def save():
        return {"save": nanoseconds("bench_search_file", "save", ITEMS, place.disk) * ITEMS / 1e9}

    return Work([save, cat], [Row("saving it, to disk", "cat and sync", "save", ("cat",), "s", 3)])


def awks(place):
    """The tests of the filter on the file, for the window beside it. They tell how many items pass."""
    def awk(name):
        def count():
            program = f"{TESTS} {{ ++shown }} END {{ print shown }}"
            finished = system.run([name, "-F\\t", program, item_lines(place)], env=dict(os.environ, LC_ALL="C"))
            return {name: finished.seconds, "shown": int(finished.output)}
        return count
    return [awk("mawk"), awk("gawk")]


def recording(place):
    """As a search of a site meets them: of five references four are known, and one is new. The harder mixes, with
    nothing but new ones and with known ones that nothing has looked at for long, are in bench_recording."""
    def at(items):
        return lambda: {f"at {items}": nanoseconds("bench_recording", "record/site", items, place.disk)}

    return Work([at(ITEMS), at(SMALL)], [Row("recording a reference at the 1,000,000th item", "at the 10,000th",
                                             f"at {ITEMS}", (f"at {SMALL}",), "ns", 1.3)])


def memory(place):
    """What a million items take beyond what a tenth of them take, so that the program itself is left out."""
    with item_lines(place).open("rb") as lines:
        url_bytes = sum(line.index(b"\t") for line in lines) / ITEMS

    def console():
        many, few = (opened(search_file(place, items)).peak_bytes for items in (ITEMS, FEWER))
        # A program inherits the peak of the one that starts it.
        if few <= resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024:
            raise SystemExit("the memory of the smaller list cannot be told from that of the comparison itself")
        return {"console": (many - few) / (ITEMS - FEWER) - url_bytes}

    return Work([console], [Row("memory of an item in tarnwick-cli, but for its URL", "", "console", (), "bytes", 400)])


def analysis(_place):
    """The faster of the two ways in which the parser can be fed counts."""
    def both():
        sizes = [line.split() for line in system.run([system.program("sax")]).output.splitlines()]
        size, *found, own, push, whole = sizes[1]
        if len(set(found)) != 1:
            raise SystemExit(f"different numbers of references in a page of {size} bytes: {found}")
        return {"analysis": float(own), "push": float(push), "whole": float(whole)}

    return Work([both], [Row("reading the references of pages of 128 KiB", "libxml2's SAX parser", "analysis",
                             ("push", "whole"), "MB/s", 6, at_least=True)])
