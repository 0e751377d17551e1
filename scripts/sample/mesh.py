"""Shapes and the text of cockpit objects, in X-Plane's axes: x to the right, y up, z back to the tail, in metres."""
import math
from contextlib import contextmanager


def add(a, b):
    return tuple(p + q for p, q in zip(a, b))


def subtract(a, b):
    return tuple(p - q for p, q in zip(a, b))


def scaled(v, factor):
    return tuple(c * factor for c in v)


def dot(a, b):
    return sum(p * q for p, q in zip(a, b))


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def unit(v):
    length = math.sqrt(dot(v, v))
    return scaled(v, 1 / length) if length else v


class Tile:
    """A rectangle of a texture: (0, 0) is its bottom left and (1, 1) its top right, as in the texture itself."""

    def __init__(self, left, bottom, right, top):
        self.left, self.bottom, self.right, self.top = left, bottom, right, top

    def at(self, s, t):
        return self.left + (self.right - self.left) * s, self.bottom + (self.top - self.bottom) * t

    @staticmethod
    def of_grid(column, row, columns=4, rows=4, inset=0.04):
        """A cell of a texture that is divided into a grid, counted from the top left, without a rim against bleeding."""
        left, top = column / columns, 1 - row / rows
        dx, dy = inset / columns, inset / rows
        return Tile(left + dx, top - 1 / rows + dy, left + 1 / columns - dx, top - dy)


class Mesh:
    """Vertices (position, normal, texture coordinates) and triangles whose front is wound clockwise."""

    def __init__(self):
        self.vertices, self.triangles = [], []

    def vertex(self, position, normal, coordinates):
        self.vertices.append((position, unit(normal), coordinates))
        return len(self.vertices) - 1

    def triangle(self, a, b, c):
        (p, n, _), (q, m, _), (r, k, _) = (self.vertices[i] for i in (a, b, c))
        outward = dot(cross(subtract(q, p), subtract(r, p)), add(add(n, m), k))
        self.triangles.append((a, c, b) if outward > 0 else (a, b, c))

    def quad(self, corners, facing, tile):
        """A flat face; corners from its bottom left, counter-clockwise as seen from the front."""
        a, b, c, d = (
            self.vertex(corner, facing, tile.at(s, t))
            for corner, (s, t) in zip(corners, ((0, 0), (1, 0), (1, 1), (0, 1)))
        )
        self.triangle(a, b, c)
        self.triangle(a, c, d)
        return self

    def box(self, centre, size, tile):
        half = scaled(size, 0.5)
        for axis in range(3):
            for sign in (-1, 1):
                facing = tuple(sign if k == axis else 0 for k in range(3))
                right = (sign, 0, 0) if axis == 2 else (0, 0, -1 if sign > 0 else 1) if axis == 0 else (1, 0, 0)
                up = (0, 0, -sign) if axis == 1 else (0, 1, 0)
                middle = add(centre, tuple(f * h for f, h in zip(facing, half)))
                corners = [
                    add(middle, tuple(h * (i * r + j * u) for h, r, u in zip(half, right, up)))
                    for i, j in ((-1, -1), (1, -1), (1, 1), (-1, 1))
                ]
                self.quad(corners, facing, tile)
        return self

    def lathe(self, profile, tile, segments=20, axis="z", centre=(0, 0, 0), cap=None):
        """Rotates (radius, along) pairs about an axis, from back to front; cap is the tile of the front face."""
        place = _placer(axis, centre)
        for (r1, h1), (r2, h2) in zip(profile, profile[1:]):
            slope = (h2 - h1, r1 - r2)
            rings = [
                [
                    self.vertex(
                        place(r * cosine, r * sine, h),
                        place.turn(slope[0] * cosine, slope[0] * sine, slope[1]),
                        tile.at(step / segments, t),
                    )
                    for step, (cosine, sine) in enumerate(circle(segments))
                ]
                for r, h, t in ((r1, h1, 0), (r2, h2, 1))
            ]
            for k in range(segments):
                if r1 > 0:
                    self.triangle(rings[0][k], rings[0][k + 1], rings[1][k])
                if r2 > 0:
                    self.triangle(rings[0][k + 1], rings[1][k + 1], rings[1][k])
        if cap:
            radius, end = profile[-1]
            self.disc(radius, end, place, cap, segments)
        return self

    def disc(self, radius, along, place, tile, segments):
        facing = place.turn(0, 0, 1)
        middle = self.vertex(place(0, 0, along), facing, tile.at(0.5, 0.5))
        ring = [
            self.vertex(place(radius * c, radius * s, along), facing, tile.at(0.5 + c / 2, 0.5 + s / 2))
            for c, s in circle(segments)
        ]
        for k in range(segments):
            self.triangle(middle, ring[k], ring[k + 1])

    def tube(self, path, radius, tile, segments=8):
        """A round tube along points; its ends are open."""
        rings, over = [], None
        for index, point in enumerate(path):
            ahead = unit(subtract(path[min(index + 1, len(path) - 1)], path[max(index - 1, 0)]))
            side = unit(cross(ahead, over or ((0, 0, 1) if abs(ahead[2]) < 0.9 else (0, 1, 0))))
            over = cross(side, ahead)
            ring = []
            for step, (cosine, sine) in enumerate(circle(segments)):
                outward = add(scaled(side, cosine), scaled(over, sine))
                ring.append(
                    self.vertex(
                        add(point, scaled(outward, radius)), outward, tile.at(step / segments, index / (len(path) - 1))
                    )
                )
            rings.append(ring)
        for first, second in zip(rings, rings[1:]):
            for k in range(segments):
                self.triangle(first[k], first[k + 1], second[k])
                self.triangle(first[k + 1], second[k + 1], second[k])
        return self


