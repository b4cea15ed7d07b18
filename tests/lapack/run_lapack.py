#!/usr/bin/env python3
"""Runs reference LAPACK's own test programs (Debian package liblapack-test)
over a BLAS library and compares their verdicts with a run over the reference
BLAS.

  run_lapack.py reference --precision d --out DIR
      runs the programs of one precision over the reference BLAS and keeps
      their verdict lines in DIR (reused while newer than the programs)
  run_lapack.py check --precision d --blas LIB --reference DIR --work DIR
      runs them over LIB and fails when a verdict is worse than the
      reference's: a routine group that passed there fails here, more tests
      fail, an error line appears, or a program ends another way

Both runs load the reference LAPACK; the BLAS is chosen through
LD_LIBRARY_PATH, and each run proves which libraries were loaded.
"""
import argparse
import json
import os
import re
import subprocess
import sys

LAPACK_DIR = "/usr/lib/x86_64-linux-gnu/lapack"
REFERENCE_BLAS = "/usr/lib/x86_64-linux-gnu/blas/libblas.so.3"
SKIP_MARKER = "ORV_SKIP:"


def programs(precision):
    """(program, input file) pairs of one precision: the linear-equation
    programs and the eigenvalue program with every input the package ships."""
    p = precision
    lin = {"s": [("xlintsts", "stest.in")],
           "d": [("xlintstd", "dtest.in"), ("xlintstds", "dstest.in")],
           "c": [("xlintstc", "ctest.in")],
           "z": [("xlintstz", "ztest.in"), ("xlintstzc", "zctest.in")]}[p]
    inputs = ["nep", "sep", "se2", "svd", p + "ec", p + "ed", p + "gg", p + "gd", p + "sb", p + "sg",
              p + "bal", p + "bak", p + "gbal", p + "gbak", p + "bb", "glm", "gqr", "gsv", "csd", "lse"]
    return lin + [("xeigtst" + p, name + ".in") for name in inputs]


# Lines that carry a verdict: passes, failures, error reports.
VERDICT = re.compile(r"passed|fail|illegal|\*\*\*|error", re.IGNORECASE)
FAILED_COUNT = re.compile(r"^(.*?)(\d+) out of (\d+) tests failed")
# The balancing tests report their largest error without a verdict of their
# own; it counts as passed below the threshold the other tests use.
LARGEST_ERROR = re.compile(r"value of largest test error = ([-+.0-9]+)[DE]([-+]\d+)")
LARGEST_ERROR_LIMIT = 30.0


def verdicts(text):
    lines = []
    for line in text.splitlines():
        line = " ".join(line.split())
        if line and VERDICT.search(line):
            lines.append(line)
    return lines


def library_dir(work, blas):
    """A folder that makes the programs load `blas` and the reference LAPACK."""
    libdir = os.path.join(work, "lib")
    os.makedirs(libdir, exist_ok=True)
    for name, target in (("libblas.so.3", blas), ("liblapack.so.3", os.path.join(LAPACK_DIR, "liblapack.so.3"))):
        link = os.path.join(libdir, name)
        if os.path.lexists(link):
            os.remove(link)
        os.symlink(os.path.realpath(target), link)
    return libdir


def check_loaded(program, env, blas):
    """The dynamic loader's own list of what `program` loads under `env`."""
    listing = subprocess.run([program], env=dict(env, LD_TRACE_LOADED_OBJECTS="1"),
                             capture_output=True, text=True).stdout
    wanted = {"libblas.so.3": os.path.realpath(blas),
              "liblapack.so.3": os.path.realpath(os.path.join(LAPACK_DIR, "liblapack.so.3"))}
    for name, path in wanted.items():
        m = re.search(re.escape(name) + r" => (\S+)", listing)
        if not m or os.path.realpath(m.group(1)) != path:
            sys.exit(f"{program} does not load {path} as {name}:\n{listing}")


