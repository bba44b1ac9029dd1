#!/usr/bin/env python3
"""Whole-program SVG import benchmark: vrkplot beside Inkscape's HPGL export on a large drawing.

Usage: bench/svg-import.py [--runs N] [--warmup N] [--vrkplot PATH] [--svg FILE]
                           [--vrkplot-args ARGS] [--no-inkscape] [--inkscape-timeout S]
                           [--no-ordering]

1. The large drawing: about a million path segments (100,000 paths of 10 lines, Béziers and
   arcs), written once by bench/svg/make-large-svg.py, or the file given with --svg.
2. Plots it with `vrkplot LARGE.svg -l HPGL2 -o OUT.plt` and, when `inkscape` is installed, has
   Inkscape export it (`inkscape LARGE.svg --export-type=hpgl --export-filename=OUT.hpgl`):
   --warmup uncounted runs, then --runs counted runs of each, in alternating rounds. Every run
   is a fresh process; its wall time is measured around it and its peak resident memory is the
   ru_maxrss that GNU time (/usr/bin/time -f %M) reports for it, or, without GNU time, that
   wait4 returns. Inkscape's HPGL export runs in a Python process that Inkscape starts detached
   (its parent becomes init), so the figure is the Inkscape process's alone. That export's time
   grows with about the square of the drawing: some 80 s for 1,000 paths, and the large drawing
   does not finish in any useful time, so a run still going after --inkscape-timeout seconds is
   stopped, its process group with it, and reported. --svg with a smaller drawing
   (make-large-svg.py OUT --paths 1000) gives Inkscape figures in a few minutes.
   Prints a table with the median and the fastest wall time, the peak memory and the output
   bytes of each, and Inkscape's figures over vrkplot's. Without Inkscape, or when its export
   fails, it says so and goes on.
3. Plots examples/svg/generative.svg with `-l HPGL --stats` and prints the pen-down length, the
   pen-up travel and the pen changes before and after ordering, as read from the --stats
   output, and whether ordering cuts the pen-up travel by at least half.

Exit status 0 when every vrkplot run worked and the --stats output could be read, 1 otherwise.

Paths (environment variables override them):
  VRK_BUILD_DIR   the release build                              (default: build/ in the repository)
  VRK_BENCH_WORK  the large drawing and the plots are written    (default: build/bench-work)

Build first: cmake --preset release && cmake --build --preset release. Not part of CI.
Standard library only.
"""
import argparse
import os
import re
import shlex
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import benchmachine  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.environ.get("VRK_BUILD_DIR", os.path.join(REPO, "build"))
WORK = os.environ.get("VRK_BENCH_WORK", os.path.join(BUILD, "bench-work"))

VRKPLOT = os.path.join(BUILD, "bin", "vrkplot")
MAKE_LARGE = os.path.join(REPO, "bench", "svg", "make-large-svg.py")
GENERATIVE = os.path.join(REPO, "examples", "svg", "generative.svg")
LARGE_PATHS, LARGE_SEGMENTS = 100_000, 10
MIB = 1024.0
GNU_TIME = "/usr/bin/time" if os.access("/usr/bin/time", os.X_OK) else None

# --- What vrkplot's --stats prints, kept here so that a change of wording is one edit. ---------
# The arguments that ask for the figures, added after `vrkplot DRAWING -l HPGL -o OUT`.
STATS_ARGS = ["--stats"]
# The expected line for each measure: before ordering, then after.
#   pen-up travel: 12345.6 mm before ordering, 4567.8 mm after
STATS_EXACT = {
    "pen-up": re.compile(r"pen-up travel:\s*([0-9.]+)\s*mm before ordering,\s*([0-9.]+)\s*mm"
                         r" after"),
    "pen-down": re.compile(r"pen-down length:\s*([0-9.]+)\s*mm before ordering,\s*([0-9.]+)\s*"
                           r"mm after"),
    "pen changes": re.compile(r"pen changes:\s*([0-9]+) before ordering,\s*([0-9]+) after"),
}
MEASURES = ["pen-down", "pen-up", "pen changes"]
# -------------------------------------------------------------------------------------------------

def die(message):
    sys.exit("svg-import: " + message)


def large_svg():
    """The large drawing, generated when missing."""
    os.makedirs(WORK, exist_ok=True)
    path = os.path.join(WORK, "large-%dx%d.svg" % (LARGE_PATHS, LARGE_SEGMENTS))
    if not os.path.exists(path):
        print("generating %s" % path, file=sys.stderr)
        subprocess.run([sys.executable, MAKE_LARGE, path, "--paths", str(LARGE_PATHS),
                        "--segments", str(LARGE_SEGMENTS)], check=True, stdout=subprocess.DEVNULL)
    return path


