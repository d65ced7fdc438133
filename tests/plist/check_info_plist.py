#!/usr/bin/env python3
"""Checks the configured Info.plist of the bundle and the icon it names.

Arguments: the configured Info.plist, the folder of the icon, the program's version, Qt's version.
"""
import plistlib
import re
import struct
import sys

plist_path, icon_folder, version, qt_version = sys.argv[1:5]
failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


with open(plist_path, "rb") as f:
    raw = f.read()
expect(not re.search(rb"\$\{\w+\}|@\w+@", raw), "a variable was left unconfigured")
info = plistlib.loads(raw)

expect(info.get("CFBundleExecutable") == "ZOR_Palette", f"CFBundleExecutable is {info.get('CFBundleExecutable')!r}")
expect(info.get("CFBundleIdentifier") == "net.lunvale.ZOR-Palette", "the bundle identifier changed")
expect(info.get("CFBundleShortVersionString") == version, f"version {info.get('CFBundleShortVersionString')!r}, not {version}")
expect(info.get("NSRequiresAquaSystemAppearance") is True, "the bundle follows the dark appearance")
expect(str(info.get("LSApplicationCategoryType", "")).startswith("public.app-category."), "no application category")

# Without a usage text, macOS refuses the program's Apple events without asking the user.
usage = info.get("NSAppleEventsUsageDescription", "")
expect("Keyboard Maestro Engine" in usage and usage.endswith("."), f"Apple events usage text: {usage!r}")
# The Desktop receives backups, exports and removed pictures; without a reason macOS asks without one.
desktop = info.get("NSDesktopFolderUsageDescription", "")
expect("Desktop" in desktop and desktop.endswith("."), f"Desktop usage text: {desktop!r}")

# The oldest macOS each Qt runs on, as Qt's documentation gives it.
qt = tuple(int(n) for n in qt_version.split(".")[:2])
oldest = "10.14" if qt < (6, 5) else "11.0" if qt < (6, 8) else "12.0" if qt < (6, 10) else "13.0" if qt < (6, 12) else "14.4"


def release(text):  # "12" and "12.0" are the same release
    return (tuple(int(n) for n in text.split(".")) + (0, 0))[:3]


minimum = info.get("LSMinimumSystemVersion", "")
expect(re.fullmatch(r"\d+(\.\d+){0,2}", minimum) and release(minimum) >= release(oldest),
       f"LSMinimumSystemVersion {minimum!r} is below macOS {oldest}, the oldest Qt {qt_version} runs on")

# The icon: an .icns whose blocks are PNG pictures of the size their type says.
sizes = {b"icp4": 16, b"icp5": 32, b"ic11": 32, b"ic12": 64, b"ic07": 128, b"ic13": 256, b"ic08": 256,
         b"ic14": 512, b"ic09": 512, b"ic10": 1024}
icon_name = info.get("CFBundleIconFile", "")
expect(icon_name.endswith(".icns"), f"CFBundleIconFile {icon_name!r} is no .icns")
try:
    icon = open(f"{icon_folder}/{icon_name}", "rb").read()
    expect(icon[:4] == b"icns" and struct.unpack(">I", icon[4:8])[0] == len(icon), "the icon's header is wrong")
    found, at = {}, 8
    while at + 8 <= len(icon):
        kind, length = icon[at:at + 4], struct.unpack(">I", icon[at + 4:at + 8])[0]
        data = icon[at + 8:at + length]
        if data[:8] == b"\x89PNG\r\n\x1a\n":
            found[kind] = struct.unpack(">II", data[16:24])
        at += max(length, 8)
    expect(found.get(b"ic09") == (512, 512), "the icon has no 512 x 512 picture")
    for kind, (w, h) in found.items():
        expect(sizes.get(kind) in (w, None) and w == h, f"block {kind.decode()} holds {w} x {h}")
except OSError as error:
    failures.append(f"the icon cannot be read: {error}")

for failure in failures:
    print("FAIL:", failure)
sys.exit(1 if failures else 0)
