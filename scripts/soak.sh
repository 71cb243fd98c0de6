#!/usr/bin/env bash
# A week at the wellsite in an afternoon: the real workstation, offscreen, in
# a program folder of its own, fed by the instrument simulator at a faster
# clock. Every simulated hour (600 packets) it writes the resident memory,
# the open descriptors, the job file's size and the longest hold of the
# event loop; at the end it gives a verdict.
#
#   bash scripts/soak.sh [--days D] [--rate N] [--out DIR]
#
# --days: simulated days of packets, one every 6 s (default 7 = 100,800
#         packets; fractions allowed).
# --rate: how many times faster than the instrument the simulator sends
#         (default 20). The workstation reads its link every 200 ms and
#         stores every whole packet a read brought, so the ceiling is the
#         time a packet takes to parse and store, not the tick: measure a
#         short run before a long one.
# --out:  where the figures and logs go (default a new temporary folder).
#
# Verdict: memory within 10% of its level at the end of the first simulated
# day (of the first quarter of a run shorter than two days), descriptors
# flat, no hold of the loop over 250 ms, every packet the simulator sent
# stored once. Exit status 0 only when all four hold.
set -euo pipefail
cd "$(dirname "$0")/.."
DAYS=7
RATE=20
OUT=
while [ $# -gt 0 ]; do
  case "$1" in
    --days) DAYS=$2; shift 2 ;;
    --rate) RATE=$2; shift 2 ;;
    --out) OUT=$2; shift 2 ;;
    *) echo "usage: bash scripts/soak.sh [--days D] [--rate N] [--out DIR]" >&2; exit 2 ;;
  esac
done
PACKETS=$(awk -v d="$DAYS" 'BEGIN { printf "%d", d * 14400 }')
HOUR=600
FIRST=700000

BIN=build/release
if [ ! -x "$BIN/gaschart" ] || [ ! -x "$BIN/kettlewick-sim" ]; then
  cmake --preset release >/dev/null
  cmake --build --preset release --target gaschart kettlewick-sim make-demo-job
fi
[ -f "$BIN/DB_CUE/V11_DEMO.DB" ] || "$BIN/make-demo-job" "$BIN"

OUT=${OUT:-$(mktemp -d /tmp/gaschart-soak.XXXXXX)}
mkdir -p "$OUT/program/DB_CUE"
DIR=$OUT/program
JOB=$DIR/DB_CUE/V11_DEMO.DB
cp "$BIN/gaschart" "$DIR/"
cp "$BIN/DB_CUE/V11_DEMO.DB" "$JOB"
PORT=$(python3 -c 'import socket; s=socket.socket(); s.bind(("127.0.0.1",0)); print(s.getsockname()[1])')
printf '%s\r\n' "[TCP IP] 127.0.0.1" "[TCP PORT] $PORT" "[USE TCP]" "[USE ETHERNET]" \
  "[GAS UNITS ON] " "[C VALUES ON] " "[C1 ON] " "[C2 ON] " "[C3 ON] " "[PEAK ON] " \
  "[GEO ON] " "[ROP ON] " >"$DIR/OM_10_config.txt"

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
SIM_LOG=$OUT/sim.log
STALLS=$OUT/stalls.log
FIGURES=$OUT/soak.tsv
"$BIN/kettlewick-sim" --tcp "$PORT" --rate "$RATE" --packets "$PACKETS" \
  --first-packet "$FIRST" --start-depth 7040 --log "$SIM_LOG" >"$OUT/sim.out" 2>&1 &
SIM=$!
"$DIR/gaschart" --stall-log "$STALLS" >"$OUT/gaschart.out" 2>&1 &
GC=$!
stop() {
  kill "$GC" 2>/dev/null || true
  kill "$SIM" 2>/dev/null || true
  wait "$GC" "$SIM" 2>/dev/null || true
}
trap stop EXIT

# 0 until the simulator has opened its log.
sent() {
  local n
  n=$(grep -c '^PACKET ' "$SIM_LOG" 2>/dev/null) || true
  echo "${n:-0}"
}
stored() {
  sqlite3 -readonly "$JOB" "PRAGMA busy_timeout=5000; SELECT count(*) FROM OMBRI_DB_010 WHERE PACKET_NUM >= $FIRST" 2>/dev/null | tail -1
}
job_size() { stat -c %s "$JOB" "$JOB-wal" 2>/dev/null | awk '{ s += $1 } END { print s + 0 }'; }
rss() { awk '/^VmRSS/ { print $2 }' "/proc/$GC/status"; }
fds() { ls "/proc/$GC/fd" | wc -l; }
# The longest hold noted since the given time (ms since the epoch).
stall_since() { awk -v t="$1" '$1 > t && $2 > m { m = $2 } END { print m + 0 }' "$STALLS" 2>/dev/null || echo 0; }
now_ms() { date +%s%3N; }

