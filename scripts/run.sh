#!/usr/bin/env bash
# Installs what is missing, builds ZOR_Palette and starts it. Without a display (a Linux server)
# it starts it under Xvfb, takes a screenshot into the build folder and says where it is.
# It builds the program alone, in a release folder of its own: the tests' build stays untouched.
set -euo pipefail
source "$(dirname "$0")/common.sh"
install_deps
BUILD="$ROOT/build/release"
step "configuring the release build" "delete $BUILD and try again"
(cd "$ROOT" && cmake --preset release >/dev/null)
step "building ZOR_Palette" "the compiler's message above names the file and line"
cmake --build "$BUILD" --target ZOR_Palette -j "$JOBS"

if [ "$(uname)" = Darwin ]; then
  step "opening ZOR_Palette.app" "open $BUILD/ZOR_Palette.app from the Finder"
  open "$BUILD/ZOR_Palette.app"
  exit 0
fi
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$BUILD/bin/ZOR_Palette"
fi

shot="$BUILD/screenshot.png"
rm -f "$shot"
step "starting ZOR_Palette under Xvfb for a screenshot" "the program's own messages are above; 'xvfb-run -a $BUILD/bin/ZOR_Palette' shows them again"
xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
  "$1" & pid=$!
  sleep 3
  kill -0 $pid || { wait $pid; echo "ZOR_Palette ended at start with status $?" >&2; exit 1; }
  import -window root "$2"
  kill $pid' _ "$BUILD/bin/ZOR_Palette" "$shot"
echo "No display here: ZOR_Palette ran under Xvfb. Screenshot: $shot"
