#!/usr/bin/env bash
# Builds the fuzz targets (preset fuzz: clang, libFuzzer, ASan and UBSan) and runs each one for
# SECONDS (default 60) with its seed corpus and dictionary. Exits non-zero when any target finds a
# crash, a leak, a timeout, an undefined-behaviour report or an out-of-memory, and prints the
# path of each reproducer (kept in build-fuzz/findings/TARGET/). docs/robustness.md has the
# targets and the limits.
#
#   scripts/fuzz.sh [SECONDS]
#
# The seed corpora in fuzz/corpus/ are never written to: each run fuzzes a scratch copy. The inputs
# of earlier findings in fuzz/regressions/TARGET/ are run too, and fail the run as any finding
# does.
#
# A finding listed in fuzz/known-findings.txt (one whose fix is under way) does not fail the run:
# it is reported as known, and the target goes on fuzzing past it (libFuzzer's fork mode).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then
  echo "usage: scripts/fuzz.sh [SECONDS]" >&2
  exit 2
fi

scripts/setup.sh
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

targets=(job settings pentables marshal png printers plotdump svg pdf)
bin=build-fuzz/bin
findings=build-fuzz/findings
known=fuzz/known-findings.txt

# Limits of every run and every reproduction:
# - rss_limit_mb: a run's whole resident memory. ASan keeps up to 256 MiB of freed blocks in its
#   quarantine, and a target's own memory plus libFuzzer's corpus comes to some 100 MiB more; a
#   job run reaches about 460 MiB within a minute. 1024 leaves room for that and still stops a
#   target whose memory grows without bound long before it troubles the machine.
# - malloc_limit_mb: no single allocation above 64 MiB. The inputs are a few KiB, so a larger one
#   is memory taken on an input's word (a count, a size in a header) rather than for its content.
# - timeout: 10 seconds for one input; no seed takes a tenth of a second, sanitizers included.
limits=(-rss_limit_mb=1024 -malloc_limit_mb=64 -timeout=10)
# The pdf target's pages are drawn by Poppler and cairo in a child process, where libFuzzer's
# allocation hook still runs: a page of a huge image makes cairo take a 256 MiB block for its
# scaled copy, on the input's word. The reader bounds that child itself (its resident memory may
# grow by 128 MiB in the target, then it is killed), so the limit of one allocation is raised to
# what cairo's largest image takes (32767 pixels a side, 4 GiB) for that target alone.
pdf_limits=(-rss_limit_mb=1024 -malloc_limit_mb=8192 -timeout=10)
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:symbolize=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

work=$(mktemp -d "${TMPDIR:-/tmp}/vrk-fuzz-run.XXXXXX")
trap 'rm -rf "$work"' EXIT
# The targets make their scratch folders in here, so that none is left behind by a child that
# crashed.
export TMPDIR=$work

