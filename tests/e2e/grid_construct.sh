#!/usr/bin/env bash
# Grid Construct from the menu of the real program: button 05 becomes a Keyboard Maestro button
# with a tip, button 06 a palette switch, the grid 4 x 6, Done; then a click on button 05 fires
# the macro and the quit saves both buttons and the new grid.
source "$(dirname "$0")/lib.bash"
install_fake_tools
echo true > "$E2E_TOOLS/answers/running:com.stairways.keyboardmaestro.engine"
write_store 2
start_display
start_program
focus_window

design_window() {
  E2E_DESIGN=$(xdotool search --onlyvisible --name '^Grid Construct: ' 2>/dev/null | head -n1 || true)
  [ -n "$E2E_DESIGN" ]
}
# Clicks at a point of the design window, in its own coordinates.
at() {
  eval "$(xdotool getwindowgeometry --shell "$E2E_DESIGN")"
  xdotool mousemove $((X + $1)) $((Y + $2)) click ${3:-1}
}
cell() { at $((20 + ($1 % 10) * 55 + 27)) $((200 + ($1 / 10) * 55 + 27)); }
type_text() { xdotool type --delay 20 "$1"; }

send_keys alt+e Right Right Return
wait_until 30 design_window || fail "Grid Construct did not open from the Configure menu"
wait_until 30 xdotool windowfocus --sync "$E2E_DESIGN" || true
[ "$(xdotool getwindowname "$E2E_DESIGN")" = "Grid Construct: ZOR P00 (P00)" ] ||
  fail "the design window's title is $(xdotool getwindowname "$E2E_DESIGN")"

cell 5
at 770 478          # Keyboard Maestro
at 800 345          # the tip
type_text "Morning macro"
at 1025 691         # OK
cell 6
at 780 607          # palette switch
type_text "1"
at 1025 691         # OK: leaving the field makes it 01 and writes the tip
for _ in 1 2 3; do xdotool keydown shift; at 148 76; xdotool keyup shift; done   # rows 10 -> 4
for _ in 1 2 3 4; do at 148 118; done                                           # columns 10 -> 6
at 1032 743         # Done
wait_until 30 eval '! design_window' || fail "Done did not close the design window"

palette_size() {
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  [ "$WIDTH" = 384 ]
}
wait_until 30 palette_size || fail "the palette window did not take the 6 columns (width $WIDTH)"
focus_window
click_button 5 4
log="$E2E_TOOLS/tools.log"
wait_until 30 grep -q 'P00.05' "$log" || fail "the click on button 05 fired nothing: $(cat "$log")"
send_keys ctrl+q
wait_for_exit
resources="$(cd "$(dirname "$E2E_BIN")/../Resources" && pwd)"
grep -qxF "$(printf 'osascript\t%s/FirePalette.scpt\tP00\t05' "$resources")" "$log" || fail "button 05 did not fire P00 05: $(cat "$log")"
python3 - "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the saved store does not hold the design"
import json, sys
data = json.load(open(sys.argv[1], encoding="utf-8"))
b5, b6, palette = data[1 + 5], data[1 + 6], data[1 + 100]
assert b5["KM_Active"] is True and b5["Tip"] == "Morning macro", b5
assert b6["PaletteGo"] == "01" and b6["Tip"] == "Change palette to 01" and b6["KM_Active"] is False, b6
assert (palette["numRows"], palette["numColumns"]) == (4, 6), palette
assert data[1 + 40]["Vis"] is False, "the row below the grid is hidden at Done"
PY
echo "grid construct: ok"
