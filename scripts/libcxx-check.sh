#!/usr/bin/env bash
# Compiles every library of the program against libc++, the standard library of the Mac's
# toolchain, so that C++ it lacks is found here and not first on a Mac.
set -euo pipefail
source "$(dirname "$0")/common.sh"
"$ROOT/scripts/install-deps.sh"
cd "$ROOT"
cmake --preset libcxx >/dev/null
cmake --build --preset libcxx -j "$JOBS"
echo "libcxx check: every library compiles against libc++"
