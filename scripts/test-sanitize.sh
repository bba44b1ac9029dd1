#!/usr/bin/env bash
# Installs what is missing, builds the sanitize configuration (build-sanitize/: Debug with
# AddressSanitizer and UndefinedBehaviorSanitizer, every report fatal) and runs the whole test
# suite under it, with LeakSanitizer on: a test that leaks, overflows, reads freed memory or
# runs into undefined behaviour fails.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --preset sanitize -j 2