def run_all(precision, blas, work):
    libdir = library_dir(work, blas)
    env = dict(os.environ, LD_LIBRARY_PATH=libdir)
    results = {}
    checked = set()
    for program, input_name in programs(precision):
        path = os.path.join(LAPACK_DIR, program)
        input_path = os.path.join(LAPACK_DIR, input_name)
        if not os.path.exists(path) or not os.path.exists(input_path):
            sys.exit(f"{path} or {input_path} missing: install the Debian package liblapack-test")
        if program not in checked:
            check_loaded(path, env, blas)
            checked.add(program)
        rundir = os.path.join(work, "run", program + "_" + input_name)
        os.makedirs(rundir, exist_ok=True)
        with open(input_path) as stdin:
            done = subprocess.run([path], stdin=stdin, cwd=rundir, env=env, capture_output=True, text=True,
                                  errors="replace", timeout=1200)
        output = done.stdout + done.stderr
        with open(os.path.join(rundir, "output.txt"), "w") as f:
            f.write(output)
        results[f"{program} < {input_name}"] = {"status": done.returncode, "verdicts": verdicts(output)}
    return results


def failed_counts(lines):
    counts = {}
    for line in lines:
        m = FAILED_COUNT.search(line)
        if m:
            counts[m.group(1).strip()] = int(m.group(2))
    return counts


def compare(ours, reference):
    problems = []
    for run, ref in reference.items():
        got = ours.get(run)
        if got is None:
            problems.append(f"{run}: not run")
            continue
        if got["status"] != ref["status"]:
            problems.append(f"{run}: ended with status {got['status']} (reference {ref['status']})")
        ref_lines, our_lines = set(ref["verdicts"]), set(got["verdicts"])
        ref_failed = failed_counts(ref["verdicts"])
        for line in ref["verdicts"]:
            if "passed" in line.lower() and line not in our_lines:
                problems.append(f"{run}: missing \"{line}\"")
        for line in got["verdicts"]:
            if "passed" in line.lower() or line in ref_lines or "example number having largest error" in line:
                continue
            m = LARGEST_ERROR.search(line)
            if m and float(m.group(1) + "e" + m.group(2)) < LARGEST_ERROR_LIMIT:
                continue
            m = FAILED_COUNT.search(line)
            if m and int(m.group(2)) <= ref_failed.get(m.group(1).strip(), -1):
                continue
            problems.append(f"{run}: \"{line}\" (not in the reference run)")
    return problems


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("mode", choices=["reference", "check"])
    parser.add_argument("--precision", required=True, choices=["s", "d", "c", "z"])
    parser.add_argument("--out", help="reference: folder for the verdicts")
    parser.add_argument("--blas", help="check: the BLAS library to test")
    parser.add_argument("--reference", help="check: folder of the reference verdicts")
    parser.add_argument("--work", help="check: scratch folder")
    parser.add_argument("--probe", help="check: program that tells whether the forced code path runs here")
    args = parser.parse_args()

    if args.mode == "reference":
        stamp = os.path.join(args.out, f"verdicts_{args.precision}.json")
        newest = max(os.path.getmtime(os.path.join(LAPACK_DIR, p)) for p, _ in programs(args.precision)
                     if os.path.exists(os.path.join(LAPACK_DIR, p)))
        if os.path.exists(stamp) and os.path.getmtime(stamp) > newest:
            print(f"reference verdicts kept: {stamp}")
            return
        # The reference run must not see the settings of the library under test.
        clean = {k: v for k, v in os.environ.items() if not k.startswith("ORV_")}
        os.environ.clear()
        os.environ.update(clean)
        results = run_all(args.precision, REFERENCE_BLAS, os.path.join(args.out, args.precision))
        with open(stamp, "w") as f:
            json.dump(results, f, indent=1)
        print(f"reference verdicts written: {stamp}")
        return

    if args.probe:
        probe = subprocess.run([args.probe], capture_output=True, text=True).stdout
        if SKIP_MARKER in probe:
            print(probe, end="")
            return
    with open(os.path.join(args.reference, f"verdicts_{args.precision}.json")) as f:
        reference = json.load(f)
    ours = run_all(args.precision, args.blas, args.work)
    problems = compare(ours, reference)
    for run, got in ours.items():
        print(f"{run}: status {got['status']}, {len(got['verdicts'])} verdict lines")
    if problems:
        print("\n".join(["", "worse than over the reference BLAS:"] + problems))
        sys.exit(1)
    print(f"all {len(ours)} runs as good as over the reference BLAS")


if __name__ == "__main__":
    main()
