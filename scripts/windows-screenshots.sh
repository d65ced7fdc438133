#!/usr/bin/env bash
# Screenshots of the design and management windows as a user meets them, with long texts and
# emoji, under Xvfb and openbox, into docs/screenshots/: Grid Construct with a kind begun and with
# a button's picture, the export's explanation, and the New, Rename, Delete and Switch windows. Needs a
# build; colour emoji need a font that has them (Debian: fonts-noto-color-emoji).
set -euo pipefail
source "$(dirname "$0")/screenshot-common.bash" "${1:-}"
openbox >/dev/null 2>&1 &
OPENBOX=$!
trap 'kill "$OPENBOX" 2>/dev/null || true; cleanup' EXIT
install_fake_tools
printf 'Morning Mail\nEvening Summary\nMorning Pages \xe2\x9c\x8d\n' >"$E2E_TOOLS/answers/shortcuts"
mkdir -p "$E2E_DATA/Apple_Scripts"
echo compiled >"$E2E_DATA/Apple_Scripts/Morning Mail.scpt"
glyphs=(M S K A N W)
k=0
for i in 00 01 02 05 10 11 12; do
  button_picture "$E2E_DATA/ButtonPictures/P01" "$i" "${glyphs[$((k % 6))]}"
  k=$((k + 1))
done
write_store 3 '
alias = "Photoshop Actions Set 2 for the spring catalogue \U0001F468\u200d\U0001F469\u200d\U0001F467 \U0001F1E9\U0001F1EA"
data[1 + 101 + 100].update(paleAlias=alias, paleWinTitle="Photoshop \u270d spring catalogue",
    paleParticulars="Actions for the spring catalogue \U0001F338: the top row prepares, the second exports.")
data[1 + 2 * 101 + 100]["paleAlias"] = "Writing \u270d"
button(1, 5).update(SCname="Morning Mail", Tip="Start the morning mail \u2709", ShortcutShow=True)
'
start_program
send_keys ctrl+1
wait_until 30 title_is "Photoshop ✍ spring catalogue"

dialog() { xdotool search --pid "$E2E_PID" --onlyvisible 2>/dev/null | grep -vx "$E2E_WIN" | tail -n1; }
shoot() { # name: the window in front, as it stands
  local win
  wait_until 30 dialog >/dev/null; win=$(dialog); sleep 0.7
  import -window "$win" "$OUT/$1.png"
}
# X and Y of a window's upper left corner on the screen; under a window manager xdotool's geometry
# can be off by the frame, xwininfo's absolute corner is not.
origin() {
  X=$(xwininfo -id "$1" | awk '/Absolute upper-left X/ {print $4}')
  Y=$(xwininfo -id "$1" | awk '/Absolute upper-left Y/ {print $4}')
}
menu_item() { # the menu at `x` on the palette window's bar, then the item `downs` steps below its top
  focus_window
  origin "$E2E_WIN"
  xdotool mousemove $((X + $1)) $((Y + 8)) click 1; sleep 0.5
  local downs=()
  for ((k = 0; k < $2; k++)); do downs+=(Down); done
  xdotool key "${downs[@]}" Return
}
at() { # a click at x, y in the window in front
  origin "$(dialog)"
  xdotool mousemove $((X + $1)) $((Y + $2)) click 1; sleep 0.3
}
gone() { wait_until 30 eval '[ -z "$(dialog)" ]'; }

menu_item 125 1 # Grid Construct
wait_until 30 dialog >/dev/null; sleep 0.5
at $((20 + 3 * 55 + 27)) $((200 + 27)) # button 03, of no kind yet
at 860 547                              # into the AppleScript field
xdotool type --delay 60 "Morning Mail"
shoot construct-kind-begun
at $((20 + 5 * 55 + 27)) $((200 + 27)) # button 05: a Shortcut and a picture
shoot construct-picture
at 925 691  # Cancel
at 1032 743 # Done
gone

menu_item 190 3 # Palette Data to Desktop
shoot export-explanation
xdotool key Return
gone

menu_item 125 5 # New Palette…
wait_until 30 dialog >/dev/null; sleep 0.5
xdotool type --delay 40 "Mail and Calendar for the whole team "
shoot windows-new
at 340 364
gone
menu_item 125 6 # Rename Palette Alias…
shoot windows-rename
at 305 364
gone
menu_item 125 7 # Delete Palette…
shoot windows-delete
at 340 364
gone
send_keys ctrl+p # the Switch window, over the palette of the long alias
shoot windows-switch
xdotool key Escape
gone
echo "Screenshots: $OUT/{construct-kind-begun,construct-picture,export-explanation,windows-new,windows-rename,windows-delete,windows-switch}.png"
