#!/usr/bin/env bash
# Compiles every library of the program against libc++, the standard library of the Mac's
# toolchain, so that C++ it lacks is found here and not first on a Mac.
set -euo pipefail
source "$(dirname "$0")/common.sh"
install_deps
cd "$ROOT"
step "configuring the libc++ build" "delete build/libcxx and try again"
cmake --preset libcxx >/dev/null
step "compiling against libc++" "the line named above uses what libc++ lacks: write it with what both libraries have"
cmake --build --preset libcxx -j "$JOBS"
echo "libcxx check: every library compiles against libc++"
