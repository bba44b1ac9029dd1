#!/bin/sh
# The build tree installed with `cmake --install` into a scratch prefix, which is then moved (the
# installed tree depends on no absolute path): its layout and RPATHs; the host program of
# examples/embedding built against it with CMake and with pkg-config, its plots byte for byte;
# the installed vrkplot plotting job files and drawings exactly as the build tree's does.
#     sh check-install.sh install-layout.sh
set -eu
. "$(dirname "$0")/scratch.sh"
here=$(dirname "$(realpath "$0")")
vrkplot_built="$build/bin/vrkplot"

cmake --install "$build" --prefix "$scratch/installed" > "$scratch/install.log" ||
  fail "cmake --install: $(cat "$scratch/install.log")"
mv "$scratch/installed" "$scratch/prefix"
prefix="$scratch/prefix"

# The layout.
for file in "$libdir/libVRKPrtDriverHPGL2.so" "$libdir/libVRKHostCore.so" \
    "$libdir/libVRKPrtDriverHPGL2Dialogs.so" "$libdir/libVRKPlotEdit.so" "$bindir/vrkplot" \
    "$libdir/cmake/VRKPrtDriverHPGL2/VRKPrtDriverHPGL2Config.cmake" \
    "$libdir/cmake/VRKPrtDriverHPGL2/VRKPrtDriverHPGL2ConfigVersion.cmake" \
    "$libdir/pkgconfig/vrkprtdriverhpgl2.pc" \
    "$includedir/vrkprtdriverhpgl2/host/core/VRKString.h" \
    "$includedir/vrkprtdriverhpgl2/host/dialogs/VRKDlgDialog.h"; do
  [ -f "$prefix/$file" ] || fail "not installed: $file"
done
diff -r "$source/dialogs/resources" "$prefix/$resourcedir" > "$scratch/resources.diff" ||
  fail "the installed resources differ from dialogs/resources: $(cat "$scratch/resources.diff")"
if grep -rl '#include <Q' "$prefix/$includedir" > "$scratch/qt.txt"; then
  fail "installed headers include Qt: $(cat "$scratch/qt.txt")"
fi
[ "$(runpath "$prefix/$bindir/vrkplot")" = "$bin_rpath" ] ||
  fail "vrkplot's RUNPATH is '$(runpath "$prefix/$bindir/vrkplot")', not '$bin_rpath'"
for library in "$prefix/$libdir"/lib*.so; do
  [ "$(runpath "$library")" = '$ORIGIN' ] ||
    fail "$library: RUNPATH '$(runpath "$library")', not '\$ORIGIN'"
done
if [ "$have_filter" = 1 ]; then
  [ "$(runpath "$prefix/$filterdir/vrkplot-cups")" = "$filter_rpath" ] ||
    fail "vrkplot-cups's RUNPATH is '$(runpath "$prefix/$filterdir/vrkplot-cups")', not '$filter_rpath'"
fi

# The host program built with CMake against the package.
run cmake -S "$source/examples/embedding" -B "$scratch/cmake-build" -G Ninja \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$cxxflags" \
    -DCMAKE_EXE_LINKER_FLAGS="$cxxflags" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF > "$scratch/configure.log" 2>&1 ||
  fail "configuring examples/embedding: $(cat "$scratch/configure.log")"
run cmake --build "$scratch/cmake-build" > "$scratch/build.log" 2>&1 ||
  fail "building examples/embedding: $(cat "$scratch/build.log")"

# The same program built with pkg-config.
pc() {
  PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig" pkg-config "$@" vrkprtdriverhpgl2
}
[ "$(pc --modversion)" = "$(sed -n 's/^project(VRKPrtDriverHPGL2 VERSION \([0-9.]*\) .*/\1/p' \
    "$source/CMakeLists.txt")" ] || fail "pkg-config --modversion: $(pc --modversion)"
mkdir -p "$scratch/pkg-config-build"
# shellcheck disable=SC2046,SC2086
run "$cxx" -std=c++20 -Wall -Wextra -Wpedantic -Werror $cxxflags \
    -o "$scratch/pkg-config-build/embedding" "$source/examples/embedding/main.cpp" \
    $(pc --cflags --libs) -Wl,-rpath,"$(pc --variable=libdir)" > "$scratch/build.log" 2>&1 ||
  fail "building examples/embedding with pkg-config: $(cat "$scratch/build.log")"

