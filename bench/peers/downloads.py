# SPDX-License-Identifier: GPL-3.0-or-later
"""Ten large downloads at once into a memory file system, beside curl."""
import filecmp
import shutil

from peers import site, system
from peers.work import Row, Work

FILES = 10
MEBIBYTES = 256
FEWER_MEBIBYTES = 64
BLOCK = 1024 * 1024


def make_files(folder, mebibytes):
    """Writes blocks of random bytes that all differ, so that a misplaced block is noticed."""
    with open("/dev/urandom", "rb") as source:
        noise = source.read(8 * BLOCK)
    for number in range(FILES):
        with (folder / f"file{number}.bin").open("wb") as file:
            for block in range(mebibytes):
                start = (number * mebibytes + block) * 2741 % (7 * BLOCK)
                file.write(noise[start:start + BLOCK])


def downloads(place):
    mebibytes = FEWER_MEBIBYTES if place.quick else MEBIBYTES
    server = site.serve(place, "files", lambda folder: make_files(folder, mebibytes))
    files = place.memory / "files"
    target = place.memory / "target"
    urls = [f"{server.origin}/{path.name}" for path in files.iterdir()]
    with_tarnwick = [system.program("tarnwick-cli"), "download", target, *urls, "--parallel", FILES, "--quiet"]
    with_curl = ["curl", "--silent", "--parallel", "--parallel-max", FILES, "--create-dirs", "--output-dir", target,
                 "--remote-name-all", *urls]

    def player(name, command):
        def download():
            shutil.rmtree(target, ignore_errors=True)
            seconds = system.run(command).seconds
            if not all(filecmp.cmp(path, target / path.name, shallow=False) for path in files.iterdir()):
                raise SystemExit(f"{name}: the bytes differ")
            return {name: FILES * mebibytes / seconds}
        return download

    return Work([player("tarnwick", with_tarnwick), player("curl", with_curl)],
                [Row(f"{FILES} downloads of {mebibytes} MiB at once", "curl --parallel", "tarnwick", ("curl",), "MiB/s",
                     0.9, at_least=True)])
