#!/usr/bin/env python3
"""Whole-program benchmark: vrkplot beside the GNU libplot replay on the standard workloads.

Usage: bench/run-benchmarks.py [--runs N] [--workloads LIST] [--big] [--no-micro]

Generates the standard workloads (lines, fills, circles) with the shared make_workloads.py, and a
raster job (one 10,000 x 7,000 RGB PNG image, written once by vrk_make_raster_png), then plays
each with vrkplot into HP-GL/2 and, where the peer takes the job, with libplot_replay, in rounds
that alternate the two programs. Every run is timed by the shared measure.py. Prints per
workload the median wall time of each program, their ratio, the output bytes of each and their
ratio, and the peak memory of each (measured by vrk_peak_memory, a small parent process), then the
in-process micro-benchmarks behind the targets, and whether the targets hold.

--big adds the lines workload with 20,000,000 segments, for the memory check (its job file is
some 470 MB; generating it takes a minute or two the first time).

Paths (environment variables override them):
  VRK_BENCH_SHARED  the shared benchmark tools      (default: ../shared/bench from the repository)
  VRK_BUILD_DIR     the release build               (default: build/ in the repository)
  VRK_BENCH_WORK    job files and plots are written  (default: build/bench-work)

Build first: scripts/setup.sh, cmake --preset release && cmake --build --preset release.
The peer is built with the shared build.sh when it is missing; without it only vrkplot runs.
Standard library only.
"""
import argparse
import json
import os
import re
import statistics
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import benchmachine  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SHARED = os.environ.get("VRK_BENCH_SHARED", os.path.join(REPO, "..", "shared", "bench"))
BUILD = os.environ.get("VRK_BUILD_DIR", os.path.join(REPO, "build"))
WORK = os.environ.get("VRK_BENCH_WORK", os.path.join(BUILD, "bench-work"))

VRKPLOT = os.path.join(BUILD, "bin", "vrkplot")
MAKE_PNG = os.path.join(BUILD, "bin", "vrk_make_raster_png")
PEAK = os.path.join(BUILD, "bin", "vrk_peak_memory")
MICRO = os.path.join(BUILD, "bin", "vrk_micro_bench")
PEER = os.path.join(SHARED, "build", "libplot_replay")

RASTER_W, RASTER_H = 10000, 7000
# 0.08 mm pixels: the image is 800 x 560 mm on the A0 form and goes out as one raster.
RASTER_JOB = ('Begin width=841 height=1189 orientation=1\n'
              'DrawBitmap 10 10 "raster-%dx%d.png" 0.08 0.08\nEnd\n' % (RASTER_W, RASTER_H))

# Workload name -> (make_workloads.py kind, size); the raster job is made here.
STANDARD = {
    "lines": ("lines", 2_000_000),
    "fills": ("fills", 100_000),
    "circles": ("circles", 200_000),
    "lines-20M": ("lines", 20_000_000),
}
MIB = 1024.0 * 1024.0


def die(message):
    sys.exit("run-benchmarks: " + message)


def job_for(name):
    """The job file of a workload, generated when missing."""
    os.makedirs(WORK, exist_ok=True)
    if name == "raster":
        png = os.path.join(WORK, "raster-%dx%d.png" % (RASTER_W, RASTER_H))
        if not os.path.exists(png):
            print("generating %s" % png, file=sys.stderr)
            subprocess.run([MAKE_PNG, png + ".part", str(RASTER_W), str(RASTER_H)], check=True)
            os.replace(png + ".part", png)
        job = os.path.join(WORK, "raster.job")
        with open(job, "w") as f:
            f.write(RASTER_JOB)
        return job
    kind, size = STANDARD[name]
    job = os.path.join(WORK, "%s-%d.job" % (kind, size))
    if not os.path.exists(job):
        print("generating %s" % job, file=sys.stderr)
        subprocess.run([sys.executable, os.path.join(SHARED, "make_workloads.py"), kind,
                        str(size), job + ".part"], check=True)
        os.replace(job + ".part", job)
    return job


