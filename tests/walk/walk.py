#!/usr/bin/env python3
"""A second, independent walk of a web site by the rules of a search.

It shares no code and no design with the program that it checks: it makes one fetch at a time, over plain sockets. It
prints one line for each item, in the order found, with the nine fields of an item line.
"""

import argparse
import os
import re
import socket
import sys
from collections import deque
from dataclasses import dataclass
from decimal import Decimal

HEADER_LIMIT = 256 * 1024
CHAIN_ANSWERS = 20  # the answer with this number ends a relocation chain, whatever it says
RELOCATIONS = (301, 302, 307)
WAITING, LOADED, HEADER_ONLY, FAILED = 0, 3, 4, 5

# switch, tag text, attribute text, recorded kind; a page is searched in this order
PASSES = (
    ("anchors", b"<a ", b" href", 1),
    ("links", b"<link ", b" href", 2),
    ("src", b"<", b" src", 3),
    ("frames", b"<frame ", b" src", 4),
    ("images", b"<img ", b" src", 5),
    ("forms", b"<form ", b" action", 1),
)


# ---- texts and numbers

def read_number(text):
    """The number at the beginning of a text, as a whole number, halves rounded to even; 0 without a number."""
    match = re.match(rb" *([+-]?(?:\d+\.?\d*|\.\d+))", text)
    return round(Decimal(match[1].decode())) if match else 0


def escape(text):
    """Percent-encodes the characters that would break a line or a field, so that one item is one line."""
    for raw, encoded in ((b"\t", b"%09"), (b"\r", b"%0D"), (b"\n", b"%0A"), (b"\0", b"%00")):
        text = text.replace(raw, encoded)
    return text


# ---- URLs: text searches that compare exactly; nothing is decoded, lower-cased or tidied

def protocol_of(url):
    """The text before the first colon; empty without a colon."""
    return url[:max(url.find(b":"), 0)]


def authority_start(url):
    """The start of the host: after the first "//", or at the beginning."""
    slashes = url.find(b"//")
    return slashes + 2 if slashes >= 0 else 0


def host_of(url):
    """The host ends at the next colon, anywhere in the URL, else at the next slash, else at the end."""
    start = authority_start(url)
    for end in (url.find(b":", start), url.find(b"/", start)):
        if end >= 0:
            return url[start:end]
    return url[start:]


def port_of(url):
    """The number after the host's colon; 80 without a colon, 0 if the colon belongs to the path."""
    start = authority_start(url)
    colon, slash = url.find(b":", start), url.find(b"/", start)
    if colon < 0:
        return 80
    if 0 <= slash < colon:
        return 0
    port = read_number(url[colon + 1:slash if slash >= 0 else None])
    return port if -2**31 <= port < 2**31 else 0


def path_of(url):
    """From the first slash after "://" to the end, with query and fragment; "/" without a slash."""
    colon = url.find(b":")
    slash = url.find(b"/", colon + 3 if colon >= 0 else 0)
    return url[slash:] if slash >= 0 else b"/"


def directory_of(url):
    """The path up to its last slash, even one in the query."""
    path = path_of(url)
    return path[:path.rfind(b"/") + 1]


def leading_directories(path, count):
    """The path up to the slash after its first `count` directories, or up to its last slash."""
    end = path.find(b"/") + 1
    for _ in range(count):
        slash = path.find(b"/", end)
        if slash < 0:
            break
        end = slash + 1
    return path[:end]


def origin_of(url):
    return b"http://%s:%d" % (host_of(url), port_of(url))


def parent_of(url):
    directory = directory_of(url)
    return origin_of(url) + leading_directories(directory, directory.count(b"/") - 2)


def resolve(base, reference):
    """The absolute URL of a reference. A reference with a colon counts as absolute. Dots count at the start only."""
    while True:
        if b":" in reference:
            return reference
        if reference.startswith(b"/"):
            return origin_of(base) + reference
        if reference == b"..":
            return parent_of(base)
        if reference.startswith(b"../"):
            base, reference = parent_of(base), reference[3:]
        elif reference.startswith(b"./"):
            reference = reference[2:]
        elif reference.startswith(b"#"):
            return base
        else:
            return origin_of(base) + directory_of(base) + reference


def last_labels(host, count):
    return b".".join(host.split(b".")[-count:]) if count else b""


def sub_url(url, level):
    """The URL cut to a level: first its host labels from the right, then the port, then its directories."""
    host = host_of(url)
    labels = host.count(b".") + 1
    cut = protocol_of(url) + b"://" + last_labels(host, level)
    if labels < level:
        cut += b":%d" % port_of(url) + leading_directories(directory_of(url), level - labels - 1)
    return cut


