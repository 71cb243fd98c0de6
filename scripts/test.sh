#!/usr/bin/env bash
# Install, configure, build, run every test suite, and build and try the package.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
export QT_QPA_PLATFORM=offscreen
# A file clang-format would change fails the run before anything is built.
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror
cmake --preset release -DGASCHART_WERROR=ON
cmake --build --preset release
ctest --preset release
bash scripts/package.sh
# Every suite again under AddressSanitizer and UndefinedBehaviorSanitizer,
# built with clang; the first fault ends the run (the sanitize presets set
# halt_on_error). The same build tree holds the fuzz targets, each run for
# 30 s from its seeds.
cmake --preset sanitize -DGASCHART_WERROR=ON
cmake --build --preset sanitize
ctest --preset sanitize
bash scripts/fuzz.sh 30