def run_once(cmd, output, timeout=None):
    """Runs cmd as a fresh process: (exit code, wall seconds, peak MiB, stdout, stderr).

    The command runs in a process group of its own. When it is not done after `timeout` seconds,
    the group is stopped (with whatever the command started in it) and the exit code is None.

    The peak comes from GNU time when it is there: a small parent whose wait4 sees the command
    alone. Without it, wait4 on the command itself, which also counts the pages of this Python
    process that the command started from, a floor of some 10 to 15 MiB (said in the output).
    """
    if os.path.exists(output):
        os.remove(output)
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err, \
            tempfile.NamedTemporaryFile(mode="r", suffix=".peak") as peak_file:
        measured = [GNU_TIME, "-f", "%M", "-o", peak_file.name] + cmd if GNU_TIME else cmd
        start = time.monotonic()
        try:
            process = subprocess.Popen(measured, stdin=subprocess.DEVNULL, stdout=out, stderr=err,
                                       process_group=0)
        except OSError as e:
            return 127, 0.0, 0.0, "", str(e)
        timed_out = False
        while True:
            pid, status, usage = os.wait4(process.pid, os.WNOHANG)
            if pid != 0:
                break
            if timeout is not None and time.monotonic() - start > timeout:
                os.killpg(process.pid, signal.SIGKILL)
                _, status, usage = os.wait4(process.pid, 0)
                timed_out = True
                break
            time.sleep(0.01)
        wall = time.monotonic() - start
        process.returncode = None if timed_out else os.waitstatus_to_exitcode(status)
        peak_kib = usage.ru_maxrss
        if GNU_TIME:
            # GNU time puts a line before the figure when the command fails or is killed.
            lines = peak_file.read().split()
            peak_kib = int(lines[-1]) if lines and lines[-1].isdigit() else 0
        out.seek(0)
        err.seek(0)
        return (process.returncode, wall, peak_kib / MIB, out.read().decode(errors="replace"),
                err.read().decode(errors="replace"))


def last_line(text):
    lines = [line for line in text.strip().splitlines() if line.strip()]
    return lines[-1] if lines else "(no message)"


def bench_import(svg, warmup, runs, vrkplot, extra, with_inkscape, inkscape_timeout):
    """Rows of figures for vrkplot and, when it works, Inkscape."""
    base = os.path.join(WORK, "large-svg")
    programs = {"vrkplot": ([vrkplot, svg, "-l", "HPGL2", "-o", base + ".vrk.plt"] + extra,
                            base + ".vrk.plt")}
    skipped = None
    if with_inkscape:
        inkscape = shutil.which("inkscape")
        if inkscape is None:
            skipped = "inkscape is not installed: skipped"
        else:
            programs["inkscape"] = ([inkscape, svg, "--export-type=hpgl",
                                     "--export-filename=" + base + ".inkscape.hpgl"],
                                    base + ".inkscape.hpgl")
    else:
        skipped = "inkscape: skipped (--no-inkscape)"
    figures = {name: {"wall": [], "peak": []} for name in programs}
    for round_index in range(warmup + runs):
        for name in list(programs):
            cmd, output = programs[name]
            code, wall, peak, _, err = run_once(
                cmd, output, inkscape_timeout if name == "inkscape" else None)
            if code is None:
                skipped = ("inkscape's HPGL export did not finish within %d s: stopped, no figures"
                           % inkscape_timeout)
                del programs[name]
                continue
            if code != 0 or not os.path.exists(output):
                why = "exit status %d: %s" % (code, last_line(err))
                if name == "vrkplot":
                    die("%s failed (%s)" % (shlex.join(cmd), why))
                skipped = "inkscape's HPGL export failed, skipped (%s)" % why
                del programs[name]
                continue
            if round_index >= warmup:
                figures[name]["wall"].append(wall)
                figures[name]["peak"].append(peak)
    rows = []
    for name, (cmd, output) in programs.items():
        rows.append({"program": name, "command": shlex.join(cmd),
                     "median": statistics.median(figures[name]["wall"]),
                     "fastest": min(figures[name]["wall"]),
                     "peak": max(figures[name]["peak"]), "bytes": os.path.getsize(output)})
        os.remove(output)
    return rows, skipped


