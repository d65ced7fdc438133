#!/usr/bin/env bash
# First start ever, then Ctrl+Q: the store, its folders and a first emergency copy are left behind.
source "$(dirname "$0")/lib.bash"
start_display
start_program
[ -d "$E2E_DATA/ButtonPictures" ] || fail "ButtonPictures was not created"
[ -d "$E2E_DATA/Apple_Scripts" ] || fail "Apple_Scripts was not created"
send_keys ctrl+q
wait_for_exit
file="$E2E_DATA/PreserveState.txt"
[ -f "$file" ] || fail "PreserveState.txt was not written"
python3 - "$file" <<'PY' || fail "PreserveState.txt is not the expected store"
import json, sys
raw = open(sys.argv[1], 'rb').read()
assert not raw.startswith(b'\xef\xbb\xbf') and not raw.endswith(b'\n')
data = json.loads(raw)
assert len(data) == 102, len(data)
assert data[0]['LastPaletteIndex'] == 0 and data[0]['CurrentPalette'] == 0
assert data[0]['WinWidth'] == 640, data[0]
assert data[101]['paleAlias'] == 'Original' and data[101]['paleWinTitle'] == 'ZOR Palette'
PY
copies=$(ls "$E2E_DATA/EmergencyPreserveStateBU" | grep -c 'PreserveStateBU.txt$' || true)
[ "$copies" = 1 ] || fail "expected one emergency copy, found $copies"
echo "first start and quit: ok"
