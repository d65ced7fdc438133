#!/usr/bin/env bash
# The program as cmake --install lays it out in a fresh prefix, run from there: it starts, finds
# its scripts in the installed Resources on a Keyboard Maestro click, and saves on quit.
source "$(dirname "$0")/lib.bash"
build="$(cd "$(dirname "$E2E_BIN")/.." && pwd)"
[ -f "$build/cmake_install.cmake" ] || fail "no build folder above $E2E_BIN"
prefix="$E2E_HOME/prefix"
cmake --install "$build" --prefix "$prefix" >"$E2E_HOME/install.log" 2>&1 || fail "the install failed: $(cat "$E2E_HOME/install.log")"
for file in bin/ZOR_Palette Resources/FirePalette.scpt Resources/FireAppleScript.scpt; do
  [ -f "$prefix/$file" ] || fail "$file was not installed: $(cat "$E2E_HOME/install.log")"
done
E2E_BIN="$prefix/bin/ZOR_Palette"

install_fake_tools
echo true > "$E2E_TOOLS/answers/running:com.stairways.keyboardmaestro.engine"
write_store 1 'button(0, 12)["KM_Active"] = True'
start_display
start_program
focus_window
click_button 12 10
log="$E2E_TOOLS/tools.log"
wait_until 30 grep -q 'P00.12' "$log" || fail "the click on button 12 fired nothing"
grep -qxF "$(printf 'osascript\t%s/Resources/FirePalette.scpt\tP00\t12' "$prefix")" "$log" ||
  fail "the installed program did not run its installed script: $(cat "$log")"
send_keys ctrl+q
wait_for_exit
[ -f "$E2E_DATA/PreserveState.txt" ] || fail "PreserveState.txt was not written"
echo "installed program: ok"
