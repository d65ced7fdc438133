#!/usr/bin/env bash
# Pictures put into ButtonPictures/P00 by hand, one of a wrong size: Button Pictures from the menu
# tells about the wrong one and moves it to the Desktop unchanged; after Done the palette shows
# the good one.
source "$(dirname "$0")/lib.bash"
install_fake_tools
write_store 1
pics="$E2E_DATA/ButtonPictures/P00"
mkdir -p "$pics"
convert -size 64x64 xc:'#E02020' "$pics/03 red.png"
convert -size 80x80 xc:'#2020E0' "$pics/05 blue.png"
cp "$pics/05 blue.png" "$E2E_HOME/blue.original"
start_display
start_program
focus_window

# The bar shows Edit, Palette, Configure; the second item of Configure is Button Pictures.
send_keys alt+e Right Right Down Return
wait_until 30 found ZOR_Palette || fail "no message about the picture of the wrong size"
[ -f "$pics/05 blue.png" ] || fail "the picture moved before its message was answered"
focus_window "$FOUND"
xdotool key Return
wait_until 30 found "Button Pictures: ZOR P00" || fail "the Button Pictures window did not open"
removed="$E2E_HOME/Desktop/RemovedZOR_PaletteButtonPictures"
cmp -s "$removed/05 blue.png" "$E2E_HOME/blue.original" || fail "the wrong picture is not on the Desktop unchanged"
[ -f "$pics/03 red.png" ] || fail "the good picture was taken out"
focus_window "$FOUND"
xdotool key Return # Done is the default button
wait_until 30 eval '! window_named "Button Pictures: ZOR P00" >/dev/null' || fail "Done did not close the window"

# Button 03 is red now; button 05 shows its number on the usual grey.
pixel_of_button() {
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  local bar=$((HEIGHT - 10 * 64 - 30))
  import -window root -crop "1x1+$((X + ($1 % 10) * 64 + 32))+$((Y + bar + ($1 / 10) * 64 + 32))" -depth 8 txt:- | tail -n1
}
red() { pixel_of_button 3 | grep -qi '#E02020'; }
wait_until 30 red || fail "button 03 does not show its picture: $(pixel_of_button 3)"
pixel_of_button 5 | grep -qi '#2020E0' && fail "button 05 shows the picture that was taken out"
send_keys ctrl+q
wait_for_exit
echo "button pictures: ok"
