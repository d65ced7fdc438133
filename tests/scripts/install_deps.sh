#!/usr/bin/env bash
# The install step on machines that lack what it installs: a PATH with the basic tools alone and
# fakes of the package tools, which log what they are asked. On a fresh machine it must go on
# without clang++ (and without every other tool it is about to install), and each way it can
# fail must say why in one line.
set -euo pipefail
ROOT="$(cd "$(dirname "$0")/../.." && pwd)"
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

BASIC=(bash sed grep head id uname dirname basename cat getconf env tr awk)
# setup: a fresh bin folder with the basic tools, then each fake given as NAME=SCRIPT.
setup() {
  rm -rf "${WORK:?}/bin"; mkdir -p "$WORK/bin"; : >"$WORK/log"
  local tool
  for tool in "${BASIC[@]}"; do ln -s "$(command -v "$tool")" "$WORK/bin/$tool"; done
  for fake in "$@"; do
    rm -f "$WORK/bin/${fake%%=*}"
    printf '#!/bin/bash\necho "%s $*" >>"%s"\n%s\n' "${fake%%=*}" "$WORK/log" "${fake#*=}" >"$WORK/bin/${fake%%=*}"
    chmod +x "$WORK/bin/${fake%%=*}"
  done
}
# run SCRIPT EXPECTED_STATUS: runs a script of scripts/ on that PATH; its stderr is in $WORK/err.
run() {
  local status=0
  PATH="$WORK/bin" bash "$ROOT/scripts/$1" >/dev/null 2>"$WORK/err" || status=$?
  [ "$status" = "$2" ] || fail "$1 ended with $status, not $2: $(cat "$WORK/err")"
}
said() { grep -qF -- "$1" "$WORK/err" || fail "expected '$1' among: $(cat "$WORK/err")"; }
asked() { grep -qxF -- "$1" "$WORK/log" || fail "expected the call '$1' among: $(cat "$WORK/log")"; }
one_line() { [ "$(wc -l <"$WORK/err")" = 1 ] || fail "expected one line, got: $(cat "$WORK/err")"; }

LIST="cmake ninja-build g++ qt6-base-dev nlohmann-json3-dev libdeflate-dev python3 xvfb xauth xdotool libxcb1-dev x11-utils imagemagick fonts-dejavu-core shellcheck clang libc++-dev libc++abi-dev"
NOTHING='exit 1' ROOT_ID='echo 0' CLANG_DEPENDS='printf "clang\n  Depends: clang-14\n"'

# A fresh Debian root: no clang++, nothing installed; clang's version comes from its package.
setup dpkg-query="$NOTHING" apt-get= apt-cache="$CLANG_DEPENDS" id="$ROOT_ID"
run install-deps.sh 0
asked "apt-get update -q"
asked "apt-get install -y -q --no-install-recommends $LIST libclang-rt-14-dev"

# Everything there but the fuzzing runtime of the clang++ that stands on PATH.
setup dpkg-query='[ "$3" != libclang-rt-16-dev ] && echo "install ok installed"' apt-get= id="$ROOT_ID" \
  clang++='echo "Debian clang version 16.0.6 (15)"'
run install-deps.sh 0
asked "apt-get install -y -q --no-install-recommends libclang-rt-16-dev"

# Everything there: apt-get is not asked at all.
setup dpkg-query='echo "install ok installed"' apt-get= apt-cache="$CLANG_DEPENDS"
run install-deps.sh 0
! grep -q '^apt-get' "$WORK/log" || fail "apt-get was asked: $(cat "$WORK/log")"

# Not root, a mirror that cannot be read, no apt at all: one line each, naming the way on.
setup dpkg-query="$NOTHING" apt-get= apt-cache="$CLANG_DEPENDS" id='echo 1000'
run install-deps.sh 1; one_line; said "run as root (or with sudo) to install: cmake"
setup dpkg-query="$NOTHING" apt-get='[ "$1" != update ] || exit 100' apt-cache="$CLANG_DEPENDS" id="$ROOT_ID"
run install-deps.sh 100; one_line; said "reading Debian's package lists failed (status 100: apt-get update -q)"
setup
run install-deps.sh 1; one_line; said "this Linux has no apt-get"
# The README's command tells which of its steps stopped it, after the install step's own line.
setup dpkg-query="$NOTHING" apt-get='exit 100' apt-cache="$CLANG_DEPENDS" id="$ROOT_ID"
run test.sh 100; said "test.sh: installing what is missing failed (status 100"

# The Mac: Homebrew or the Xcode tools missing stop it with the way to get them; a missing formula
# is installed.
setup uname='echo Darwin'
run install-deps.sh 1; one_line; said "Homebrew is needed first"
setup uname='echo Darwin' brew= xcode-select='exit 2'
run install-deps.sh 1; one_line; said "xcode-select --install"
setup uname='echo Darwin' brew='[ "$3" != qt ] || [ "$1" != list ]' xcode-select=
run install-deps.sh 0
asked "brew install qt"
[ "$(grep -c '^brew install' "$WORK/log")" = 1 ] || fail "brew installed more than qt: $(cat "$WORK/log")"
echo "install step: every case as expected"
