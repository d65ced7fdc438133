#!/usr/bin/env bash
# SIGKILL at a random instant of the saving quit, KILLS times (200 unless told): a store of 100
# palettes, Ctrl+1, Ctrl+Q, then the kill after a random part of the time the new store takes to
# stand. After every kill PreserveState.txt is the old store or the new one, and nothing else under
# home changed but the emergency folder.
source "$(dirname "$0")/../e2e/lib.bash"
KILLS=${KILLS:-200}
E2E_START_TRIES=5
install_fake_tools
write_store 100 'data[1 + 1 * 101 + 100]["paleWinTitle"] = "ZOR P01"'
# The folders the program makes at its first start are there already, as for every later start.
mkdir -p "$E2E_DATA"/{ButtonPictures,Apple_Scripts,EmergencyPreserveStateBU}
start_display
PRISTINE="$(mktemp -d)"
trap 'cat "$E2E_HOME/program.log" >&2 2>/dev/null; rm -rf "$PRISTINE"; cleanup' EXIT
cp -a "$E2E_HOME/.local" "$PRISTINE/"
OLD="$PRISTINE/old.txt"
cp "$E2E_DATA/PreserveState.txt" "$OLD"
NEW="$PRISTINE/new.txt"

# Every file and folder under home with its checksum, but the emergency folder, the data file
# and this test's own files (the log, the tools, the display's pipe and answer, the window's id).
snapshot() {
  (cd "$E2E_HOME" && find . \( -path ./.local/share/net.lunvale.ZOR-Palette/EmergencyPreserveStateBU \
      -o -path ./tools -o -name program.log -o -name display -o -name xdpyinfo -o -name window \) -prune -o -print | sort |
    grep -v -e '^./took$' -e '^./sent$' -e '^./watching$' |
    while read -r item; do
      if [ -f "$item" ] && [ "$item" != ./.local/share/net.lunvale.ZOR-Palette/PreserveState.txt ]; then
        echo "$item $(sha1sum <"$item" | cut -c1-40)"
      else
        echo "$item"
      fi
    done)
}

restore_home() {
  rm -rf "$E2E_HOME/.local"
  cp -a "$PRISTINE/.local" "$E2E_HOME/"
}

# Starts the program, switches to P01 and asks it to quit; SENT is when the request went.
switch_and_quit() {
  start_program
  focus_window
  send_keys ctrl+1
  wait_until 60 title_is "ZOR P01" || fail "Ctrl+1 did not switch to P01"
  SENT=$(date +%s.%N)
  xdotool key ctrl+q
}

BEFORE="$(snapshot)"
# The quit uninterrupted, three times: how long after Ctrl+Q the new store is renamed into place
# (its inode changes), watched from before the key goes, and the new store it writes.
times=()
for _ in 1 2 3; do
  restore_home
  rm -f "$E2E_HOME/watching" "$E2E_HOME/sent"
  python3 - "$E2E_DATA/PreserveState.txt" "$E2E_HOME" >"$E2E_HOME/took" <<'PY' &
import os, sys, time
path, home = sys.argv[1], sys.argv[2]
inode = os.stat(path).st_ino
open(home + "/watching", "w").close()
deadline = time.time() + 120
while time.time() < deadline:
    try:
        if os.stat(path).st_ino != inode:
            break
    except FileNotFoundError:
        pass
    time.sleep(0.0002)
done = time.time()
while not os.path.exists(home + "/sent") or not open(home + "/sent").read().strip():
    time.sleep(0.01)
print("%.4f" % (done - float(open(home + "/sent").read())))
PY
  watcher=$!
  wait_until 60 test -e "$E2E_HOME/watching" || fail "the watcher did not start"
  switch_and_quit
  echo "$SENT" >"$E2E_HOME/sent"
  wait "$watcher"
  took=$(cat "$E2E_HOME/took")
  wait_for_exit
  times+=("$took")
  cp "$E2E_DATA/PreserveState.txt" "$NEW"
  cmp -s "$NEW" "$OLD" && fail "the quit after a palette switch saved nothing"
  [ "$(snapshot)" = "$BEFORE" ] || fail "an uninterrupted quit changed more than the store: $(diff <(echo "$BEFORE") <(snapshot))"
done
python3 - "$NEW" <<'PY' || fail "the new store is not on P01"
import json, sys
assert json.load(open(sys.argv[1], encoding="utf-8"))[0]["CurrentPalette"] == 1
PY
quit_time=$(printf '%s\n' "${times[@]}" | sort -n | sed -n 2p) # the median of three
[[ "$quit_time" == -* ]] && quit_time=0
echo "the new store stands ${quit_time}s after Ctrl+Q (${times[*]})"

old=0 new=0 gone=0
for ((k = 1; k <= KILLS; k++)); do
  restore_home
  switch_and_quit
  sleep "$(awk -v max="$quit_time" -v seed="$RANDOM$k" 'BEGIN { srand(seed); printf "%.4f", rand() * max }')"
  if kill -KILL "$E2E_PID" 2>/dev/null; then :; else gone=$((gone + 1)); fi
  wait "$E2E_PID" 2>/dev/null || true
  # The next start waits until the server has let go of this one (see start_program).
  wait_until 30 eval '! xdotool search --pid "$E2E_PID" >/dev/null' || true
  E2E_PID=
  file="$E2E_DATA/PreserveState.txt"
  if cmp -s "$file" "$OLD"; then
    old=$((old + 1))
  elif cmp -s "$file" "$NEW"; then
    new=$((new + 1))
  else
    fail "kill $k left a PreserveState.txt that is neither the old store nor the new one"
  fi
  [ "$(snapshot)" = "$BEFORE" ] || fail "kill $k changed more than the store: $(diff <(echo "$BEFORE") <(snapshot))"
  echo "kill $k: old $old, new $new, already ended $gone"
done
echo "kill during save: $KILLS kills, $old left the old store, $new the new one ($gone had already ended); ${E2E_STARTS_LOST:-0} starts ended before their window; ok"
