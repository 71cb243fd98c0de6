#!/usr/bin/env bash
# Builds the Debian package of the workstation and tries it without touching
# this machine: unpacked into a temporary root with dpkg -x, the installed
# program answers --version with the project's version, the package holds
# what a user needs, and every library its programs load comes from a
# package it depends on.
#
#   bash scripts/package.sh            build, unpack, check
#   bash scripts/package.sh --system   also apt install it here and remove it
#                                      again (a throwaway machine only)
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/release
[ -f "$build/CMakeCache.txt" ] || cmake --preset release >/dev/null
cmake --build --preset release >/dev/null

rm -f "$build"/gaschart_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/gaschart_*.deb)
echo "package: $deb ($(du -k "$deb" | cut -f1) kB)"

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb -x "$deb" "$root"

fail() { echo "package.sh: $*" >&2; exit 1; }
for f in usr/bin/gaschart usr/bin/kettlewick-sim usr/bin/make-demo-job \
         usr/share/gaschart/WITSconfig_V10.txt usr/share/gaschart/OMBRI_010_BLANK.db \
         usr/share/gaschart/V11_DEMO.DB usr/share/gaschart/DB_CUE/V11_DEMO.DB \
         usr/share/applications/gaschart.desktop \
         usr/share/icons/hicolor/scalable/apps/gaschart.svg \
         usr/share/icons/hicolor/48x48/apps/gaschart.png; do
  [ -e "$root/$f" ] || fail "$f is not in the package"
done

# No screen is needed to ask for the version.
want=$(sed -n 's/^project(gaschart VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
got=$(env -u DISPLAY -u QT_QPA_PLATFORM "$root/usr/bin/gaschart" --version)
[ "$got" = "gaschart $want" ] || fail "--version said '$got', not 'gaschart $want'"
echo "installed program: $got"

# Each library a program names must belong to a package the .deb depends on.
depends=$(dpkg-deb -f "$deb" Depends | tr ',' '\n' | sed 's/(.*//; s/ //g')
for exe in "$root"/usr/bin/*; do
  for lib in $(readelf -d "$exe" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p'); do
    path=$(readlink -f "$(ldd "$exe" | awk -v l="$lib" '$1 == l { print $3 }')")
    pkg=$(dpkg -S "$path" 2>/dev/null || dpkg -S "${path#/usr}" 2>/dev/null) ||
      fail "$(basename "$exe"): no package holds $lib ($path)"
    pkg=${pkg%%:*}
    grep -qx "$pkg" <<<"$depends" || fail "$(basename "$exe") needs $lib from $pkg, not in Depends"
  done
done
echo "depends: $(dpkg-deb -f "$deb" Depends)"

if [ "${1:-}" = "--system" ]; then
  start=$(date +%s.%N)
  apt-get install -y "./$deb" >/dev/null
  echo "apt install: $(echo "$(date +%s.%N) - $start" | bc) s"
  [ "$(env -u DISPLAY gaschart --version)" = "gaschart $want" ] || fail "installed gaschart is wrong"
  apt-get remove -y gaschart >/dev/null
  [ ! -e /usr/bin/gaschart ] && [ ! -e /usr/share/gaschart ] || fail "remove left files behind"
  echo "installed and removed cleanly"
fi
