#!/bin/sh
# The Debian package made by cpack from the build tree, into a scratch folder (never installed on
# this machine): its name, version and dependencies, the files it holds under /usr, and the
# RPATHs of its programs.
#     sh check-package.sh install-layout.sh
set -eu
. "$(dirname "$0")/scratch.sh"

(cd "$build" && cpack -G DEB -B "$scratch/package" --config "$build/CPackConfig.cmake") \
    > "$scratch/cpack.log" 2>&1 || fail "cpack: $(cat "$scratch/cpack.log")"
version=$(sed -n 's/^project(VRKPrtDriverHPGL2 VERSION \([0-9.]*\) .*/\1/p' "$source/CMakeLists.txt")
arch=$(dpkg --print-architecture)
deb="$scratch/package/vrkprtdriverhpgl2_${version}_${arch}.deb"
[ -f "$deb" ] || fail "no $deb: $(ls "$scratch/package")"

[ "$(dpkg-deb -f "$deb" Package)" = vrkprtdriverhpgl2 ] || fail "Package: $(dpkg-deb -f "$deb" Package)"
[ "$(dpkg-deb -f "$deb" Version)" = "$version" ] || fail "Version: $(dpkg-deb -f "$deb" Version)"
[ "$(dpkg-deb -f "$deb" Architecture)" = "$arch" ] || fail "Architecture"
[ -n "$(dpkg-deb -f "$deb" Maintainer)" ] || fail "no Maintainer"
# dpkg-shlibdeps found the libraries the package's own libraries link: Qt's widgets for the
# dialogs, libpng, pugixml; the font comes from the package's own list.
depends=$(dpkg-deb -f "$deb" Depends)
for package in fonts-dejavu-core libqt6widgets6 libpng16-16 libpugixml1v5 libc6; do
  echo "$depends" | tr ',' '\n' | grep -q "^ *$package\( \|$\)" ||
    fail "Depends lacks $package: $depends"
done

# The files, under /usr.
dpkg-deb -c "$deb" | awk '{ print $6 }' > "$scratch/contents.txt"
expect() {
  grep -qx "\./usr/$1" "$scratch/contents.txt" || fail "the package lacks /usr/$1"
}
expect "$libdir/libVRKPrtDriverHPGL2.so"
expect "$libdir/libVRKHostCore.so"
expect "$libdir/libVRKPlotEdit.so"
expect "$bindir/vrkplot"
expect "$libdir/cmake/VRKPrtDriverHPGL2/VRKPrtDriverHPGL2Config.cmake"
expect "$libdir/cmake/VRKPrtDriverHPGL2/VRKPrtDriverHPGL2ConfigVersion.cmake"
expect "$libdir/pkgconfig/vrkprtdriverhpgl2.pc"
expect "$includedir/vrkprtdriverhpgl2/host/core/VRKPrintGenerator.h"
for resource in "$source"/dialogs/resources/*; do
  expect "$resourcedir/$(basename "$resource")"
done
if [ "$have_filter" = 1 ]; then
  expect "$filterdir/vrkplot-cups"
  grep -q "^\./usr/$ppddir/.*\.ppd" "$scratch/contents.txt" || fail "the package has no PPD"
fi
if grep -v '^\./usr/' "$scratch/contents.txt" | grep -vqx '\./'; then
  fail "files outside /usr: $(grep -v '^\./usr/' "$scratch/contents.txt")"
fi

# Its programs find its libraries from where the package puts them.
dpkg-deb -x "$deb" "$scratch/unpacked"
[ "$(runpath "$scratch/unpacked/usr/$bindir/vrkplot")" = "$bin_rpath" ] ||
  fail "vrkplot's RUNPATH: $(runpath "$scratch/unpacked/usr/$bindir/vrkplot")"
if [ "$have_filter" = 1 ]; then
  [ "$(runpath "$scratch/unpacked/usr/$filterdir/vrkplot-cups")" = "$filter_rpath" ] ||
    fail "vrkplot-cups's RUNPATH: $(runpath "$scratch/unpacked/usr/$filterdir/vrkplot-cups")"
fi
grep -q '^prefix=${pcfiledir}/' "$scratch/unpacked/usr/$libdir/pkgconfig/vrkprtdriverhpgl2.pc" ||
  fail "the pkg-config file names a fixed prefix"

echo "$(basename "$deb"): checked"
