#!/usr/bin/env bash
# The program as cmake --install lays it out, at work: a click on a Keyboard Maestro button, a
# letter key, a right-click (the button's menu, nothing fired), then Keyboard Maestro's way of
# switching (Ctrl+P, Cmd+P on the Mac, and two digits, no click), and quit. The installed scripts ran with the right arguments; the store was saved on P12.
source "$(dirname "$0")/lib.bash"
build="$(cd "$(dirname "$E2E_BIN")/.." && pwd)"
prefix="$E2E_HOME/prefix"
cmake --install "$build" --prefix "$prefix" >"$E2E_HOME/install.log" 2>&1 || fail "the install failed: $(cat "$E2E_HOME/install.log")"
[ -f "$prefix/Resources/FireAppleScript.scpt" ] || fail "FireAppleScript.scpt was not installed: $(cat "$E2E_HOME/install.log")"
E2E_BIN="$prefix/bin/ZOR_Palette"
install_fake_tools
echo true > "$E2E_TOOLS/answers/running:com.stairways.keyboardmaestro.engine"
write_store 13 'button(0, 7)["KM_Active"] = True; data[1 + 12 * 101 + 100]["paleWinTitle"] = "Twelve"'
start_display
start_program
focus_window
click_button 7 10
log="$E2E_TOOLS/tools.log"
wait_until 30 grep -q 'P00.07' "$log" || fail "the click on button 07 fired nothing"
send_keys b
wait_until 30 grep -q 'P00.01' "$log" || fail "the key b fired nothing"
fired() { printf 'osascript\t%s/Resources/FirePalette.scpt\tP00\t%s' "$prefix" "$1"; }
{ grep -qxF "$(fired 07)" "$log" && grep -qxF "$(fired 01)" "$log"; } || fail "not the installed script with P00 07, then 01: $(cat "$log")"

# A right-click opens the button's menu and fires nothing; Escape closes the menu.
calls=$(wc -l <"$log")
click_button 7 10 3
wait_until 30 popup_shown || fail "a right-click on button 07 showed no menu"
xdotool key Escape
wait_until 30 eval '! popup_shown' || fail "Escape left the button's menu open"
[ "$(wc -l <"$log")" = "$calls" ] || fail "the right-click fired: $(cat "$log")"

send_keys ctrl+p
# The switch window takes the digits without being brought to the front.
switch_window() { found "Switch Palette" && E2E_SWITCH=$FOUND; }
wait_until 30 switch_window || fail "Ctrl+P showed no window titled \"Switch Palette\""
wait_until 30 has_focus "$E2E_SWITCH" || fail "the switch window did not take the focus"
xdotool key 1 2
wait_until 30 title_is "Twelve" || fail "1 2 did not switch to P12 (title: $(xdotool getwindowname "$E2E_WIN"))"
wait_until 30 eval '! switch_window' || fail "the switch window stayed open"
send_keys ctrl+q
wait_for_exit
python3 - "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the saved store is not on P12"
import json, sys
data = json.load(open(sys.argv[1], encoding="utf-8"))
assert data[0]["CurrentPalette"] == 12 and data[1 + 7]["KM_Active"] is True, data[0]
PY
echo "palette at work: ok"
