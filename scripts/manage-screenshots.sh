#!/usr/bin/env bash
# Screenshots of the switch, new, rename and delete windows under Xvfb, on a palette with
# pictures in its first cells, into docs/screenshots/manage-*.png. Needs a build.
set -euo pipefail
source "$(dirname "$0")/screenshot-common.bash" "${1:-}"

glyphs=(M S K A N W)
k=0
for i in 00 01 02 10 11 12; do
  button_picture "$E2E_DATA/ButtonPictures/P01" "$i" "${glyphs[$k]}"
  k=$((k + 1))
done
write_store 5 '
data[1 + 101 + 100].update(paleAlias="Writing", paleWinTitle="Writing desk")
data[1 + 2 * 101 + 100]["paleAlias"] = "Mail and Calendar"
data[1 + 3 * 101 + 100]["paleAlias"] = "\u2400"
'
start_program
send_keys ctrl+1
wait_until 30 title_is "Writing desk"

dialog() { xdotool search --pid "$E2E_PID" --onlyvisible 2>/dev/null | grep -vx "$E2E_WIN" | head -n1; }
shoot() { # name, then the keys that close the window
  local name=$1 win; shift
  wait_until 30 dialog >/dev/null; win=$(dialog); sleep 0.5
  import -window "$win" "$OUT/manage-$name.png"
  "$@"
  wait_until 30 eval '[ -z "$(dialog)" ]'
}
# The Configure menu, then the item `downs` steps below its top.
configure_item() {
  focus_window "$E2E_WIN"
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  xdotool mousemove $((X + 125)) $((Y + 8)) click 1; sleep 0.5
  # shellcheck disable=SC2046 # one key name per word
  xdotool key $(printf 'Down %.0s' $(seq "$1")) Return
}
cancel() { xdotool mousemove "$1" "$2" click 1; }
at() { eval "$(xdotool getwindowgeometry --shell "$(dialog)")"; cancel $((X + $1)) $((Y + $2)); }

send_keys ctrl+p
wait_until 30 dialog >/dev/null; sleep 0.5
at 60 81 # the row of P02: its choice shows below the list
shoot switch xdotool key 0 0   # 00: back to P00 closes the window; P01 stays for the rest
send_keys ctrl+1
configure_item 5
shoot new at 340 364
configure_item 6
shoot rename at 305 364
configure_item 7
shoot delete at 340 364
echo "Screenshots: $OUT/manage-{switch,new,rename,delete}.png"