def limit_entry(typed):
    """(sub-URL, level) of a typed limit. A bare host means the host on every port, anything longer a directory."""
    url = typed if b"://" in typed else b"http://" + typed
    host = host_of(url)
    bare = authority_start(url) + len(host) == len(url)
    level = host.count(b".") + 1 + (0 if bare else directory_of(url).count(b"/"))
    return sub_url(url, level), level


def completed_start(typed):
    """The start URL with its protocol; None if no search can start there."""
    url = typed if typed.startswith(b"http://") else b"http://" + typed
    host = host_of(url)
    return url if host and not host.startswith(b".") and not host.endswith(b".") else None


def recorded_form(url):
    """The form in which the list keeps a URL, always with host and port; None for a URL without a host."""
    host = host_of(url)
    return escape(b"%s://%s:%d%s" % (protocol_of(url), host, port_of(url), path_of(url))) if host else None


# ---- the exchange

def request_text(url, referer):
    """The four fixed lines and, if there is a referring page, its line. The Host line has no port."""
    lines = [b"GET %s HTTP/1.1" % path_of(url), b"Host: " + host_of(url), b"Accept: */*", b"Connection: close"]
    if referer:
        lines.append(b"Referer: " + referer)
    return b"\r\n".join(lines) + b"\r\n\r\n"


def field(header, name, end, absent=b""):
    """The value after the first `name: ` anywhere in the header, in any case, up to `end`."""
    mark = name.lower() + b": "
    at = header.lower().find(mark)
    if at < 0:
        return absent
    start = at + len(mark)
    return header[start:header.index(end, start)]


def status_of(header):
    """The number between the first two blanks after "HTTP/1"; 0 without that text."""
    version = header.find(b"HTTP/1")
    if version < 0:
        return 0
    _, _, rest = header[version:].partition(b" ")
    return read_number(rest.partition(b" ")[0])


def size_of(header):
    length = field(header, b"Content-Length", b"\r\n", None)
    return -1 if length is None else read_number(length)


def connect(url, patience):
    """A connection to the URL's host; a port that cannot exist fails like one that refuses."""
    port = port_of(url)
    if not 0 < port < 65536:
        raise OSError("no such port")
    return socket.create_connection((host_of(url), port), timeout=patience)


def receive_header(connection):
    """(header, first part of the body); (None, ...) if the server closes before the header ends, or never ends it."""
    received = b""
    while (end := received.find(b"\r\n\r\n")) < 0 and len(received) <= HEADER_LIMIT:
        data = connection.recv(65536)
        if not data:
            return None, b""
        received += data
    if end < 0 or end > HEADER_LIMIT:
        return None, b""
    return received[:end + 2], received[end + 4:]


def receive_rest(connection):
    """The body ends when the server closes, whatever length it announced."""
    return b"".join(iter(lambda: connection.recv(1 << 20), b""))


# ---- the page

def value_at(body, position, tag_end):
    """The quoted value after the attribute name that ends at `position`, if its closing quote is inside of the tag.

    Only blanks may stand around the "="; only quoted values count.
    """
    if position >= tag_end:
        return None
    while body[position:position + 1] == b" ":
        position += 1
    if body[position:position + 1] != b"=":
        return None
    position += 1
    while body[position:position + 1] == b" ":
        position += 1
    quote = body[position:position + 1]
    if quote not in (b'"', b"'"):
        return None
    close = body.find(quote, position + 1)
    return body[position + 1:close] if position < close < tag_end else None


def values(body, tag, attribute):
    """The attribute values of all tags of one name, in the order of the page.

    The attribute is searched from the tag to the end of the page, not only inside of the tag. If it does not occur any
    more, its end counts from the start of the page: find returns -1, and -1 plus its length is that position. A missing
    ">" is -1 too, which is before everything.
    """
    lower = body.lower()
    at = lower.find(tag)
    while at >= 0:
        at += len(tag) - 1
        value = value_at(body, lower.find(attribute, at) + len(attribute), body.find(b">", at))
        if value is not None:
            yield value
        at = lower.find(tag, at + 1)


# ---- the walk

@dataclass
class Options:
    start: bytes
    depth: int | None = None
    references: frozenset = frozenset(("anchors", "links", "frames", "images"))
    inside: tuple | None = None
    outside: tuple | None = None
    relocation: bool = True
    referer: bytes = b""


@dataclass
class Item:
    url: bytes
    depth: int
    referer: bytes
    kind: int
    hops: int = 0
    state: int = WAITING
    size: int = 0
    status: int = 0
    mime: bytes = b""
    language: bytes = b""

    def fields(self):
        return (self.url, escape(self.mime), b"%d" % self.size, b"%d" % self.depth, b"%d" % self.state,
                b"%d" % self.status, b"%d" % self.kind, escape(self.language), self.referer)

    def line(self):
        return b"\t".join(self.fields())


