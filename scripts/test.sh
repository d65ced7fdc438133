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
  export ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
fi
build "${extra[@]}"
labels=()
# The end-to-end tests drive the program through an X server; the Mac has none.
[ "$(uname)" = Darwin ] && labels=(-LE e2e)
cd "$BUILD"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" "${labels[@]}"
