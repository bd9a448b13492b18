#!/usr/bin/env python3
"""Runs nox_bench once for every build and writes docs/performance.md with its tables, bars and plots.

The runs' JSON stays in the results folder (build/bench by default), so `--reuse` writes the report again without
measuring. `--core` pins the runs to one processor core.
"""
import argparse
import datetime
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.dont_write_bytecode = True
import bars  # noqa: E402
import plots  # noqa: E402
from results import BUILDS, COMPILERS, FAST, LIBC, LIMITS, Results  # noqa: E402

ROOT = Path(__file__).resolve().parent.parent
COLUMNS = [("GCC", ("gcc",)), ("clang", ("clang",)), ("Eigen", ("eigen",)), ("C library", LIBC),
           ("packed", ("packed",)), ("GCC fast", FAST[:1]), ("clang fast", FAST[1:]), ("body", ("direct",)),
           ("of limit", LIMITS)]


def measure(args):
    """Runs the program for each build, in passes that go through all builds; returns the seconds they took."""
    args.results.mkdir(parents=True, exist_ok=True)
    for old in args.results.glob("*.json"):
        old.unlink()
    start = time.monotonic()
    for number in range(1, 1 + (args.passes or (1 if args.quick else 2))):
        for build in args.builds:
            out = args.results / f"{build}-{number}.json"
            command = [str(args.bench), "--variant", build, "--out", str(out)] + (["--quick"] if args.quick else [])
            command += [f for flag in ("family", "only") if getattr(args, flag) for f in (f"--{flag}", getattr(args, flag))]
            if args.core is not None:
                command = ["taskset", "-c", str(args.core)] + command
            if subprocess.run(command).returncode:
                # Rows that compute something else than their peers are left out and noted; anything else ends here.
                print(f"{build}: the run reports a failure", file=sys.stderr)
                if not out.exists():
                    sys.exit(1)
            print(f"{build}: pass {number} done", file=sys.stderr)
    return time.monotonic() - start


def cell(value):
    return "" if value is None else f"{value:.2f}"


def family_table(rows):
    """Markdown table of rows, with the columns that hold anything."""
    others = [(who, (who,)) for who in dict.fromkeys(w for r in rows for w in r.others())]
    columns = COLUMNS[:5] + others + COLUMNS[5:]
    columns = [c for c in columns if any(r.ratio(c[1]) is not None for r in rows)]
    lines = ["| primitive | build | array | place | ns/element | " + " | ".join(c[0] for c in columns) + " |",
             "| --- " * (5 + len(columns)) + "|"]
    for r in rows:
        ratios = " | ".join(cell(r.ratio(who)) for _, who in columns)
        lines.append(f"| `{r.name}` | {r.build} | {r.length()} | {r.place} | {r.per_element:.4g} | {ratios} |")
    return lines


def side_by_side(results):
    """One line per primitive: ns per element in each build at 1000 elements, or at the first of the row's own lengths,
    and the ratio to its best peer."""
    present = [b for b in BUILDS if b in results.runs]
    lines = ["| primitive | " + " | ".join(present) + " |", "| --- " * (1 + len(present)) + "|"]
    aligned = [r for r in results.rows if r.place == "aligned"]
    lengths = {}
    for r in aligned:
        lengths[r.name] = 1000 if r.len == 1000 else lengths.get(r.name, r.len)
    rows = [r for r in aligned if r.len == lengths[r.name]]
    at = {(r.name, r.build): r for r in rows}
    for name in dict.fromkeys(r.name for r in rows):
        cells = []
        for build in present:
            row = at.get((name, build))
            ratio = row and row.ratio(COMPILERS + LIBC + row.others())
            cells.append("" if not row else f"{row.per_element:.3g}" + (f" ({ratio:.2f})" if ratio else ""))
        lines.append(f"| `{name}` | " + " | ".join(cells) + " |")
    return lines


