#!/usr/bin/env bash
# Installs what is missing, builds ZOR_Palette and runs the whole test suite.
# PRESET=asan runs it built with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
source "$(dirname "$0")/common.sh"
"$ROOT/scripts/install-deps.sh"
extra=()
if [ "${PRESET:-}" = asan ]; then
  BUILD="$ROOT/build/asan"
  extra=(-DZOR_SANITIZE=ON)
  # Leaks of the program's own code are failures; what Qt's platform plugins keep for the whole
  # run is suppressed, each with its reason, in tests/sanitizers/lsan.supp.
  export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  export LSAN_OPTIONS="suppressions=$ROOT/tests/sanitizers/lsan.supp:print_suppressions=0"
fi
build "${extra[@]}"
labels=()
# The end-to-end tests drive the program through an X server; the Mac has none.
[ "$(uname)" = Darwin ] && labels=(-LE e2e)
cd "$BUILD"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" "${labels[@]}"
