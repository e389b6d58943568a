# SPDX-License-Identifier: GPL-3.0-or-later
"""Installs packages, builds, provides folders to work in, and runs and measures programs."""
import contextlib
import os
import shutil
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = ROOT / "build/release"
PACKAGES = ["libbenchmark-dev", "wget", "httrack", "curl", "libxml2-dev", "sqlite3", "gawk", "mawk"]
FOLDERS = ["src/app", "src/console", "bench", "bench/peers"]
TARGETS = ["tarnwick", "tarnwick-cli", "bench_recording", "bench_search_file", "bench_window",
           "make_search", "bare_loop", "sax", "empty_window", "first_paint"]


def set_up(packages, targets):
    """Installs missing packages and builds, with the functions of cmake/setup.sh."""
    script = '. cmake/setup.sh; eval "$1"; need_server nginx; TARNWICK_BENCH=ON build release $2'
    need = "need_packages " + " ".join(packages)
    subprocess.run(["bash", "-c", script, "compare", need, " ".join(targets)], cwd=ROOT, check=True)


def program(name):
    return next(path for folder in FOLDERS if (path := BUILD / folder / name).is_file())


@dataclass(frozen=True)
class Finished:
    seconds: float
    peak_bytes: int  # the most memory that the program had at once
    output: str


def run(command, **settings):
    """Runs a program to its end and keeps its output. If it fails, the comparison ends."""
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        start = time.perf_counter()
        process = subprocess.Popen([str(part) for part in command], stdout=output, stderr=errors, **settings)
        _, status, usage = os.wait4(process.pid, 0)
        seconds = time.perf_counter() - start
        process.returncode = os.waitstatus_to_exitcode(status)
        output.seek(0)
        errors.seek(0)
        if process.returncode != 0:
            raise SystemExit(f"{command[0]} ended with status {process.returncode}:\n"
                             + errors.read().decode(errors="replace")[-2000:])
        return Finished(seconds, usage.ru_maxrss * 1024, output.read().decode(errors="replace"))


class Place:
    """Two folders to work in, one in memory and one on the disk of the checkout, and the servers of their sites. The
    end of the `with` block removes the folders and stops the servers."""

    def __init__(self, quick):
        self.quick = quick
        self.stack = contextlib.ExitStack()

    def __enter__(self):
        self.memory = self._folder("/dev/shm")
        self.memory.chmod(0o755)  # the server's workers have another user
        self.disk = self._folder(ROOT / "build")
        return self

    def __exit__(self, *_):
        self.stack.close()

    def _folder(self, where):
        return Path(self.stack.enter_context(tempfile.TemporaryDirectory(prefix="tarnwick-compare-", dir=where)))

    def fresh(self, name):
        """An empty folder in memory, for one turn."""
        folder = self.memory / name
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        return folder
