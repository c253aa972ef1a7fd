#!/usr/bin/env bash
# Installs what the tests need, builds Ventarix with the tests, and runs the whole suite on
# SQLite and PostgreSQL.
set -euo pipefail
VENTARIX_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$VENTARIX_ROOT/tools/packages.sh"
ventarix_install "${VENTARIX_BUILD_PACKAGES[@]}" "${VENTARIX_TEST_PACKAGES[@]}"
export VENTARIX_TEST_PG=$(bash "$VENTARIX_ROOT/tools/postgres.sh")
export VENTARIX_REQUIRE_PG=1
export QT_QPA_PLATFORM=offscreen
build=${VENTARIX_BUILD_DIR:-$VENTARIX_ROOT/build}
ventarix_build "$build" -DBUILD_TESTING=ON
cd "$build"
ctest --output-on-failure -j "$(nproc)" "$@"
