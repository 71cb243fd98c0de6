#!/usr/bin/env bash
# The power cord pulled in the middle of every job that writes the job file:
# the live writer, the lag pass, the stroke repair, the re-index of an open,
# the conversion of an older job and Restore All Geolograph Data. Each is
# killed with SIGKILL at a random moment, RUNS times, and then
#   - the file passes PRAGMA integrity_check;
#   - no committed row is lost or changed: for the writer, every row it had
#     reported committed is there as written; for a pass, every row is
#     either as it was before the pass or as the pass leaves it; for a job
#     that is all or nothing (convert, restore), the whole table is;
#   - the pass run again after the kill leaves the same table as one run
#     that was never interrupted.
#
#   bash scripts/kill-test.sh [--runs N] [--rows N] [--out DIR] [--passes "P ..."]
#
# --passes names the jobs to run, of: lag strokes reindex convert restore
# write (the live writer); all of them when not given.
#
# Exit status 0 only when every run of every job holds.
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=20
ROWS=20000
OUT=
PASSES="lag strokes reindex convert restore write"
usage="usage: bash scripts/kill-test.sh [--runs N] [--rows N] [--out DIR] [--passes \"P ...\"]"
while [ $# -gt 0 ]; do
  case "$1" in
    --runs) RUNS=$2; shift 2 ;;
    --rows) ROWS=$2; shift 2 ;;
    --out) OUT=$2; shift 2 ;;
    --passes) PASSES=${2//,/ }; shift 2 ;;
    *) echo "$usage" >&2; exit 2 ;;
  esac
done
for p in $PASSES; do
  case "$p" in lag|strokes|reindex|convert|restore|write) ;; *) echo "$usage" >&2; exit 2 ;; esac
done
wanted() { [[ " $PASSES " == *" $1 "* ]]; }
BIN=build/release
if [ ! -x "$BIN/job-pass" ] || [ ! -x "$BIN/make-demo-job" ]; then
  cmake --preset release >/dev/null
  cmake --build --preset release --target job-pass make-demo-job
fi
OUT=${OUT:-$(mktemp -d /tmp/gaschart-kill.XXXXXX)}
mkdir -p "$OUT"
export QT_QPA_PLATFORM=offscreen

TABLE=OMBRI_DB_010
OLD_TABLE=OMBRI_DB_005
# Every row, every column, in packet order: what "the same table" means. A
# job of the older generation shows its own table, each row marked old.
dump() {
  if [ "$(sqlite3 -readonly "$1" "SELECT count(*) FROM sqlite_master WHERE name = '$TABLE'" 2>/dev/null)" = 1 ]; then
    sqlite3 -readonly "$1" "SELECT * FROM $TABLE ORDER BY PACKET_NUM"
  else
    sqlite3 -readonly "$1" "SELECT 'old', * FROM $OLD_TABLE ORDER BY ID" 2>&1 || true
  fi
}
integrity() { sqlite3 "$1" "PRAGMA integrity_check"; }
copy_job() { rm -f "$2" "$2-wal" "$2-shm"; sqlite3 "$1" ".backup '$2'"; }
# Milliseconds as seconds, for sleep.
secs() { awk -v m="$1" 'BEGIN { printf "%.3f", m / 1000 }'; }
now_ms() { date +%s%3N; }

failures=0
summary=()
fail() { echo "  FAIL: $*"; failures=$((failures + 1)); bad=$((bad + 1)); }

