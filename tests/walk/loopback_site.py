"""A web site generated from a seed, served on 127.0.0.1 the way a hostile or careless server would.

Every target has one fixed answer, so all visitors get the same. The site does not know the rules by which references
are found. It only guarantees that the timing of two connections does not change the items that a visitor should find.

A site is a sequence of layers. The start page is layer 0. The pages of a layer refer to *entries* of the next layer:
pages, or the heads of relocation chains that lead to a page of the same layer. So a URL has the same depth on every
way to it. Each page also has odd references in all spellings. Their values are unique to the page, or local to its
layer, or known already (the page itself, the start page, the shared values that the first page has in every kind), so
none equals a URL of another layer. Any other target is answered by a *leaf*, which never adds to the list.

- A chain site (even seeds) has one entry in each layer. At any time only one waiting item can add to the list, so even
  the order of the list is fixed.
- A free site (odd seeds) has wide layers, and relocations that lead nowhere or leave the site. Its items are a set:
  the depth and everything that the server says are fixed; kind and referring page depend on which page found the URL
  first.
"""

import random
import socket
import struct
import threading
from typing import NamedTuple

HUGE = 300 * 1024  # a header that no visitor should accept
LARGE = 200 * 1024  # one that every visitor should

TAGS = ((b"a", b"href"), (b"link", b"href"), (b"frame", b"src"), (b"img", b"src"), (b"form", b"action"))
ODD_TAGS = TAGS + ((b"A", b"hREf"), (b"LINK", b"HREF"), (b"fRame", b"Src"), (b"Img", b"SRC"),
                   (b"FORM", b"Action"), (b"script", b"src"), (b"area", b"href"))

PLAIN = (b'<TAG ATTR="VALUE">', b"<TAG ATTR='VALUE'>", b'<TAG class="c" ATTR  =   "VALUE" x>text</TAG>',
         b"<TAG  ATTR= 'VALUE'/>", b"<TAG ATTR='VALUE' ATTR=\"second\">")

ODD = PLAIN + (
    b'<TAG ATTR\t="VALUE">', b'<TAG ATTR=\n"VALUE">', b'<TAG\nATTR="VALUE">', b'<TAG x\tATTR="VALUE">',
    b'<TAG\tx ATTR="VALUE">', b'<TAGATTR="VALUE">', b"<TAG ATTR=VALUE>", b'<TAG ATTR=VALUE ATTR="VALUE">',
    b'<TAG ATTR="VALUE>x">', b'<TAG title=">" ATTR="VALUE">', b'<TAG title="a b" ATTR="VALUE"',
    b'<TAG ATTR="VALUE', b"<TAG ATTR=\"VALUE'>", b"<TAG ATTR='VALUE\"x'>", b'<TAG ATTR=" VALUE ">',
    b'<TAG data-ATTR="VALUE">', b'<TAG xATTR="VALUE">', b'<TAG ATTRx="VALUE">', b'<TAG ATTR "VALUE">',
    b'<TAG name="n">text ATTR="VALUE"</TAG>', b'<TAG name="n"> ATTR="VALUE">', b"<TAG>", b"<TAG ", b"<TAG x>",
    b'<TAG ATTR=>', b'<TAG ATTR', b'<TAG ATTR=""">', b'<TAG x="<TAG ATTR=\'VALUE\'">', b'<!-- <TAG ATTR="VALUE"> -->',
    b'<script>x = "<TAG ATTR=\\"VALUE\\">"</script>', b'<<<TAG ATTR="VALUE">>', b'< TAG ATTR="VALUE">',
    b"<TAG y='ATTR=\"VALUE\"'>", b"<TAG y=' ATTR=\"VALUE\"'>", b'<TAG\xa0ATTR="VALUE">', b'<TAG \0 ATTR="VALUE">',
    b'<TAG ATTR="VALUE" onclick="a>b">', b"</TAG ATTR='VALUE'>", b'<TAG ATTR =\r\n"VALUE">', b"<", b"=\"VALUE\" >",
    b'<TAG ATTR="VALUEcase"><TAG ATTR="VALUECase">', b'<TAG ATTR="VALUE\t."><TAG ATTR="VALUE%09.">')

