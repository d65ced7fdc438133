#!/usr/bin/env bash
# Screenshots of a 10 x 10 palette with pictures, numbers and shortcut letters, and of a 3 x 4
# palette, taken under Xvfb into docs/screenshots/. Needs a build (scripts/run.sh makes one).
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/.." && pwd)"
BIN="${1:-$ROOT/build/dev/bin/ZOR_Palette}"
OUT="$ROOT/docs/screenshots"
mkdir -p "$OUT"
source "$ROOT/tests/e2e/lib.bash" "$BIN"
start_display

pictures="$E2E_DATA/ButtonPictures/P00"
mkdir -p "$pictures"
colours=("#4a90d9" "#e2574c" "#3fb37f" "#f2a33a" "#8e6bd8" "#2bb3c0")
glyphs=(M S K A N W)
for i in 00 03 11 14 22 27 35 41 56 68 72 89; do
  c=${colours[$((10#$i % 6))]}; g=${glyphs[$((10#$i % 6))]}
  convert -size 64x64 xc:none -fill "$c" -draw "roundrectangle 3,3 60,60 12,12" \
    -fill white -font DejaVu-Sans-Bold -pointsize 30 -gravity center -annotate 0 "$g" "$pictures/${i}_$g.png"
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
