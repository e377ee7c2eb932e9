#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need.
# Idempotent: does nothing when everything is there already.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config clang-format
  qt6-base-dev libgl-dev
  libsqlite3-dev sqlite3 libshp-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  python3 xvfb xauth fonts-dejavu-core
  dovecot-pop3d
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Instalando: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
