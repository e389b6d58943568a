# SPDX-License-Identifier: GPL-3.0-or-later
"""The web sites for the comparison, and the server that serves them on the loopback address."""
import contextlib
import os
import socket
import subprocess
import time

PAGES = 5000
PICTURES = 500
PAGE_BYTES = 4200
PICTURE_BYTES = 10_000
CHILDREN = 10
NEIGHBOURS = 10
TEXT = ("The tide turns twice a day, and the boats turn with it; whoever is late waits six hours at the quay. "
        "Nobody has ever seen the harbour master wait. ")

CONFIGURATION = """
daemon off; worker_processes 1; pid {folder}/nginx.pid; error_log {folder}/error.log;
events {{ worker_connections 512; }}
http {{
    types {{ text/html html; image/png png; }}
    default_type application/octet-stream;
    access_log off; sendfile on; root {site};
    server {{ listen 127.0.0.1:{port}; }}
    log_format paths '$request_method $uri $status';
    server {{ listen 127.0.0.1:{logged}; access_log {folder}/access.log paths; }}
}}
"""


def page_path(number):
    return f"/section{number // 1000}/issue{number // 100}/page{number}.html" if number else "/index.html"


def picture_path(number):
    return f"/pictures/picture{number % PICTURES}.png"


def page(number):
    """The navigation, the neighbours, the pages below, a picture, and text up to the size of a page."""
    near = range(max(0, number - NEIGHBOURS // 2), min(PAGES, number + NEIGHBOURS // 2))
    below = range(CHILDREN * number + 1, min(PAGES, CHILDREN * number + CHILDREN + 1))
    links = "".join(f'<li class="link"><a href="{page_path(other)}">Page {other}</a></li>\n'
                    for other in [*range(CHILDREN), *near, *below])
    text = (f"<!DOCTYPE html>\n<html><head><title>Page {number}</title></head>\n<body><ul>\n{links}</ul>\n"
            f'<img alt="Boats" src="{picture_path(number)}">\n')
    while len(text) < PAGE_BYTES:
        text += f"<p>{TEXT}</p>\n"
    return text + "</body></html>\n"


def make_site(folder):
    for number in range(PAGES):
        write(folder, page_path(number), page(number).encode())
    for number in range(PICTURES):
        write(folder, picture_path(number), os.urandom(PICTURE_BYTES))


def write(folder, path, content):
    file = folder / path.lstrip("/")
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_bytes(content)


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as server:
        return server.getsockname()[1]


class Server:
    """nginx on two ports: `origin` for the measurements, `logged` with a log of the requests."""

    def __init__(self, folder, site):
        port, logged = free_port(), free_port()
        self.origin, self.logged = f"http://127.0.0.1:{port}", f"http://127.0.0.1:{logged}"
        self.log = folder / "access.log"
        configuration = folder / "nginx.conf"
        configuration.write_text(CONFIGURATION.format(folder=folder, site=site, port=port, logged=logged))
        self.process = subprocess.Popen(["/usr/sbin/nginx", "-p", folder, "-c", configuration],
                                        stderr=subprocess.DEVNULL)
        while not answers(port):
            if self.process.poll() is not None:
                raise SystemExit("nginx did not start: " + (folder / "error.log").read_text()[-500:])
            time.sleep(0.01)

    def paths_fetched(self):
        """The number of different paths that were fetched at the logged port since the last call."""
        time.sleep(0.1)  # the server writes a line after it has sent the answer
        paths = {line.split()[1] for line in self.log.read_text().splitlines() if line.endswith(" 200")}
        os.truncate(self.log, 0)
        return len(paths)


def answers(port):
    with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port)):
        return True
    return False


@contextlib.contextmanager
def serving(folder, site):
    server = Server(folder, site)
    try:
        yield server
    finally:
        server.process.terminate()
        server.process.wait()


def serve(place, name, make):
    """Serves a site that `make` writes to a folder. The server ends with `place`."""
    files = place.fresh(name)
    make(files)
    return place.stack.enter_context(serving(place.fresh(name + "-server"), files))
