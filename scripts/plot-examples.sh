#!/usr/bin/env bash
# The main job: plots every job file under examples/ and every SVG drawing under examples/svg/
# with every registered printer language into out/, one line per file written; then the first drawing once more with each language's
# example settings file (examples/settings/LANGUAGE.xml) into out/a4-drawing.LANGUAGE.settings.plt.
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
    # vrkplot says what it wrote, one line a plot.
    build/bin/vrkplot "$job" -l "$language" -o "$target" || status=2
  done
done
# The drawings: each on a sheet of its own size; for the pen plotter (HPGL) with its strokes
# ordered for less pen travel, as vrkplot does by default. What a drawing holds that a plotter
# cannot draw is said on standard error.
for drawing in examples/svg/*.svg; do
  [ -e "$drawing" ] || continue
  name=$(basename "$drawing" .svg)
  for language in $languages; do
    build/bin/vrkplot "$drawing" -l "$language" -o "out/$name.$language.plt" || status=2
  done
done
for settings in examples/settings/*.xml; do
  language=$(basename "$settings" .xml)
  target="out/a4-drawing.$language.settings.plt"
  build/bin/vrkplot examples/a4-drawing.job -l "$language" --settings "$settings" -o "$target" ||
    status=2
done
exit $status
