#!/usr/bin/env bash
# Every test suite again under AddressSanitizer and UndefinedBehaviorSanitizer
# (clang), the first fault ending the run, then each fuzz target for 30 s from
# its seeds. The same build tree holds the suites and the fuzz targets.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
export QT_QPA_PLATFORM=offscreen
cmake --preset sanitize -DGASCHART_WERROR=ON
cmake --build --preset sanitize
ctest --preset sanitize
bash scripts/fuzz.sh 30
