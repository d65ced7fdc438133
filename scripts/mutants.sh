#!/usr/bin/env bash
# Puts the faults listed in tests/mutants.txt into a scratch copy of the tree, one at a time,
# rebuilds, runs the suite and tells whether a test caught each. Slow: run it by hand, not in CI.
#
#   scripts/mutants.sh [--e2e | --check] [PATTERN]
#     --e2e     run the end-to-end tests too (they are left out by default; the kill test always is)
#     --check   only tell which faults no longer apply (their text not found once), in seconds
#     PATTERN   only the faults whose line contains this text
#
# The copy and its build folder stay in $MUTANTS_DIR (default /tmp/zor-mutants-<uid>), so a second
# run and each fault rebuild only what changed. $MUTANTS_LIST names another list of faults.
# $MUTANTS_TESTS (say "tst_store tst_backup") builds and runs only those tests: quick while
# reworking a test file, but a fault it misses may still be caught by another test.
# $MUTANTS_EVERY=1 runs every test for each fault, not only up to the first that fails, and names
# every test function that caught it: slower, but it shows which tests no fault needs.
# A fault whose text is not found once in its file, or that does not build, is an error, never
# counted as caught. Exit status 0 only when every fault was caught.
set -uo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
LIST="${MUTANTS_LIST:-$ROOT/tests/mutants.txt}"
WORK="${MUTANTS_DIR:-${TMPDIR:-/tmp}/zor-mutants-$(id -u)}"
TREE="$WORK/tree"
BUILD="$WORK/build"
LOGS="$WORK/logs"
E2E=0
CHECK=0
PATTERN=""
for arg in "$@"; do
  case "$arg" in
    --e2e) E2E=1 ;;
    --check) CHECK=1 ;;
    -h|--help) sed -n '2,17p' "$0"; exit 0 ;;
    *) PATTERN="$arg" ;;
  esac
done
if [ "$CHECK" = 1 ]; then
  python3 - "$LIST" "$ROOT" "$PATTERN" <<'PY'
import sys
lines = open(sys.argv[1], encoding="utf-8").read().split("\n")
bad = 0
for number, line in enumerate(lines, 1):
    if not line or line.startswith("#") or sys.argv[3] not in line:
        continue
    fields = line.split("\t")
    try:
        text = open(sys.argv[2] + "/" + fields[0], encoding="utf-8").read()
        count = text.count(fields[1].replace("¶", "\n")) if len(fields) == 3 else -1
    except OSError:
        count = -2
    if count != 1:
        bad += 1
        why = {-1: "needs three columns", -2: "no such file", 0: "text not found"}.get(count, f"text found {count} times")
        print(f"{number}: {why}: {line[:150]}")
print(f"check: {bad} faults no longer apply")
sys.exit(1 if bad else 0)
PY
  exit $?
fi
if [ "$(uname)" = Darwin ]; then
  export CMAKE_PREFIX_PATH="${CMAKE_PREFIX_PATH:-$(brew --prefix qt)}"
  JOBS=$(sysctl -n hw.ncpu)
else
  JOBS=$(nproc)
fi
export QT_QPA_PLATFORM=offscreen

# The copy follows the worktree by content: a file whose content is unchanged keeps its time
# stamp, so the build folder from an earlier run stays valid.
mkdir -p "$TREE" "$LOGS"
# The list as it stands now: it may be edited while the faults run.
cp "$LIST" "$WORK/mutants.txt"
LIST="$WORK/mutants.txt"
python3 - "$ROOT" "$TREE" <<'PY'
import filecmp, os, shutil, sys
root, tree = sys.argv[1], sys.argv[2]
wanted = set()
for folder, dirs, files in os.walk(root):
    if folder == root:
        dirs[:] = [d for d in dirs if d not in ("build", ".git")]
    for name in files:
        rel = os.path.relpath(os.path.join(folder, name), root)
        wanted.add(rel)
        source, target = os.path.join(root, rel), os.path.join(tree, rel)
        if not os.path.isfile(target) or not filecmp.cmp(source, target, shallow=False):
            os.makedirs(os.path.dirname(target), exist_ok=True)
            shutil.copy(source, target)
for folder, dirs, files in os.walk(tree):
    for name in files:
        path = os.path.join(folder, name)
        if os.path.relpath(path, tree) not in wanted:
            os.remove(path)