def hardware(results):
    """What the limit loops reached, by build: traffic in L1, in L2 and in memory, arithmetic."""
    lines = ["| build | traffic | GB/s in L1 | GB/s in L2 | GB/s in memory |", "| --- | --- | --- | --- | --- |"]
    shapes = [("noxsAddC_64f", "one read, one written", 2), ("noxsAdd_64f", "two read, one written", 3),
              ("noxsAddC_64f_I", "read and written in place", 2)]
    for build in [b for b in BUILDS if b in results.runs]:
        for name, text, arrays in shapes:
            cells = []
            for size in (8000, 128 << 10, 32 << 20):
                row = results.find(build, name, size)
                best = row and row.best(LIMITS)
                cells.append(f"{arrays * size / best:.0f}" if best else "")
            if any(cells):
                lines.append(f"| {build} | {text} | " + " | ".join(cells) + " |")
    peaks = {}
    for r in results.rows:
        if r.flops and "limit" in r.ns:
            peaks[r.build] = max(peaks.get(r.build, 0), r.flops * r.len / r.ns["limit"])
    text = ", ".join(f"{b} {peaks[b]:.0f}" for b in BUILDS if b in peaks)
    return lines + (["", f"Arithmetic peak with eight registers, GFLOP/s: {text}."] if text else [])


def library_facts(args, results):
    lines = []
    for build, run in results.runs.items():
        for key, value in run["facts"].items():
            if build == "h9" or "h9" not in results.runs:
                lines.append(f"- {key}: {value:.0f}")
    library = args.bench.parent.parent / "libnox.so"
    if shutil.which("readelf") and library.exists():
        text = subprocess.run(["readelf", "-rW", str(library)], capture_output=True, text=True, check=True).stdout
        kinds = re.findall(r"R_386_\w+", text)
        counts = ", ".join(f"{kinds.count(k)} {k}" for k in sorted(set(kinds)))
        lines.append(f"- Relocations: {len(kinds)} ({counts}).")
    return lines


METHOD = """\
Measured on {when} on one processor that calls itself "{processor}"{pinned}; 32-bit code; peers by {compilers}.{took}
Every build ran in processes of its own, {passes} of them. Ratios are peer time by library time: 1.00 and more means the
library is at least as fast. Library and peers ran on the same arrays in the same process, their repetitions in random
order. A repetition lasts at least {least} ms; a process made 3, or {large} from 1 MiB on, and the best one of all counts. Over
all rows the library's median repetition was {middle:.1f} % above its best one, in 5 % of the rows {high:.0f} % or more.

The peers have the instruction set of the build:

- GCC, clang: plain loops at `-O3 -fno-math-errno`, with arrays that are promised not to overlap and multiply-add fused
  as each compiler does by default. Each is a function of its own, called as the library's are but without the cost of
  position-independent code; calls of `memcpy` and `memset` in place of a loop are switched off.
- Eigen: array expressions on unaligned maps, compiled by GCC with the same flags.
- C library: `memcpy`, `memmove`, `memset`, which choose their instruction set themselves. For values wider than a byte
  `memset` writes as many bytes.
- packed: loops of packed divisions and square roots.
- GCC fast, clang fast: the double loop of a filter with `-ffast-math` besides.
- FFTW: plans by FFTW_MEASURE, under w7 and h9; under w7 FFTW doesn't see the processor's AVX. The pair of values at the ends
  of a real spectrum is put into the library's order in its time.
- SLEEF: vectors of the build's width with errors up to 1 unit in the last place. libm: a loop over the C library's calls.
- any other name: a peer of that family alone.
- body: the call of the body without the jump through the dispatch table.
- of limit: a bare loop with the same traffic, by ordinary or streaming stores, whichever is the better; for filters
  one with the same number of multiplications and additions.

Before anything is timed, every peer's result is compared with the library's, exactly or to 1e-12. Arrays of 1000
elements stand in L1 (complex ones partly in L2), of 128 KiB in L2, of 32 MiB in memory. "offset 8" and "offset 4" are
bases off by so many bytes; "aliased" puts all arrays at the same place modulo 4 KiB."""


def method(args, results, files, seconds):
    run = next(iter(results.runs.values()))
    middle, high = results.spreads()
    text = METHOD.format(
        when=datetime.date.fromtimestamp(min(f.stat().st_mtime for f in files)), processor=run["processor"],
        pinned=f", on core {args.core} alone" if args.core is not None else "", compilers=run["compilers"],
        took=f" The runs took {seconds:.0f} s." if seconds else "", passes=len(files) // len(results.runs),
        least=1 if run["quick"] else 2, large=3 if run["quick"] else 5, middle=100 * (middle - 1), high=100 * (high - 1))
    notes = sorted({f"{b}: {n}" for b, r in results.runs.items() for n in r["notes"]})
    return text + ("\n\nNotes of the runs: " + "; ".join(notes) + "." if notes else "")