class _placer:
    """Maps a lathe's (across, up, along) to the axes of the object."""

    ORDER = {"z": lambda a, b, c: (a, b, c), "y": lambda a, b, c: (a, c, -b), "x": lambda a, b, c: (c, b, -a)}

    def __init__(self, axis, centre):
        self.turn, self.centre = self.ORDER[axis], centre

    def __call__(self, a, b, c):
        return add(self.turn(a, b, c), self.centre)


def circle(segments):
    return [(math.cos(2 * math.pi * k / segments), math.sin(2 * math.pi * k / segments)) for k in range(segments + 1)]


def text_of(lines, end="\n"):
    return "".join(line + end for line in lines).encode("utf-8")


def number(value):
    text = f"{value:.4f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def numbers(values):
    return " ".join(number(value) for value in values)


class CockpitObject:
    """The text of an OBJ8 file: header, vertices and indices, then the commands in the order of the calls."""

    def __init__(self, texture):
        self.header_texture, self.depth = texture, 0
        self.vertices, self.indices, self.commands = [], [], []

    def command(self, text):
        self.commands.append("\t" * self.depth + text)

    def draw(self, name, mesh):
        """A TRIS line for the mesh, under its name."""
        base, offset = len(self.vertices), len(self.indices)
        self.vertices += mesh.vertices
        self.indices += [base + index for triangle in mesh.triangles for index in triangle]
        self.command(f"# {name}")
        self.command(f"TRIS {offset} {len(self.indices) - offset}")

    @contextmanager
    def block(self, *steps):
        self.command("ANIM_begin")
        self.depth += 1
        for step in steps:
            self.command(step)
        yield
        self.depth -= 1
        self.command("ANIM_end")

    @contextmanager
    def manipulator(self, text):
        self.command(text)
        yield
        self.command("ATTR_manip_none")

    def lines(self):
        yield from ("I", "800", "OBJ", "")
        if self.header_texture:
            yield f"TEXTURE {self.header_texture}"
        yield f"POINT_COUNTS {len(self.vertices)} 0 0 {len(self.indices)}"
        yield ""
        for position, normal, coordinates in self.vertices:
            yield f"VT {numbers(position)} {numbers(normal)} {numbers(coordinates)}"
        yield ""
        whole = len(self.indices) - len(self.indices) % 10
        for start in range(0, whole, 10):
            yield "IDX10 " + " ".join(map(str, self.indices[start : start + 10]))
        for index in self.indices[whole:]:
            yield f"IDX {index}"
        yield ""
        yield from self.commands


def place(x, y, z):
    """A step that only sets the position of its block."""
    return f"ANIM_trans {numbers((x, y, z))} {numbers((x, y, z))} 0 0 none"


def slide(start, end, low, high, dataref):
    return f"ANIM_trans {numbers(start)} {numbers(end)} {numbers((low, high))} {dataref}"


def turn(axis, start, end, low, high, dataref):
    return f"ANIM_rotate {numbers(axis)} {numbers((start, end))} {numbers((low, high))} {dataref}"


def toggle(low, high, dataref, tooltip, cursor="hand"):
    return f"ATTR_manip_toggle {cursor} {numbers((low, high))} {dataref} {tooltip}"


def drag(direction, low, high, dataref, tooltip, cursor="hand"):
    return f"ATTR_manip_drag_axis {cursor} {numbers(direction)} {numbers((low, high))} {dataref} {tooltip}"
