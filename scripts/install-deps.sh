#!/usr/bin/env bash
# Installs what building and testing ZOR_Palette needs, only where it is missing.
# Debian: apt-get as root. macOS: Homebrew and the Xcode command-line tools.
# Nothing here asks a tool that this script may be about to install.
set -euo pipefail
source "$(dirname "$0")/common.sh"

if [ "$(uname)" = Darwin ]; then
  command -v brew >/dev/null || { echo "install-deps.sh: Homebrew is needed first: https://brew.sh" >&2; exit 1; }
  xcode-select -p >/dev/null 2>&1 || {
    echo "install-deps.sh: the Xcode command-line tools are needed first: xcode-select --install" >&2; exit 1; }
  step "installing Homebrew formulas" "run 'brew doctor', mend what it tells, and try again"
  for formula in cmake ninja qt nlohmann-json libdeflate; do
    brew list --formula "$formula" >/dev/null 2>&1 || brew install "$formula"
  done
  exit 0
fi

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "install-deps.sh: this Linux has no apt-get; install by hand: CMake, Ninja, a C++20 compiler, Qt 6 (>= 6.4) base development files, nlohmann-json, libdeflate, Xvfb, xdotool, ImageMagick, ShellCheck" >&2
  exit 1
fi

# libFuzzer's runtime belongs to one clang version: the one that stands as clang++ where there is
# one, else the one Debian's clang package brings.
clang_major() {
  if command -v clang++ >/dev/null; then
    clang++ --version | sed -n 's/.*clang version \([0-9]*\).*/\1/p' | head -n1
  else
    apt-cache depends clang 2>/dev/null | sed -n 's/.*Depends: clang-\([0-9]*\)$/\1/p' | head -n1
  fi
}
step "finding the version of clang" "install the package clang by hand, then try again"
major=$(clang_major || true)

packages=(cmake ninja-build g++ qt6-base-dev nlohmann-json3-dev libdeflate-dev python3
          xvfb xauth xdotool libxcb1-dev x11-utils imagemagick fonts-dejavu-core shellcheck
          clang libc++-dev libc++abi-dev "libclang-rt-${major:-14}-dev")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -gt 0 ] || exit 0
if [ "$(id -u)" -ne 0 ]; then
  echo "install-deps.sh: run as root (or with sudo) to install: ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
step "reading Debian's package lists" "check the network and the mirror in /etc/apt/sources.list*"
apt-get update -q
step "installing ${missing[*]}" "read apt-get's message above; 'apt-get -f install' mends a half-done install"
apt-get install -y -q --no-install-recommends "${missing[@]}"
