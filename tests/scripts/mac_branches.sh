#!/usr/bin/env bash
# What a Mac runs of the scripts, checked here: shellcheck over every script, no construct that
# bash 3.2 or the BSD tools lack in the scripts a Mac runs, and test.sh's Mac branch run on a PATH
# of fakes (uname says Darwin) under its own `set -u`, leaving out the tests that need X.
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/../.." && pwd)"
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

# Every shell script of scripts/, tests/ and .ci/: by its ending or its first line.
scripts=()
while IFS= read -r file; do
  case $file in
    *.sh | *.bash) scripts+=("$file") ;;
    *) head -n1 "$file" | grep -qE '^#!.*(ba)?sh' && scripts+=("$file") ;;
  esac
done < <(find "$ROOT/scripts" "$ROOT/tests" "$ROOT/.ci" -type f ! -name '*.py' ! -name '*.cpp' ! -name '*.h' \
           ! -name '*.txt' ! -name '*.png' ! -name '*.json' 2>/dev/null | sort)
[ ${#scripts[@]} -gt 10 ] || fail "found only ${#scripts[@]} scripts"
if command -v shellcheck >/dev/null; then
  (cd "$ROOT" && shellcheck -x "${scripts[@]}") || fail "shellcheck found the faults above"
elif [ "$(uname)" != Darwin ]; then
  fail "shellcheck is not installed (scripts/install-deps.sh installs it)"
fi

# The scripts a Mac runs, and for install-deps.sh its Mac part (up to the end of its Darwin branch).
mac_text() {
  local name
  for name in common.sh test.sh run.sh package-mac.sh macos-minimum.sh; do
    grep -n '' "$ROOT/scripts/$name" | sed "s|^|$name:|"
  done
  awk '{ print "install-deps.sh:" NR ":" $0 } /^fi$/ { exit }' "$ROOT/scripts/install-deps.sh"
}
mac_text | grep -v ':[0-9]*: *#' >"$WORK/mac"
# Each: a pattern, and why bash 3.2 or the BSD tools refuse it.
while IFS=$'\t' read -r pattern why; do
  if grep -E -- "$pattern" "$WORK/mac" >"$WORK/found"; then fail "$why: $(cat "$WORK/found")"; fi
done <<'RULES'
\$\{[A-Za-z_]+(,,|\^\^)	case conversion ${x,,} is bash 4
(^|[^A-Za-z_])(mapfile|readarray)[[:space:]]	mapfile is bash 4
(declare|local|typeset) -A	associative arrays are bash 4
sed -i( |$)	BSD sed -i wants a suffix argument
date [^|]*%N	BSD date has no %N
readlink -f	BSD readlink has no -f
(^|[^A-Za-z_.-])(timeout|nproc|sha1sum)([[:space:]]|$)	the Mac has no timeout, nproc or sha1sum
(^|[^+])"\$\{[A-Za-z_]+\[@\]\}"	an empty array's "${a[@]}" is unbound under set -u in bash 3.2: write ${a[@]+"${a[@]}"}
RULES

# test.sh as a Mac runs it: fakes log their calls; ctest must leave out the X tests.
mkdir -p "$WORK/bin"
fake() { printf '#!/bin/bash\necho "%s $*" >>"%s"\n%s\n' "$1" "$WORK/log" "$2" >"$WORK/bin/$1"; chmod +x "$WORK/bin/$1"; }
fake uname 'echo Darwin'
fake brew 'echo /opt/homebrew/opt/qt'
fake xcode-select 'echo /Library/Developer/CommandLineTools'
fake cmake 'while [ $# -gt 0 ]; do [ "$1" != -B ] || mkdir -p "$2"; shift; done'
fake ctest ''
# The plain run: no extra CMake arguments, the array that bash 3.2 calls unbound when empty.
PATH="$WORK/bin:$PATH" BUILD="$WORK/build" PRESET='' bash -u "$ROOT/scripts/test.sh" >"$WORK/out" 2>&1 ||
  fail "test.sh on a Mac stopped: $(cat "$WORK/out")"
jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)
grep -qxF "cmake -S $ROOT -B $WORK/build -G Ninja -DCMAKE_BUILD_TYPE=Debug" "$WORK/log" ||
  fail "test.sh on a Mac configured otherwise: $(cat "$WORK/log")"
grep -qxF "ctest --output-on-failure -j $jobs -LE e2e|soak" "$WORK/log" ||
  fail "test.sh on a Mac did not leave out the tests that need X: $(cat "$WORK/log")"
echo "ok: ${#scripts[@]} scripts"
