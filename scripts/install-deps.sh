#!/usr/bin/env bash
# Installs what building and testing ZOR_Palette needs, only where it is missing.
# Debian: apt-get as root. macOS: Homebrew and the Xcode command-line tools.
set -euo pipefail

if [ "$(uname)" = Darwin ]; then
  command -v brew >/dev/null || { echo "Homebrew is needed: https://brew.sh" >&2; exit 1; }
  xcode-select -p >/dev/null 2>&1 || { echo "Install the Xcode command-line tools: xcode-select --install" >&2; exit 1; }
  for formula in cmake ninja qt nlohmann-json; do
    brew list --formula "$formula" >/dev/null 2>&1 || brew install "$formula"
  done
  exit 0
fi

packages=(cmake ninja-build g++ qt6-base-dev nlohmann-json3-dev python3
          xvfb xauth xdotool libxcb1-dev x11-utils imagemagick fonts-dejavu-core
          clang libc++-dev libc++abi-dev)
# libFuzzer for the fuzz preset: the runtime of the clang that stands as clang++.
clang_major=$(clang++ --version 2>/dev/null | sed -n 's/.*clang version \([0-9]*\).*/\1/p' | head -n1)
packages+=("libclang-rt-${clang_major:-14}-dev")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then
    echo "Please run as root (or with sudo) to install: ${missing[*]}" >&2
    exit 1
  fi
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q
  apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