# The pattern of fuzz/known-findings.txt that a finding's signature (FAULT | ERROR | FRAMES, the
# three below) matches, or nothing. Lines are "TARGET REGEX" (an extended regular expression);
# '#' starts a comment.
known_finding() {
  local target=$1 signature=$2 name pattern
  [ -f "$known" ] || return 0
  while read -r name pattern; do
    [[ -z $name || $name == \#* ]] && continue
    if [ "$name" = "$target" ] && grep -Eq -- "$pattern" <<<"$signature"; then
      echo "$pattern"
      return 0
    fi
  done <"$known"
}

# What a report says, in one line that is the same for every input that trips the same fault:
# the check of the target that failed, or the sanitizer's summary, and the first frame in the
# project's own code.
fault_of() {
  local report=$1 what frame
  what=$(grep -m1 -oE 'fuzz check failed: .*' "$report" ||
    grep -m1 -E '^SUMMARY: ' "$report" || echo "no report")
  frame=$(grep -m1 -oE ' in [^ ].* /[^ ]*/(host|generator|designjet|hpgl|properties|marshal|tools)/[^ ]+' \
    "$report" | sed -E 's#^ in ##; s# /[^ ]*/((host|generator|designjet|hpgl|properties|marshal|tools)/)# \1#' || true)
  echo "${what}${frame:+ (at ${frame})}"
}

# The functions of the project's own frames in a report's first stack, innermost first, joined by
# " < ": where a timeout was, wherever in it the alarm went off.
frames_of() {
  awk '/^ *#[0-9]+ / { seen = 1 } seen && !/^ *#[0-9]+ / { exit } { print }' "$1" |
    grep -E ' /[^ ]*/(host|generator|designjet|hpgl|properties|marshal|tools)/' |
    sed -E -e 's/^ *#[0-9]+ 0x[0-9a-f]+ in //' -e 's/\(anonymous namespace\):://g' \
      -e 's/\(.*//' -e 's/.*:://' | paste -sd '<' - | sed 's/</ < /g'
}

failed=0
for target in "${targets[@]}"; do
  run_limits=("${limits[@]}")
  if [ "$target" = pdf ]; then
    run_limits=("${pdf_limits[@]}")
  fi
  corpus=$work/corpus-$target
  mkdir -p "$corpus"
  cp fuzz/corpus/"$target"/* "$corpus"/
  rm -rf "${findings:?}/$target"
  mkdir -p "$findings/$target"
  log=$findings/$target.log
  echo "fuzz: $target for ${seconds}s"
  start=$(date +%s)
  # Fork mode runs the inputs in a child process and starts another after a crash, so that a
  # known finding does not end the run; every input that crashed is saved under the artifact
  # prefix. The exit status is that of the last child, so the findings are what counts.
  status=0
  "$bin/fuzz_$target" "$corpus" -dict="fuzz/$target.dict" -max_total_time="$seconds" \
    "${run_limits[@]}" -fork=1 -ignore_crashes=1 -ignore_ooms=1 -ignore_timeouts=1 \
    -artifact_prefix="$findings/$target/" -print_final_stats=1 -print_funcs=0 >"$log" 2>&1 ||
    status=$?
  stats=$(grep -E '^#[0-9]+:' "$log" | tail -1 || true)
  echo "fuzz: $target: $(($(date +%s) - start))s, ${stats:-no statistics}"

  # The inputs of earlier findings (fuzz/regressions/TARGET/) are copied beside the new ones:
  # each is a finding again until its fix is in.
  for input in fuzz/regressions/"$target"/*; do
    [ -f "$input" ] || continue
    copy=$findings/$target/regression-$(basename "$input")
    if ! "$bin/fuzz_$target" "${run_limits[@]}" "$input" >"$copy.report" 2>&1; then
      cp "$input" "$copy"
    else
      rm -f "$copy.report"
    fi
  done

  # Each reproducer once more, alone, for its full report (FILE.report), grouped by fault.
  declare -A count=() first=() detail=() frames=()
  reproducers=0
  for reproducer in "$findings/$target"/*; do
    [[ -f $reproducer && $reproducer != *.report ]] || continue
    reproducers=$((reproducers + 1))
    report=$reproducer.report
    if [ ! -f "$report" ]; then
      "$bin/fuzz_$target" "${run_limits[@]}" "$reproducer" >"$report" 2>&1 || true
    fi
    fault=$(fault_of "$report")
    count[$fault]=$((${count[$fault]:-0} + 1))
    if [ -z "${first[$fault]:-}" ]; then
      first[$fault]=$reproducer
      detail[$fault]=$(grep -m1 -E 'runtime error|ERROR: ' "$report" || true)
      frames[$fault]=$(frames_of "$report")
    fi
  done
  if [ $reproducers -eq 0 ] && [ $status -ne 0 ]; then
    echo "fuzz: $target: libFuzzer exited with status $status and saved no input; see $log" >&2
    failed=1
  fi
  for fault in "${!count[@]}"; do
    reproducer=${first[$fault]}
    if [ -n "$(known_finding "$target" "$fault | ${detail[$fault]} | ${frames[$fault]}")" ]; then
      echo "fuzz: $target: known finding, ${count[$fault]} input(s): $fault"
      echo "      e.g. $reproducer"
    else
      echo "fuzz: $target: FINDING, ${count[$fault]} input(s): $fault" >&2
      echo "      ${detail[$fault]}" >&2
      echo "      reproducer: $reproducer (report: $reproducer.report)" >&2
      failed=1
    fi
  done
  unset count first detail frames
done

if [ $failed -ne 0 ]; then
  echo "fuzz: findings above; reproduce one with $bin/fuzz_TARGET FILE" >&2
  exit 1
fi
echo "fuzz: no findings in ${#targets[@]} targets"
