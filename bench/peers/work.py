# SPDX-License-Identifier: GPL-3.0-or-later
"""A piece of work that Tarnwick and its peers do in turn, and the rows of its results."""
import statistics
from dataclasses import dataclass


@dataclass(frozen=True)
class Row:
    """A line of the table: the ratio of Tarnwick's value to a peer's, or Tarnwick's value alone without a peer.

    `ours` and `peers` name values. Of several peers the best counts. If `ours` ends in a blank, it stands for all names
    with this beginning, and their largest value counts.
    """
    work: str
    beside: str
    ours: str
    peers: tuple
    unit: str
    target: float
    at_least: bool = False  # the target is a lower bound, and more is better


@dataclass
class Work:
    """`players` are functions that do the work once and return named values."""
    players: list
    rows: list
    alike: str = ""  # the name of a value that all players must agree on

    def take_turns(self, turns, tell):
        """The values of all turns, by name. The order of the players alternates from turn to turn."""
        values = {}
        for turn in range(turns):
            tell(turn + 1)
            for player in self.players if turn % 2 == 0 else reversed(self.players):
                for name, value in player().items():
                    values.setdefault(name, []).append(value)
        if len(set(values.get(self.alike, []))) > 1:
            raise SystemExit(f"not all come to the same result: {self.alike} {values[self.alike]}")
        return values


@dataclass(frozen=True)
class Result:
    row: Row
    name: str  # of the value that counts
    own: float
    peer: float | None
    spread: tuple  # of Tarnwick's values

    @property
    def figure(self):
        """The value that is compared with the target."""
        return self.own if self.peer is None else self.own / self.peer

    @property
    def is_met(self):
        return self.figure >= self.row.target if self.row.at_least else self.figure <= self.row.target


def result_of(row, values):
    medians = {name: statistics.median(taken) for name, taken in values.items()}
    own = row.ours
    if own.endswith(" "):
        own = max((name for name in medians if name.startswith(own)), key=medians.get)
    best = max if row.at_least else min
    peer = best(medians[name] for name in row.peers) if row.peers else None
    return Result(row, own.removeprefix(row.ours), medians[own], peer, (min(values[own]), max(values[own])))
