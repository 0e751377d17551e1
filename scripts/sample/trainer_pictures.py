"""The trainer's textures, and the tiles of them that its meshes use."""
from . import dials
from .mesh import Tile
from .picture import Picture

PIXELS_PER_MM = 1.2
PANEL_WIDTH, PANEL_HEIGHT = 1120, 560
PANEL_TOP = 0.42

# Cells of the trainer's own two textures.
CARPET, WALL, SEAT, SHIELD = (Tile.of_grid(column, 0) for column in range(4))
EDGE, LINER, FRAME, COWLING = (Tile.of_grid(column, 1) for column in range(4))
METAL, RUBBER, FIREWALL, PEDAL = (Tile.of_grid(column, 2) for column in range(4))
RIDGES, POINTER, CHROME, GRIP = (Tile.of_grid(column, 0) for column in range(4))
RED, MIXTURE_FACE, THROTTLE_FACE, GREEN = (Tile.of_grid(column, 1) for column in range(4))
BLUE, HEAT_FACE, WHITE, YELLOW = (Tile.of_grid(column, 2) for column in range(4))
SELECTOR, BREAKER, BUTTON, BADGE = (Tile.of_grid(column, 3) for column in range(4))


def interior_picture():
    picture = Picture(256, 256, 1, (90, 90, 90))
    ground = [
        (58, 60, 68, 9),
        (156, 154, 146, 3),
        (128, 86, 56, 4),
        (36, 37, 40, 4),
        (84, 88, 94, 2),
        (200, 195, 182, 3),
        (72, 76, 82, 2),
        (228, 228, 222, 1),
        (150, 152, 156, 3),
        (40, 40, 43, 3),
        (92, 94, 86, 3),
        (108, 112, 116, 2),
        (108, 72, 44, 3),
        (88, 58, 40, 3),
        (224, 186, 60, 1),
        (236, 236, 232, 1),
    ]
    for cell, (red, green, blue, _) in enumerate(ground):
        picture.rectangle(cell % 4 * 64, cell // 4 * 64, 64, 64, (red, green, blue))
    for y in (16, 48):
        picture.line(64, y, 128, y, 1.2, (120, 118, 112))
    for x in (139, 150, 161, 172, 183):
        picture.line(x, 0, x, 64, 1.4, (92, 60, 38))
    picture.rectangle(192, 90, 64, 12, (190, 40, 40))
    for y in range(132, 192, 6):
        picture.line(64, y, 128, y, 2, (24, 24, 26))
    for x in range(200, 256, 12):
        for y in range(136, 192, 12):
            picture.disc(x, y, 2.5, (70, 72, 76))
    for cell, (*_, strength) in enumerate(ground):
        picture.grain(cell % 4 * 64, cell // 4 * 64, 64, 64, strength, cell + 1)
    return picture


def controls_picture():
    picture = Picture(256, 256, 1, (40, 40, 42))
    ground = [
        (38, 38, 40),
        (34, 34, 36),
        (176, 178, 182),
        (44, 42, 42),
        (190, 36, 32),
        (190, 36, 32),
        (30, 30, 32),
        (60, 150, 70),
        (52, 104, 178),
        (120, 122, 126),
        (236, 236, 232),
        (228, 190, 56),
        (186, 40, 36),
        (222, 222, 218),
        (200, 44, 40),
        (150, 30, 34),
    ]
    for cell, colour in enumerate(ground):
        picture.rectangle(cell % 4 * 64, cell // 4 * 64, 64, 64, colour)
    for x in range(3, 64, 6):
        picture.line(x, 0, x, 64, 2, (66, 66, 70))
    picture.line(96, 32, 96, 8, 6, dials.WHITE)
    for x, text in ((96, "M"), (160, "T"), (96, "C")):
        picture.text(x, 160 if text == "C" else 96, text, 28, dials.WHITE)
    picture.line(32, 224, 32, 198, 9, dials.WHITE)
    picture.text(96, 224, "5", 26, (30, 30, 32))
    picture.disc(160, 224, 20, (230, 90, 80))
    for x in (208, 240):
        picture.line(x, 210, 224, 240, 7, dials.WHITE)
    return picture


def across(x):
    """Panel position from the left, in millimetres of the panel texture."""
    return (x + PANEL_WIDTH / 2000) * 1000


def down(y):
    return (PANEL_TOP - y) * 1000


SIX_PACK = (
    (dials.attitude, -0.26, 0.345),
    (dials.altimeter, -0.16, 0.345),
    (dials.turn_and_slip, -0.36, 0.243),
    (dials.heading, -0.26, 0.243),
    (dials.climb, -0.16, 0.243),
    (dials.bearing, -0.06, 0.345),
    (dials.tachometer, -0.06, 0.243),
)
SMALL_GAUGES = (("FUEL L", -30), ("FUEL R", -20), ("OIL T", 15), ("OIL P", 30))
SWITCHES = (
    ("BAT", "sim/cockpit2/electrical/battery_on[0]", "Battery"),
    ("ALT", "sim/cockpit2/electrical/generator_on[0]", "Alternator"),
    ("PUMP", "sim/cockpit2/engine/actuators/fuel_pump_on[0]", "Fuel pump"),
    ("BCN", "sim/cockpit2/switches/beacon_on", "Beacon"),
    ("LAND", "sim/cockpit2/switches/landing_lights_on", "Landing light"),
    ("NAV", "sim/cockpit2/switches/navigation_lights_on", "Navigation lights"),
)
PUSH_RODS = (("HEAT", 0.02), ("POWER", 0.08), ("MIX", 0.14))


def panel_picture():
    picture = Picture(PANEL_WIDTH, PANEL_HEIGHT, PIXELS_PER_MM, (70, 76, 84))
    dials.airspeed(picture, across(-0.36), down(0.345), 42, with_needle=False)
    for draw, x, y in SIX_PACK:
        draw(picture, across(x), down(y), 42)
    for row, (label, degrees) in enumerate(SMALL_GAUGES):
        dials.small_gauge(picture, across(-0.48), down(0.375 - 0.066 * row), 25, label, degrees)
    for row, (label, active, standby) in enumerate((("COM", "118.30", "121.50"), ("NAV", "113.60", "110.10"))):
        dials.radio(picture, across(0.02), down(0.385 - 0.07 * row), 210, 60, label, active, standby)
    picture.rectangle(across(0.02), down(0.235), 210, 26, (30, 31, 34), 2)
    for place_of, text in ((0.07, "AVIONICS"), (0.14, "DIMMER"), (0.20, "FLOOD")):
        picture.text(across(place_of), down(0.215), text, 5, dials.WHITE)
    dials.clock(picture, across(0.31), down(0.345), 30)
    dials.small_gauge(picture, across(0.40), down(0.345), 30, "SUCT", 5)
    picture.rectangle(across(0.28), down(0.28), 250, 110, (62, 67, 74), 6)
    picture.disc(across(0.405), down(0.19), 8, (120, 122, 124))
    picture.text(across(0.405), down(0.265), "TRAINER", 7, dials.WHITE)
    for column, (label, _, _) in enumerate(SWITCHES):
        picture.text(across(-0.50 + 0.05 * column), down(0.072), label, 8, dials.WHITE)
    for label, x in PUSH_RODS:
        picture.text(across(x), down(0.135), label, 8, dials.WHITE)
    picture.text(across(0.23), down(0.140), "FLAPS", 8, dials.WHITE)
    for step in range(3):
        picture.text(across(0.255), down(0.125 - 0.03 * step), ("UP", "10", "30")[step], 5, dials.WHITE)
    _draw_lower_panel(picture)
    return picture


def _draw_lower_panel(picture):
    """Millimetres 380 to 500: the lower panel. Below: the placard and the compass card."""
    for column, label in enumerate(("GEN", "RAD", "LTS", "PUMP")):
        picture.text(across(0.30 + 0.05 * column), 465, label, 8, dials.WHITE)
    picture.text(across(-0.47), 400, "OFF R L BOTH", 6, dials.WHITE)
    picture.text(across(-0.38), 465, "START", 8, dials.WHITE)
    picture.text(across(-0.20), 400, "CABIN AIR", 8, dials.WHITE)
    picture.rectangle(0, 510, 400, 50, (225, 222, 210))
    picture.text(200, 525, "NO SPINS", 12, dials.BLACK)
    picture.text(200, 545, "CRUISE 100 KNOTS", 12, dials.BLACK)
    picture.rectangle(420, 510, 400, 50, dials.BLACK)
    for column, label in enumerate(("33", "N", "3")):
        picture.text(480 + 140 * column, 530, label, 26, dials.WHITE)
    for column in range(25):
        picture.line(428 + 16 * column, 548, 428 + 16 * column, 558, 2, dials.WHITE)


def panel_tile(x1, y1, x2, y2):
    """Millimetres of the panel texture, from its top left."""
    return Tile(x1 / PANEL_WIDTH, 1 - y2 / PANEL_HEIGHT, x2 / PANEL_WIDTH, 1 - y1 / PANEL_HEIGHT)
