# SPDX-License-Identifier: GPL-3.0-or-later
"""The search of a whole site, beside two other crawlers and beside a loop that only fetches."""
from peers import site, system
from peers.work import Row, Work

URLS = site.PAGES + site.PICTURES
WORK = f"search of {site.PAGES:,} pages, {URLS:,} URLs"


class Crawlers:
    def __init__(self, place, server):
        self.place = place
        self.start = server.origin + "/index.html"
        self.urls = place.memory / "urls"
        self.urls.write_text(self.search(self.start).output)

    def search(self, start):
        return system.run([system.program("tarnwick-cli"), "search", start, "--quiet", "--format", "urls",
                           "--cookies", self.place.memory / "cookies"])

    def window(self, start):
        return system.run([system.program("bench_window"), "search", start])

    def wget(self, start):
        return system.run(["wget", "--spider", "-r", "-l", "inf", "-p", "-e", "robots=off", "-nv", "-o", "log", start],
                          cwd=self.place.fresh("wget"))

    def httrack(self, start):
        """Runs without limits, cache and index. It saves the files, in memory, since it skips pictures when it only
        scans."""
        return system.run(["httrack", start, "-O", "mirror", "-q", "--disable-security-limits", "-A1000000000", "-%c0",
                           "-c8", "-s0", "-r9999", "-C0", "-I0"], cwd=self.place.fresh("httrack"))

    def bare_loop(self, start):
        """Fetches the URLs that Tarnwick found, in the same order, from the port of `start`."""
        origin = start.removesuffix("/index.html").encode()
        urls = self.place.memory / "urls-of-turn"
        urls.write_bytes(self.urls.read_bytes().replace(self.start.removesuffix("/index.html").encode(), origin))
        with urls.open() as lines:
            return system.run([system.program("bare_loop")], stdin=lines)


def crawl(place):
    server = site.serve(place, "site", site.make_site)
    crawlers = Crawlers(place, server)
    players = [crawlers.search, crawlers.wget, crawlers.bare_loop, crawlers.window, crawlers.httrack]
    for player in players:
        player(server.logged + "/index.html")
        fetched = server.paths_fetched()
        if fetched != URLS:
            raise SystemExit(f"{player.__name__} has fetched {fetched} of {URLS} URLs")

    def timed(player):
        return lambda: {player.__name__: player(crawlers.start).seconds}

    def row(beside, peer, target, ours="search", work=WORK):
        return Row(work, beside, ours, (peer,), "s", target)

    return Work([timed(player) for player in players], [
        row("wget --spider -r -l inf -p", "wget", 0.35),
        row("httrack, limits off", "httrack", 0.15),
        row("the same fetches, bare", "bare_loop", 1.5),
        row("tarnwick-cli", "search", 1.5, "window", "the same in the window"),
    ])
