#!/usr/bin/env bash
# Build the workstation and start it on its demonstration job, fed by the
# instrument simulator over TCP on 127.0.0.1.
#
#   bash scripts/run.sh [--local-wits]
#
# --local-wits also starts the rig recorder simulator on one end of a socat
# pseudo-terminal pair and has the workstation take its WITS from the other
# end, as from a serial port of its own.
set -euo pipefail
cd "$(dirname "$0")/.."
LOCAL_WITS=0
for arg in "$@"; do
  case "$arg" in
    --local-wits) LOCAL_WITS=1 ;;
    *) echo "usage: bash scripts/run.sh [--local-wits]" >&2; exit 2 ;;
  esac
done
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

# First run: settings that take the instrument over TCP from the simulator,
# and a chart with the gas, its components, the rate and the depth marks.
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
    "[USE ETHERNET]" \
    "[GAS UNITS ON] " "[C VALUES ON] " "[C1 ON] " "[C2 ON] " "[C3 ON] " "[IC4 ON] " \
    "[NC4 ON] " "[PEAK ON] " "[GEO ON] " "[ROP ON] " "[SHOW PUMPS ON] " \
    "[SHOW OFF BOTTOM ON] " "[GAMMA ON]" "[H2S ON]  " >"$CONFIG"
fi

# The simulator goes on drilling from the job's last depth, and relays the
# rig's WITS (bit depth, pump strokes, gamma) as the instrument does on a rig.
DEPTH=4500
if [ -f "$JOB" ] && command -v sqlite3 >/dev/null; then
  LAST=$(sqlite3 "$JOB" "SELECT CAST(ABS(DEPTH_RAW) AS INTEGER) FROM OMBRI_DB_010 ORDER BY PACKET_NUM DESC LIMIT 1" 2>/dev/null || true)
  [[ "$LAST" =~ ^[0-9]+$ ]] && [ "$LAST" -gt 0 ] && DEPTH=$LAST
fi

SIM_PID=""
EDR_PID=""
SOCAT_PID=""
GC_ARGS=()
# With the recorder on its own line the instrument relays no WITS: one
# stream, one story.
RELAY=(--relay-wits)
if [ "$LOCAL_WITS" = 1 ]; then
  RELAY=()
  PTY_DIR=$(mktemp -d)
  socat "pty,raw,echo=0,link=$PTY_DIR/ws" "pty,raw,echo=0,link=$PTY_DIR/edr" &
  SOCAT_PID=$!
  for _ in $(seq 50); do [ -e "$PTY_DIR/ws" ] && [ -e "$PTY_DIR/edr" ] && break; sleep 0.1; done
  "$BIN/edr-sim" --serial "$PTY_DIR/edr" --rate 1 --start-depth "$DEPTH" \
    --record "$BIN/edr-record.txt" --log "$BIN/edr-sim.log" &
  EDR_PID=$!
  GC_ARGS=(--local-wits "$PTY_DIR/ws")
  # Alarms that show on screen: high gas and a lost WITS feed, unless the
  # operator has set the gas alarm already.
  if ! grep -q "ALARM ON GAS UNITS" "$CONFIG"; then
    printf '%s\r\n' "[ALARM ON GAS UNITS ON]" "[ALARM ON HIGH GU] 150" "[ALARM LOST WITS ON]" \
      "[REPEAT SECONDS] 10" >>"$CONFIG"
  fi
fi
if [ -x "$BIN/kettlewick-sim" ]; then
  "$BIN/kettlewick-sim" --tcp "$PORT" --interval 6 --start-depth "$DEPTH" "${RELAY[@]}" &
  SIM_PID=$!
fi
cleanup() {
  for pid in $SIM_PID $EDR_PID $SOCAT_PID; do kill "$pid" 2>/dev/null || true; done
}
trap cleanup EXIT
# A stop for this script is passed on to the workstation, which closes its
# job file as an exit does; the simulator goes once the workstation is gone.
"$BIN/gaschart" "${GC_ARGS[@]}" &
GC_PID=$!
trap 'kill -TERM "$GC_PID" 2>/dev/null || true' TERM INT HUP
while kill -0 "$GC_PID" 2>/dev/null; do wait "$GC_PID" || true; done
