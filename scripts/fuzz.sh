#!/usr/bin/env bash
# Runs the fuzz targets, each for SECONDS (default 30), and prints what each
# did: executions, executions a second, and coverage (libFuzzer's cov: and
# ft: counts).
#
#   bash scripts/fuzz.sh [SECONDS] [TARGET...]     (TARGET: fuzz_parser ...)
#
# FUZZ_JOBS=2 runs two targets at a time. The targets live in the sanitize
# build, which is configured and built here when needed. Each target starts
# from its seeds in fuzz/corpus/<target>/ and keeps what it learns in
# build/sanitize/fuzz/work/<target>/, so the seeds in the repo stay small; a
# crash, hang or leak leaves its input in build/sanitize/fuzz/found/ and fails
# the run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
shift || true
case "$seconds" in
  '' | *[!0-9]*) echo "fuzz.sh: SECONDS must be a whole number, not '$seconds'" >&2; exit 2 ;;
esac
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for dir in fuzz/corpus/*/; do targets+=("$(basename "$dir")"); done
fi
jobs=${FUZZ_JOBS:-1}

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$(mktemp -d)}
export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1
export LSAN_OPTIONS=suppressions=$PWD/scripts/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1

build=build/sanitize
[ -f "$build/build.ninja" ] || cmake --preset sanitize >/dev/null
cmake --build --preset sanitize --target "${targets[@]}" | tail -1

found=$build/fuzz/found
mkdir -p "$found"

run_one() {
  local target=$1 work=$build/fuzz/work/$1 log=$build/fuzz/$1.log
  mkdir -p "$work"
  # A run longer than 10 s on one input is a hang; the memory cap stops
  # one that grows without end long before the machine does.
  if "$build/fuzz/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -print_final_stats=1 -artifact_prefix="$found/$target-" \
    "$work" "fuzz/corpus/$target" >"$log" 2>&1; then
    echo ok >"$log.status"
  else
    echo failed >"$log.status"
  fi
}

running=0
for target in "${targets[@]}"; do
  if [ ! -x "$build/fuzz/$target" ]; then
    echo "fuzz.sh: no target $target (the targets are: $(ls fuzz/corpus | tr '\n' ' '))" >&2
    exit 2
  fi
  echo "fuzzing $target for ${seconds} s"
  run_one "$target" &
  running=$((running + 1))
  if [ "$running" -ge "$jobs" ]; then
    wait -n
    running=$((running - 1))
  fi
done
wait

status=0
printf '%-18s %12s %8s %8s %8s  %s\n' target executions exec/s cov ft result
for target in "${targets[@]}"; do
  log=$build/fuzz/$target.log
  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -1)
  # The last status line libFuzzer printed carries the coverage reached.
  last=$(grep -E '^#[0-9]+' "$log" | tail -1 || true)
  cov=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last")
  ft=$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<<"$last")
  result=$(cat "$log.status")
  printf '%-18s %12s %8s %8s %8s  %s\n' "$target" "${execs:-?}" "${rate:-?}" "${cov:-?}" \
    "${ft:-?}" "$result"
  if [ "$result" != ok ]; then
    status=1
    echo "---- $target: the end of its log ($log)"
    grep -v '^#[0-9]' "$log" | tail -40
  fi
done
exit $status
