# Shared by the end-to-end tests: a temporary home, a private X server, and the program in it.
set -euo pipefail

E2E_BIN="$1"
E2E_HOME="$(mktemp -d)"
E2E_DATA="$E2E_HOME/.local/share/net.lunvale.ZOR-Palette"
mkdir -p "$E2E_HOME/.local/share" "$E2E_HOME/Desktop"
export HOME="$E2E_HOME" XDG_DATA_HOME="$E2E_HOME/.local/share" XDG_CONFIG_HOME="$E2E_HOME/.config" XDG_CACHE_HOME="$E2E_HOME/.cache"
unset QT_QPA_PLATFORM
# No session bus, as on the Mac: without one, libdbus forks a helper at each start, and under the
# sanitizers that child can hang on the allocator's lock, so the window never comes.
export DBUS_SESSION_BUS_ADDRESS="unix:path=$E2E_HOME/no-session-bus"

fail() { echo "FAIL: $*" >&2; exit 1; }

# Waits up to `seconds` for a command to succeed; the limits are generous for busy machines.
wait_until() {
  local seconds=$1; shift
  local deadline=$((SECONDS + seconds))
  until "$@" 2>/dev/null; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.05
  done
}

# A private X server on a display number it picks itself, so two tests never share a server.
start_display() {
  local fdfile="$E2E_HOME/display"
  # An odd screen height of its own lets the test know its server when it answers.
  E2E_SCREEN="1280x$((1000 + RANDOM % 200))"
  Xvfb -displayfd 3 -screen 0 "${E2E_SCREEN}x24" -nolisten tcp 3>"$fdfile" >/dev/null 2>&1 &
  E2E_XVFB=$!
  wait_until 30 grep -q '[0-9]' "$fdfile" || fail "no X server could be started"
  DISPLAY=":$(tr -dc 0-9 <"$fdfile")"
  export DISPLAY
  # One answer, kept and read: a second question could meet the hang-up told at start_program.
  local answer="$E2E_HOME/xdpyinfo"
  wait_until 30 eval 'xdpyinfo >"$answer"' || fail "the X server on $DISPLAY does not answer"
  [[ "$(cat "$answer")" =~ dimensions:\ *$E2E_SCREEN\ pixels ]] || fail "the server on $DISPLAY is not the one this test started"
}

# Starts the program and waits for its window. Now and then Xvfb hangs up on a client the
# instant it connects, and Qt aborts with "could not connect to display"; it comes far more often
# while other clients come and go, so one xdotool waits for the window in a single connection and
# the program is watched with kill. A start that still ends early is told and tried again, up to
# E2E_START_TRIES times (2 unless told).
start_program() {
  local try status finder deadline
  for ((try = 1; try <= ${E2E_START_TRIES:-2}; try++)); do
    "$E2E_BIN" >"$E2E_HOME/program.log" 2>&1 &
    E2E_PID=$!
    : >"$E2E_HOME/window"
    deadline=$((SECONDS + 60))
    # xdotool gives up at once on an X error, such as a window going while it looks.
    while [ ! -s "$E2E_HOME/window" ] && [ $SECONDS -lt $deadline ] && kill -0 "$E2E_PID" 2>/dev/null; do
      timeout 60 xdotool search --sync --onlyvisible --pid "$E2E_PID" >"$E2E_HOME/window" 2>/dev/null &
      finder=$!
      wait_until 60 eval '! kill -0 "$finder" || ! kill -0 "$E2E_PID"' || true
      kill "$finder" 2>/dev/null || true
      wait "$finder" 2>/dev/null || true
    done
    if kill -0 "$E2E_PID" 2>/dev/null; then
      E2E_WIN=$(head -n1 "$E2E_HOME/window")
      [ -n "$E2E_WIN" ] && return 0
      fail "the palette window did not appear: $(cat "$E2E_HOME/program.log")"
    fi
    status=0; wait "$E2E_PID" || status=$?
    echo "the program ended at start with status $status (try $try): $(cat "$E2E_HOME/program.log")" >&2
    E2E_STARTS_LOST=$((${E2E_STARTS_LOST:-0} + 1))
  done
  fail "the program ended at start $((try - 1)) times in a row"
}

