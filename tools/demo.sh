#!/usr/bin/env bash
# Installs what Ventarix needs, builds it, makes a demo company in an embedded SQLite file
# and opens the desktop program on it.
set -euo pipefail
VENTARIX_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$VENTARIX_ROOT/tools/packages.sh"
ventarix_install "${VENTARIX_BUILD_PACKAGES[@]}"
build=${VENTARIX_BUILD_DIR:-$VENTARIX_ROOT/build}
ventarix_build "$build" -DBUILD_TESTING=OFF
company=${VENTARIX_DEMO:-$HOME/Ventarix/demo.mdb}
mkdir -p "$(dirname "$company")"
[ -f "$company" ] || "$build/src/ventarix" demo "$company"
exec "$build/src/ventarix" --empresa "$company"
