#!/usr/bin/env bash
# Installs what Ventarix needs, builds it, makes a demo company in an embedded SQLite file
# and opens the desktop program on it. VENTARIX_DEMO names the company file
# (default ~/Ventarix/demo.mdb); an existing one is opened as it is.
set -euo pipefail
VENTARIX_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$VENTARIX_ROOT/tools/packages.sh"
ventarix_install "${VENTARIX_BUILD_PACKAGES[@]}"
build=${VENTARIX_BUILD_DIR:-$VENTARIX_ROOT/build}
ventarix_build "$build" -DBUILD_TESTING=OFF
company=${VENTARIX_DEMO:-$HOME/Ventarix/demo.mdb}
mkdir -p "$(dirname "$company")"
[ -f "$company" ] || "$build/src/ventarix" demo "$company"
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  echo "No hay pantalla gráfica (DISPLAY) en esta sesión. La empresa de demostración está en" >&2
  echo "  $company" >&2
  echo "Ábrala desde un escritorio con: $build/src/ventarix --empresa $company" >&2
  exit 1
fi
exec "$build/src/ventarix" --empresa "$company"