def write(args, results, files, seconds):
    docs = args.docs
    docs.mkdir(parents=True, exist_ok=True)
    lines = ["# Performance", "", "Generated by `bench/report.py`; don't edit.", "", "## How it was measured", "",
             method(args, results, files, seconds), "", "## Targets", "",
             f"A target counts as reached down to {100 * bars.TOLERANCE:.0f} % below its value, for noise.", ""]
    lines += bars.table(results)
    missed = bars.missed_rows(results)
    if missed:
        lines += ["", "Rows below their targets:", ""] + missed
        lines += ["", "What limits them, and what was tried:", ""] + bars.explanations(results)
    if shutil.which("gnuplot"):
        lines += ["", "## Plots"]
        for name, caption in plots.draw(results, docs / "plots"):
            lines += ["", f"![{caption}](plots/{name})"]
    else:
        print("gnuplot is missing: no plots", file=sys.stderr)
    lines += ["", "## What the hardware does", ""] + hardware(results)
    facts = library_facts(args, results)
    if facts:
        lines += ["", "## Loading", ""] + facts
    lines += ["", "## The builds side by side", "",
              "ns per element at 1000 elements, or at the first of the row's own lengths; in brackets the ratio to the "
              "best of the compilers, Eigen, the C library and peers of the family's own.", ""] + side_by_side(results)
    main = "h9" if "h9" in results.runs else next(iter(results.runs))
    for family in results.families():
        lines += ["", f"## {results.title(family)}, {main}", ""]
        lines += family_table(results.select(main, family))
    others = [b for b in BUILDS if b in results.runs and b != main]
    if others:
        lines += ["", "The full tables of the other builds: " +
                  ", ".join(f"[{b}](performance/{b}.md)" for b in others) + "."]
    (docs / "performance.md").write_text("\n".join(lines) + "\n")
    for build in others:
        (docs / "performance").mkdir(exist_ok=True)
        text = [f"# Performance of the {build} build", "", "Generated by `bench/report.py`; don't edit."]
        for family in results.families():
            text += ["", f"## {results.title(family)}", ""] + family_table(results.select(build, family))
        (docs / "performance" / f"{build}.md").write_text("\n".join(text) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--bench", type=Path, default=ROOT / "build/release/bench/nox_bench", help="the program")
    parser.add_argument("--results", type=Path, default=ROOT / "build/bench", help="folder of the runs' JSON")
    parser.add_argument("--docs", type=Path, default=ROOT / "docs", help="where performance.md goes")
    parser.add_argument("--builds", nargs="+", default=BUILDS, choices=BUILDS)
    parser.add_argument("--core", type=int, help="processor core to run on")
    parser.add_argument("--passes", type=int, help="processes per build, their times pooled (2, in a quick run 1)")
    parser.add_argument("--quick", action="store_true", help="fewer repetitions and lengths, and one pass if not told otherwise")
    parser.add_argument("--family", help="only this family; the report then goes to the results folder, not to docs")
    parser.add_argument("--only", help="only rows with this part in their names; the report goes to the results folder")
    parser.add_argument("--reuse", action="store_true", help="don't measure, take the JSON that is there")
    args = parser.parse_args()
    part = bool(args.family or args.only)
    if part:
        args.results = args.results / "part"
        args.docs = args.results
    seconds = None if args.reuse else measure(args)
    files = [f for b in args.builds for f in sorted(args.results.glob(f"{b}-*.json"))]
    if not files:
        sys.exit(f"no results in {args.results}")
    results = Results(files)
    if not results.rows:
        sys.exit("no rows: no such family or name, or the notes in the JSON say why")
    write(args, results, files, seconds)
    if part:
        for family in results.families():
            print("\n".join(["", results.title(family), ""] + family_table(results.select(family=family))))
    print("\n".join([""] + bars.table(results, only_measured=part)))


if __name__ == "__main__":
    main()
