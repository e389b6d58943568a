#!/usr/bin/env python3
"""Compares what `tarnwick-cli search` finds with what the independent walk finds, item by item.

    check.py PATH_TO_tarnwick-cli [--seeds A-B] [--pages N]

The sites are generated from seeds. On sites with an even seed the order of the items must agree too. The exit status
is 0 only if no site shows a difference. Needs Python 3.10 or later, without further packages.
"""

import argparse
import os
import random
import subprocess
import sys
import tempfile
from difflib import unified_diff

sys.dont_write_bytecode = True
from loopback_site import Site  # noqa: E402
from walk import PASSES, Walk, parse  # noqa: E402

PATIENCE = 60  # a search may take this many seconds
SHOWN = 12  # at most this many differing lines are printed for a site
KIND, REFERER = 6, 8  # fields of an item line that depend on the timing of a search


def search(program, arguments):
    """(lines, complaint) of one search with a home folder of its own. The complaint is empty if all went well."""
    with tempfile.TemporaryDirectory() as home:
        command = [program, "search", "--format", "tsv", "--quiet", "--cookies", home, *arguments]
        surroundings = os.environ | {"HOME": home, "TARNWICK_DATA": home}
        try:
            run = subprocess.run(command, capture_output=True, timeout=PATIENCE, env=surroundings)
        except (OSError, subprocess.TimeoutExpired) as failure:
            return [], f"the program did not end well: {failure}"
    lines = run.stdout.split(b"\n")
    if run.returncode != 0 or lines.pop() != b"":
        return lines, f"exit status {run.returncode}, last words {run.stderr[-300:]!r}"
    return lines, ""


def ordered_differences(walk, lines):
    """The differences on a site where the order and every field must agree."""
    sides = [[repr(line) for line in side] for side in ([item.line() for item in walk.items.values()], lines)]
    return list(unified_diff(*sides, "walk", "program", lineterm="", n=0))[2:]


def free_differences(walk, lines):
    """The differences on a site where the timing decides which page finds a URL first. Each URL must have one line with
    equal fields, except for kind and referring page: these must be a pair by which the walk found the URL, or found
    another that relocates to it."""
    origins, found, wrong = walk.origins(), {}, []
    for line in lines:
        fields = tuple(line.split(b"\t"))
        if len(fields) != 9 or fields[0] in found:
            wrong.append(f"program, malformed or twice: {line!r}")
        else:
            found[fields[0]] = fields
    for url in sorted(walk.items.keys() | found.keys()):
        ours, theirs = walk.items[url].fields() if url in walk.items else None, found.get(url)
        if ours is None or theirs is None or any(ours[i] != theirs[i] for i in range(9) if i not in (KIND, REFERER)):
            wrong.append(f"walk: {ours}\nprogram: {theirs}")
        elif (int(theirs[KIND]), theirs[REFERER]) not in origins[url]:
            wrong.append(f"program, met in no such way: {theirs}\nwalk, met by: {sorted(origins[url])}")
    return wrong


def request_differences(walk, site, walked, searched):
    """The differences in the requests, apart from their number, the user agent, and the choice of a referring page."""
    def taken_apart(requests):
        texts, referers = set(), set()
        for request in requests:
            lines = request.split(b"\r\n")
            texts.add(b"\r\n".join(line for line in lines if not line.startswith((b"User-Agent: ", b"Referer: "))))
            referer = b"".join(line[9:] for line in lines if line.startswith(b"Referer: "))
            referers.add((lines[0][4:-9], referer))
        return texts, referers
    ours, theirs = taken_apart(walked)[0], taken_apart(searched)
    possible = {(url[len(site.origin):], referer)
                for url, pairs in walk.origins().items() if url.startswith(site.origin + b"/") for _, referer in pairs}
    return ([f"request of the walk only: {text!r}" for text in ours - theirs[0]]
            + [f"request of the program only: {text!r}" for text in theirs[0] - ours]
            + [f"request with an impossible referer: {pair}" for pair in theirs[1] - possible])


def random_arguments(rng, site):
    """Random command-line options of a search on the site. With most of them a good part of the site is found."""
    host = f"127.0.0.1:{site.port}"
    layers = [f"http://{host}/l{depth}/" for depth in range(1, 6)]
    corners = [f"{host}/l{rng.randint(1, 6)}/d/x.html", f"{host}/l{rng.randint(1, 20)}/n{rng.randint(1, 60)}/",
               "127.0.0.1/", "https://h.example", "www.h.example", "https://example", "mailto://mailto",
               "h.example:443"]
    limits = rng.choice((
        [], [], [("--outside", limit) for limit in rng.sample(corners, 4)],
        [("--inside", limit) for limit in [rng.choice(("127.0.0.1", "0.0.1", host)), *rng.sample(corners, 2)]],
        [("--inside", limit) for limit in layers[rng.randint(0, 1):]]))
    arguments = [word for pair in limits for word in pair]
    if rng.random() < 0.4:
        arguments += ["--depth", str(rng.choice((1, 9, 30, 50) if site.chain else (0, 2, 3, 4, 4, 5)))]
    if rng.random() < 0.5:
        kinds = [entry[0] for entry in PASSES]
        arguments += ["--references", ",".join(rng.sample(kinds, rng.randint(3, len(kinds))))]
    arguments += rng.choice(([], [], ["--no-relocation"]))
    arguments += rng.choice(([], ["--referer", "http://from.example/?a b"]))
    return [*arguments, rng.choice((host, f"http://{host}", f"http://{host}/", f"http://{host}/"))]


def check_seed(program, seed, pages):
    """(number of items, number of differences) of one generated site. Prints the differences."""
    with Site(seed, pages) as site:
        arguments = random_arguments(random.Random(-1 - seed), site)
        walk = Walk(parse(arguments), PATIENCE).run()
        walked, site.requests = site.requests, []
        lines, complaint = search(program, arguments)
        compare = ordered_differences if site.chain else free_differences
        wrong = [complaint] if complaint else (
            compare(walk, lines) + request_differences(walk, site, walked, site.requests))
    if wrong:
        print(f"seed {seed}, {' '.join(arguments)}: {len(walk.items)} items, {len(wrong)} differences",
              *wrong[:SHOWN], sep="\n")
    return len(walk.items), len(wrong)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", metavar="PATH_TO_tarnwick-cli")
    parser.add_argument("--seeds", metavar="A-B", default="1-25")
    parser.add_argument("--pages", type=int, default=60)
    given = parser.parse_args()
    first, _, last = given.seeds.partition("-")
    seeds = range(int(first), int(last or first) + 1)
    results = [check_seed(given.program, seed, given.pages) for seed in seeds]
    items, differences = (sum(column) for column in zip(*results))
    print(f"walk: {len(results)} sites, {items} items, {differences} differences")
    return 1 if differences else 0


if __name__ == "__main__":
    sys.exit(main())
