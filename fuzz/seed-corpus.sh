#!/usr/bin/env bash
# Rebuilds the seed corpora in fuzz/corpus/TARGET/ from the project's own inputs: the job files of
# tests/jobs and examples, the example settings files and printer list, the PNG files of the
# examples and tests, pen and colour tables like those of the tests, and marshal buffers written
# by the driver (build-fuzz/bin/fuzz_seed_marshal, built by scripts/fuzz.sh), plots of the job
# files in every language (by $VRKPLOT, default build/bin/vrkplot), and small PDF documents. Run
# it by hand after the inputs change and commit the result; the fuzzing runs never write into
# these folders.
set -euo pipefail
cd "$(dirname "$0")/.."
corpus=fuzz/corpus
rm -rf "$corpus"
mkdir -p "$corpus"/{job,settings,pentables,marshal,png,printers,plotdump,svg,pdf}

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

# SVG drawings: small documents that reach each part of the importer (shapes, paths with every
# command, styles and sheets, use and symbols, text, images from examples/images, and the hostile
# kinds: entities, cycles, huge numbers).
svg_open="<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='100mm' height='80mm' viewBox='0 0 100 80'>"
printf '%s\n' "$svg_open" \
  "<rect x='10' y='10' width='20' height='10' rx='2' fill='#f80' stroke='navy' stroke-width='0.5'/>" \
  "<circle cx='50' cy='40' r='10' fill='none' stroke='rgb(10%,20%,30%)' stroke-dasharray='2 1'/>" \
  "<ellipse cx='70' cy='20' rx='8' ry='4' transform='rotate(30 70 20)'/>" \
  "<line x1='0' y1='0' x2='100' y2='80' stroke='red' stroke-linecap='round'/>" \
  "<polyline points='0,0 10,5 20,0' fill='none' stroke='black'/><polygon points='5 5 15 5 10 15'/>" \
  "</svg>" >"$corpus/svg/shapes.svg"
printf '%s\n' "$svg_open" \
  "<path d='M10 10 L20 10 l0 10 H10 h5 V30 v-5 Z m5 5 C10 0 20 10 20 20 S30 40 40 40 c0 10 10 10 10 0 s10 -10 10 0 Q30 30 60 0 T120 0 q15 15 30 0 t30 0 A20 10 30 1 0 50 50 a5 5 0 0 1 10 0 z' fill-rule='evenodd' stroke='green'/>" \
  "</svg>" >"$corpus/svg/paths.svg"
printf '%s\n' "$svg_open" \
  "<style>rect { fill: green } .a, #b { stroke: blue } g rect { fill: red } @media print { x {} }</style>" \
  "<defs><linearGradient id='g'><stop offset='0' stop-color='red'/><stop offset='1' style='stop-color: blue; stop-opacity: 0.5'/></linearGradient>" \
  "<symbol id='s' viewBox='0 0 1 1'><rect width='1' height='1' class='a'/></symbol><g id='r'><rect id='b' width='5' height='5' fill='url(#g)'/></g></defs>" \
  "<g fill='blue' opacity='0.5' transform='translate(5 5) scale(2) skewX(10)'><use href='#r' x='10'/><use xlink:href='#s' x='30' y='30' width='10' height='10'/></g>" \
  "<svg x='60' y='10' width='30' height='30' viewBox='0 0 10 10' preserveAspectRatio='xMaxYMin slice'><rect width='10' height='10' style='fill: currentColor; color: teal'/></svg>" \
  "<switch><rect width='1' height='1'/></switch><g filter='url(#f)' clip-path='url(#c)'><rect width='2' height='2'/></g>" \
  "</svg>" >"$corpus/svg/styles.svg"
printf '%s\n' "$svg_open" \
  "<text x='10' y='20' font-size='5' font-family='Courier New' text-anchor='middle' font-weight='bold'>Plot <tspan x='10' dy='6' fill='red'>two</tspan> lines</text>" \
  "<text transform='rotate(-90 50 50)' xml:space='preserve' font-family='serif'> kept  space </text>" \
  "<image x='10' y='40' width='20' height='20' href='target.png'/>" \
  "<image x='40' y='40' width='4' height='4' href='data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAAAAAA6fptVAAAACklEQVR4nGNgAAAAAgABSK+kcQAAAABJRU5ErkJggg=='/>" \
  "</svg>" >"$corpus/svg/text-images.svg"
printf '%s\n' "<?xml version='1.0'?>" "<!DOCTYPE svg [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;'>]>" \
  "<svg xmlns='http://www.w3.org/2000/svg'><text>&b;</text></svg>" >"$corpus/svg/entities.svg"
printf '%s\n' "$svg_open" \
  "<g id='x'><use href='#y'/></g><g id='y'><use href='#x'/></g><use href='#missing'/>" \
  "<rect width='1e30' height='1'/><path d='M0 0 L1e300 1e300' stroke='black'/><circle r='1' transform='scale(1e308) scale(10)'/>" \
  "</svg>" >"$corpus/svg/hostile.svg"

# PDF documents: small files written object by object (fuzz/make-pdf-seeds.py), each reaching a
# part of the reader (paths, colours, text, pages, compressed streams, clipping, forms, an image,
# a damaged cross-reference table).
python3 fuzz/make-pdf-seeds.py "$corpus/pdf"

echo "seed corpora: $(find "$corpus" -type f | wc -l) files, $(du -sk "$corpus" | cut -f1) KiB"
