# Sourced by the install checks: the scratch folder, the build tree's install manifest kept as it
# was, and the way a check fails.
#
# `cmake --install` and cpack write install_manifest.txt into the build folder; the checks put
# back the one that was there (or remove theirs), so that they leave nothing behind outside the
# scratch folder.

. "$1"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/vrk-install.XXXXXX")
scratch=$(realpath "$scratch")
manifest="$build/install_manifest.txt"
if [ -e "$manifest" ]; then
  cp -p "$manifest" "$scratch/install_manifest.kept"
fi

finish() {
  status=$?
  if [ -e "$scratch/install_manifest.kept" ]; then
    cp -p "$scratch/install_manifest.kept" "$manifest"
  else
    rm -f "$manifest"
  fi
  rm -rf "$scratch"
  exit $status
}
trap finish EXIT
trap 'exit 130' INT TERM

fail() {
  echo "FAIL: $*" >&2
  exit 1
}

# The programs run with nothing of the caller's configuration: no driver or resource folder
# named, no library path, the printer list and temporary files in the scratch folder.
mkdir -p "$scratch/home"
run() {
  env -u VRK_DRIVER_PATH -u VRK_RESOURCES_DIR -u LD_LIBRARY_PATH -u VRK_PRINTERS \
      -u XDG_CONFIG_HOME -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \
      HOME="$scratch/home" TMPDIR="$scratch" "$@"
}

# The RUNPATH of an ELF file, as the dynamic section gives it.
runpath() {
  readelf -d "$1" | sed -n 's/.*(RUNPATH).*\[\(.*\)\]$/\1/p'
}