def ensure_peer():
    """The peer's path, built with the shared build.sh when missing; None when unavailable."""
    if os.access(PEER, os.X_OK):
        return PEER
    script = os.path.join(SHARED, "build.sh")
    if os.path.exists(script):
        print("building the peer with %s" % script, file=sys.stderr)
        if subprocess.run(["sh", script], stdout=subprocess.DEVNULL).returncode == 0:
            return PEER if os.access(PEER, os.X_OK) else None
    print("the libplot peer is not available: vrkplot runs alone", file=sys.stderr)
    return None


def timed(cmd, out):
    """One run through measure.py (no warm-up): wall seconds."""
    r = subprocess.run([sys.executable, os.path.join(SHARED, "measure.py"), "-n", "1",
                        "--warmup", "0", "--out", out, "--"] + cmd,
                       capture_output=True, text=True)
    if r.returncode != 0:
        die("%s failed: %s" % (" ".join(cmd), (r.stdout + r.stderr).strip()))
    m = re.search(r"wall median ([0-9.]+) s", r.stdout)
    if not m:
        die("cannot read measure.py's output: " + r.stdout)
    return float(m.group(1))


def peak_mib(cmd):
    r = subprocess.run([PEAK] + cmd, capture_output=True, text=True)
    if r.returncode != 0:
        die("%s failed under vrk_peak_memory" % " ".join(cmd))
    return int(r.stdout.strip()) / 1024.0


def bench_workload(name, runs, peer):
    job = job_for(name)
    base = os.path.join(WORK, name)
    programs = {"vrkplot": [VRKPLOT, job, "-l", "HPGL2", "-o", base + ".vrk.plt"]}
    # The peer replays only the verbs of the standard workloads: no images.
    if peer is not None and name != "raster":
        programs["peer"] = [peer, job, base + ".peer.plt"]
    outs = {"vrkplot": base + ".vrk.plt", "peer": base + ".peer.plt"}
    times = {p: [] for p in programs}
    # One warm-up round, then the rounds that count, the programs alternating in each.
    for round_index in range(runs + 1):
        for program, cmd in programs.items():
            # Each run writes a new file, for both programs alike. Replacing the previous run's
            # plot would time the file system freeing it (on a disk mounted with discard, 5 to
            # 10 ms for a 10 MB file), which is no part of either program's work.
            if os.path.exists(outs[program]):
                os.remove(outs[program])
            t = timed(cmd, outs[program])
            if round_index > 0:
                times[program].append(t)
    row = {"workload": name, "job_bytes": os.path.getsize(job)}
    for program, cmd in programs.items():
        row[program] = {
            "wall": statistics.median(times[program]),
            "bytes": os.path.getsize(outs[program]),
            "peak": peak_mib(cmd),
        }
    for program in programs:
        os.remove(outs[program])
    return row


def micro():
    """The in-process figures of the targets, from the micro-benchmarks."""
    if not os.access(MICRO, os.X_OK):
        return {}
    r = subprocess.run([MICRO, "--benchmark_filter=BM_LineToInEncodedRun|BM_RasterRgb",
                        "--benchmark_repetitions=5", "--benchmark_report_aggregates_only=true",
                        "--benchmark_format=json"], capture_output=True, text=True)
    if r.returncode != 0:
        return {}
    found = {}
    for b in json.loads(r.stdout)["benchmarks"]:
        if b.get("aggregate_name") != "median":
            continue
        if b["run_name"] == "BM_LineToInEncodedRun":
            found["lineto_ns"] = b["cpu_time"] if b["time_unit"] == "ns" else None
        elif b["run_name"] == "BM_RasterRgb":
            found["raster_mb_s"] = b["bytes_per_second"] / 1e6
    return found


def fmt_ratio(a, b):
    return "%.2f" % (a / b) if a and b else "-"