echo "soak: $DAYS days = $PACKETS packets at ${RATE}x, figures in $FIGURES"
printf 'hour\tpackets_sent\trows_stored\trss_kb\tfds\tjob_bytes\tlongest_stall_ms\n' >"$FIGURES"
hour=0
last=$(now_ms)
started=$(date +%s)
while :; do
  kill -0 "$GC" 2>/dev/null || { echo "soak: the workstation died" >&2; break; }
  n=$(sent)
  while [ "$n" -ge $(((hour + 1) * HOUR)) ]; do
    hour=$((hour + 1))
    t=$(now_ms)
    printf '%d\t%d\t%s\t%s\t%s\t%s\t%s\n' "$hour" "$n" "$(stored)" "$(rss)" "$(fds)" \
      "$(job_size)" "$(stall_since "$last")" | tee -a "$FIGURES"
    last=$t
  done
  grep -q '^DONE ' "$SIM_LOG" 2>/dev/null && break
  sleep 1
done

# The last packets reach the job within a few seconds.
sent_total=$(sent)
for _ in $(seq 60); do
  [ "$(stored)" -ge "$sent_total" ] && break
  sleep 1
done
final_stall=$(stall_since 0)
end_rss=$(rss || echo 0)
end_fds=$(fds || echo 0)
kill -TERM "$GC" 2>/dev/null || true
wait "$GC" 2>/dev/null || true
kill -TERM "$SIM" 2>/dev/null || true
wait "$SIM" 2>/dev/null || true
trap - EXIT
elapsed=$(($(date +%s) - started))

grep '^PACKET ' "$SIM_LOG" | awk '{ print $2 }' | sort -n >"$OUT/sent.txt"
sqlite3 -readonly "$JOB" "SELECT PACKET_NUM FROM OMBRI_DB_010 WHERE PACKET_NUM >= $FIRST ORDER BY 1" \
  >"$OUT/stored.txt"
missing=$(comm -23 "$OUT/sent.txt" <(sort -n -u "$OUT/stored.txt") | wc -l)
extra=$(comm -13 "$OUT/sent.txt" <(sort -n -u "$OUT/stored.txt") | wc -l)
twice=$(uniq -d "$OUT/stored.txt" | wc -l)
integrity=$(sqlite3 -readonly "$JOB" "PRAGMA integrity_check")

python3 - "$FIGURES" "$final_stall" "$missing" "$extra" "$twice" "$integrity" "$elapsed" \
  "$end_rss" "$end_fds" <<'EOF'
import sys
figures, stall, missing, extra, twice, integrity, elapsed, end_rss, end_fds = sys.argv[1:]
rows = [l.rstrip("\n").split("\t") for l in open(figures)][1:]
hours = [dict(h=int(r[0]), rss=int(r[3] or 0), fds=int(r[4] or 0)) for r in rows]
ok = True
def verdict(name, good, detail):
    global ok
    ok &= good
    print(f"{'PASS' if good else 'FAIL'}  {name}: {detail}")
print(f"soak: {len(hours)} simulated hours in {int(elapsed)//60} min {int(elapsed)%60} s")
if hours:
    base_at = 24 if len(hours) >= 48 else max(1, len(hours) // 4)
    base = hours[base_at - 1]
    later = hours[base_at - 1:]
    top = max(h["rss"] for h in later)
    verdict("memory", top <= base["rss"] * 1.10,
            f"{base['rss']} kB at hour {base_at}, at most {top} kB after "
            f"(+{(top / base['rss'] - 1) * 100:.1f}%), {hours[0]['rss']} kB at hour 1")
    fmax = max(h["fds"] for h in later)
    verdict("descriptors", fmax <= base["fds"] + 2,
            f"{base['fds']} at hour {base_at}, at most {fmax} after, {hours[-1]['fds']} at the end")
else:
    verdict("memory", False, "no simulated hour was completed")
verdict("event loop", int(stall) <= 250, f"longest hold {stall} ms")
verdict("packets", missing == "0" and extra == "0" and twice == "0" and integrity == "ok",
        f"{missing} sent but not stored, {extra} stored but not sent, {twice} stored twice, "
        f"integrity {integrity}")
sys.exit(0 if ok else 1)
EOF