class Walk:
    """The items by URL, in the order found, and for each URL all pairs (kind, referer) by which it was found."""

    def __init__(self, options, patience=None):
        self.options = options
        self.patience = patience
        self.items = {}
        self.queue = deque()
        self.met = {}
        self.moves = set()

    def run(self):
        """Fetches the items in the order found. All items before the queue's head are done. So a restart at the list's
        head, which the program makes after a relocation, would lead to the same item."""
        self.record(self.options.start, 0, self.options.referer, 0)
        while self.queue:
            item = self.queue.popleft()
            if protocol_of(item.url) == b"http":
                self.visit(item)
        return self

    def record(self, url, depth, referer, kind, hops=0):
        """Appends the URL unless it is in the list, and returns its recorded form. A relocated item has left the list,
        so its URL can be found again."""
        url = recorded_form(url)
        if url is None:
            return None
        self.met.setdefault(url, set()).add((kind, referer))
        if url not in self.items:
            self.items[url] = Item(url, depth, referer, kind, hops)
            self.queue.append(self.items[url])
        return url

    def wanted(self, url):
        """Whether the URL is inside at least one of the `inside` limits, or outside all of the `outside` limits."""
        def matches(entries):
            return any(sub_url(url, level) == text for text, level in entries)
        if self.options.inside is not None:
            return matches(self.options.inside)
        return self.options.outside is None or not matches(self.options.outside)

    def visit(self, item):
        try:
            with connect(item.url, self.patience) as connection:
                connection.sendall(request_text(item.url, item.referer))
                body = self.take_answer(item, connection)
        except OSError:
            item.state = FAILED
        else:
            if item.state == LOADED:
                self.analyse(item, body)

    def take_answer(self, item, connection):
        """Enters the fields of the header into the item. Returns the body if it is to be analysed."""
        header, begun = receive_header(connection)
        if header is None:
            item.state = FAILED
            return b""
        item.status = status_of(header)
        if self.options.relocation and item.status in RELOCATIONS and item.hops + 1 < CHAIN_ANSWERS:
            self.relocate(item, field(header, b"Location", b"\r"))
            return b""
        item.size = size_of(header)
        item.mime = field(header, b"Content-Type", b"\r\n", b"?")
        item.language = field(header, b"Content-Language", b"\r")
        within = self.options.depth is None or item.depth < self.options.depth
        item.state = LOADED if within and item.mime.startswith(b"text/html") else HEADER_ONLY
        return begun + receive_rest(connection) if item.state == LOADED else b""

    def relocate(self, item, location):
        """Records the target like the old URL, without a test of the limits, and drops the old URL from the list."""
        target = self.record(resolve(item.url, location), item.depth, item.referer, item.kind, item.hops + 1)
        self.moves.add((item.url, target))
        del self.items[item.url]

    def analyse(self, page, body):
        for switch, tag, attribute, kind in PASSES:
            hidden = switch in ("frames", "images") and "src" in self.options.references
            if switch in self.options.references and not hidden:
                for value in values(body, tag, attribute):
                    url = resolve(page.url, value)
                    if self.wanted(url):
                        self.record(url, page.depth + 1, page.url, kind)

    def origins(self):
        """For each URL all pairs (kind, referer) by which it can have been recorded first, depending on the timing: the
        pairs by which it was found, and those of every URL that relocates to it."""
        origins = {url: set(pairs) for url, pairs in self.met.items()}
        grown = True
        while grown:
            grown = False
            for source, target in self.moves:
                if target is not None and not origins[source] <= origins[target]:
                    origins[target] |= origins[source]
                    grown = True
        return origins


def parse(arguments):
    """Parses the search options of the console program. Unusable options end the program."""
    parser = argparse.ArgumentParser(description="Walk a web site one fetch at a time and print the found items.")
    parser.add_argument("start", metavar="START_URL", type=os.fsencode)
    parser.add_argument("--depth", type=int)
    parser.add_argument("--references", metavar="LIST", default=",".join(Options.references))
    limits = parser.add_mutually_exclusive_group()
    limits.add_argument("--inside", metavar="SUBURL", type=os.fsencode, action="append")
    limits.add_argument("--outside", metavar="SUBURL", type=os.fsencode, action="append")
    parser.add_argument("--no-relocation", action="store_true")
    parser.add_argument("--referer", metavar="URL", type=os.fsencode, default=b"")
    given = parser.parse_args(arguments)
    start, references = completed_start(given.start), frozenset(given.references.split(","))
    if start is None:
        parser.error("START_URL names no host")
    if not references <= {entry[0] for entry in PASSES}:
        parser.error("--references holds an unknown kind")
    inside, outside = (entries and tuple(map(limit_entry, entries)) for entries in (given.inside, given.outside))
    return Options(start, given.depth, references, inside, outside, not given.no_relocation, given.referer)


if __name__ == "__main__":
    for found in Walk(parse(sys.argv[1:])).run().items.values():
        sys.stdout.buffer.write(found.line() + b"\n")
