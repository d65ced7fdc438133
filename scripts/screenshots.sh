#!/usr/bin/env bash
# Screenshots of a 10 x 10 palette with pictures, numbers and shortcut letters, and of a 3 x 4
# palette, taken under Xvfb into docs/screenshots/. Needs a build (scripts/run.sh makes one).
set -euo pipefail
source "$(dirname "$0")/screenshot-common.bash" "${1:-}"

glyphs=(M S K A N W)
for i in 00 03 11 14 22 27 35 41 56 68 72 89; do
  button_picture "$E2E_DATA/ButtonPictures/P00" "$i" "${glyphs[$((10#$i % 6))]}"
done
write_store 2 '
for i in (0, 1, 5, 14, 20, 33, 47, 51, 60):
    button(0, i)["ShortcutShow"] = True
button(0, 95)["Vis"] = False
data[1 + 101 + 100]["numRows"] = 3; data[1 + 101 + 100]["numColumns"] = 4
for i in (0, 2, 11, 23):
    button(1, i)["ShortcutShow"] = True
'
start_program
sleep 1
import -window "$E2E_WIN" "$OUT/palette-10x10.png"
xdotool windowfocus --sync "$E2E_WIN"; xdotool key ctrl+1; sleep 1
import -window "$E2E_WIN" "$OUT/palette-3x4.png"
echo "Screenshots: $OUT/palette-10x10.png $OUT/palette-3x4.png"

# The information bar over a button of each kind, then the overview help and the about window.
xdotool key ctrl+0; sleep 0.5
kill "$E2E_PID"; wait "$E2E_PID" 2>/dev/null || true
write_store 1 '
data[1 + 100]["numColumns"] = 5; data[1 + 100]["numRows"] = 2
button(0, 0).update(KM_Active=True, Tip="Start the morning macro", ShortcutShow=True)
button(0, 1).update(ASfile="Mail.scpt", Tip="Compose a new message to the team")
button(0, 2).update(SCname="My Day", Tip="Run the My Day Shortcut")
button(0, 3).update(PaletteGo="1", Tip="Go to the writing palette")
'
start_program
xdotool windowfocus --sync "$E2E_WIN"
for i in 0 1 2 3; do
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  xdotool mousemove $((X + i * 64 + 32)) $((Y + HEIGHT - 30 - 2 * 64 + 32))
  sleep 0.4
  import -window "$E2E_WIN" "$OUT/infobar-$i.png"
done
xdotool mousemove $((X + 190)) $((Y + 8)) click 1; sleep 0.5
xdotool key Down Return; sleep 1
import -window root -crop 1280x1024+0+0 "$OUT/help-overview.png"
xdotool key Escape; sleep 0.5
xdotool windowfocus --sync "$E2E_WIN"
xdotool mousemove $((X + 190)) $((Y + 8)) click 1; sleep 0.5
xdotool key Up Return; sleep 1
import -window root "$OUT/about.png"
echo "More: $OUT/infobar-*.png $OUT/help-overview.png $OUT/about.png"
