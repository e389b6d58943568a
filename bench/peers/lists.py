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
# The five tests of shapes::fiveTests, in Tarnwick's order.
TESTS = ('$4 >= 1 && $4 <= 6 && $3 >= 2000 && $3 <= 1000000 && ($2 == "text/html" || $2 == "image/png") '
         '&& (index($1, "story") || index($1, "9")) && index($1, "http://www.example.org:80/") == 1')


def search_file(place, items=ITEMS):
    """A search file with that many items, created on first use."""
    file = place.memory / f"{items}.twk"
    if not file.exists():
        system.run([system.program("make_search"), items, file])
    return file


def item_lines(place):
    """The item lines of a search file, without its header."""
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
    """Nanoseconds that a benchmark takes for one item of a list with that many items."""
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
    """The same five tests by two awks on the file. They also count the items that pass."""
    def awk(name):
        def count():
            program = f"{TESTS} {{ ++shown }} END {{ print shown }}"
            finished = system.run([name, "-F\\t", program, item_lines(place)], env=dict(os.environ, LC_ALL="C"))
            return {name: finished.seconds, "shown": int(finished.output)}
        return count
    return [awk("mawk"), awk("gawk")]


def recording(place):
    """References as on a real site: of five, four are known and one is new. bench_recording has harder mixes as well:
    only new URLs, and known URLs that were recorded long ago."""
    def at(items, case):
        return lambda: {f"{case} {items}": nanoseconds("bench_recording", f"record/{case}", items, place.disk)}

    def row(work, case):
        return Row(work, "at the 10,000th", f"{case} {ITEMS}", (f"{case} {SMALL}",), "ns", 1.3)

    cases = {"site": "recording a reference at the 1,000,000th item, in a program just started",
             "site_used_heap": "the same in a program that has searched before"}
    return Work([at(items, case) for case in cases for items in (ITEMS, SMALL)],
                [row(work, case) for case, work in cases.items()])


def memory(place):
    """The difference between a million items and a tenth of them, so that the program itself does not count."""
    with item_lines(place).open("rb") as lines:
        url_bytes = sum(line.index(b"\t") for line in lines) / ITEMS

    def console():
        many, few = (opened(search_file(place, items)).peak_bytes for items in (ITEMS, FEWER))
        # A program inherits the peak of its parent.
        if few <= resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024:
            raise SystemExit("the smaller list takes no more memory than this script, so its peak cannot be measured")
        return {"console": (many - few) / (ITEMS - FEWER) - url_bytes}

    return Work([console], [Row("memory of an item in tarnwick-cli, but for its URL", "", "console", (), "bytes", 400)])


def analysis(_place):
    """The parser can be fed in two ways. The faster one counts."""
    def both():
        sizes = [line.split() for line in system.run([system.program("sax")]).output.splitlines()]
        size, *found, own, push, whole = sizes[1]
        if len(set(found)) != 1:
            raise SystemExit(f"different numbers of references in a page of {size} bytes: {found}")
        return {"analysis": float(own), "push": float(push), "whole": float(whole)}

    return Work([both], [Row("reading the references of pages of 128 KiB", "libxml2's SAX parser", "analysis",
                             ("push", "whole"), "MB/s", 6, at_least=True)])
