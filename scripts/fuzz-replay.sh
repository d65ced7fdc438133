#!/usr/bin/env bash
# Runs every kept input of tests/fuzz/corpus once through its libFuzzer harness: a regression run
# of seconds, not a fuzzing run. Builds the fuzz preset (clang, libFuzzer, the sanitizers) first.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$ROOT"
step "building the fuzzing harnesses" "the fuzz preset needs clang and libFuzzer: run scripts/install-deps.sh"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >/dev/null
step "replaying the fuzzing corpus" "the input and the sanitizer's report are above: run the harness on that file alone"
for pair in fuzz_json_parse:json fuzz_help_table:help fuzz_store_load:store fuzz_png_decode:png; do
  harness=${pair%%:*} corpus=tests/fuzz/corpus/${pair##*:}
  # Without -runs and with files named, libFuzzer runs each file once and stops at the first fault.
  inputs=("$corpus"/*)
  log=$("build/fuzz/tests/fuzz/$harness" -rss_limit_mb=4096 "${inputs[@]}" 2>&1) || {
    echo "$log" >&2; echo "fuzz-replay.sh: $harness failed on an input of $corpus (its report is above)" >&2; exit 1; }
  echo "$harness: $(grep -c '^Executed ' <<<"$log") inputs, no fault"
done
echo "fuzz replay: ok"
