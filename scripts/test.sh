#!/usr/bin/env bash
# Installs what is missing, builds ZOR_Palette and runs the whole test suite.
# PRESET=asan runs it built with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
source "$(dirname "$0")/common.sh"
install_deps
extra=()
if [ "${PRESET:-}" = asan ]; then
  BUILD="$ROOT/build/asan"
  extra=(-DZOR_SANITIZE=ON)
  # Leaks of the program's own code are failures; what Qt's platform plugins keep for the whole
  # run is suppressed, each with its reason, in tests/sanitizers/lsan.supp.
  export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  export LSAN_OPTIONS="suppressions=$ROOT/tests/sanitizers/lsan.supp:print_suppressions=0"
fi
# bash 3.2 (the Mac's) takes an empty array's "${a[@]}" for an unset variable: hence ${a[@]+...}.
build ${extra[@]+"${extra[@]}"}
labels=()
# The tests that drive the program through an X server (end-to-end, the kill test); the Mac has none.
[ "$(uname)" = Darwin ] && labels=(-LE 'e2e|soak')
cd "$BUILD"
step "running the tests" "the failed tests are named above; their output says what differed"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" ${labels[@]+"${labels[@]}"}