# Both draw the plots of tests/install/square.job, byte for byte: the listing (with the plot's
# size and SHA-256) of tests/install/square.LANGUAGE.dump, and what the build tree's vrkplot makes
# of the job.
for language in HPGL2 HP4000GL2; do
  (cd "$scratch" && run "$vrkplot_built" "$here/square.job" -l "$language" \
      --job-name square -o "square.$language.plt" > /dev/null 2>&1) ||
    fail "the build tree's vrkplot on square.job"
  for way in cmake-build pkg-config-build; do
    plot="$scratch/$way.$language.plt"
    run "$scratch/$way/embedding" "$language" "$plot" || fail "$way/embedding $language"
    cmp "$plot" "$scratch/square.$language.plt" ||
      fail "$way/embedding $language: not the plot of square.job"
    "$vrkplot_built" dump "$plot" > "$scratch/listing.txt"
    diff "$here/square.$language.dump" "$scratch/listing.txt" ||
      fail "$way/embedding $language: the listing differs from square.$language.dump"
  done
done

# The example loads the driver from the folder of the host libraries: the program's own folder
# has no ../lib.
realdir=$(realpath "$prefix/$libdir")
LD_DEBUG=files run "$scratch/pkg-config-build/embedding" HPGL2 "$scratch/loaded.plt" \
    2> "$scratch/loading.txt" > /dev/null
grep -q "file=$realdir/libVRKPrtDriverHPGL2.so .*dynamically loaded by" "$scratch/loading.txt" ||
  fail "the driver was not loaded from $realdir: $(grep PrtDriver "$scratch/loading.txt")"

# The installed vrkplot: its driver, its languages, plots byte for byte those of the build tree.
vrkplot="$prefix/$bindir/vrkplot"
run "$vrkplot" --list-languages > "$scratch/languages.txt" || fail "vrkplot --list-languages"
"$vrkplot_built" --list-languages | diff - "$scratch/languages.txt" ||
  fail "the installed vrkplot lists other languages"
[ "$(wc -l < "$scratch/languages.txt")" -eq 4 ] || fail "not four languages"
for drawing in "$source/examples/a4-drawing.job" "$source/examples/colours-curves-text.job" \
    "$source/examples/svg/floor-plan.svg"; do
  for language in HPGL2 HPGL HP1000GL2 HP4000GL2; do
    name=$(basename "$drawing").$language
    (cd "$scratch" && run "$vrkplot" "$drawing" -l "$language" --job-name "$name" \
        -o "installed.plt" > /dev/null 2>&1) || fail "installed vrkplot: $name"
    (cd "$scratch" && run "$vrkplot_built" "$drawing" -l "$language" --job-name "$name" \
        -o "built.plt" > /dev/null 2>&1) || fail "built vrkplot: $name"
    [ -s "$scratch/installed.plt" ] || fail "installed vrkplot: $name: an empty plot"
    cmp "$scratch/installed.plt" "$scratch/built.plt" || fail "installed vrkplot: $name differs"
  done
done
(cd "$scratch" && run "$vrkplot" "$source/tests/jobs/lines.job" -l HPGL2 -o lines.plt \
    > /dev/null 2>&1) || fail "installed vrkplot: lines.job"
run "$vrkplot" dump "$scratch/lines.plt" | diff "$source/tests/expected/HPGL2/lines.dump" - ||
  fail "installed vrkplot: lines.job is not tests/expected/HPGL2/lines.dump"

# Its settings editor loads (the dialogs, the widget toolkit) and stops for want of a display.
status=0
run "$vrkplot" settings -l HPGL2 --edit > /dev/null 2> "$scratch/edit.txt" || status=$?
[ "$status" -eq 2 ] || fail "vrkplot settings --edit: status $status"
grep -q "^vrkplot: cannot show the settings dialog: no display" "$scratch/edit.txt" ||
  fail "vrkplot settings --edit: $(cat "$scratch/edit.txt")"

echo "installed tree, examples/embedding (CMake, pkg-config) and vrkplot: all checked"
