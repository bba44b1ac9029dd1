#!/usr/bin/env bash
# Rewrites the expected plots under tests/expected/ from the current build: every job file under
# tests/jobs/ plotted with every language vrkplot lists, each plot kept as its listing
# (`vrkplot dump`), tests/expected/LANGUAGE/JOB.dump: one instruction a line, and a last line with
# the plot's size and SHA-256, which pins every byte. A plot that is byte for byte one written
# before it (in the order of the languages, then of the jobs) is kept once: its line in
# tests/expected/identical.txt names the listing it shares. Run it after a deliberate change of a
# generator's output (or of the listing's format), then read every change before committing it:
#
#   tests/regenerate-expected.sh [BUILD_FOLDER]     (default: build)
#   git diff --stat tests/expected && git diff tests/expected
#
# A new language gets its folder here too; a plot nobody has looked at is not a test.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
cmake --build "$build" --target vrkplot_tests
VRK_REGENERATE_EXPECTED=1 "$build/bin/vrkplot_tests" \
  --gtest_filter='VrkplotExpected.PlotsOfEveryJobWithEveryLanguage'
git status --short -- tests/expected