# The job each pass starts from: a drilled job with the pass's work undone.
echo "kill-test: making a job of $ROWS rows in $OUT"
"$BIN/make-demo-job" --out "$OUT/made.db" --rows "$ROWS" >/dev/null
sqlite3 "$OUT/made.db" "PRAGMA wal_checkpoint(TRUNCATE)" >/dev/null
declare -A UNDO=(
  [lag]="UPDATE $TABLE SET LAG_GU = 0, DATA1 = 0"
  [strokes]="UPDATE $TABLE SET TOTAL_STROKES = NULL"
  [reindex]="UPDATE $TABLE SET ID = 1000000 - ID"
  [restore]="UPDATE $TABLE SET DEPTH = DEPTH + 0.5, MIN_FT = 99"
)
# The same job as the generation before wrote it, columns under their old
# names, for the conversion.
old_job() {
  rm -f "$1" "$1-wal" "$1-shm"
  sqlite3 "$1" "ATTACH '$OUT/made.db' AS m;
    CREATE TABLE $OLD_TABLE AS SELECT ID, SERIAL_NUM, DATE_TXT AS DATE, TIME_TXT AS TIME, DT,
      DEPTH, GAS_UNITS, O2 AS LEL, CO2 AS METHANE, ATTEN AS PPM, TEMP, MIN_FT, FT_HR, LPH,
      SAMPLEVAC AS INLET_PRS, VOLTS, LOWGUV AS VQ21, HIGHGUV AS VQ6, CGTESTNUM AS CG_TEST_NUM,
      CGV AS VQ6CG, H2SV AS VQ101, H2S, ERR_TXT AS ERR FROM m.$TABLE ORDER BY PACKET_NUM"
}

