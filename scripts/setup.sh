#!/usr/bin/env bash
# Installs every Debian package the project needs to build, test and run its examples.
# Idempotent: when everything is there it only checks and returns at once. Run as root
# (or with sudo available).
set -euo pipefail

packages=(
  # Toolchain
  cmake ninja-build g++ pkg-config clang-format
  # Packaging (cpack -G DEB): dpkg-shlibdeps for the package's dependencies, and file, which
  # cpack asks which packaged files are ELF objects
  dpkg-dev file
  # Tests and benchmarks
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  # localedef and the locale sources, for the tests that run under a decimal-comma locale
  locales
  # Command line of vrkplot
  libcli11-dev
  # Image files
  libpng-dev
  # Polygon geometry
  libpolyclipping-dev
  # Text as geometry: glyph outlines and the default font
  libfreetype-dev fonts-dejavu-core
  # Settings files: XML
  libpugixml-dev
  # SVG drawings: SVG++ (header-only, over Boost) reading through libxml2
  libsvgpp-dev libxml2-dev libboost-dev
  # PDF drawings: Poppler's GLib interface, rendering through cairo
  libpoppler-glib-dev libcairo2-dev
  # The spooler's filter and PPD files: libcups (the PPD interface), the PPD compiler, and for
  # the tests cupstestppd and cupsfilter
  libcups2-dev cups-ppdc cups-client cups
  # Property dialogs (host/dialogs): Qt 6 Widgets, and the platform plugins (offscreen among them)
  # that its tests run on without a display
  qt6-base-dev qt6-qpa-plugins
  # Benchmarks: the GNU libplot peer the whole-program benchmark compares against, and perf;
  # pstoedit (with Ghostscript), the peer of the PDF import benchmark (bench/pdf-import.py)
  libplot-dev linux-perf pstoedit
  # The test through a private spooler (tests/cups): cupsd and cups-exec (the socket backend comes
  # with cups, lpadmin and lp with cups-client, both above)
  cups-daemon
  # Fuzzing (scripts/fuzz.sh): clang 14 with libFuzzer and the sanitizer runtimes it links
  clang libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q '^install ok installed$'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}" >&2
sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
if ! $sudo apt-get install -y --no-install-recommends "${missing[@]}"; then
  $sudo apt-get update
  $sudo apt-get install -y --no-install-recommends "${missing[@]}"
fi
