#!/usr/bin/env python3
"""Writes resources/AppIcon.icns, the bundle's icon, from resources/help/AppIcon512.png.

An .icns file is a list of typed blocks; since macOS 10.7 each may hold a PNG. ImageMagick's
convert makes the smaller sizes, so this runs anywhere, without the Mac's iconutil.
Run it again whenever the picture changes.
"""
import pathlib
import struct
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCE = ROOT / "resources/help/AppIcon512.png"
TARGET = ROOT / "resources/AppIcon.icns"
# Block type and edge in pixels: 1x and 2x (Retina) variants of 16, 32, 128, 256 points.
BLOCKS = [("icp4", 16), ("icp5", 32), ("ic11", 32), ("ic12", 64), ("ic07", 128),
          ("ic13", 256), ("ic08", 256), ("ic14", 512), ("ic09", 512)]


def png_of_size(edge: int, folder: pathlib.Path) -> bytes:
    out = folder / f"{edge}.png"
    subprocess.run(["convert", str(SOURCE), "-resize", f"{edge}x{edge}", "-strip",
                    "-define", "png:exclude-chunks=date,time", f"PNG32:{out}"], check=True)
    return out.read_bytes()


def main() -> None:
    with tempfile.TemporaryDirectory() as tmp:
        blocks = b"".join(kind.encode() + struct.pack(">I", 8 + len(png)) + png
                          for kind, png in ((k, png_of_size(e, pathlib.Path(tmp))) for k, e in BLOCKS))
    TARGET.write_bytes(b"icns" + struct.pack(">I", 8 + len(blocks)) + blocks)
    print(f"{TARGET.relative_to(ROOT)}: {TARGET.stat().st_size} bytes")


if __name__ == "__main__":
    main()
