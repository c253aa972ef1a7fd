#!/usr/bin/env bash
# Installs what Ventarix needs, builds it, makes a demo company in an embedded SQLite file
# and opens the desktop program on it. VENTARIX_DEMO names the company file
# (default ~/Ventarix/demo.mdb); an existing one is opened as it is. The stand-in PAC
# (ventarix-pac) serves the demo's stamping on port 8642 while the program runs, its records
# beside the company file.
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
folder=$(dirname "$company")
"$build/src/ventarix-pac" --puerto 8642 --datos "$folder/pac-local.sqlite" \
  >"$folder/pac-local.url" 2>"$folder/pac-local.log" &
pac=$!
trap 'kill "$pac" 2>/dev/null || true' EXIT
for _ in $(seq 50); do
  [ -s "$folder/pac-local.url" ] || ! kill -0 "$pac" 2>/dev/null && break
  sleep 0.1
done
[ -s "$folder/pac-local.url" ] ||
  echo "El PAC local no arrancó (vea $folder/pac-local.log); el timbrado no tendrá respuesta." >&2
"$build/src/ventarix" --empresa "$company"
