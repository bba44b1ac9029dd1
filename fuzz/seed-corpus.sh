#!/usr/bin/env bash
# Rebuilds the seed corpora in fuzz/corpus/TARGET/ from the project's own inputs: the job files of
# tests/jobs and examples, the example settings files and printer list, the PNG files of the
# examples and tests, pen and colour tables like those of the tests, and marshal buffers written
# by the driver (build-fuzz/bin/fuzz_seed_marshal, built by scripts/fuzz.sh), and plots of the
# job files in every language (by $VRKPLOT, default build/bin/vrkplot). Run it by hand after the
# inputs change and commit the result; the fuzzing runs never write into these folders.
set -euo pipefail
cd "$(dirname "$0")/.."
corpus=fuzz/corpus
rm -rf "$corpus"
mkdir -p "$corpus"/{job,settings,pentables,marshal,png,printers,plotdump}

# Jobs: the first byte chooses the language ('0' HPGL2, '1' HPGL, '2' HP1000GL2, '3' HP4000GL2).
# The fuzzed player takes bitmaps from examples/images, so the paths lose their folder.
for job in tests/jobs/*.job examples/*.job; do
  name=$(basename "$job" .job)
  for language in 0 1 2 3; do
    { printf '%s' "$language"; sed 's#"images/#"#' "$job"; } >"$corpus/job/$name-$language"
  done
done

# Settings: each example file for its own language, and the DOM form of the HP-GL/2 language.
declare -A code=([HPGL2]=0 [HPGL]=1 [HP1000GL2]=2 [HP4000GL2]=3)
for settings in examples/settings/*.xml; do
  language=$(basename "$settings" .xml)
  { printf '%s' "${code[$language]}"; cat "$settings"; } >"$corpus/settings/$language"
done
printf '0<Settings Type="HPGL" origin="Center" relativeMovePen="NO"><pens><pen number="3" red="1" green="2" blue="3" width="0.5" enable="YES"/></pens></Settings>' \
  >"$corpus/settings/dom-hpgl"
printf '0<Settings Type="HPGL2" mediaType="Vellum" cutterState="NO" quality="20"/>' \
  >"$corpus/settings/dom-hpgl2"
printf '2<HP1000GL2Properties quality="Fast"><multiRollFeeder mediaSource="Roll2"/></HP1000GL2Properties>' \
  >"$corpus/settings/multi-roll"

# Pen tables: the PenTable file, a NUL, the ColorTable file.
printf '1 10 20 30 0.5\n40 1 2 3 0.7\n3 50 60 70 0.25\n\0255 0 0:3\n0 255 0 5\n0 0 255 : 6\n255 255 0 4\n' \
  >"$corpus/pentables/both"
printf '2 1 2 3 0.4\n5 x 0 0 0.3\n6 9 9 9 0.9\n' >"$corpus/pentables/malformed"
printf '2 1 2 3 0.4\n4 7 8' >"$corpus/pentables/short"
printf '1 0 0 0 0.01\n2 255 0 0 0.02\n3 128 128 128 1.4\n\00 0 0 1\n128 128 128 3\n51 230 102 2\n' \
  >"$corpus/pentables/thin-pens"

# PNG files.
for png in examples/images/*.png tests/jobs/images/*.png; do
  cp "$png" "$corpus/png/$(basename "$png")"
done

# Printer lists.
cp examples/printers.xml "$corpus/printers/example"
printf '<?xml version="1.0" encoding="UTF-8"?>\n<Printers>\n  <Printer name="a" language="HPGL2" destination="-"/>\n</Printers>\n' \
  >"$corpus/printers/one"

# Marshal buffers, as the driver writes them.
build-fuzz/bin/fuzz_seed_marshal "$corpus/marshal"

# Plots: every job file in every language, those of 16 KiB at most; and a few forms the driver does
# not write (7-bit and fractional PE, a pen in PE, DT, CO, combined and cut escapes).
vrkplot=${VRKPLOT:-build/bin/vrkplot}
for job in tests/jobs/*.job examples/*.job; do
  name=$(basename "$job" .job)
  for language in HPGL2 HPGL HP1000GL2 HP4000GL2; do
    plot=$corpus/plotdump/$name-$language
    (cd "$(dirname "$job")" && "$OLDPWD/$vrkplot" "$(basename "$job")" -q -l "$language" -o - \
      2>/dev/null) >"$plot" || rm -f "$plot"
    if [ -f "$plot" ] && [ "$(stat -c %s "$plot")" -gt 16384 ]; then
      rm -f "$plot"
    fi
  done
done
printf 'INPE7=<?_?_@_;PE>\xc8?\xc4:\xc2=\xc0\xc0<\xd0\xd0;' >"$corpus/plotdump/pe-forms"
printf 'DT*,1;LBlabel*DT;LBtext\x03CO"a comment";SM+PA10,10PR-5,5;SMAR1,1,90;' \
  >"$corpus/plotdump/text-forms"
printf '\x1b*r8s8T\x1b*b3m2W\x01\x02\x1b&p3XABC\x1b*b9W\x01' >"$corpus/plotdump/escapes"

echo "seed corpora: $(find "$corpus" -type f | wc -l) files, $(du -sk "$corpus" | cut -f1) KiB"
