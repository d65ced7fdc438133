#!/usr/bin/env bash
# Renders the kind pictures from their SVG sources; the PNGs are kept in the repository, so this
# runs only when a picture is redrawn. Needs rsvg-convert (Debian: librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")"
for name in KeyMaestro AppleScript Shortcuts; do
  rsvg-convert -w 48 -h 48 -o "$name.png" "$name.svg"
done
