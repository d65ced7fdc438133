#!/usr/bin/env bash
# On a Mac: makes a self-contained, ad-hoc signed ZOR_Palette.app and puts it in a disk image,
# build/release/ZOR_Palette-<version>.dmg. Steps: a release build of the program, cmake --install
# into a staging folder, the three scripts compiled with osacompile (MakeMacros only where Keyboard
# Maestro is installed), Qt's frameworks brought into the bundle by macdeployqt, the oldest macOS
# they run on written into Info.plist, ad-hoc signing, then CPack's DragNDrop generator on the
# staged app.
set -euo pipefail
source "$(dirname "$0")/common.sh"
if [ "$(uname)" != Darwin ]; then
  echo "package-mac.sh runs on a Mac: it needs osacompile, macdeployqt, codesign and hdiutil." >&2
  exit 1
fi
install_deps
BUILD="$ROOT/build/release"
STAGE="$BUILD/stage"
APP="$STAGE/ZOR_Palette.app"

step "building the release" "the compiler's message above names the file and line"
(cd "$ROOT" && cmake --preset release >/dev/null)
cmake --build "$BUILD" --target ZOR_Palette -j "$JOBS"
step "staging the bundle" "delete $BUILD and try again"
rm -rf "$STAGE"
cmake --install "$BUILD" --prefix "$STAGE"

# FireAppleScript and FirePalette compile anywhere: FirePalette names Keyboard Maestro Engine only by
# its bundle identifier, and its one command of Keyboard Maestro's is compiled when it runs. MakeMacros
# speaks the editor's own terms and compiles only where Keyboard Maestro is installed; elsewhere its
# source stays in the bundle and osascript compiles it when it runs.
resources="$APP/Contents/Resources"
step "compiling the AppleScripts" "osacompile names the line of the script above"
for script in FireAppleScript FirePalette; do
  osacompile -o "$resources/$script.scpt" "$ROOT/resources/$script.applescript"
done
if [ -n "$(mdfind "kMDItemCFBundleIdentifier == 'com.stairways.keyboardmaestro.engine'" 2>/dev/null)" ] ||
   [ -d "/Applications/Keyboard Maestro.app" ]; then
  osacompile -o "$resources/MakeMacros.scpt" "$ROOT/resources/MakeMacros.applescript"
else
  echo "Keyboard Maestro is not installed here: MakeMacros.scpt stays as source text." >&2
fi

step "bringing Qt into the bundle" "check that Homebrew's qt is installed: brew list qt"
macdeployqt="$(command -v macdeployqt || echo "$(brew --prefix qt)/bin/macdeployqt")"
"$macdeployqt" "$APP" -always-overwrite
# The oldest macOS the bundle runs on is that of its newest part: Homebrew's Qt and the program
# target the macOS they were built on, which may be newer than the oldest one Qt supports.
step "writing the oldest macOS the bundle runs on" "otool's or plutil's message is above"
minimum=$("$ROOT/scripts/macos-minimum.sh" "$APP/Contents/MacOS/ZOR_Palette" \
  "$APP/Contents/Frameworks/QtCore.framework/QtCore")
plutil -replace LSMinimumSystemVersion -string "$minimum" "$APP/Contents/Info.plist"
echo "The bundle runs on macOS $minimum and later."
# Signing seals the bundle: nothing may change inside it afterwards.
step "signing the bundle" "codesign's message is above"
codesign --force --deep --sign - "$APP"
codesign --verify --deep --strict "$APP"

# CPack packs the staged, signed app as it stands instead of installing afresh.
step "making the disk image" "a mounted ZOR_Palette volume can stop hdiutil: eject it"
rm -f "$BUILD"/ZOR_Palette-*.dmg
(cd "$BUILD" && cpack -G DragNDrop -D "CPACK_INSTALL_CMAKE_PROJECTS=" -D "CPACK_INSTALLED_DIRECTORIES=$STAGE;.")
echo "Disk image: $(ls "$BUILD"/ZOR_Palette-*.dmg)"
