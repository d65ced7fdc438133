#!/usr/bin/env bash
# Installs what is missing, builds ZOR_Palette and starts it. Without a display (a Linux server)
# it starts it under Xvfb, takes a screenshot into the build folder and says where it is.
# It builds the program alone, in a release folder of its own: the tests' build stays untouched.
set -euo pipefail
source "$(dirname "$0")/common.sh"
"$ROOT/scripts/install-deps.sh"
BUILD="$ROOT/build/release"
(cd "$ROOT" && cmake --preset release >/dev/null)
cmake --build "$BUILD" --target ZOR_Palette -j "$JOBS"

if [ "$(uname)" = Darwin ]; then
  open "$BUILD/ZOR_Palette.app"
  exit 0
fi
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$BUILD/bin/ZOR_Palette"
fi

shot="$BUILD/screenshot.png"
xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
  "$1" & pid=$!
  sleep 3
  import -window root "$2"
  kill $pid' _ "$BUILD/bin/ZOR_Palette" "$shot"
echo "No display here: ZOR_Palette ran under Xvfb. Screenshot: $shot"
