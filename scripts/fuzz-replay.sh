#!/usr/bin/env bash
# Runs every kept input of tests/fuzz/corpus once through its libFuzzer harness: a regression run
# of seconds, not a fuzzing run. Builds the fuzz preset (clang, libFuzzer, the sanitizers) first.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$ROOT"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >/dev/null
for pair in fuzz_json_parse:json fuzz_help_table:help; do
  harness=${pair%%:*} corpus=tests/fuzz/corpus/${pair##*:}
  # Without -runs and with files named, libFuzzer runs each file once and stops at the first fault.
  inputs=("$corpus"/*)
  log=$("build/fuzz/tests/fuzz/$harness" -rss_limit_mb=4096 "${inputs[@]}" 2>&1) || { echo "$log" >&2; exit 1; }
  echo "$harness: $(grep -c '^Executed ' <<<"$log") inputs, no fault"
done
echo "fuzz replay: ok"
