# Shared by the screenshot scripts: the program under a private Xvfb, and the pictures it shows.
# Sourced with the binary as $1 (build/dev's unless told); OUT is where the shots go.
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BIN="${1:-$ROOT/build/dev/bin/ZOR_Palette}"
OUT="$ROOT/docs/screenshots"
mkdir -p "$OUT"
source "$ROOT/scripts/common.sh"
step "taking screenshots" "the program's log in \$E2E_HOME/program.log tells more"
source "$ROOT/tests/e2e/lib.bash" "$BIN"
start_display

# button_picture FOLDER NUMBER KIND: a rounded square with a letter, one colour per letter.
button_picture() {
  local -A colours=([M]="#4a90d9" [S]="#e2574c" [K]="#3fb37f" [A]="#f2a33a" [N]="#8e6bd8" [W]="#2bb3c0")
  mkdir -p "$1"
  convert -size 64x64 xc:none -fill "${colours[$3]}" -draw "roundrectangle 3,3 60,60 12,12" \
    -fill white -font DejaVu-Sans-Bold -pointsize 30 -gravity center -annotate 0 "$3" "$1/${2}_$3.png"
}
