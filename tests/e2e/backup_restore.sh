#!/usr/bin/env bash
# A backup made by Make Backup in one run is restored by Restore Backup in the next, the file typed
# into the open-file dialog.
source "$(dirname "$0")/lib.bash"
start_display
write_store 3

keys_to() {
  local title=$1; shift
  wait_until 30 found "$title" || fail "no window \"$title\" appeared"
  focus_window "$FOUND"
  xdotool key "$@"
}

# Help >> Manage PreserveState Backup: the Help menu is left of Edit, the item second from its end.
open_backup_window() {
  send_keys alt+e
  xdotool key Left Up Up Return
  wait_until 30 found "Manage PreserveState Backup" || fail "the backup window did not open"
}

# Run 1: switch palettes (saved at once), then Make Backup, which copies the file as it stands.
start_program
send_keys ctrl+1
wait_until 30 title_is "ZOR P01" || fail "Ctrl+1 did not switch to P01"
open_backup_window
keys_to "Manage PreserveState Backup" shift+Tab space # Cancel has the focus; Make Backup is before it
keys_to "Making PreserveState Backup" Return
# The backup is made between the two showings of the same message.
wait_until 30 eval 'ls "$E2E_HOME/Desktop" | grep -q "PreserveStateBU.txt$"' || fail "no backup reached the Desktop"
keys_to "Making PreserveState Backup" Return
wait_for_exit
# shellcheck disable=SC2010 # the names are the program's own stamps
backup=$(ls "$E2E_HOME/Desktop" | grep -E '^[0-9]{6}_[0-9]{4}PreserveStateBU\.txt$' || true)
[ -n "$backup" ] || fail "no backup on the Desktop: $(ls -a "$E2E_HOME/Desktop")"
python3 - "$E2E_HOME/Desktop/$backup" "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the backup or the saved file is not as expected"
import json, sys
assert json.load(open(sys.argv[1]))[0]['CurrentPalette'] == 1
assert json.load(open(sys.argv[2]))[0]['CurrentPalette'] == 1
PY
cp "$E2E_HOME/Desktop/$backup" "$E2E_HOME/backup.copy"

# Run 2: it starts on P01 and switches to P02 (saved at once); Restore Backup with the backup typed
# into the dialog puts the P01 store back, and keeps the P02 one.
start_program
wait_until 30 title_is "ZOR P01" || fail "the second run did not start on P01"
send_keys ctrl+2
wait_until 30 title_is "ZOR P02" || fail "Ctrl+2 did not switch to P02"
python3 - "$E2E_DATA/PreserveState.txt" <<'PY' || fail "the switch to P02 was not saved at once"
import json, sys
assert json.load(open(sys.argv[1]))[0]['CurrentPalette'] == 2
PY
cp "$E2E_DATA/PreserveState.txt" "$E2E_HOME/saved.copy"
open_backup_window
keys_to "Manage PreserveState Backup" Tab space # from Cancel to Restore Backup
wait_until 30 found "Choose Restoring File" || fail "the open-file dialog did not appear"
focus_window "$FOUND"
xdotool type --delay 20 "$E2E_HOME/Desktop/$backup"
xdotool key Return
keys_to "Backup Data Restored" Return
wait_for_exit
cmp -s "$E2E_HOME/backup.copy" "$E2E_DATA/PreserveState.txt" || fail "PreserveState.txt is not the backup"
[ ! -e "$E2E_HOME/Desktop/$backup" ] || fail "the backup is still on the Desktop"
kept=false
for f in "$E2E_DATA"/EmergencyPreserveStateBU/*PreserveStateBU.txt; do
  cmp -s "$f" "$E2E_HOME/saved.copy" && kept=true
done
$kept || fail "the replaced file is not in EmergencyPreserveStateBU: $(ls "$E2E_DATA/EmergencyPreserveStateBU")"

echo "backup and restore across runs: ok"
