# Shared by the end-to-end tests: a temporary home, a private X server, and the program in it.
set -euo pipefail

E2E_BIN="$1"
E2E_HOME="$(mktemp -d)"
E2E_DATA="$E2E_HOME/.local/share/net.lunvale.ZOR-Palette"
mkdir -p "$E2E_HOME/.local/share" "$E2E_HOME/Desktop"
export HOME="$E2E_HOME" XDG_DATA_HOME="$E2E_HOME/.local/share" XDG_CONFIG_HOME="$E2E_HOME/.config" XDG_CACHE_HOME="$E2E_HOME/.cache"
unset QT_QPA_PLATFORM
# No session bus, as on the Mac. Without an address, Qt's menu bar asks libdbus for one, which
# forks a helper from its own thread at every start; under the sanitizers that child can hang on
# the allocator's lock held by another thread, and the window never comes.
export DBUS_SESSION_BUS_ADDRESS="unix:path=$E2E_HOME/no-session-bus"

fail() { echo "FAIL: $*" >&2; exit 1; }

# Waits up to `seconds` for a command to succeed, polling; a busy machine or a sanitizer build
# is slow, so the limits are generous and nothing waits a fixed time.
wait_until() {
  local seconds=$1; shift
  local deadline=$((SECONDS + seconds))
  until "$@" 2>/dev/null; do
    [ $SECONDS -lt $deadline ] || return 1
    sleep 0.05
  done
}

# A private X server. It picks its own free display number and tells it through a pipe, so two
# tests started at once never share a server; the answer then comes from this very process.
start_display() {
  local fdfile="$E2E_HOME/display"
  # An odd screen height of its own lets the test know its server when it answers.
  E2E_SCREEN="1280x$((1000 + RANDOM % 200))"
  Xvfb -displayfd 3 -screen 0 "${E2E_SCREEN}x24" -nolisten tcp 3>"$fdfile" >/dev/null 2>&1 &
  E2E_XVFB=$!
  wait_until 30 grep -q '[0-9]' "$fdfile" || fail "no X server could be started"
  export DISPLAY=":$(tr -dc 0-9 <"$fdfile")"
  # One answer is kept and read: Xvfb now and then hangs up on a client the instant it connects
  # (see start_program), so a second question could go unanswered where the first was not.
  local answer="$E2E_HOME/xdpyinfo"
  wait_until 30 eval 'xdpyinfo >"$answer"' || fail "the X server on $DISPLAY does not answer"
  [[ "$(cat "$answer")" =~ dimensions:\ *$E2E_SCREEN\ pixels ]] || fail "the server on $DISPLAY is not the one this test started"
}

# Starts the program and waits for its window. Now and then Xvfb hangs up on a client the
# instant it connects (strace shows the connect succeed and the server close it before the
# setup; its audit log never lists the client), and Qt then aborts with "could not connect to
# display". It came far more often while other clients of the server came and went, so none does
# while the program starts: one xdotool waits for the window in a single connection, and the
# program's life is watched with kill. A start that still ends before its window is told with
# its status and log and tried again, up to E2E_START_TRIES times (2 unless told).
start_program() {
  local try status finder deadline
  for ((try = 1; try <= ${E2E_START_TRIES:-2}; try++)); do
    "$E2E_BIN" >"$E2E_HOME/program.log" 2>&1 &
    E2E_PID=$!
    : >"$E2E_HOME/window"
    deadline=$((SECONDS + 60))
    # xdotool ends at once, with nothing found, on an X error such as a window going while it
    # looks; then it is asked again.
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

# The first visible window of the program with this title, other than the palette window.
# Without --all, xdotool takes windows of the process *or* of the name. Menus are left out: their
# popups bear the program's name as title, as its messages do.
window_named() {
  local win
  for win in $(xdotool search --all --pid "$E2E_PID" --onlyvisible --name "^$1\$" 2>/dev/null || true); do
    [ "$win" != "$E2E_WIN" ] || continue
    xwininfo -id "$win" 2>/dev/null | grep -q 'Override Redirect State: no' || continue
    echo "$win"
    return 0
  done
  return 1
}
# The same, in $FOUND, for waiting on it.
found() { FOUND=$(window_named "$1"); }

has_focus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]; }

# Keys go only to a window that holds the focus; otherwise they would fall on nothing.
focus_window() {
  local win=${1:-$E2E_WIN}
  wait_until 30 xdotool windowfocus --sync "$win" || true
  wait_until 30 has_focus "$win" || fail "window $win did not take the focus"
}

send_keys() { focus_window; xdotool key "$@"; }

title_is() { [ "$(xdotool getwindowname "$E2E_WIN" 2>/dev/null)" = "$1" ]; }

# Waits for the program to end by itself, and well: a sanitizer's report at exit (a leak) makes
# the status other than 0.
wait_for_exit() {
  local status=0
  wait_until 60 eval '! kill -0 "$E2E_PID"' || fail "the program did not quit: $(cat "$E2E_HOME/program.log")"
  wait "$E2E_PID" || status=$?
  [ "$status" -eq 0 ] || fail "the program ended with status $status: $(cat "$E2E_HOME/program.log")"
}

cleanup() {
  [ -n "${E2E_PID:-}" ] && kill "$E2E_PID" 2>/dev/null || true
  [ -n "${E2E_XVFB:-}" ] && kill "$E2E_XVFB" 2>/dev/null || true
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
click_button() {
  local index=$1 rows=$2
  eval "$(xdotool getwindowgeometry --shell "$E2E_WIN")"
  local bar=$((HEIGHT - rows * 64 - 30))
  xdotool mousemove $((X + (index % 10) * 64 + 32)) $((Y + bar + (index / 10) * 64 + 32)) click 1
}
