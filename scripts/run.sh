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
JOB="$BIN/DB_CUE/V11_DEMO.DB"

# The demonstration job: the build writes it when its maker is built; make
# sure it is there even when the build had nothing to do.
if [ ! -f "$JOB" ] && [ -x "$BIN/make-demo-job" ]; then
  "$BIN/make-demo-job" "$BIN"
fi

# First run: settings that take the instrument over TCP from the simulator.
# The workstation keeps its settings in this file from then on, so an
# existing one is left as the operator last had it.
CONFIG="$BIN/OM_10_config.txt"
if [ ! -f "$CONFIG" ]; then
  printf '%s\r\n' \
    "The following is the configuration file for the gas chart program" \
    "This allows the program to save and remember settings from the program's setup and" \
    "control box settings." \
    "" \
    "-------------------------------------------" \
    "Diagnostic Information" \
    "-------------------------------------------" \
    "-------------------------------------------" \
    "Program Function Information" \
    "-------------------------------------------" \
    "[TCP IP] 127.0.0.1" \
    "[TCP PORT] $PORT" \
    "[USE TCP]" \
    "[USE ETHERNET]" >"$CONFIG"
fi

# The simulator goes on drilling from the job's last depth, and relays the
# rig's WITS (bit depth, pump strokes, gamma) as the instrument does on a rig.
DEPTH=4500
if [ -f "$JOB" ] && command -v sqlite3 >/dev/null; then
  LAST=$(sqlite3 "$JOB" "SELECT CAST(ABS(DEPTH_RAW) AS INTEGER) FROM OMBRI_DB_010 ORDER BY PACKET_NUM DESC LIMIT 1" 2>/dev/null || true)
  [[ "$LAST" =~ ^[0-9]+$ ]] && [ "$LAST" -gt 0 ] && DEPTH=$LAST
fi

SIM_PID=""
if [ -x "$BIN/kettlewick-sim" ]; then
  "$BIN/kettlewick-sim" --tcp "$PORT" --interval 6 --start-depth "$DEPTH" --relay-wits &
  SIM_PID=$!
fi
cleanup() { [ -n "$SIM_PID" ] && kill "$SIM_PID" 2>/dev/null || true; }
trap cleanup EXIT
# A stop for this script is passed on to the workstation, which closes its
# job file as an exit does; the simulator goes once the workstation is gone.
"$BIN/gaschart" &
GC_PID=$!
trap 'kill -TERM "$GC_PID" 2>/dev/null || true' TERM INT HUP
while kill -0 "$GC_PID" 2>/dev/null; do wait "$GC_PID" || true; done
