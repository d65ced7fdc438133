#!/usr/bin/env bash
# Prints the oldest macOS that all the given Mach-O files run on: the highest of their minimum
# versions, as `otool -l` reads them (minos of LC_BUILD_VERSION, or version of the older
# LC_VERSION_MIN_MACOSX). The program and Homebrew's Qt target the macOS they were built on, which
# may be newer than the oldest one Qt supports. Fails when a file names no minimum.
set -euo pipefail
[ $# -gt 0 ] || { echo "usage: macos-minimum.sh MACH-O-FILE..." >&2; exit 2; }
highest=""
for file in "$@"; do
  found=$(otool -l "$file" | awk '
    $1 == "cmd" { kind = $2 }
    kind == "LC_BUILD_VERSION" && $1 == "minos" { print $2; exit }
    kind == "LC_VERSION_MIN_MACOSX" && $1 == "version" { print $2; exit }')
  [ -n "$found" ] || { echo "macos-minimum.sh: $file names no minimum macOS" >&2; exit 1; }
  highest=$(printf '%s\n%s\n' "$found" "$highest" | sed '/^$/d' | sort -t. -k1,1n -k2,2n -k3,3n | tail -n1)
done
echo "$highest"
