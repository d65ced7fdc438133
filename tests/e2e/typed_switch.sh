#!/usr/bin/env bash
# Keyboard Maestro's way of switching palettes: Ctrl+P (Cmd+P on the Mac) and two digits, sent with
# no pause between the keys, 50 times in a row. Every time the digits reach the switch window in
# the order typed: 1 2 lands on P12 and 2 1 on P21, whatever the window manager's speed.
source "$(dirname "$0")/lib.bash"
install_fake_tools
write_store 22 'for p in range(22): data[1 + p * 101 + 100]["paleWinTitle"] = "Title %02d" % p'
start_display
start_program
rounds=${E2E_ROUNDS:-50}
for ((round = 1; round <= rounds; round++)); do
  if ((round % 2)); then digits="1 2" target=12; else digits="2 1" target=21; fi
  focus_window "$E2E_WIN"
  # shellcheck disable=SC2086 # the two digits are two keys
  xdotool key --delay 0 ctrl+p $digits
  wait_until 30 title_is "Title $target" ||
    fail "round $round: ctrl+p $digits did not reach P$target (title: $(xdotool getwindowname "$E2E_WIN"))"
  wait_until 30 eval '! found "Switch Palette"' || fail "round $round: the switch window stayed open"
done
send_keys ctrl+q
wait_for_exit
echo "typed switch: $rounds of $rounds"
