#!/usr/bin/env bash
# Installs what the workstation needs to build, test and run on Debian 12.
# Idempotent and quiet when everything is already there.
set -euo pipefail
PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-multimedia-dev
  libqt6sql6-sqlite libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core gstreamer1.0-plugins-base xvfb xauth imagemagick socat sqlite3
  poppler-utils clang-format
  # The sanitize build and the fuzz targets: clang with its sanitizer and
  # libFuzzer run-times (-fsanitize=fuzzer links libclang_rt.fuzzer from
  # libclang-rt-14-dev, which also carries FuzzedDataProvider.h).
  clang libclang-rt-14-dev)
missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  echo "Installing: ${missing[*]}"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
