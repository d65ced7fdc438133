#!/usr/bin/env bash
# Runs the unit suite of an existing build again and again, with busy loops taking cores beside it,
# to find tests that pass only when the machine has time to spare. Stops at the first failing run.
#
#   scripts/repeat-tests.sh [RUNS] [BUSY]
#     RUNS   how many runs in a row must pass (20 unless told)
#     BUSY   how many busy loops run beside the suite (2 unless told)
# BUILD names the build folder (build/dev unless told; build/asan for the sanitizers' build).
# EXCLUDE names the labels left out (ctest -LE): the kill test ("soak") unless told, as it repeats
# itself; EXCLUDE='e2e|soak' leaves out the end-to-end tests too.
set -euo pipefail
source "$(dirname "$0")/common.sh"
RUNS=${1:-20}
BUSY=${2:-2}
case "$BUILD" in *asan*) sanitizer_options ;; esac
[ -d "$BUILD" ] || { echo "$(basename "$0"): no build in $BUILD; build it first (scripts/test.sh)" >&2; exit 1; }
BUILD=$(cd "$BUILD" && pwd) # its log is named after the cd below
loops=()
stop_loops() {
  [ ${#loops[@]} -eq 0 ] || kill "${loops[@]}" 2>/dev/null || true
}
trap stop_loops EXIT
for _ in $(seq "$BUSY"); do
  (while :; do :; done) &
  loops+=($!)
done
cd "$BUILD"
for run in $(seq "$RUNS"); do
  step "run $run of $RUNS" "the failed test is named above; run it alone with ctest -R NAME --repeat until-fail:50"
  start=$(date +%s)
  QT_QPA_PLATFORM=offscreen ctest -LE "${EXCLUDE:-soak}" --output-on-failure -j "$JOBS" >"$BUILD/repeat-tests.log" 2>&1 || {
    tail -40 "$BUILD/repeat-tests.log"
    echo "run $run of $RUNS failed (the whole output: $BUILD/repeat-tests.log)"
    exit 1
  }
  echo "run $run of $RUNS passed in $(($(date +%s) - start)) s beside $BUSY busy loops"
done
