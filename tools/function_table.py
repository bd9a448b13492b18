#!/usr/bin/env python3
"""Writes the page of all functions: header, what each does, in-place rule, exactness, its row in the benchmarks.

    function_table.py --headers INCLUDE_DIR --internal FILE --performance FILE --out FILE

All of it is read from the declarations' comments and from the performance report. A function whose comment leaves its
in-place rule or its exactness open is an error, so that neither can be forgotten.
"""
import argparse
import re
import sys
from pathlib import Path

import declarations as decl

HEAD = """# All functions

Made from the declarations. *In place*: whether the destination may be a source; "loop" means that
whatever overlaps, the results are those of a loop from the first element on. *Equal*: whether all builds give the
same bits; the documentation of a function tells how far those that don't may differ. *Benchmark*: nanoseconds an
element in the h9 build and the time of the fastest peer by the library's, from the [performance report](performance.md).
"""
# What a comment says, in the order to look for it.
EXACTNESS = (("yes", r"[Ee]qual in all builds"), ("no", r"last place|last bit|\bdiffers?\b|fuses|ulp|rounding|[Aa]s accurate"))
IN_PLACE = (("no", r"must not overlap|must not be"), ("yes", r"may be (the|a|either|any|one|@p pSrc|@p pDst|in place)\b|[Ee]qual pointers are allowed|in place"))
# Functions of memory, sizes, records and settings: nothing about them can differ.
NO_DATA = re.compile(r"nox[si]?(Get|Set(Cpu|Denorm|Num)|Malloc|Free)|\w*(GetSize|GetBuf|GetBuffer|GetState|Init|Free|Alloc)\w*$"
                     r"|\w*(Val|ValI|Valc)(From|To)Ptr")


def first_of(table, text):
    for answer, pattern in table:
        if re.search(pattern, text):
            return answer
    return ""


def with_referred(name, documents):
    """The comment, and those of the functions it says it is like."""
    seen, texts, todo = set(), [], [name, name.removesuffix("_Idx"), name.removesuffix("_I_Idx")]
    while todo:
        n = todo.pop(0)
        if n in seen or n not in documents:
            continue
        seen.add(n)
        texts.append(" ".join(documents[n].split()))
        todo += re.findall(r"(?:like|form of|see|as|as by|otherwise|brief) (nox\w+)\(\)", texts[-1])
    return texts


def in_place(f, texts):
    arrays = [p for p in f.parameters if p.array]
    sources, written = [p for p in arrays if p.constant], [p for p in arrays if not p.constant]
    if not sources or not written:
        return "in place" if any("ISfs" in f.name or "_I" in f.name or "rcDst" in p.name for p in written) else "–"
    if re.search(r"_I(Sfs|_Idx|_C1R)?$|_ISfs|_ISFS", f.name):
        return "in place"
    answer = next((a for a in (first_of(IN_PLACE, t) for t in texts) if a), "")
    return answer or ("loop" if f.header.startswith("nox/array/") else "")


def exactness(f, texts):
    if NO_DATA.match(f.name):
        return "–"
    if f.array_layer or f.name.endswith("_Idx") and not f.name.startswith("nox"):
        return "yes"    # one order of operations for all processors
    return next((a for a in (first_of(EXACTNESS, t) for t in texts) if a), "")


def benchmarks(report):
    """By function: nanoseconds an element and ratio to the best peer, of its first row at 1000 elements or else its first."""
    rows, columns = {}, []
    for line in report.splitlines():
        cells = [c.strip() for c in line.strip("|").split("|")]
        if line.startswith("| primitive"):
            columns = cells
        elif line.startswith("| `") and len(cells) > 4 and columns and cells[1] == "h9":
            name = re.match(r"`(\w+)", cells[0])[1]
            peers = [float(c) for title, c in zip(columns[5:], cells[5:]) if c and title not in ("of limit", "body")]
            entry = (cells[4], f"{min(peers):.2f}" if peers else "")
            if name not in rows or (cells[2] == "1000" and rows[name][2] != "1000"):
                rows[name] = (*entry, cells[2])
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for option in ("headers", "internal", "performance", "out"):
        parser.add_argument(f"--{option}", type=Path, required=True)
    options = parser.parse_args()
    functions = decl.read_headers(options.headers, options.internal)
    documents = decl.documentation(functions)
    forms = {f.primitive.name: f.name for f in decl.index_forms(functions)}
    # A primitive without export is known by its index form.
    for f in functions:
        if f.internal and f.name in forms:
            f.header, documents[forms[f.name]] = "nox/index.h", documents[f.name]
    measured = benchmarks(options.performance.read_text())

    lines, open_questions = [], []
    for header in sorted({f.header for f in functions} - {"core/internal.h"}):
        lines += ["", f"## {header}", "", "| function | index form | what it does | in place | equal | benchmark |",
                  "| --- | --- | --- | --- | --- | --- |"]
        for f in functions:
            if f.header != header:
                continue
            texts = with_referred(f.name, documents)
            place, exact = in_place(f, texts), exactness(f, texts)
            if not place:
                open_questions.append(f"{header}: {f.name}: may the destination be a source?")
            if not exact:
                open_questions.append(f"{header}: {f.name}: are all builds equal?")
            row, name = measured.get(f.name), forms[f.name] if f.internal else f.name
            bench = f"{row[0]} ns" + (f", {row[1]}" if row[1] else "") if row else ""
            what = decl.brief(documents[f.name]).replace("|", "\\|")
            lines.append(f"| {name}() | {'yes' if f.name in forms and not f.internal else '–'} | {what} | {place} | {exact} | {bench} |")
    if open_questions:
        sys.exit("\n".join(open_questions))
    options.out.parent.mkdir(parents=True, exist_ok=True)
    options.out.write_text(HEAD + "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
