#!/usr/bin/env python3
"""Whole-program PDF import benchmark: vrkplot beside pstoedit's HP-GL output on a large drawing.

Usage: bench/pdf-import.py [--runs N] [--pages N] [--paths N] [--pdf FILE] [--no-pstoedit]

1. The drawing: --pages A1 pages (default 20) of --paths paths each (default 5,000: polylines,
   Béziers, filled polygons and turned rectangles, with a title block of text), written once by
   bench/pdf/make-large-pdf.py, or the file given with --pdf.
2. Plots it --runs times (default 5) with each program, in alternating rounds:
     vrkplot FILE.pdf -l HPGL2 -o OUT.plt -q
     pstoedit -psarg -dNEWPDF=false -f hpgl FILE.pdf OUT-%d.hpgl
   pstoedit reads PDF through Ghostscript; Ghostscript 10's own PDF interpreter does not run
   pstoedit's drawing hooks (every page comes out empty), so pstoedit is given the PostScript one
   (-dNEWPDF=false). Its HP-GL output holds one page a file, hence the %d.
   Every run is a fresh process; its wall time is measured around it and its peak resident memory
   is the ru_maxrss that wait4 returns for it, which takes in the processes it started and waited
   for (vrkplot draws each page in a child process; pstoedit runs Ghostscript).
3. Prints a table of the best and the median wall time, the peak memory and the output bytes of
   each, and pstoedit's best time over vrkplot's.

Exit status 0 when every run of vrkplot worked, 1 otherwise.

Paths (environment variables override them):
  VRK_BUILD_DIR   the release build                          (default: build/ in the repository)
  VRK_BENCH_WORK  the drawing and the plots are written here (default: build/bench-work)

Build first: cmake --preset release && cmake --build --preset release. Not part of CI.
Standard library only.
"""
import argparse
import glob
import os
import shutil
import statistics
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import benchmachine  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.environ.get("VRK_BUILD_DIR", os.path.join(REPO, "build"))
WORK = os.environ.get("VRK_BENCH_WORK", os.path.join(BUILD, "bench-work"))
VRKPLOT = os.path.join(BUILD, "bin", "vrkplot")
MAKE_LARGE = os.path.join(REPO, "bench", "pdf", "make-large-pdf.py")


def measure(command):
    """(exit status, wall seconds, peak resident MiB) of one run of `command`."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.monotonic() - start
    process.stderr.close()
    return os.waitstatus_to_exitcode(status), elapsed, usage.ru_maxrss / 1024.0


def output_bytes(pattern):
    return sum(os.path.getsize(path) for path in glob.glob(pattern))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--pages", type=int, default=20)
    parser.add_argument("--paths", type=int, default=5000)
    parser.add_argument("--pdf", help="a PDF of your own instead of the generated drawing")
    parser.add_argument("--no-pstoedit", action="store_true")
    options = parser.parse_args()
    if not os.access(VRKPLOT, os.X_OK):
        sys.exit("pdf-import: %s is missing; build first" % VRKPLOT)
    os.makedirs(WORK, exist_ok=True)
    pdf = options.pdf
    if pdf is None:
        pdf = os.path.join(WORK, "large-%dx%d.pdf" % (options.pages, options.paths))
        if not os.path.exists(pdf):
            subprocess.run([sys.executable, MAKE_LARGE, pdf, "--pages", str(options.pages),
                            "--paths", str(options.paths)], check=True)
    pstoedit = None if options.no_pstoedit else shutil.which("pstoedit")

    plot = os.path.join(WORK, "pdf-vrkplot.plt")
    hpgl = os.path.join(WORK, "pdf-pstoedit-%d.hpgl")
    programs = [("vrkplot", [VRKPLOT, pdf, "-l", "HPGL2", "-o", plot, "-q"], plot)]
    if pstoedit:
        programs.append(("pstoedit", [pstoedit, "-psarg", "-dNEWPDF=false", "-f", "hpgl", pdf,
                                      hpgl], hpgl.replace("%d", "*")))
    results = {name: [] for name, _, _ in programs}
    failed = False
    for run in range(options.runs):
        for name, command, _ in programs:
            status, seconds, mib = measure(command)
            if status != 0:
                print("%s: run %d exited with status %d" % (name, run + 1, status))
                failed = failed or name == "vrkplot"
            results[name].append((seconds, mib))

    print("Machine: %s" % benchmachine.describe())
    print("Drawing: %s, %.1f MB" % (os.path.basename(pdf), os.path.getsize(pdf) / 1e6))
    print("%-10s %10s %10s %10s %14s" % ("program", "best s", "median s", "peak MiB", "output bytes"))
    for name, _, output in programs:
        times = [t for t, _ in results[name]]
        print("%-10s %10.2f %10.2f %10.1f %14d" % (name, min(times), statistics.median(times),
                                                  max(m for _, m in results[name]),
                                                  output_bytes(output)))
    if pstoedit:
        ratio = min(t for t, _ in results["pstoedit"]) / min(t for t, _ in results["vrkplot"])
        print("pstoedit / vrkplot, best times: %.1fx" % ratio)
    elif not options.no_pstoedit:
        print("pstoedit is not installed (Debian package pstoedit): vrkplot alone")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