PY
rm -f "$LOGS"/*.log

targets=()
for t in "$TREE"/tests/tst_*.cpp; do targets+=("$(basename "$t" .cpp)"); done
# The kill test takes minutes and checks what the store's tests check quicker; it never runs here.
labels=(-LE 'e2e|soak')
if [ -n "${MUTANTS_TESTS:-}" ]; then
  read -ra targets <<<"$MUTANTS_TESTS"
  labels+=(-R "^($(IFS='|'; echo "${targets[*]}"))\$")
fi
if [ "$E2E" = 1 ]; then
  targets+=(ZOR_Palette)
  labels=(-LE soak)
fi

build() { cmake --build "$BUILD" -j "$JOBS" --target "${targets[@]}" >"$1" 2>&1; }
stop=(--stop-on-failure)
[ -n "${MUTANTS_EVERY:-}" ] && stop=(--output-on-failure)
suite() { (cd "$BUILD" && ctest ${labels[@]+"${labels[@]}"} -j "$JOBS" "${stop[@]}" >>"$1" 2>&1); }

echo "building the unchanged copy in $BUILD"
# No debug information, and a faster linker where there is one: every fault relinks each test,
# and linking is most of the time.
linker=()
[ "$(uname)" = Linux ] && command -v ld.lld >/dev/null && linker=(-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld)
cmake -S "$TREE" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DZOR_UNIT_TEST_TIMEOUT=120 \
  ${linker[@]+"${linker[@]}"} \
  >"$LOGS/configure.log" 2>&1 || {
  echo "configure failed: $LOGS/configure.log"; exit 2; }
build "$LOGS/base.log" || { echo "the unchanged tree does not build: $LOGS/base.log"; exit 2; }
suite "$LOGS/base.log" || { echo "the suite fails without any fault: $LOGS/base.log"; exit 2; }

# mutate FILE LINE: applies the fault on line LINE of the list to FILE in the copy; prints why not.
mutate() {
  python3 - "$LIST" "$1" "$TREE" <<'PY'
import sys
lines = open(sys.argv[1], encoding="utf-8").read().split("\n")
fields = lines[int(sys.argv[2]) - 1].split("\t")
if len(fields) != 3:
    sys.exit(f"needs three tab-separated columns, has {len(fields)}")
path, old, new = fields[0], fields[1].replace("¶", "\n"), fields[2].replace("¶", "\n")
full = sys.argv[3] + "/" + path
try:
    text = open(full, encoding="utf-8").read()
except OSError as e:
    sys.exit(f"cannot read {path}: {e.strerror}")
count = text.count(old)
if count != 1:
    sys.exit("text not found" if count == 0 else f"text found {count} times")
open(full, "w", encoding="utf-8").write(text.replace(old, new, 1))
PY
}

caught=0 missed=0 errors=0
missedLines=() errorLines=()
lineNo=0
while IFS= read -r line || [ -n "$line" ]; do
  lineNo=$((lineNo + 1))
  case "$line" in ''|'#'*) continue ;; esac
  [ -n "$PATTERN" ] && [[ "$line" != *"$PATTERN"* ]] && continue
  file="${line%%$'\t'*}"
  label="$lineNo: ${line//$'\t'/ | }"
  log="$LOGS/$lineNo.log"
  saved="$WORK/saved"
  if [ ! -f "$TREE/$file" ]; then
    echo "ERROR   $label (no such file)"; errors=$((errors + 1)); errorLines+=("$label"); continue
  fi
  cp "$TREE/$file" "$saved"
  if ! why=$(mutate "$lineNo" 2>&1); then
    echo "ERROR   $label ($why)"; errors=$((errors + 1)); errorLines+=("$label"); continue
  fi
  if ! build "$log"; then
    echo "ERROR   $label (does not build: $log)"; errors=$((errors + 1)); errorLines+=("$label")
  elif suite "$log"; then
    echo "MISSED  $label"; missed=$((missed + 1)); missedLines+=("$label")
  else
    by=$(grep -oE '(tst_|e2e_)[A-Za-z0-9_]+ \.+\**(Failed|Subprocess|Timeout|Exception)' "$log" |
         awk '{print $1}' | paste -sd, -)
    # With every test run, the functions that failed, or the whole test where it ended early.
    [ -n "${MUTANTS_EVERY:-}" ] &&
      by=$( (grep -oE 'FAIL!  : [A-Za-z0-9_]+::[A-Za-z0-9_]+' "$log" | awk '{print $3}'
             grep -oE '(tst_)[A-Za-z0-9_]+ \.+\**(Subprocess|Timeout|Exception)' "$log" | awk '{print $1}') |
           sort -u | paste -sd' ' -)
    echo "caught  $label (${by:-suite failed})"; caught=$((caught + 1))
  fi
  # A fresh time stamp, so that the next build compiles the file again from its true content.
  cat "$saved" >"$TREE/$file"
done <"$LIST"
build "$LOGS/restore.log" >/dev/null 2>&1 || true

total=$((caught + missed))
echo
[ "${#missedLines[@]}" -gt 0 ] && { echo "missed:"; printf '  %s\n' "${missedLines[@]}"; }
[ "${#errorLines[@]}" -gt 0 ] && { echo "errors:"; printf '  %s\n' "${errorLines[@]}"; }
if [ "$total" -gt 0 ]; then
  echo "score: $caught of $total faults caught ($((100 * caught / total)) %), $errors errors"
else
  echo "score: no fault ran, $errors errors"
fi
[ "$missed" = 0 ] && [ "$errors" = 0 ]
