#!/usr/bin/env bash
# SIGKILL at a random instant of a run of edits, KILLS times (200 unless told): a store of 100
# palettes, then Ctrl+1, Ctrl+2, Ctrl+3 (each switch is saved at once) and Ctrl+Q (the saving quit).
# Each kill falls at a random instant of one step, chosen at random, after the steps before it have
# shown on screen. After every kill PreserveState.txt is the store as it stood after the last step
# shown or after the step in progress: no completed change is lost, nothing is half written, and
# nothing else under home changed but the emergency folder and the save's scratch copy.
source "$(dirname "$0")/../e2e/lib.bash"
KILLS=${KILLS:-200}
E2E_START_TRIES=5
STEPS=(ctrl+1 ctrl+2 ctrl+3 ctrl+q)
install_fake_tools
write_store 100
# The folders the program makes at its first start are there already, as for every later start.
mkdir -p "$E2E_DATA"/{ButtonPictures,Apple_Scripts,EmergencyPreserveStateBU}
start_display
PRISTINE="$(mktemp -d)"
trap 'cat "$E2E_HOME/program.log" >&2 2>/dev/null; rm -rf "$PRISTINE"; cleanup' EXIT
cp -a "$E2E_HOME/.local" "$PRISTINE/"
cp "$E2E_DATA/PreserveState.txt" "$PRISTINE/state0.txt"

# Every file and folder under home with its checksum, but the emergency folder, the data file, the
# save's scratch copy beside it, the cache of decoded pictures (made again from the pictures
# whenever missing), and this test's own files (the log, the tools, the display's pipe and answer,
# the window's id).
snapshot() {
  (cd "$E2E_HOME" && find . \( -path ./.local/share/net.lunvale.ZOR-Palette/EmergencyPreserveStateBU \
      -o -path ./.cache -o -path ./tools -o -name program.log -o -name display -o -name xdpyinfo -o -name window \
      -o -name .PreserveState.txt.saving \) -prune -o -print | sort |
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

now() { date +%s.%N; }

# Step `k` (1-based) of STEPS; a switch is done when its title shows, the quit when the program ends.
step_sent() { send_keys "${STEPS[$(($1 - 1))]}"; }
step_done() {
  if [ "$1" -lt ${#STEPS[@]} ]; then
    wait_until 60 title_is "ZOR P0$1" || fail "${STEPS[$(($1 - 1))]} did not switch to P0$1"
  else
    wait_for_exit
  fi
}

BEFORE="$(snapshot)"
# The run uninterrupted, three times: how long each step takes from its key to its end, and the
# store after each.
took=() # run r's time of step k at took[k * 10 + r]
for run in 1 2 3; do
  restore_home
  start_program
  for ((k = 1; k <= ${#STEPS[@]}; k++)); do
    sent=$(now)
    step_sent "$k"
    step_done "$k"
    took[k * 10 + run]=$(awk -v a="$sent" -v b="$(now)" 'BEGIN { printf "%.4f", b - a }')
    cp "$E2E_DATA/PreserveState.txt" "$PRISTINE/state$k.txt"
    cmp -s "$PRISTINE/state$k.txt" "$PRISTINE/state$((k - 1)).txt" && [ "$k" -lt ${#STEPS[@]} ] &&
      fail "step $k (${STEPS[k - 1]}) saved nothing at once"
  done
  [ "$(snapshot)" = "$BEFORE" ] || fail "an uninterrupted run changed more than the store: $(diff <(echo "$BEFORE") <(snapshot))"
done
python3 - "$PRISTINE" <<'PY' || fail "the stores saved along the run are not on P01, P02, P03"
import json, sys
for k in (1, 2, 3, 4):
    assert json.load(open(f"{sys.argv[1]}/state{k}.txt", encoding="utf-8"))[0]["CurrentPalette"] == min(k, 3)
PY
median() { printf '%s\n' "$@" | sort -n | sed -n 2p; }
declare -a limit
for ((k = 1; k <= ${#STEPS[@]}; k++)); do
  limit[k]=$(median "${took[k * 10 + 1]}" "${took[k * 10 + 2]}" "${took[k * 10 + 3]}")
  echo "step $k (${STEPS[k - 1]}) ends ${limit[$k]}s after its key (median of three)"
done

lost=0 inprogress=0 gone=0
for ((kill = 1; kill <= KILLS; kill++)); do
  restore_home
  start_program
  step=$((1 + RANDOM % ${#STEPS[@]}))
  for ((k = 1; k < step; k++)); do step_sent "$k"; step_done "$k"; done
  step_sent "$step"
  sleep "$(awk -v max="${limit[$step]}" -v seed="$RANDOM$kill" 'BEGIN { srand(seed); printf "%.4f", rand() * max }')"
  if kill -KILL "$E2E_PID" 2>/dev/null; then :; else gone=$((gone + 1)); fi
  wait "$E2E_PID" 2>/dev/null || true
  # The next start waits until the server has let go of this one (see start_program).
  wait_until 30 eval '! xdotool search --pid "$E2E_PID" >/dev/null' || true
  E2E_PID=
  file="$E2E_DATA/PreserveState.txt"
  if cmp -s "$file" "$PRISTINE/state$((step - 1)).txt"; then
    lost=$((lost + 1))
  elif cmp -s "$file" "$PRISTINE/state$step.txt"; then
    inprogress=$((inprogress + 1))
  else
    fail "kill $kill during step $step left a PreserveState.txt that is neither the store after step $((step - 1)) nor after step $step"
  fi
  [ "$(snapshot)" = "$BEFORE" ] || fail "kill $kill changed more than the store: $(diff <(echo "$BEFORE") <(snapshot))"
  echo "kill $kill during step $step: the step before kept $lost, the step in progress saved $inprogress, already ended $gone"
done
echo "kill during a run of edits: $KILLS kills, $lost left the store of the step before, $inprogress the one of the step in progress ($gone had already ended); ${E2E_STARTS_LOST:-0} starts ended before their window; ok"
