"""The trainer's cabin: everything without a control."""
from .mesh import Mesh
from .trainer_pictures import (
    CARPET,
    COWLING,
    EDGE,
    FIREWALL,
    FRAME,
    LINER,
    METAL,
    PANEL_TOP,
    PANEL_WIDTH,
    SEAT,
    SHIELD,
    WALL,
    panel_tile,
)

PANEL_Z, PANEL_FOOT = -0.62, 0.05
PILOT_X = -0.26
OUT = (0, 0, 1)


def seat(x):
    mesh = Mesh().box((x, -0.14, 0.38), (0.44, 0.12, 0.46), SEAT).box((x, 0.20, 0.64), (0.44, 0.62, 0.10), SEAT)
    return mesh.box((x, 0.56, 0.65), (0.24, 0.14, 0.08), SEAT).box((x, -0.33, 0.38), (0.36, 0.26, 0.40), FRAME)


def floor():
    mesh = Mesh().quad(
        [(-0.6, -0.45, 0.85), (0.6, -0.45, 0.85), (0.6, -0.45, -0.85), (-0.6, -0.45, -0.85)], (0, 1, 0), CARPET
    )
    return mesh.box((0, -0.36, 0.1), (0.16, 0.18, 1.3), CARPET)


def walls():
    mesh = Mesh()
    for side in (-1, 1):
        x, facing = side * 0.6, (-side, 0, 0)
        for front, back in ((-0.85, -0.28), (-0.28, 0.29), (0.29, 0.85)):
            near, far = (back, front) if side < 0 else (front, back)
            mesh.quad([(x, -0.45, near), (x, -0.45, far), (x, 0.36, far), (x, 0.36, near)], facing, WALL)
        mesh.box((side * 0.585, 0.06, 0.05), (0.03, 0.03, 0.5), SEAT)
        mesh.box((side * 0.59, 0.37, 0), (0.05, 0.03, 1.7), FRAME)
    mesh.quad([(0.6, -0.45, 0.85), (-0.6, -0.45, 0.85), (-0.6, 0.98, 0.85), (0.6, 0.98, 0.85)], (0, 0, -1), LINER)
    return mesh.quad(
        [(-0.6, -0.45, -0.85), (0.6, -0.45, -0.85), (0.6, 0.42, -0.85), (-0.6, 0.42, -0.85)], OUT, FIREWALL
    )


def windscreen_frame():
    mesh = Mesh()
    for x in (-0.57, 0, 0.57):
        mesh.tube([(x, 0.43, -0.86), (x, 0.72, -0.64), (x, 0.98, -0.36)], 0.02 if x else 0.011, FRAME, 10)
    mesh.tube([(-0.59, 0.98, -0.35), (0.59, 0.98, -0.35)], 0.022, FRAME, 10)
    for side in (-1, 1):
        mesh.tube([(side * 0.58, 0.36, 0.12), (side * 0.57, 0.98, 0.16)], 0.022, FRAME, 10)
        mesh.tube([(side * 0.58, 0.98, -0.35), (side * 0.58, 0.98, 0.85)], 0.022, FRAME, 10)
    return mesh


def roof():
    return Mesh().quad(
        [(-0.6, 0.99, -0.36), (0.6, 0.99, -0.36), (0.6, 0.99, 0.85), (-0.6, 0.99, 0.85)], (0, -1, 0), LINER
    )


def cowling():
    """The visible part of the nose, and the spinner at its end."""
    mesh, rows, columns = Mesh(), ((-0.87, 0.60, 0.38, 0.10), (-1.4, 0.5, 0.36, 0.12), (-1.95, 0.30, 0.26, 0.12)), 10
    for (z1, w1, y1, h1), (z2, w2, y2, h2) in zip(rows, rows[1:]):
        for k in range(columns):
            s1, s2 = 2 * k / columns - 1, 2 * (k + 1) / columns - 1
            corners = [
                (s1 * w1, y1 - h1 * s1 * s1, z1),
                (s2 * w1, y1 - h1 * s2 * s2, z1),
                (s2 * w2, y2 - h2 * s2 * s2, z2),
                (s1 * w2, y2 - h2 * s1 * s1, z2),
            ]
            mesh.quad(corners, (s1 + s2, 2, 0), COWLING)
    return mesh.lathe(((0.0, -0.22), (0.07, -0.14), (0.10, 0)), METAL, 16, centre=(0, 0.14, -1.95))


def glare_shield():
    mesh = Mesh().box((0, 0.432, -0.68), (1.18, 0.022, 0.34), SHIELD)
    return mesh.tube([(-0.59, 0.432, -0.51), (0.59, 0.432, -0.51)], 0.016, SHIELD, 10)


def panel_surround():
    mesh = Mesh()
    for side in (-1, 1):
        mesh.box((side * 0.58, 0.18, PANEL_Z - 0.01), (0.04, 0.50, 0.06), EDGE)
    return mesh.box((0, -0.085, PANEL_Z + 0.02), (1.18, 0.03, 0.08), EDGE)


def panel_faces():
    half, tilt = PANEL_WIDTH / 2000, PANEL_Z + 0.03
    mesh = Mesh().quad(
        [
            (-half, PANEL_FOOT, PANEL_Z),
            (half, PANEL_FOOT, PANEL_Z),
            (half, PANEL_TOP, PANEL_Z),
            (-half, PANEL_TOP, PANEL_Z),
        ],
        OUT,
        panel_tile(0, 0, 1120, 370),
    )
    return mesh.quad(
        [(-half, -0.07, tilt), (half, -0.07, tilt), (half, PANEL_FOOT, PANEL_Z), (-half, PANEL_FOOT, PANEL_Z)],
        (0, 0.25, 1),
        panel_tile(0, 380, 1120, 500),
    )


def compass_card():
    return Mesh().quad(
        [(-0.035, 0.475, -0.558), (0.035, 0.475, -0.558), (0.035, 0.515, -0.558), (-0.035, 0.515, -0.558)],
        OUT,
        panel_tile(570, 510, 670, 560),
    )


def draw_cabin(cockpit):
    for name, mesh in (
        ("Floor", floor()),
        ("Walls, bulkhead and firewall", walls()),
        ("Roof", roof()),
        ("Windscreen frame", windscreen_frame()),
        ("Cowling", cowling()),
        ("Glare shield", glare_shield()),
        ("Panel surround", panel_surround()),
        ("Pilot's seat", seat(PILOT_X)),
        ("Co-pilot's seat", seat(-PILOT_X)),
        ("Compass housing", Mesh().box((0, 0.49, -0.60), (0.10, 0.08, 0.08), SHIELD)),
    ):
        cockpit.draw(name, mesh)
    cockpit.command("ATTR_cockpit")
    cockpit.draw("Panel", panel_faces())
    cockpit.draw("Compass card", compass_card())
    cockpit.command("ATTR_no_cockpit")
