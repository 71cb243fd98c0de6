#!/usr/bin/env bash
# Build the workstation and start it on its demonstration job, fed by the
# instrument simulator over TCP on 127.0.0.1.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake --preset release
cmake --build --preset release
BIN=build/release
PORT=${GASCHART_SIM_PORT:-10023}
SIM_PID=""
if [ -x "$BIN/kettlewick-sim" ]; then
  "$BIN/kettlewick-sim" --tcp "$PORT" --interval 6 &
  SIM_PID=$!
fi
cleanup() { [ -n "$SIM_PID" ] && kill "$SIM_PID" 2>/dev/null || true; }
trap cleanup EXIT
"$BIN/gaschart"
