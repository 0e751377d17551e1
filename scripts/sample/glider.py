"""The sailplane: a small cockpit whose files are as unusual as the formats allow."""
from . import dials
from .mesh import CockpitObject, Mesh, Tile, drag, number, place, slide, toggle, turn
from .picture import Picture

# Because of the dot in the folder's name its output is named "Lark 15"; the extension is in upper case.
FOLDER = "Aircraft/Sailplanes/Lark 15.2"
EYE = (0, 0.60, 0.12)
OUT, PANEL_Z = (0, 0, 1), -0.58
PITCH, ROLL = (f"sim/cockpit2/controls/yoke_{axis}_ratio" for axis in ("pitch", "roll"))
TRIM, BRAKES = "sim/cockpit2/controls/elevator_trim", "sim/cockpit2/controls/speedbrake_ratio"

WALL, CUSHION, FRAME, BLACK = (Tile.of_grid(column, 0, 4, 2) for column in range(4))
METAL, BLUE, YELLOW, GREEN = (Tile.of_grid(column, 1, 4, 2) for column in range(4))


# -- textures ----------------------------------------------------------------------------------------------------------


def skin_picture():
    picture = Picture(128, 64, 1, (90, 90, 90))
    ground = [
        (206, 204, 196),
        (64, 84, 120),
        (222, 222, 218),
        (38, 38, 41),
        (160, 162, 166),
        (50, 100, 190),
        (230, 196, 50),
        (56, 150, 74),
    ]
    for cell, colour in enumerate(ground):
        picture.rectangle(cell % 4 * 32, cell // 4 * 32, 32, 32, colour)
    for y in range(5, 32, 7):
        picture.line(32, y, 64, y, 1, (46, 62, 92))
    picture.line(0, 24, 32, 24, 2, (190, 60, 50))
    return picture


def panel_picture():
    """440 by 360 millimetres of panel, which look like 240 by 180."""
    picture = Picture(440, 360, 1.2, (48, 50, 54))
    dials.airspeed(picture, 110, 95, 70)
    dials.altimeter(picture, 330, 95, 70)
    dials.climb(picture, 110, 255, 70)
    dials.bezel(picture, 330, 255, 52)
    dials.scale(picture, 330, 255, 52, 0, 330, 11, ("N", "", "", "E", "", "", "S", "", "", "W", "", ""), 2)
    dials.needle(picture, 330, 255, 52, 25)
    picture.text(330, 335, "LARK 15", 14, dials.WHITE)
    return picture


# -- the cabin ---------------------------------------------------------------------------------------------------------


def tub():
    mesh = Mesh().quad([(-0.3, -0.3, 0.6), (0.3, -0.3, 0.6), (0.26, -0.3, -0.9), (-0.26, -0.3, -0.9)], (0, 1, 0), BLACK)
    for side in (-1, 1):
        mesh.quad(
            [(side * 0.3, -0.3, 0.6), (side * 0.26, -0.3, -0.9), (side * 0.27, 0.3, -0.9), (side * 0.31, 0.3, 0.6)],
            (-side, 0, 0),
            WALL,
        )
        mesh.tube(
            [(side * 0.31, 0.31, 0.6), (side * 0.30, 0.31, -0.3), (side * 0.24, 0.31, -0.95), (0, 0.31, -1.25)],
            0.018,
            FRAME,
        )
    return mesh


def canopy_frame():
    mesh = Mesh()
    for z, top in ((-0.25, 0.82), (0.55, 0.95)):
        mesh.tube(
            [
                (-0.30, 0.31, z),
                (-0.24, 0.62, z),
                (-0.12, top - 0.03, z),
                (0.12, top - 0.03, z),
                (0.24, 0.62, z),
                (0.30, 0.31, z),
            ],
            0.012,
            FRAME,
            8,
        )
    return mesh.tube([(0, 0.78, -0.24), (0, 0.93, 0.56)], 0.008, FRAME, 6)


def seat():
    mesh = Mesh().box((0, -0.16, 0.18), (0.42, 0.1, 0.4), CUSHION)
    return mesh.quad(
        [(-0.21, -0.1, 0.34), (0.21, -0.1, 0.34), (0.21, 0.62, 0.56), (-0.21, 0.62, 0.56)], (0, 0.3, -1), CUSHION
    )


def panel():
    return Mesh().quad(
        [(-0.12, 0.18, PANEL_Z), (0.12, 0.18, PANEL_Z), (0.12, 0.376, PANEL_Z), (-0.12, 0.376, PANEL_Z)],
        OUT,
        Tile(0, 0, 1, 1),
    )


def pod():
    mesh = Mesh().box((0, 0.28, PANEL_Z - 0.06), (0.26, 0.21, 0.11), FRAME)
    return mesh.box((0, 0.395, PANEL_Z - 0.04), (0.28, 0.02, 0.20), BLACK).box(
        (0, -0.06, PANEL_Z - 0.06), (0.10, 0.48, 0.10), FRAME
    )


def nose():
    mesh = Mesh()
    for k in range(8):
        s1, s2 = k / 4 - 1, (k + 1) / 4 - 1
        mesh.quad(
            [
                (0.27 * s1, 0.34 - 0.06 * s1 * s1, -0.9),
                (0.27 * s2, 0.34 - 0.06 * s2 * s2, -0.9),
                (0.08 * s2, 0.20 - 0.04 * s2 * s2, -1.6),
                (0.08 * s1, 0.20 - 0.04 * s1 * s1, -1.6),
            ],
            (s1 + s2, 2, 0),
            FRAME,
        )
    return mesh.quad([(-0.25, -0.3, -0.9), (0.25, -0.3, -0.9), (0.25, 0.3, -0.9), (-0.25, 0.3, -0.9)], OUT, BLACK)


# -- the controls ------------------------------------------------------------------------------------------------------


def draw_stick(cockpit):
    """A block of three steps, with the button's block inside it, and a boot that only follows the pitch."""
    pitch = turn((1, 0, 0), 0, -12, 0, 1, PITCH)
    with cockpit.block(place(0, -0.28, -0.22), pitch):
        cockpit.draw("Boot", Mesh().lathe(((0.07, 0), (0.05, 0.05), (0.02, 0.10)), BLACK, 14, "y"))
    with cockpit.block(place(0, -0.28, -0.22), pitch, turn(OUT, 0, -14, 0, 1, ROLL)):
        stick = Mesh().lathe(((0.011, 0.02), (0.011, 0.36)), METAL, 10, "y")
        cockpit.draw("Stick", stick.lathe(((0.017, 0.30), (0.019, 0.42), (0.015, 0.44)), BLACK, 12, "y", cap=BLACK))
        with cockpit.block(place(0, 0.44, 0)):
            with cockpit.manipulator(toggle(0, 1, "sim/cockpit2/radios/push_to_talk", "Push to talk")):
                cockpit.draw(
                    "Push-to-talk button", Mesh().lathe(((0.007, 0), (0.007, 0.008)), YELLOW, 10, "y", cap=YELLOW)
                )


def handle(tile):
    return Mesh().lathe(((0.008, -0.10), (0.008, 0)), METAL, 8).lathe(((0.016, 0), (0.016, 0.05)), tile, 12, cap=tile)


def draw_left_wall(cockpit):
    """The air brakes' manipulator is never cleared: it also applies to the rail after it, on the root."""
    with cockpit.block(slide((-0.265, 0.12, -0.30), (-0.275, 0.12, -0.10), 0, 1, BRAKES)):
        cockpit.command(drag((0, 0, 0.2), 0, 1, BRAKES, "Air brakes"))
        cockpit.draw("Air brake lever", handle(BLUE))
    cockpit.draw("Air brake rail", Mesh().box((-0.285, 0.12, -0.26), (0.012, 0.012, 0.5), METAL))
    with cockpit.block(slide((-0.265, 0.02, -0.22), (-0.27, 0.02, -0.02), -1, 1, TRIM)):
        cockpit.command(drag((0, 0, 0.2), -1, 1, TRIM, "Trim"))
        cockpit.draw("Trim lever", handle(GREEN))
    cockpit.command("ATTR_manip_none")


def knob(radius, half_depth, tile):
    return Mesh().lathe(((0, -half_depth), (radius, -half_depth), (radius, half_depth)), BLACK, 16, cap=tile)


def draw_panel_controls(cockpit):
    """The vent's rotation has no dataref, and the canopy jettison's is from 0 to 0 degrees."""
    pressure = "sim/cockpit2/gauges/actuators/barometer_setting_in_hg_pilot"
    with cockpit.block(place(0.035, 0.292, PANEL_Z + 0.008), turn(OUT, 0, 270, 28, 31, pressure)):
        with cockpit.manipulator(drag((0.05, 0, 0), 28, 31, pressure, "Altimeter setting")):
            cockpit.draw("Altimeter setting knob", knob(0.008, 0.008, METAL))
    with cockpit.block(place(-0.09, 0.12, PANEL_Z + 0.02), "ANIM_rotate 0 0 1 0 180 0 1"):
        with cockpit.manipulator(drag((0.05, 0, 0), 0, 1, "sim/custom/vent", "Vent")):
            cockpit.draw("Vent", knob(0.022, 0.012, FRAME))
    with cockpit.block(place(0.09, 0.12, PANEL_Z + 0.02), turn(OUT, 0, 0, 0, 1, "sim/custom/jettison")):
        with cockpit.manipulator(drag((0, 0, 0.05), 0, 1, "sim/custom/jettison", "Canopy jettison")):
            cockpit.draw("Canopy jettison", knob(0.016, 0.02, YELLOW))
    release = "sim/cockpit2/switches/tow_release"
    with cockpit.block(slide((-0.02, 0.13, PANEL_Z + 0.04), (-0.02, 0.13, PANEL_Z + 0.10), 0, 1, release)):
        with cockpit.manipulator(toggle(0, 1, release, "Tow release")):
            cockpit.draw("Tow release", handle(YELLOW))
    cockpit.command("attr_manip_toggle hand 0 1 sim/custom/nothing A keyword in small letters is none")


def draw_gear_lever(cockpit):
    gear = "sim/cockpit2/controls/gear_handle_down"
    with cockpit.block(place(0.28, -0.05, -0.15), turn((1, 0, 0), -35, 30, 0, 1, gear)):
        with cockpit.manipulator(drag((0, 0, 0.15), 0, 1, gear, "Landing gear")):
            lever = Mesh().box((0, 0.09, 0), (0.012, 0.18, 0.02), METAL)
            cockpit.draw(
                "Gear lever", lever.lathe(((0.02, -0.02), (0.02, 0.02)), BLACK, 12, "x", (-0.01, 0.19, 0), cap=BLACK)
            )


def draw_side_wheels(cockpit):
    """Only a rotation of 0.1 radian, 5.7 degrees, or more counts in the sweep, so the sweep of the two equal wheels differs."""
    for name, x, degrees in (("Seat wheel", -0.23, 5), ("Backrest wheel", 0.23, 7)):
        dataref = f"sim/custom/{name.split()[0].lower()}"
        with cockpit.block(place(x, 0, 0.2), turn((1, 0, 0), 0, degrees, 0, 1, dataref)):
            with cockpit.manipulator(drag((0, 0, 0.05), 0, 1, dataref, name)):
                rim = ((0.16, -0.005), (0.175, -0.005), (0.175, 0.005), (0.16, 0.005))
                cockpit.draw(name, Mesh().lathe(rim, METAL, 12, "x"))


def cockpit_object():
    cockpit = CockpitObject(None)
    cockpit.command("TEXTURE")
    cockpit.command("TEXTURE textures/LARK.PNG and further words, which do not count")
    for name, mesh in (
        ("Tub", tub()),
        ("Canopy frame", canopy_frame()),
        ("Seat", seat()),
        ("Pod", pod()),
        ("Nose", nose()),
    ):
        cockpit.draw(name, mesh)
    cockpit.command("ATTR_cockpit_region 0")
    cockpit.command("ATTR_cockpit")
    cockpit.draw("Panel", panel())
    cockpit.command("ATTR_no_cockpit")
    for draw in (draw_stick, draw_left_wall, draw_panel_controls, draw_gear_lever, draw_side_wheels):
        draw(cockpit)
    return cockpit


# -- the unusual text --------------------------------------------------------------------------------------------------


def with_unusual_text(lines):
    """The same lines with blanks and tabs in unusual places, unusual forms of numbers, CR LF, and no line end at the end."""
    result = []
    for index, line in enumerate(lines):
        words = line.split()
        if words and words[0] == "VT":
            words = ["VT"] + [FORMS[(index + place_of) % len(FORMS)](word) for place_of, word in enumerate(words[1:])]
            words += ["and", "a", "comment"] if index % 9 == 0 else []
        between, before, after = ((" ", "", ""), ("\t", "  ", " "), (" \t ", "\t", "\t"))[index % 3]
        result.append(before + between.join(words) + after)
    return "\r\n".join(result).rstrip().encode("utf-8")


def without_leading_zero(word):
    return word.replace("0.", ".", 1) if word.startswith(("0.", "-0.")) else word


def with_exponent(word):
    """The same decimal digits, and so the same number."""
    sign, digits = ("-", word[1:]) if word.startswith("-") else ("", word)
    whole, _, fraction = digits.partition(".")
    return f"{sign}{whole}{fraction}e-{len(fraction)}"


FORMS = (
    str,
    without_leading_zero,
    with_exponent,
    lambda word: word if word.startswith("-") else "+" + word,
    lambda word: word if "." in word else word + ".",
)


def aircraft_file():
    feet = [number(value / 0.3048) for value in EYE]
    return [
        "I",
        "1100 Version",
        "ACF",
        "PROPERTIES_BEGIN",
        "P acf/_descrip Lark",
        "P acf/_descrip",
        "P acf/_descrip Lark, the second of three descriptions",
        "p acf/_descrip not a property line",
        "P acf/_Descrip not this key",
        "P acf/_pe_xyz/0 1e3",
        "P acf/_descrip Lark 15.2 für Übungsflüge",
        "P acf/_pe_xyz/0",
        f"P acf/_pe_xyz/0 {feet[0]}",
        f"P acf/_pe_xyz/1 {feet[1]} feet",
        f"P acf/_pe_xyz/2 +{feet[2]}",
        "PROPERTIES_END",
    ]


def files():
    """(path below the sample's folder, content) of the aircraft."""
    yield f"{FOLDER}/LARK.ACF", with_unusual_text(aircraft_file())
    yield f"{FOLDER}/LARK_cockpit.obj", with_unusual_text(cockpit_object().lines())
    yield f"{FOLDER}/Textures/lark.png", skin_picture().png()
    yield f"{FOLDER}/cockpit_3d/-PANELS-/panel.png", panel_picture().png()