# If no such attribute follows, its value is looked for at the 4th, 5th or 7th character of the page.
HEADS = (b"", b"", b"<html><body>\n", b'    ="VALUE"', b"   = 'VALUE'", b'      =   "VALUE"', b'xxx="a>VALUE"',
         b"xxxx='VALUE'", b'<a  ="VALUE">', b'<img   ="VALUE">', b'"""=\'VALUE\'', b'      = "VALUE')
TAILS = (b"", b"</body></html>\n", b"<", b"<<", b"<a ", b"<a x>", b"<link x><a x><frame x><img x><form x>", b"<a href",
         b'<a href="open', b"<a href=", b"<img src='cut'", b'<img x><form ><form action="', b"<!-- >", b"<a x>\0")

VALUES = (
    b"UNIQUE", b"UNIQUE", b"./UNIQUE", b"../UNIQUE", b"../../UNIQUE", b"../../../../UNIQUE", b"./.././UNIQUE",
    b"/UNIQUE", b"//UNIQUE", b"UNIQUE/", b"UNIQUE/..", b"UNIQUE/../x/./y", b".../UNIQUE", b"..UNIQUE", b".UNIQUE",
    b"UNIQUE#part", b"#UNIQUE", b"#", b"#UNIQUE:b", b"", b".", b"..", b"./", b"../", b"../..", b"./..", b"../#x",
    b"?UNIQUE", b"UNIQUE?a=/b/../c", b"UNIQUE?t=12:00", b"UNIQUE?u=http://h.example/x", b"?UNIQUE=a//b",
    b"mailto:x/UNIQUE", b"javascript:go('/UNIQUE')", b"https://127.0.0.1/UNIQUE:1/x", b"https://UNIQUE.h.example",
    b"https://user:pw@h.example/UNIQUE", b"ftp://h.example:21/UNIQUE/", b"https://www.h.example:443.5/UNIQUE",
    b"https://h.example:x/UNIQUE", b"https://h.example:99999999999/UNIQUE", b"HTTP://127.0.0.1:PORT/UNIQUE",
    b"http://127.0.0.1:PORT/UNIQUE", b"http://127.0.0.1:PORT//UNIQUE", b"http://127.0.0.1:0PORT/UNIQUE",
    b"http://127.0.0.1:PORTabc/UNIQUE", b"http://127.0.0.1: PORT/UNIQUE", b"http://127.0.0.1:PORT.4/UNIQUE:7",
    b"http://127.0.0.1:PORT?x=/UNIQUE",
    b"http://127.0.0.1:DEAD/UNIQUE", b"http://127.0.0.1:FAR/UNIQUE", b"http://127.0.0.1:0/UNIQUE",
    b"http:///UNIQUE", b"http://:80/UNIQUE", b"://UNIQUE", b":xx/UNIQUE", b"UNIQUE\tx", b"UNIQUE%09x", b"UNIQUE\nx",
    b"UNIQUE\r\nX-Forged: 1", b"UNIQUE\0x", b"UNIQUE\x01\x0b\x7f", b"UNIQUE\xe4\xdf\xff\x80", b"a\\UNIQUE",
    b"..\\UNIQUE", b"UNIQUE b  c", b"&amp;UNIQUE&#47;", b"UNIQUE%2e%2E/", b"UNIQUE.HTML", b"\xc4UNIQUE;x=1,2")
SHARED = (b"mailto:me@h.example", b"javascript:void(0)", b"https://h.example", b"https://www.h.example/",
          b"http://127.0.0.1:PORT", b"http://127.0.0.1:PORT#part")

PATHS = (b"/l%d/n%d/x.html", b"/l%d/n%d/", b"/l%d/d/n%d.html", b"/l%d/n%d/b.php?x=/c", b"/l%d/n%d/a:b",
         b"/l%d/n%d/\xe4 x#f?", b"/l%d/n%d/t%%09b%%00c%%0Ad", b"/l%d//n%d/\\x")

PAGE_STATUS = (
    b"HTTP/1.1 200 OK", b"HTTP/1.1 200 OK", b"HTTP/1.0 200 OK", b"HTTP/1.1 404 Not Found", b"HTTP/1.1 500 No 302",
    b"HTTP/1.1 303 See Other\r\nLocation: /never", b"HTTP/1.1 308 Permanent\r\nLocation: /never", b"HTTP/1.1 200",
    b"HTTP/1.1  302 two blanks", b"http/1.1 302 lower case", b"http/1.1 302 Found\r\nVia: HTTP/1.0 203 other",
    b"HTTP/2 302 later", b"ICY 302 radio", b"XHTTP/1.1 206 prefix", b"HTTP/1.1 201.5 half", b"HTTP/1.1 200.5 half",
    b"HTTP/1.1 -1 minus", b"HTTP/1.1 20x text", b"HTTP/1.1 ok text", b"HTTP/1.1\r\nVia: 204 other", b"no status",
    b"HTTP/1.1 306.5 half", b"HTTP/1.1 200 OK\r\nX-Eight-Bit: \xe4\xff\0\x01")
