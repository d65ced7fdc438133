#!/usr/bin/env bash
# Keyboard Maestro's way of switching palettes: Ctrl+P (Cmd+P on the Mac), then two digits, with
# no click. The switch window must take the digits at once; the saved store is on the new palette.
source "$(dirname "$0")/lib.bash"
install_fake_tools
write_store 13 'data[1 + 12 * 101 + 100]["paleWinTitle"] = "Twelve"'
start_display
start_program
send_keys ctrl+p
# The switch window bears the palette's title, as the palette window does.
switch_window() { found "ZOR P00" && E2E_SWITCH=$FOUND; }
wait_until 30 switch_window || fail "Ctrl+P showed no switch window titled by the palette"
# The window takes the focus by itself: the digits are typed without bringing it to the front.
wait_until 30 has_focus "$E2E_SWITCH" || fail "the switch window did not take the focus"
xdotool key 1 2
wait_until 30 title_is "Twelve" || fail "1 2 did not switch to P12 (title: $(xdotool getwindowname "$E2E_WIN"))"
wait_until 30 eval '! switch_window' || fail "the switch window stayed open"
send_keys ctrl+q
wait_for_exit
python3 - "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the saved store is not on P12"
import json, sys
data = json.load(open(sys.argv[1], encoding="utf-8"))
assert data[0]["CurrentPalette"] == 12, data[0]
PY
echo "switch palette: ok"
