#!/usr/bin/env bash
# The main job: plots every job file under examples/ with every registered printer language
# into out/, one line per file written.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh >/dev/null
mkdir -p out
languages=$(build/bin/vrkplot --list-languages | awk '{print $1}')
status=0
for job in examples/*.job; do
  name=$(basename "$job" .job)
  for language in $languages; do
    target="out/$name.$language.plt"
    if build/bin/vrkplot "$job" -l "$language" -o "$target"; then
      echo "$target ($(stat -c %s "$target") bytes)"
    else
      status=2
    fi
  done
done
exit $status
