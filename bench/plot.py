#!/usr/bin/python3
"""Draws the rate against n of every routine that benchmark runs timed, in
one PNG: a panel per routine (and option set), a line per library. Reads the
JSON that Google Benchmark writes with --benchmark_out; of repeated runs of a
row the fastest counts, as in the summary tables.

  plot.py OUT.png TITLE RUN.json:LIBRARY [RUN.json:LIBRARY ...]

Each run compared ORV with one library, named LIBRARY in the legend (its
rows end in /ref); ORV's line comes from the first run.

Rows are named routine/.../library, with the order either as n:N, as the
third part of a level-3 name (routine/options/N/library) or as a square
MxNxK; other rows (thin shapes, streaming loops) are left out. Only the first
increment and thread count a routine was run with is drawn.
"""
import json
import math
import re
import sys
from collections import defaultdict

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402

def parse(name):
    """(panel, n, orv or ref) of a row name, or None."""
    parts = name.split("/")
    if len(parts) < 3 or parts[-1] not in ("orv", "ref"):
        return None
    lib, middle = parts[-1], parts[1:-1]
    n = None
    rest = []
    for p in middle:
        m = re.fullmatch(r"n:(\d+)", p) or re.fullmatch(r"(\d+)", p)
        square = re.fullmatch(r"(\d+)x(\d+)x(\d+)", p)
        if m and n is None:
            n = int(m.group(1))
        elif square:
            if len(set(square.groups())) != 1:
                return None
            n = int(square.group(1))
        else:
            rest.append(p)
    if n is None:
        return None
    return " ".join([parts[0]] + rest), n, lib


def rates(sources):
    """{panel: {library: {n: best rate}}} and the rate's unit."""
    best = defaultdict(lambda: defaultdict(dict))
    unit = None
    for index, source in enumerate(sources):
        path, label = source.rsplit(":", 1)
        with open(path) as f:
            runs = json.load(f)["benchmarks"]
        unit = unit or ("GFLOP/s" if any("GFLOP/s" in r for r in runs) else "GB/s")
        names = {"orv": "ORV" if index == 0 else None, "ref": label}
        add(best, runs, unit, names)
    return best, unit


def add(best, runs, unit, names):
    for r in runs:
        if r.get("run_type") != "iteration" or r.get("error_occurred") or unit not in r:
            continue
        key = parse(r["name"])
        if key is None:
            continue
        panel, n, side = key
        lib = names[side]
        if lib is not None:
            best[panel][lib][n] = max(best[panel][lib].get(n, 0.0), r[unit])


def first_variants(best):
    """Per routine, the first increment and thread count it was run with."""
    kept, seen = {}, set()
    for panel in best:
        routine = panel.split(" ")[0]
        rest = [p for p in panel.split(" ")[1:] if not p.startswith(("inc:", "threads:"))]
        key = (routine, tuple(rest))
        if key not in seen:
            seen.add(key)
            kept[panel] = best[panel]
    return kept


def main():
    out, title, sources = sys.argv[1], sys.argv[2], sys.argv[3:]
    best, unit = rates(sources)
    panels = first_variants(best)
    if not panels:
        sys.exit(f"{sources}: no rows to draw")
    cols = min(4, len(panels))
    rows = math.ceil(len(panels) / cols)
    fig, axes = plt.subplots(rows, cols, figsize=(4 * cols, 3.2 * rows), squeeze=False)
    for ax, (panel, libs) in zip(axes.flat, sorted(panels.items())):
        for lib, points in libs.items():
            ns = sorted(points)
            ax.plot(ns, [points[n] for n in ns], marker="o", label=lib)
        ax.set_title(panel, fontsize=9)
        ax.set_xscale("log")
        ax.set_xlabel("n")
        ax.set_ylabel(unit)
        ax.set_ylim(bottom=0)
        ax.grid(True, alpha=0.3)
        ax.legend(fontsize=7)
    for ax in list(axes.flat)[len(panels):]:
        ax.axis("off")
    fig.suptitle(title)
    fig.tight_layout(rect=(0, 0, 1, 0.97))
    fig.savefig(out, dpi=80)


if __name__ == "__main__":
    main()
