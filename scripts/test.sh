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
  sanitizer_options
fi
# bash 3.2 (the Mac's) takes an empty array's "${a[@]}" for an unset variable: hence ${a[@]+...}.
build ${extra[@]+"${extra[@]}"}
labels=()
# The tests that drive the program through an X server (end-to-end, the kill test); the Mac has none.
[ "$(uname)" = Darwin ] && labels=(-LE 'e2e|soak')
cd "$BUILD"
step "running the tests" "the failed tests are named above; their output says what differed"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$JOBS" ${labels[@]+"${labels[@]}"}
