#!/usr/bin/env bash
# Debian packages Ventarix builds and runs with; sourced by demo.sh and test.sh.
VENTARIX_BUILD_PACKAGES=(
  cmake ninja-build ccache g++ pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libqt6sql6-psql libgl-dev fonts-dejavu-core
  qt6-translations-l10n
  libxml2-dev libxslt1-dev libssl-dev libqrencode-dev libcurl4-openssl-dev libcpp-httplib-dev
  zlib1g-dev
  libsqlite3-dev libpq-dev
)
VENTARIX_TEST_PACKAGES=(
  postgresql xsltproc libxml2-utils openssl python3-aiosmtpd poppler-utils zbar-tools
)

ventarix_install() {
  local missing=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
  fi
}

ventarix_build() {
  local dir=$1; shift
  export CCACHE_DIR=${CCACHE_DIR:-$HOME/.cache/ventarix-ccache}
  cmake -S "$VENTARIX_ROOT" -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
  cmake --build "$dir" -j "$(nproc)"
}
