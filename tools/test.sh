#!/usr/bin/env bash
# Installs what the tests need, builds Ventarix with the tests, and runs the whole suite on
# SQLite and PostgreSQL. Arguments go to ctest (e.g. -R core_ to run some tests only);
# VENTARIX_BUILD_DIR chooses the build folder and VENTARIX_CMAKE_ARGS adds CMake options.
set -euo pipefail
VENTARIX_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$VENTARIX_ROOT/tools/packages.sh"
ventarix_install "${VENTARIX_BUILD_PACKAGES[@]}" "${VENTARIX_TEST_PACKAGES[@]}"
VENTARIX_TEST_PG=$(bash "$VENTARIX_ROOT/tools/postgres.sh")
export VENTARIX_TEST_PG
export VENTARIX_REQUIRE_PG=1
export QT_QPA_PLATFORM=offscreen
build=${VENTARIX_BUILD_DIR:-$VENTARIX_ROOT/build}
# shellcheck disable=SC2086  # the extra options are words on purpose
ventarix_build "$build" -DBUILD_TESTING=ON ${VENTARIX_CMAKE_ARGS:-}
cd "$build"
ctest --output-on-failure -j "$(nproc)" "$@"