def print_import_table(rows, skipped, runs):
    print("| Program | median s | fastest s | peak RSS MiB | output bytes |")
    print("|---|---:|---:|---:|---:|")
    for row in rows:
        print("| %s | %.3f | %.3f | %.1f | %s |" % (row["program"], row["median"], row["fastest"],
                                                   row["peak"], "{:,}".format(row["bytes"])))
    print()
    for row in rows:
        print("%s: %s" % (row["program"], row["command"]))
    by = {row["program"]: row for row in rows}
    if "inkscape" in by:
        v, i = by["vrkplot"], by["inkscape"]
        print("inkscape / vrkplot: %.1fx the time (median of %d), %.1fx the peak memory" %
              (i["median"] / v["median"], runs, i["peak"] / v["peak"]))
    if skipped:
        print(skipped)


def parse_stats(text):
    """{measure: {"before": value, "after": value}} from vrkplot's --stats output."""
    result = {measure: {} for measure in MEASURES}
    for measure, pattern in STATS_EXACT.items():
        m = pattern.search(text)
        if m:
            result[measure] = {"before": float(m.group(1)), "after": float(m.group(2))}
    return result


def bench_ordering(vrkplot):
    """Plots the generative example with --stats; True when the pen-up travel could be read."""
    output = os.path.join(WORK, "generative.hpgl.plt")
    cmd = [vrkplot, GENERATIVE, "-l", "HPGL", "-o", output] + STATS_ARGS
    code, wall, _, out, err = run_once(cmd, output)
    if os.path.exists(output):
        os.remove(output)
    print(shlex.join(cmd))
    if code != 0:
        print("vrkplot failed (exit status %d): %s" % (code, last_line(err)))
        return False
    text = out + err
    for line in text.strip().splitlines():
        print("  > " + line)
    stats = parse_stats(text)
    print("| Measure | before ordering | after ordering | change |")
    print("|---|---:|---:|---:|")
    for measure in MEASURES:
        before, after = stats[measure].get("before"), stats[measure].get("after")
        form = "%d" if measure == "pen changes" else "%.1f mm"
        change = ("%+.1f%%" % (100.0 * (after - before) / before)
                  if before and after is not None else "-")
        print("| %s | %s | %s | %s |" % (measure, "-" if before is None else form % before,
                                         "-" if after is None else form % after, change))
    up = stats["pen-up"]
    if "before" not in up or "after" not in up:
        print("could not read the pen-up travel before and after ordering from the output above "
              "(the expected form is in STATS_EXACT in %s)" % os.path.relpath(__file__, REPO))
        return False
    ok = up["after"] <= 0.5 * up["before"]
    print("%-4s ordering cuts the pen-up travel by at least half (%.1f mm -> %.1f mm, %.0f%% cut)"
          % ("ok" if ok else "MISS", up["before"], up["after"],
             100.0 * (1.0 - up["after"] / up["before"]) if up["before"] else 0.0))
    return True


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("--runs", type=int, default=3, help="counted runs of each program")
    ap.add_argument("--warmup", type=int, default=1, help="uncounted runs before them")
    ap.add_argument("--vrkplot", default=VRKPLOT, help="the vrkplot program (default: %(default)s)")
    ap.add_argument("--svg", help="the drawing to import (default: the generated large drawing)")
    ap.add_argument("--vrkplot-args", default="",
                    help="more vrkplot arguments for the large drawing, e.g. '--form A0'")
    ap.add_argument("--no-inkscape", action="store_true", help="run vrkplot alone")
    ap.add_argument("--inkscape-timeout", type=float, default=3600.0,
                    help="seconds after which an Inkscape run is stopped (default: %(default)s)")
    ap.add_argument("--no-ordering", action="store_true", help="skip the --stats run")
    a = ap.parse_args()
    if a.runs < 1 or a.warmup < 0:
        die("--runs must be at least 1, --warmup at least 0")
    if not os.access(a.vrkplot, os.X_OK):
        die("%s is missing: build the release preset first, or give --vrkplot" % a.vrkplot)
    os.makedirs(WORK, exist_ok=True)
    svg = a.svg if a.svg else large_svg()
    if not os.path.exists(svg):
        die("%s does not exist" % svg)

    print("machine: %s" % benchmachine.describe())
    print("%s: %s bytes" % (svg, "{:,}".format(os.path.getsize(svg))))
    memory = "GNU time" if GNU_TIME else "wait4, counting this script's pages"
    print("%d uncounted and %d counted runs of each program in alternating rounds; wall time "
          "around each process, peak memory from %s" % (a.warmup, a.runs, memory))
    print()
    rows, skipped = bench_import(svg, a.warmup, a.runs, a.vrkplot, shlex.split(a.vrkplot_args),
                                 not a.no_inkscape, a.inkscape_timeout)
    print_import_table(rows, skipped, a.runs)
    ok = True
    if not a.no_ordering:
        print()
        ok = bench_ordering(a.vrkplot)
    sys.exit(0 if ok else 1)


if __name__ == "__main__":
    main()
