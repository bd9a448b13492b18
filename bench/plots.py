"""Plots of the results by gnuplot, as SVG."""
import subprocess

from results import BUILDS, COMPILERS, FAST

# Ours dark blue and thick, peers in muted colours that stay apart in print and for the colour-blind.
COLOURS = {"nox": "#0b3c8c", "libc": "#d55e00", "memset": "#d55e00", "gcc": "#009e73", "clang": "#cc79a7",
           "eigen": "#e69f00", "gcc-fast": "#56b4e9", "clang-fast": "#8c6d31", "limit": "#888888"}
NAMES = {"nox": "nox", "libc": "C library", "memset": "memset", "gcc": "GCC -O3", "clang": "clang -O3",
         "eigen": "Eigen", "gcc-fast": "GCC -O3 -ffast-math", "clang-fast": "clang -O3 -ffast-math",
         "limit": "peak with 8 registers"}
BUILD_COLOURS = ("#c6dbef", "#9ecae1", "#6baed6", "#2171b5", "#08306b")


def gnuplot(path, size, commands):
    script = (f"set terminal svg size {size} dynamic enhanced font 'sans-serif,13' background '#ffffff'\n"
              f"set output '{path}'\nset border 3 lc '#444444'\nset tics nomirror\nset grid ytics lc '#dddddd'\n"
              + commands)
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def block(lines):
    return "\n".join(lines) + "\ne\n"


def curves(path, title, xlabel, ylabel, series, extra=""):
    """series: participant -> [(x, y)]"""
    series = {who: points for who, points in series.items() if points}
    if not series:
        return None
    plots = ", ".join(f"'-' with linespoints lw {3 if who == 'nox' else 1.5} pt 7 ps {0.6 if who == 'nox' else 0.4} "
                      f"lc '{COLOURS[who]}' title '{NAMES[who]}'" for who in series)
    data = "".join(block(f"{x} {y}" for x, y in points) for points in series.values())
    gnuplot(path, "820,460", f"set title '{title}'\nset xlabel '{xlabel}'\nset ylabel '{ylabel}'\n"
            f"set key outside right\nset yrange [0:*]\n{extra}\nplot {plots}\n{data}")
    return path


def over_size(results, path, name, title):
    rows = sorted((r for r in results.select("h9", place="aligned") if r.name == name), key=lambda r: r.bytes)
    series = {who: [(r.bytes, r.bytes / r.ns[who]) for r in rows if who in r.ns]
              for who in ("nox", "libc", "memset", "gcc", "clang")}
    ticks = ", ".join(f"'{label}' {n}" for label, n in (("64 B", 64), ("256 B", 256), ("1 KiB", 1 << 10),
                      ("4 KiB", 1 << 12), ("16 KiB", 1 << 14), ("64 KiB", 1 << 16), ("1 MiB", 1 << 20),
                      ("32 MiB", 1 << 25)))
    return curves(path, title, "bytes of an array", "bytes per ns (GB/s) written", series,
                  f"set logscale x 2\nset xtics ({ticks}) rotate by -35")


def fir(results, path, name, title):
    rows = [r for r in results.select("h9", "filter", "aligned") if r.name.startswith(name + " ") and r.len == 1000]
    series = {who: [(int(r.name.split()[1]), r.flops * r.len / r.ns[who]) for r in rows if who in r.ns]
              for who in ("nox", "gcc", "clang") + FAST + ("limit",)}
    return curves(path, title, "taps", "GFLOP/s", series, "set logscale x 2\nset xtics (16, 32, 64, 128, 181)")


def builds(results, path, names, title):
    present = [b for b in BUILDS if b in results.runs]
    rows = []
    for name, label in names:
        values = [next((r.per_element for r in results.select(b, place="aligned") if r.name == name and r.len == 1000),
                       None) for b in present]
        if all(values):
            rows.append(f'"{label}" ' + " ".join(f"{v:.4g}" for v in values))
    if not rows:
        return None
    plots = ", ".join(f"'-' using {i + 2}:xtic(1) title '{b}' lc '{BUILD_COLOURS[BUILDS.index(b)]}'"
                      for i, b in enumerate(present))
    gnuplot(path, "820,420", f"set title '{title}'\nset ylabel 'ns per element'\nset style data histogram\n"
            "set style histogram clustered gap 1.5\nset style fill solid 1 noborder\nset yrange [0:*]\n"
            f"set xtics rotate by -20\nset key outside right\nplot {plots}\n" + block(rows) * len(present))
    return path


def ratios(results, path, title):
    rows = []
    for r in results.select("h9", place="aligned"):
        if r.len == 1000 and r.family in ("vector", "division") and r.ratio(COMPILERS):
            rows.append((r.name.removeprefix("noxs"), r.ratio(COMPILERS)))
    if not rows:
        return None
    data = block(f'"{name.replace("_", chr(92) * 2 + "_")}" {min(v, 2.5):.3f} {"0x009e73" if v >= 0.97 else "0xd55e00"}'
                 for name, v in rows)
    gnuplot(path, "1150,470", f"set title '{title}'\nset ylabel 'best peer time / ours (cut at 2.5)'\nunset key\n"
            "set style fill solid 0.9 noborder\nset boxwidth 0.75\nset xtics rotate by -90 font 'sans-serif,10'\n"
            "set yrange [0:2.6]\nset xrange [-1:*]\n"
            "set arrow from graph 0, first 1 to graph 1, first 1 nohead lc '#222222' lw 1.5 front\n"
            "plot '-' using 0:2:3:xtic(1) with boxes lc rgb variable\n" + data)
    return path


ARITHMETIC = [("noxsAdd_64f", "add"), ("noxsMul_64f", "multiply"), ("noxsDiv_64f", "divide"),
              ("noxsSqrt_64f", "square root"), ("noxsAdd_64fc", "add, complex"), ("noxsMul_64fc", "multiply, complex"),
              ("noxsDiv_64fc", "divide, complex")]


def draw(results, folder):
    """All plots that the results hold data for: (file name, caption)."""
    folder.mkdir(parents=True, exist_ok=True)
    drawn = [
        (over_size(results, folder / "copy.svg", "noxsCopy_8u", "Copy, h9"), "Copy over the size of the array"),
        (over_size(results, folder / "fill.svg", "noxsSet_64f", "Fill with a double, h9"),
         "Fill over the size of the array"),
        (ratios(results, folder / "ratios.svg", "Best of GCC, clang and Eigen by the library, h9, 1000 elements"),
         "Every elementwise primitive against its best peer; orange below 0.97"),
        (builds(results, folder / "builds.svg", ARITHMETIC, "The five builds, 1000 elements"),
         "Time per element in each build"),
        (fir(results, folder / "fir_real.svg", "noxsFIRSR_64f", "Direct FIR of real data, h9"), "Real FIR over taps"),
        (fir(results, folder / "fir_complex.svg", "noxsFIRSR_64fc", "Direct FIR of complex data, h9"),
         "Complex FIR over taps"),
    ]
    return [(path.name, caption) for path, caption in drawn if path]