# The first visible window of the program with this title, in $FOUND, other than the palette window
# and menus (their popups bear the program's name, as its messages do).
found() {
  local win
  for win in $(xdotool search --all --pid "$E2E_PID" --onlyvisible --name "^$1\$" 2>/dev/null || true); do
    [ "$win" != "$E2E_WIN" ] || continue
    xwininfo -id "$win" 2>/dev/null | grep -q 'Override Redirect State: no' || continue
    # shellcheck disable=SC2034 # read by the tests
    FOUND=$win
    return 0
  done
  return 1
}

has_focus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]; }

# Keys go only to a window that holds the focus; otherwise they would fall on nothing.
focus_window() {
  local win=${1:-$E2E_WIN}
  wait_until 30 xdotool windowfocus --sync "$win" || true
  wait_until 30 has_focus "$win" || fail "window $win did not take the focus"
}

send_keys() { focus_window "$E2E_WIN"; xdotool key "$@"; }

title_is() { [ "$(xdotool getwindowname "$E2E_WIN" 2>/dev/null)" = "$1" ]; }

# Waits for the program to end by itself, and well (a sanitizer's report makes the status other than 0).
wait_for_exit() {
  local status=0
  wait_until 60 eval '! kill -0 "$E2E_PID"' || fail "the program did not quit: $(cat "$E2E_HOME/program.log")"
  wait "$E2E_PID" || status=$?
  [ "$status" -eq 0 ] || fail "the program ended with status $status: $(cat "$E2E_HOME/program.log")"
}

cleanup() {
  if [ -n "${E2E_PID:-}" ]; then kill "$E2E_PID" 2>/dev/null || true; fi
  if [ -n "${E2E_XVFB:-}" ]; then kill "$E2E_XVFB" 2>/dev/null || true; fi
  rm -rf "$E2E_HOME"
}
trap cleanup EXIT

# Fake Mac tools first on PATH; each logs its call to $E2E_TOOLS/tools.log.
install_fake_tools() {
  E2E_TOOLS="$E2E_HOME/tools"
  mkdir -p "$E2E_TOOLS/answers"
  local fake; fake="$(cd "$(dirname "${BASH_SOURCE[0]}")/../fakes" && pwd)/fake_tool"
  for tool in osascript shortcuts open; do cp "$fake" "$E2E_TOOLS/$tool"; done
  export PATH="$E2E_TOOLS:$PATH"
}

# A store of `palettes` palettes of 10 x 10; extra Python statements may edit `data` before it is written.
write_store() {
  mkdir -p "$E2E_DATA"
  python3 - "$E2E_DATA/PreserveState.txt" "$1" "${2:-}" <<'PY'
import json, sys
path, palettes, edit = sys.argv[1], int(sys.argv[2]), sys.argv[3]
letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
data = [{"LastPaletteIndex": palettes - 1, "CurrentPalette": 0, "ReuseablePalette": "",
         "WinTop": 0, "WinLeft": 0, "WinHeight": 0, "WinWidth": 0}]
for p in range(palettes):
    for i in range(100):
        data.append({"sID": "%02d" % i, "Shortcut": letters[i] if i < 52 else "\u2400", "Tip": "", "Info": "",
                     "ShortcutShow": False, "Vis": True, "ASfile": "", "SCname": "", "AutoMin": 0,
                     "Clipbrd": 0, "PaletteGo": "", "KM_Active": False})
    data.append({"numRows": 10, "numColumns": 10, "paleName": "P%02d" % p, "paleAlias": "Palette %d" % p,
                 "paleWinTitle": "ZOR P%02d" % p, "paleParticulars": ""})
def button(p, i): return data[1 + p * 101 + i]
exec(edit)
open(path, "w", encoding="utf-8").write(json.dumps(data, ensure_ascii=False))
PY
}

# Clicks the centre of button `index` of a palette window of `rows` rows.
click_button() { # index, rows of the palette, and the mouse button (1 unless given)
  local index=$1 rows=$2
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  local bar=$((HEIGHT - rows * 64 - 30))
  xdotool mousemove $((X + (index % 10) * 64 + 32)) $((Y + bar + (index / 10) * 64 + 32)) click "${3:-1}"
}

# A popup of the program on screen (a menu: the window manager does not frame it).
popup_shown() {
  local win
  for win in $(xdotool search --all --pid "$E2E_PID" --onlyvisible --name '' 2>/dev/null || true); do
    xwininfo -id "$win" 2>/dev/null | grep -q 'Override Redirect State: yes' && return 0
  done
  return 1
}
