# Shared by the end-to-end tests: a temporary home, a private X server, and the program in it.
set -euo pipefail

E2E_BIN="$1"
E2E_HOME="$(mktemp -d)"
E2E_DATA="$E2E_HOME/.local/share/net.lunvale.ZOR-Palette"
mkdir -p "$E2E_HOME/.local/share" "$E2E_HOME/Desktop"
export HOME="$E2E_HOME" XDG_DATA_HOME="$E2E_HOME/.local/share" XDG_CONFIG_HOME="$E2E_HOME/.config"
unset QT_QPA_PLATFORM

fail() { echo "FAIL: $*" >&2; exit 1; }

start_display() {
  for n in $(seq 90 140); do
    [ -e "/tmp/.X11-unix/X$n" ] || [ -e "/tmp/.X$n-lock" ] && continue
    Xvfb ":$n" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    E2E_XVFB=$!
    export DISPLAY=":$n"
    for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && return 0; sleep 0.1; done
  done
  fail "no X server could be started"
}

start_program() {
  "$E2E_BIN" >"$E2E_HOME/program.log" 2>&1 &
  E2E_PID=$!
  for _ in $(seq 100); do
    E2E_WIN=$(xdotool search --pid "$E2E_PID" --onlyvisible 2>/dev/null | head -n1 || true)
    [ -n "$E2E_WIN" ] && return 0
    sleep 0.1
  done
  fail "the palette window did not appear"
}

# Waits for the program to end by itself, within 10 seconds.
wait_for_exit() {
  for _ in $(seq 100); do kill -0 "$E2E_PID" 2>/dev/null || { wait "$E2E_PID" || true; return 0; }; sleep 0.1; done
  fail "the program did not quit"
}

cleanup() {
  [ -n "${E2E_PID:-}" ] && kill "$E2E_PID" 2>/dev/null || true
  [ -n "${E2E_XVFB:-}" ] && kill "$E2E_XVFB" 2>/dev/null || true
  rm -rf "$E2E_HOME"
}
trap cleanup EXIT