MOVED_STATUS = (b"HTTP/1.1 301 Moved", b"HTTP/1.1 302 Found", b"HTTP/1.1 307 Temporary", b"HTTP/1.0 302 Found",
                b"HTTP/1.1 301.5 half", b"HTTP/1.1 0302 zero", b"HTTP/1.1 307", b"HTTP/1.12 301x x")
LOCATIONS = (b"Location: VALUE", b"location: VALUE", b"LOCATION: VALUE\r\nLocation: /never",
             b"Content-Location: VALUE\r\nLocation: /never", b"Location:/never\r\nLocation: VALUE",
             b"X-Note: see location: VALUE\r\nLocation: /never", b"Location: VALUE\rrest")
HTML_TYPES = (b"Content-Type: text/html", b"Content-Type: text/html; charset=utf-8", b"content-type: text/htmlx",
              b"CONTENT-TYPE: text/html\tx\0y\rz\nw", b"X-Content-Type: text/html", b"Content-Type: text/html;\xe4",
              b"Content-Type:none\r\nContent-Type: text/html")
OTHER_TYPES = (b"Content-Type: TEXT/HTML", b"Content-Type:text/html", b"Content-Type:  text/html", b"X-None: 1",
               b"Content-Type: ", b"Content-Type: image/png", b"Content-Type: application/xhtml+xml",
               b"Content-Type: a/b\t\0\xff", b"Content-Type : text/html", b"Content-Type: text/htm")
LENGTHS = (b"X-None: 2", b"X-None: 2", b"Content-Length: 0", b"content-LENGTH: 4711", b"Content-Length:42",
           b"Content-Length: 2147483648", b"Content-Length: 5000000000", b"Content-Length: 9007199254740993",
           b"Content-Length: 9223372036854775807", b"Content-Length: -7", b"Content-Length: 12.5",
           b"Content-Length: 13.5", b"Content-Length: 0.5001", b"Content-Length: -2.5", b"Content-Length: none",
           b"Content-Length: ", b"Content-Length:    42 ", b"Content-Length: 12 34", b"Content-Length: +5",
           b"Content-Length: 1,000", b"Content-Length: 0x1F", b"X-Content-Length: 7", b"Content-Length: 007")
LANGUAGES = (b"X-None: 3", b"X-None: 3", b"Content-Language: de", b"content-language: en-US, fr;q=1",
             b"Content-Language: ", b"Content-Language:de", b"Content-Language: a\tb\0c\nd\re",
             b"X-Content-Language: nl", b"Content-Language:  \xe4\xff ")
EXTRAS = (b"Set-Cookie: a=1; path=/\r\nset-cookie: b=2; path=/l1/", b"Set-Cookie: x", b"Server: a b", b"X: \0\xff\t",
          b"Empty:", b": ", b"no colon here", b"Set-Cookie: ../../c=\0; path=\t", b"X-Pad: " + b"p" * 5000)
LEAF_BODIES = (b"", b"x", b"<html>nothing</html>", b"<a href='#x'>", b"<" * 9, b'<a href="#">' * 50,
               b"\x89PNG\r\n\x1a\n\0\0\r\n\r\n\xff" * 40, b"5\r\n<a x>\r\n0\r\n\r\n")


class Answer(NamedTuple):
    data: bytes
    manner: str = "whole"  # or "split" near the header's end, "drip" byte for byte, "reset" behind the data


def header_of(rng, status, types, extra=b""):
    """A header without its empty line. A blank always follows the status number, which would otherwise have no end."""
    fields = [rng.choice(table) for table in (types, LENGTHS, LANGUAGES, EXTRAS)]
    rng.shuffle(fields)
    return b"\r\n".join([rng.choice(status), *([extra] if extra else []), *fields, b"Date: no date"])


