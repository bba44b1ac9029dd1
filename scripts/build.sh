#!/usr/bin/env bash
# Installs what is missing and builds the release configuration into build/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release
