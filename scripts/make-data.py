#!/usr/bin/env python3
"""Makes the image and the model that the program loads: data/QVRA/Images/checker.png and data/QVRA/Models/Sphere.obj.

    scripts/make-data.py [FOLDER]     FOLDER: default is the repository's folder data
"""

import math
import struct
import sys
import zlib
from pathlib import Path

CHECKER_SIZE = 64  # pixels a side
CHECKER_FIELD = 8  # pixels
CHECKER_GREYS = (0xC8, 0xA0)

RINGS = 20  # from pole to pole
RADIUS = 0.15  # the preview scales it to a tenth: a marker the size of a knob, which does not hide its part
SECTORS = 32  # around the equator: 2 * SECTORS * (RINGS - 1) = 1216 triangles


def png_chunk(kind: bytes, data: bytes) -> bytes:
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def checker_png() -> bytes:
    """A checkerboard of two greys, so that the tints of the preview are visible on it."""
    rows = bytearray()
    for y in range(CHECKER_SIZE):
        rows.append(0)  # no filter
        for x in range(CHECKER_SIZE):
            grey = CHECKER_GREYS[(x // CHECKER_FIELD + y // CHECKER_FIELD) % 2]
            rows += bytes((grey, grey, grey))
    header = struct.pack(">IIBBBBB", CHECKER_SIZE, CHECKER_SIZE, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", zlib.compress(bytes(rows), 9)) +
            png_chunk(b"IEND", b""))


def number(value: float) -> str:
    return f"{value if abs(value) >= 5e-7 else 0.0:.6f}"


def sphere_points():
    """(direction from the centre, texture coordinates), ring by ring; each ring ends at its first point."""
    for ring in range(RINGS + 1):
        polar = math.pi * ring / RINGS
        for sector in range(SECTORS + 1):
            around = 2.0 * math.pi * (sector % SECTORS) / SECTORS
            yield ((math.sin(polar) * math.cos(around), math.cos(polar), math.sin(polar) * math.sin(around)),
                   (sector / SECTORS, 1.0 - ring / RINGS))


def sphere_faces():
    """Triangles of point numbers from 1, wound so that (b - a) x (c - a) points outwards."""
    for ring in range(RINGS):
        for sector in range(SECTORS):
            upper = ring * (SECTORS + 1) + sector + 1
            lower = upper + SECTORS + 1
            if ring > 0:
                yield (upper, upper + 1, lower + 1)
            if ring < RINGS - 1:
                yield (upper, lower + 1, lower)


def sphere_obj() -> str:
    points = list(sphere_points())
    lines = [f"# A sphere of radius {RADIUS} about the origin, in the renderer's left-handed axes.", "o Sphere"]
    lines += ["v " + " ".join(number(RADIUS * c) for c in direction) for direction, _ in points]
    lines += ["vt " + " ".join(map(number, texture)) for _, texture in points]
    lines += ["vn " + " ".join(map(number, direction)) for direction, _ in points]
    lines += ["f " + " ".join(f"{i}/{i}/{i}" for i in face) for face in sphere_faces()]
    return "\n".join(lines) + "\n"


def main() -> None:
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "data"
    for name, content in (("Images/checker.png", checker_png()), ("Models/Sphere.obj", sphere_obj().encode())):
        path = folder / "QVRA" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        print(path)


if __name__ == "__main__":
    main()
