"""What a run of nox_bench wrote: rows of times, read for the bars, the tables and the plots.

A row is one primitive of one build at one length and placement; `ns` holds the best time of every participant over
all passes, the library under "nox". Ratios are participant time by library time: 1 or more means the library is as
fast.
"""
import json
import statistics
from dataclasses import dataclass
from pathlib import Path

BUILDS = ("w7", "s8", "p8", "g9", "h9")
COMPILERS = ("gcc", "clang", "eigen")
FAST = ("gcc-fast", "clang-fast")
LIBC = ("libc", "memset")
LIMITS = ("limit", "limit-nt")
# Everyone who isn't named here is the peer of a few families, with a column of his own.
NAMED = COMPILERS + FAST + LIBC + LIMITS + ("nox", "direct", "packed")


@dataclass
class Row:
    build: str
    family: str
    name: str
    place: str
    shape: str
    len: int
    element: int
    flops: float
    ns: dict      # participant -> best time of a call
    spread: float  # median by best time of the library

    @property
    def bytes(self):
        return self.len * self.element

    @property
    def ours(self):
        return self.ns["nox"]

    @property
    def per_element(self):
        return self.ours / self.len

    def best(self, who):
        """Best time of these participants, None if none was measured."""
        return min((self.ns[w] for w in who if w in self.ns), default=None)

    def others(self):
        """Participants that only some families have."""
        return tuple(w for w in self.ns if w not in NAMED)

    def ratio(self, who):
        best = self.best(who)
        return None if best is None else best / self.ours

    def length(self):
        """Length as a reader names it: 1 or 1000 elements, else bytes of one array."""
        if self.len in (1, 1000):
            return str(self.len)
        for unit, size in (("MiB", 1 << 20), ("KiB", 1 << 10)):
            if self.bytes >= size:
                return f"{self.bytes / size:g} {unit}"
        return f"{self.bytes} B"


class Results:
    def __init__(self, files):
        """Passes of one build are pooled: a slow phase of the machine then spoils one of them only."""
        self.runs = {}
        pooled = {}
        for path in files:
            run = json.loads(Path(path).read_text())
            self.runs.setdefault(run["variant"], run)
            for r in run["rows"]:
                times = r.pop("ns")
                pool = pooled.setdefault((run["variant"], *r.values()), (r, {}))[1]
                for who, t in times.items():
                    pool.setdefault(who, []).extend(t)
        self.rows = [Row(key[0], **r, ns={who: min(t) for who, t in times.items() if t},
                         spread=statistics.median(times["nox"]) / min(times["nox"]))
                     for key, (r, times) in pooled.items() if times.get("nox")]
        self._index = {(r.build, r.name, r.place, r.bytes): r for r in self.rows}

    def find(self, build, name, size, place="aligned"):
        return self._index.get((build, name, place, size))

    def select(self, build=None, family=None, place=None):
        return [r for r in self.rows if (build is None or r.build == build) and
                (family is None or r.family == family) and (place is None or r.place == place)]

    def families(self):
        return list(dict.fromkeys(r.family for r in self.rows))

    def title(self, family):
        return next((r["families"][family] for r in self.runs.values() if family in r["families"]), family)

    def spreads(self):
        """Median and 95th percentile of the rows' spreads: how quiet the machine was."""
        s = sorted(r.spread for r in self.rows)
        return s[len(s) // 2], s[len(s) * 95 // 100]
