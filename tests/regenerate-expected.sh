#!/usr/bin/env bash
# Rewrites the expected plots under tests/expected/LANGUAGE/ from the current build: every job file
# under tests/jobs/ plotted with every language vrkplot lists. Run it after a deliberate change
# of a generator's output, then read every change before committing it:
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
  --gtest_filter='Vrkplot.ExpectedPlotsOfEveryJobWithEveryLanguage'
git status --short -- tests/expected
