#!/usr/bin/env bash
# A click on a Keyboard Maestro button, a letter key and a palette switch with Ctrl+1, then quit:
# the tools were called with the right arguments and the store was saved on the new palette.
source "$(dirname "$0")/lib.bash"
install_fake_tools
echo true > "$E2E_TOOLS/answers/running:com.stairways.keyboardmaestro.engine"
write_store 2 'button(0, 7)["KM_Active"] = True'
start_display
start_program
focus_window
click_button 7 10
log="$E2E_TOOLS/tools.log"
wait_until 30 grep -q 'P00.07' "$log" || fail "the click on button 07 fired nothing"
send_keys b
wait_until 30 grep -q 'P00.01' "$log" || fail "the key b fired nothing"
send_keys ctrl+1
wait_until 30 title_is "ZOR P01" || fail "Ctrl+1 did not switch to P01 (title: $(xdotool getwindowname "$E2E_WIN"))"
send_keys ctrl+q
wait_for_exit
resources="$(cd "$(dirname "$E2E_BIN")/../Resources" && pwd)"
grep -qxF "$(printf 'osascript\t%s/FirePalette.scpt\tP00\t07' "$resources")" "$log" || fail "the click did not fire P00 07: $(cat "$log")"
grep -qxF "$(printf 'osascript\t%s/FirePalette.scpt\tP00\t01' "$resources")" "$log" || fail "the key b did not fire P00 01: $(cat "$log")"
python3 - "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the saved store is not on P01"
import json, sys
data = json.load(open(sys.argv[1], encoding="utf-8"))
assert data[0]["CurrentPalette"] == 1, data[0]
assert data[1 + 7]["KM_Active"] is True
PY
echo "palette at work: ok"
