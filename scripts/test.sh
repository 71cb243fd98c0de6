#!/usr/bin/env bash
# Install, configure, build and run every test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
export QT_QPA_PLATFORM=offscreen
cmake --preset release
cmake --build --preset release
ctest --preset release