for pass in lag strokes reindex convert restore; do
  wanted "$pass" || continue
  base=$OUT/$pass.base.db
  if [ "$pass" = convert ]; then
    old_job "$base"
  else
    copy_job "$OUT/made.db" "$base"
    sqlite3 "$base" "${UNDO[$pass]}"
  fi
  dump "$base" >"$OUT/$pass.before"
  # One uninterrupted run: the result, and how long it takes.
  copy_job "$base" "$OUT/$pass.ref.db"
  t0=$(now_ms)
  "$BIN/job-pass" "$OUT/$pass.ref.db" "$pass" >/dev/null
  took=$(($(now_ms) - t0))
  dump "$OUT/$pass.ref.db" >"$OUT/$pass.after"
  if cmp -s "$OUT/$pass.before" "$OUT/$pass.after"; then
    echo "kill-test: $pass changed nothing; no test" >&2
    exit 1
  fi
  echo "kill-test: $pass takes $took ms uninterrupted"
  bad=0
  killed=0
  for run in $(seq "$RUNS"); do
    work=$OUT/$pass.work.db
    rm -f "$work.new" "$work.new-wal" "$work.new-shm" "$work.old"
    copy_job "$base" "$work"
    "$BIN/job-pass" "$work" "$pass" >"$OUT/$pass.out" 2>&1 &
    pid=$!
    sleep "$(secs $((RANDOM % (took > 50 ? took - 20 : 30) + 10)))"
    if kill -9 "$pid" 2>/dev/null; then killed=$((killed + 1)); fi
    wait "$pid" 2>/dev/null || true
    [ "$(integrity "$work")" = ok ] || fail "$pass run $run: integrity $(integrity "$work" | head -1)"
    # Row by row: as before, or as the pass leaves it; none lost, none new.
    dump "$work" >"$OUT/$pass.mid"
    if [ "$pass" = convert ] || [ "$pass" = restore ]; then
      # All or nothing: the whole table as before or as after.
      if cmp -s "$OUT/$pass.mid" "$OUT/$pass.after"; then
        # A finished conversion keeps the old job beside it, whole.
        if [ "$pass" = convert ] && ! { dump "$work.old" | cmp -s - "$OUT/$pass.before"; }; then
          fail "$pass run $run: the old job kept beside the new one differs"
        fi
      elif ! cmp -s "$OUT/$pass.mid" "$OUT/$pass.before"; then
        fail "$pass run $run: the table is neither as before nor as after ($(wc -l <"$OUT/$pass.mid") rows)"
      fi
    fi
    odd=$(python3 - "$OUT/$pass.before" "$OUT/$pass.after" "$OUT/$pass.mid" "$pass" <<'EOF'
import sys
before, after, mid, pass_ = [open(f).read().splitlines() for f in sys.argv[1:4]] + [sys.argv[4]]
if len(mid) != len(before):
    print(f"{len(before)} rows before, {len(mid)} after the kill"); sys.exit()
# The re-index renumbers ID, which orders nothing: compare on all columns.
odd = [i for i, (b, a, m) in enumerate(zip(before, after, mid)) if m != b and m != a]
if odd:
    print(f"{len(odd)} rows neither as before nor as after, first at {odd[0]}: {mid[odd[0]]}")
EOF
)
    [ -z "$odd" ] || fail "$pass run $run: $odd"
    copy_job "$work" "$OUT/$pass.first.db"
    # Run again to its end: the same table as one uninterrupted run.
    if ! "$BIN/job-pass" "$work" "$pass" >/dev/null 2>"$OUT/$pass.err"; then
      fail "$pass run $run: the run after the kill failed: $(cat "$OUT/$pass.err")"
    fi
    dump "$work" >"$OUT/$pass.resumed"
    if [ "$pass" = strokes ]; then
      # The repair counts on from the first row's own count, so a second
      # run (killed first or not) shifts every count by that first count:
      # the same table, each TOTAL_STROKES higher by one constant.
      off=$(sqlite3 "$OUT/$pass.first.db" "SELECT ifnull(TOTAL_STROKES, 0) FROM $TABLE ORDER BY PACKET_NUM LIMIT 1")
      n=$(sqlite3 "$work" "ATTACH '$OUT/$pass.ref.db' AS r;
        SELECT count(*) FROM main.$TABLE a JOIN r.$TABLE b USING (PACKET_NUM)
        WHERE a.TOTAL_STROKES - b.TOTAL_STROKES IS NOT $off OR a.ID IS NOT b.ID
           OR a.TOTAL_SPM IS NOT b.TOTAL_SPM OR a.DEPTH IS NOT b.DEPTH")
      [ "$n" = 0 ] || fail "$pass run $run: $n rows differ from a whole run shifted by $off"
    else
      cmp -s "$OUT/$pass.resumed" "$OUT/$pass.after" || fail "$pass run $run: resumed run differs"
    fi
  done
  summary+=("$pass: $RUNS runs, $killed killed in the middle, $bad failures")
done

# The live writer: the demonstration job maker writes through the record
# writer, one committed row at a time, and reports each once committed.
if wanted write; then
echo "kill-test: live writer"
ref=$OUT/write.ref.db
"$BIN/make-demo-job" --out "$ref" --rows 3000 >/dev/null
bad=0
killed=0
for run in $(seq "$RUNS"); do
  work=$OUT/write.work.db
  rm -f "$work" "$work-wal" "$work-shm" "$OUT/write.out"
  "$BIN/make-demo-job" --out "$work" --rows 3000 --report >"$OUT/write.out" 2>&1 &
  pid=$!
  # From its first committed row on.
  while ! [ -s "$OUT/write.out" ] && kill -0 "$pid" 2>/dev/null; do sleep 0.02; done
  sleep "$(secs $((RANDOM % 1500)))"
  if kill -9 "$pid" 2>/dev/null; then killed=$((killed + 1)); fi
  wait "$pid" 2>/dev/null || true
  [ "$(integrity "$work")" = ok ] || fail "write run $run: integrity"
  # Every reported row is there, and equal to the same row of a whole run.
  reported=$(awk 'NF == 3 { n++; last = $1 } END { print n + 0, last + 0 }' "$OUT/write.out")
  set -- $reported
  n=$1
  last=$2
  stored=$(sqlite3 "$work" "SELECT count(*) FROM $TABLE")
  [ "$stored" -ge "$n" ] && [ "$stored" -le $((n + 1)) ] ||
    fail "write run $run: $n rows reported, $stored stored"
  if [ "$n" -gt 0 ]; then
    a=$(sqlite3 "$work" "SELECT * FROM $TABLE WHERE PACKET_NUM <= $last ORDER BY PACKET_NUM" | md5sum)
    b=$(sqlite3 "$ref" "SELECT * FROM $TABLE WHERE PACKET_NUM <= $last ORDER BY PACKET_NUM" | md5sum)
    [ "$a" = "$b" ] || fail "write run $run: the committed rows differ from a whole run"
  fi
done
summary+=("write: $RUNS runs, $killed killed in the middle, $bad failures")
fi

echo
printf '%s\n' "${summary[@]}"
echo "kill-test: $failures failures"
[ "$failures" -eq 0 ]
