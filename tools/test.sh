#!/bin/sh
# Builds and runs every test. Installs the Debian packages it needs when they are missing.
set -eu
cd "$(dirname "$0")/.."
PKGS="build-essential cmake ninja-build ccache pkg-config qt6-base-dev libarchive-dev libgcab-dev libxtst-dev libx11-dev libgtest-dev libgmock-dev xvfb xauth openbox fonts-noto-cjk lhasa jlha-utils cabextract gcab zip unzip libarchive-tools clang qt6-translations-l10n wine64 gcc-mingw-w64-x86-64 dosbox nasm trayer"
missing=""
for p in $PKGS; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
  SUDO=""; [ "$(id -u)" = 0 ] || SUDO=sudo
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y $missing
fi
JOBS=$(nproc)
cmake -S . -B build -G Ninja -DTORVANE_WERROR=ON
cmake --build build -j "$JOBS"
(cd build && ctest --output-on-failure -j "$JOBS")
if ls tests/fuzz/*_fuzz.cpp >/dev/null 2>&1; then
  cmake -S . -B build-fuzz -G Ninja -DTORVANE_FUZZ=ON -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
  cmake --build build-fuzz -j "$JOBS"
  (cd build-fuzz && ctest --output-on-failure -j "$JOBS")
fi