def leaf(rng):
    """An answer that adds nothing to a list: of any type, whole or cut anywhere in its header."""
    header = header_of(rng, PAGE_STATUS, HTML_TYPES + OTHER_TYPES)
    if rng.random() < 0.02:
        header += b"\r\nX-Pad: " + b"x" * rng.choice((LARGE, HUGE))
    whole = header + b"\r\n\r\n" + rng.choice(LEAF_BODIES)
    if rng.random() < 0.75:
        return Answer(whole, rng.choice(("whole", "whole", "split", "drip" if len(whole) < 2000 else "split")))
    return rng.choice((
        Answer(b""), Answer(b"", "reset"), Answer(header[:rng.randrange(len(header))]), Answer(header + b"\r\n"),
        Answer(header[:rng.randrange(len(header))], "reset"), Answer(header + b"\r\n\r", "split"),
        Answer(header.replace(b"\r\n", b"\n") + b"\n\n<p>"), Answer(b"\r\n\r\n" + whole),
        Answer(b"HTTP/1.1 100 Continue\r\n\r\n" + whole, "split")))


class Site:
    """The site of one seed. It serves from its construction until it is closed, and keeps the requests."""

    def __init__(self, seed, pages=60):
        self.seed, self.chain = seed, seed % 2 == 0
        self.rng = random.Random(seed)
        self.listener = socket.create_server(("127.0.0.1", 0), backlog=64)
        self.dead = socket.socket()
        self.dead.bind(("127.0.0.1", 0))  # a port of our own on which nobody listens
        self.port = self.listener.getsockname()[1]
        self.names = 0
        self.answers, self.requests = {}, []
        self._build(self._layers(pages))
        for _ in range(6):
            threading.Thread(target=self._serve, daemon=True).start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.shutdown(socket.SHUT_RDWR)  # wakes the threads that wait in accept
        self.listener.close()
        self.dead.close()

    @property
    def origin(self):
        return b"http://127.0.0.1:%d" % self.port

    # ---- the plan

    def _layers(self, pages):
        """For each layer: its pages, its relocations (from, to or a whole Location) and its entries."""
        widths = [1] * pages if self.chain else [1, *[max(pages // 5, 1)] * 5]
        layers = [self._layer(depth, width) for depth, width in enumerate(widths)]
        if self.chain:
            layers.append(([], *self._departures(len(layers), 1)))
        return layers

    def _layer(self, depth, width):
        if depth == 0 and self.rng.random() < 0.7:
            return [b"/"], [], [b"/"]
        pages = [self._path(depth) for _ in range(width)]
        if depth == 0:
            return pages, [(b"/", pages[0])], [b"/"]
        moves, entries = [], []
        for page in pages:
            route = self._route(page) if self.rng.random() < 0.35 else []
            moves += route
            entries.append(route[0][0] if route else page)
        if not self.chain:
            departing, heads = self._departures(depth, 2)
            return pages, moves + departing, entries + heads
        return pages, moves, entries

    def _path(self, depth):
        return self.rng.choice(PATHS) % (depth, self._number())

    def _route(self, page):
        """A chain of relocations to the page, or a ring of two. Some chains are longer than any visitor follows."""
        home = page[:page.rfind(b"/") + 1]
        length = self.rng.choice((0, 1, 1, 2, 3, 18, 19, 20, 25))
        names = [home + b"go%d" % self._number() for _ in range(length or 2)]
        return list(zip(names, names[1:] + ([page] if length else names[:1])))

    def _departures(self, depth, count):
        """Relocations that add nothing: to known URLs, to no URL, to other protocols, to themselves."""
        heads = [b"/l%d/m%d/go" % (depth, self._number()) for _ in range(count)]
        moves = []
        for head in heads:
            location = self.rng.choice((b"#", b"/", head, b"http:///x", b":", b"mailto:x/UNIQUE", b"", b"a\tb\0c\nd",
                                        b"https://127.0.0.1/UNIQUE:b", b"HTTP://127.0.0.1:PORT/UNIQUE", b"./UNIQUE ",
                                        b"http://127.0.0.1:DEAD/UNIQUE", self.origin + head))
            moves.append((head, (self._filled(location),)))
        return moves, heads

    def _build(self, layers):
        for depth, (pages, moves, _) in enumerate(layers):
            following = layers[depth + 1][2] if depth + 1 < len(layers) else []
            for page in pages:
                odd = [self._snippet(ODD_TAGS, ODD, self.rng.choice(VALUES)) for _ in range(self.rng.randint(8, 24))]
                body = self._body(page, following, odd + self._shared(depth), HEADS, TAILS)
                types = HTML_TYPES if self.chain or depth == 0 or self.rng.random() < 0.9 else OTHER_TYPES
                self._plan(page, header_of(self.rng, PAGE_STATUS, types), body)
            for source, target in moves:
                ways = target if isinstance(target, tuple) else self._spellings(source, target)
                location = self.rng.choice([way for way in ways if b"\r" not in way])
                line = self.rng.choice(LOCATIONS + ((b"X-None: 4",) if not location else ()))
                header = header_of(self.rng, MOVED_STATUS, HTML_TYPES, line.replace(b"VALUE", location))
                self._plan(source, header, self._body(source, following, self._shared(depth), (b"",), (b"",)))

    def _plan(self, path, header, body):
        manner = self.rng.choice(("whole", "whole", "whole", "split", "drip" if len(header) < 2000 else "split"))
        self.answers[path] = Answer(header + b"\r\n\r\n" + body, manner)

    # ---- the pages

    def _number(self):
        self.names += 1
        return self.names

    def _filled(self, text):
        if b"UNIQUE" in text:
            text = text.replace(b"UNIQUE", b"w%d" % self._number())
        for name, port in ((b"PORT", self.port), (b"FAR", self.port + 65536), (b"DEAD", self.dead.getsockname()[1])):
            text = text.replace(name, b"%d" % port)
        return text

    def _snippet(self, tags, forms, value):
        tag, attribute = self.rng.choice(tags)
        form = self.rng.choice(forms).replace(b"TAG", tag).replace(b"ATTR", attribute)
        return form.replace(b"VALUE", self._filled(value))

    def _shared(self, depth):
        """References that many pages share. The first page has each in every kind, so all are known from then on."""
        return [self._snippet([tag], PLAIN, value) for value in SHARED for tag in TAGS] if depth == 0 else []

    def _body(self, page, entries, snippets, heads, tails):
        """A page with references to some entries, in random spellings."""
        for entry in entries if page == b"/" else self.rng.sample(entries, min(len(entries), 4)):
            for tag in self.rng.sample(TAGS, 3 if self.chain else 2):
                snippets.append(self._snippet([tag], PLAIN, self.rng.choice(self._spellings(page, entry))))
        self.rng.shuffle(snippets)
        gap = self.rng.choice((b"\n", b"", b" ", b"<p>text</p>\r\n"))
        head = self._filled(self.rng.choice(heads).replace(b"VALUE", self.rng.choice(VALUES)))
        return head + gap.join(snippets) + self.rng.choice(tails)

    def _spellings(self, base, target):
        """References that lead from one path to the other. To a target with a colon only the absolute one does."""
        ways = [self.origin + target]
        if b":" not in target:
            directory = base[:base.rfind(b"/") + 1]
            climbing = b"../" * (directory.count(b"/") - 1) + target[1:]
            ways += [target, climbing, b"./" + climbing]
            if target.startswith(directory):
                ways += [target[len(directory):], b"./" + target[len(directory):]]
        raw = ((b"%09", b"\t"), (b"%00", b"\0"), (b"%0A", b"\n"))
        return ways + [way.replace(*pair) for way in ways for pair in raw if pair[0] in way]

    # ---- the server

    def _serve(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            with connection:
                try:
                    self._converse(connection)
                except OSError:
                    pass  # the visitor has closed the connection

    def _converse(self, connection):
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        request = b""
        while b"\r\n\r\n" not in request:
            data = connection.recv(65536)
            if not data:
                return
            request += data
        self.requests.append(request)
        target = request[len(b"GET "):request.find(b" HTTP/1.1\r\n")]
        answer = self.answers.get(target) or leaf(random.Random(b"%d %s" % (self.seed, target)))
        for piece in pieces(answer):
            connection.sendall(piece)
        if answer.manner == "reset":
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


def pieces(answer):
    """The pieces in which the answer is sent: a single one, cuts around the header's end, or the header byte by byte."""
    data = answer.data
    end = data.find(b"\r\n\r\n") + 4
    if answer.manner == "split":
        cuts = sorted({0, end // 2, *range(end - 3, end + 1), len(data)})
        return [data[start:stop] for start, stop in zip(cuts, cuts[1:])]
    if answer.manner == "drip":
        return [data[at:at + 1] for at in range(end)] + [data[end:]]
    return [data]