def print_table(rows):
    print("| Workload | vrkplot s | peer s | peer/vrkplot time | vrkplot bytes | peer bytes "
          "| vrkplot/peer bytes | vrkplot peak MiB | peer peak MiB |")
    print("|---|---:|---:|---:|---:|---:|---:|---:|---:|")
    for row in rows:
        v, p = row["vrkplot"], row.get("peer")
        print("| %s | %.3f | %s | %s | %s | %s | %s | %.1f | %s |" % (
            row["workload"], v["wall"], "%.3f" % p["wall"] if p else "-",
            fmt_ratio(p["wall"], v["wall"]) if p else "-", "{:,}".format(v["bytes"]),
            "{:,}".format(p["bytes"]) if p else "-",
            fmt_ratio(v["bytes"], p["bytes"]) if p else "-", v["peak"],
            "%.1f" % p["peak"] if p else "-"))


def print_targets(rows, found):
    by = {row["workload"]: row for row in rows}
    checks = []

    def speed(name, least):
        row = by.get(name)
        if row and row.get("peer"):
            ratio = row["peer"]["wall"] / row["vrkplot"]["wall"]
            checks.append(("%s: at least %gx faster than the peer" % (name, least),
                           ratio >= least, "%.2fx" % ratio))

    speed("lines", 3)
    row = by.get("lines")
    if row and row.get("peer"):
        share = row["vrkplot"]["bytes"] / row["peer"]["bytes"]
        checks.append(("lines: at most half the peer's bytes", share <= 0.5, "%.2f" % share))
    speed("fills", 2)
    speed("circles", 2)
    for row in rows:
        checks.append(("%s: peak memory under 16 MiB" % row["workload"],
                       row["vrkplot"]["peak"] < 16.0, "%.1f MiB" % row["vrkplot"]["peak"]))
    if "raster" in by:
        pixels = RASTER_W * RASTER_H * 3 / 1e6 / by["raster"]["vrkplot"]["wall"]
        print("raster, whole program: %.0f MB/s of RGB pixels (PNG decoding included)" % pixels)
    if found.get("raster_mb_s"):
        checks.append(("raster in process: at least 500 MB/s of RGB pixels",
                       found["raster_mb_s"] >= 500, "%.0f MB/s" % found["raster_mb_s"]))
    if found.get("lineto_ns"):
        checks.append(("LineTo inside a PE run: under 10 ns", found["lineto_ns"] < 10,
                       "%.1f ns" % found["lineto_ns"]))
    for text, ok, value in checks:
        print("%-4s %s (%s)" % ("ok" if ok else "MISS", text, value))


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("--runs", type=int, default=5, help="counted rounds per workload")
    ap.add_argument("--workloads", default="lines,fills,circles,raster",
                    help="comma-separated: lines, fills, circles, raster, lines-20M")
    ap.add_argument("--big", action="store_true", help="add lines-20M (memory check)")
    ap.add_argument("--no-micro", action="store_true", help="skip the in-process figures")
    a = ap.parse_args()
    names = [n for n in a.workloads.split(",") if n]
    if a.big and "lines-20M" not in names:
        names.append("lines-20M")
    for n in names:
        if n not in STANDARD and n != "raster":
            die("unknown workload %s" % n)
    for tool in (VRKPLOT, MAKE_PNG, PEAK):
        if not os.access(tool, os.X_OK):
            die("%s is missing: build the release preset first" % tool)
    if not os.path.exists(os.path.join(SHARED, "measure.py")):
        die("the shared benchmark tools are not in %s (set VRK_BENCH_SHARED)" % SHARED)

    peer = ensure_peer()
    print("machine: %s" % benchmachine.describe())
    print("median of %d alternating rounds after one warm-up round, wall time by measure.py; "
          "peak memory by vrk_peak_memory" % a.runs)
    rows = []
    for name in names:
        # The 20-million-segment job is for memory: one round is enough.
        rows.append(bench_workload(name, 1 if name == "lines-20M" else a.runs, peer))
    print()
    print_table(rows)
    print()
    found = {} if a.no_micro else micro()
    print_targets(rows, found)


if __name__ == "__main__":
    main()
