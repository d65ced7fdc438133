#!/usr/bin/env bash
# A screenshot of Configure >> Make Keyboard Maestro Macros… under Xvfb and openbox, into
# docs/screenshots/km-make-macros.png: a palette whose Keyboard Maestro buttons meet a macro that
# exists, a name two macros carry, and missing macros. The editor is the tests' fake osascript.
# Needs a build.
set -euo pipefail
source "$(dirname "$0")/screenshot-common.bash" "${1:-}"

openbox >/dev/null 2>&1 &
wm=$!
trap 'kill "$wm" 2>/dev/null || true; cleanup' EXIT
editor="$E2E_HOME/editor"
mkdir -p "$editor"
cp "$ROOT/tests/fakes/keyboard_maestro_osascript" "$editor/osascript"
printf '%s\t%s\n' "ZOR P01 Writing" "ZOR P01 00" "Mine" "ZOR P01 01" "Old" "ZOR P01 01" "Other" "Open the diary" \
  >"$editor/macros.txt"
export PATH="$editor:$PATH"
write_store 2 '
data[1 + 101 + 100].update(paleAlias="Writing", paleWinTitle="Writing desk", numRows=2, numColumns=5)
for i in (0, 1, 2, 3, 12):
    button(1, i)["KM_Active"] = True
'
start_program
send_keys ctrl+1
wait_until 30 title_is "Writing desk"
focus_window
xdotool mousemove --window "$E2E_WIN" 125 8 click 1; sleep 0.5
xdotool key Down Down Down Down Return
wait_until 30 found "Make Keyboard Maestro Macros" || { import -window root /tmp/km-debug.png; fail "the window did not open: $(cat "$E2E_HOME/program.log")"; }
sleep 0.5
window=$FOUND
import -window "$window" "$OUT/km-make-macros.png"
# Make Missing Macros: the message, then the list anew.
xdotool mousemove --window "$window" 340 439 click 1
wait_until 30 found "ZOR_Palette" || fail "no message after Make: $(cat "$E2E_HOME/program.log")"
sleep 0.5
import -window "$FOUND" "$OUT/km-made.png"
xdotool key Return; sleep 0.5
import -window "$window" "$OUT/km-make-macros-after.png"
echo "Screenshots: $OUT/km-make-macros.png $OUT/km-made.png $OUT/km-make-macros-after.png"
