"""The trainer: a side-by-side two-seater whose cockpit has every type of interaction."""
from . import trainer_pictures as pictures
from .mesh import CockpitObject, Mesh, circle, drag, number, place, slide, text_of, toggle, turn
from .trainer_cabin import OUT, PANEL_Z, PILOT_X, draw_cabin
from .trainer_pictures import (
    BADGE,
    BLUE,
    BREAKER,
    BUTTON,
    CHROME,
    GREEN,
    GRIP,
    HEAT_FACE,
    MIXTURE_FACE,
    POINTER,
    PUSH_RODS,
    RED,
    RIDGES,
    SELECTOR,
    SWITCHES,
    THROTTLE_FACE,
    WHITE,
    YELLOW,
    panel_tile,
)

FOLDER = "Aircraft/General Aviation/Vorelle Trainer"
EYE = (PILOT_X, 0.55, 0.30)
PITCH, ROLL, YAW = (f"sim/cockpit2/controls/yoke_{axis}_ratio" for axis in ("pitch", "roll", "heading"))


# -- shapes ------------------------------------------------------------------------------------------------------------


def knob(radius, half_depth, side=RIDGES, cap=POINTER):
    """Symmetric about its middle, front and back, so that it is balanced on its axis."""
    profile = ((0, -half_depth), (radius, -half_depth), (radius, half_depth))
    return Mesh().lathe(profile, side, 20, cap=cap)


def push_rod(face, side):
    """A rod that protrudes from the panel, with a knob at its end."""
    mesh = Mesh().lathe(((0.005, -0.06), (0.005, 0.03)), CHROME, 10)
    return mesh.lathe(((0.005, 0.03), (0.017, 0.034), (0.017, 0.052)), side, 18, cap=face)


def switch_bat():
    return Mesh().lathe(((0.0035, 0), (0.0055, 0.026)), CHROME, 10, cap=WHITE)


def yoke_horns():
    """Two horns joined by a bar, in the plane that faces the pilot."""
    mesh = Mesh()
    for side in (-1, 1):
        path = [(side * x, y, 0) for x, y in ((0, -0.02), (0.06, -0.022), (0.115, -0.01), (0.14, 0.03), (0.15, 0.085))]
        mesh.tube(path, 0.014, GRIP, 10)
        mesh.lathe(((0.014, 0), (0.012, 0.012)), GRIP, 10, "y", (side * 0.15, 0.082, 0), cap=GRIP)
    return mesh


def pedal(side):
    return (
        Mesh().box((0, 0.06, 0), (0.08, 0.14, 0.015), RIDGES).box((side * 0.01, -0.08, 0), (0.02, 0.16, 0.02), CHROME)
    )


# -- the controls ------------------------------------------------------------------------------------------------------


def draw_yokes(cockpit):
    """The pilot's yoke has nested blocks, the co-pilot's one block of three steps. At ratio 0 both are straight."""
    reach, roll = ((0, 0, 0), (0, 0, 0.06)), turn(OUT, 0, -90, 0, 1, ROLL)
    shaft = Mesh().lathe(((0.016, -0.3), (0.016, -0.02)), CHROME, 12)
    hub = Mesh().lathe(((0, -0.025), (0.032, -0.025), (0.036, 0.012)), GRIP, 18, cap=BADGE)
    with cockpit.block(place(PILOT_X, 0.17, -0.38), slide(*reach, 0, 1, PITCH)):
        cockpit.draw("Pilot's yoke shaft", shaft)
        with cockpit.block(roll):
            cockpit.draw("Pilot's yoke hub", hub)
            cockpit.draw("Pilot's yoke horns", yoke_horns())
            with cockpit.block(
                place(-0.15, 0.097, 0), slide((0, 0, 0), (0, -0.004, 0), 0, 1, "sim/cockpit2/radios/push_to_talk")
            ):
                with cockpit.manipulator(toggle(0, 1, "sim/cockpit2/radios/push_to_talk", "Push to talk", "button")):
                    cockpit.draw(
                        "Push-to-talk button", Mesh().lathe(((0.008, 0), (0.008, 0.008)), RED, 12, "y", cap=BUTTON)
                    )
            with cockpit.block(
                place(0.15, 0.06, 0.014), turn((1, 0, 0), 0, 20, 0, 1, "sim/cockpit2/controls/trim_switch")
            ):
                with cockpit.manipulator(
                    toggle(-1, 1, "sim/cockpit2/controls/trim_switch", "Elevator trim", "up_down")
                ):
                    cockpit.draw("Trim rocker", Mesh().box((0, 0, 0.004), (0.012, 0.026, 0.012), CHROME))
    with cockpit.block(place(-PILOT_X, 0.17, -0.38), slide(*reach, 0, 1, PITCH)):
        cockpit.draw("Co-pilot's yoke shaft", shaft)
    with cockpit.block(place(-PILOT_X, 0.17, -0.38), slide(*reach, 0, 1, PITCH), roll):
        yoke = yoke_horns().lathe(((0, -0.025), (0.032, -0.025), (0.036, 0.012)), GRIP, 18, cap=BADGE)
        cockpit.draw("Co-pilot's yoke", yoke)


def draw_engine_levers(cockpit):
    for (label, x), face, side, dataref, tooltip in zip(
        PUSH_RODS,
        (HEAT_FACE, THROTTLE_FACE, MIXTURE_FACE),
        (BLUE, RIDGES, RED),
        (
            "sim/cockpit2/engine/actuators/carb_heat_ratio[0]",
            "sim/cockpit2/engine/actuators/throttle_ratio_all",
            "sim/cockpit2/engine/actuators/mixture_ratio_all",
        ),
        ("Carburettor heat", "Throttle", "Mixture"),
    ):
        with cockpit.block(place(x, 0.095, PANEL_Z), slide((0, 0, 0.06), (0, 0, 0), 0, 1, dataref)):
            with cockpit.manipulator(drag((0, 0, -0.06), 0, 1, dataref, tooltip, "push")):
                cockpit.draw(f"{tooltip} push rod", push_rod(face, side))


def draw_dial_knobs(cockpit):
    """Knobs at the rims of the dials, each with a position and a rotation."""
    for name, x, y, last, low, high, dataref in (
        ("Heading bug knob", -0.294, 0.209, -360, 0, 360, "sim/cockpit/autopilot/heading_mag"),
        (
            "Altimeter setting knob",
            -0.194,
            0.311,
            -270,
            28,
            31,
            "sim/cockpit2/gauges/actuators/barometer_setting_in_hg_pilot",
        ),
        ("Bearing knob", -0.094, 0.311, 270, 0, 360, "sim/cockpit/radios/nav1_obs_degm"),
    ):
        with cockpit.block(place(x, y, PANEL_Z + 0.012), turn(OUT, 0, last, low, high, dataref)):
            with cockpit.manipulator(drag((0.05, 0, 0), low, high, dataref, name, "rotate_medium")):
                cockpit.draw(name, knob(0.010, 0.010))
    speed = "sim/cockpit2/gauges/indicators/airspeed_kts_pilot"
    with cockpit.block(place(-0.36, 0.345, PANEL_Z + 0.003), turn(OUT, -20, -320, 40, 180, speed)):
        cockpit.draw("Airspeed needle", Mesh().box((0, 0.013, 0), (0.003, 0.04, 0.001), WHITE))


def draw_radio(cockpit):
    """The fine knob's block is inside the coarse one's. The stack's last controls have no animation or an unusual one."""
    with cockpit.block(
        place(0.205, 0.355, PANEL_Z + 0.010), turn(OUT, 0, -300, 118, 136, "sim/cockpit2/radios/com1_mhz")
    ):
        with cockpit.manipulator(
            drag((0.05, 0, 0), 118, 136, "sim/cockpit2/radios/com1_mhz", "COM megahertz", "rotate_large")
        ):
            cockpit.draw("COM coarse knob", knob(0.017, 0.010, cap=CHROME))
        with cockpit.block(turn(OUT, 0, -300, 0, 95, "sim/cockpit2/radios/com1_khz")):
            with cockpit.manipulator(
                drag((0.05, 0, 0), 0, 95, "sim/cockpit2/radios/com1_khz", "COM kilohertz", "rotate_small")
            ):
                cockpit.draw("COM fine knob", knob(0.010, 0.020))
    with cockpit.block(
        place(0.205, 0.285, PANEL_Z + 0.012), turn(OUT, 0, -300, 108, 118, "sim/cockpit2/radios/nav1_mhz")
    ):
        with cockpit.manipulator(
            drag((0.05, 0, 0), 108, 118, "sim/cockpit2/radios/nav1_mhz", "NAV megahertz", "rotate_large")
        ):
            cockpit.draw("NAV knob", knob(0.015, 0.012))
    with cockpit.manipulator(toggle(0, 1, "sim/cockpit2/switches/avionics_power_on", "Avionics master", "button")):
        cockpit.draw("Avionics push button", Mesh().box((0.045, 0.222, PANEL_Z + 0.006), (0.022, 0.014, 0.012), GREEN))
    with cockpit.manipulator(
        drag((0.05, 0, 0), 0, 1, "sim/cockpit2/switches/instrument_brightness_ratio[0]", "Dimmer")
    ):
        cockpit.draw(
            "Dimmer knob",
            Mesh().lathe(((0.009, 0), (0.009, 0.016)), RIDGES, 16, centre=(0.115, 0.222, PANEL_Z), cap=POINTER),
        )
    flood, spot = "sim/cockpit2/switches/panel_brightness_ratio[0]", (0.178, 0.222, PANEL_Z)
    with cockpit.block(place(*spot), turn(OUT, 0, -270, 0, 1, flood), place(*(-c for c in spot))):
        with cockpit.manipulator(drag((0.05, 0, 0), 0, 1, flood, "Flood light")):
            cockpit.draw(
                "Flood light knob", Mesh().lathe(((0.009, 0), (0.009, 0.016)), RIDGES, 16, centre=spot, cap=POINTER)
            )


def draw_switches(cockpit):
    for column, (_, dataref, tooltip) in enumerate(SWITCHES):
        with cockpit.block(place(-0.50 + 0.05 * column, 0.095, PANEL_Z), turn((1, 0, 0), 22, -22, 0, 1, dataref)):
            with cockpit.manipulator(toggle(0, 1, dataref, tooltip)):
                cockpit.draw(f"{tooltip} switch", switch_bat())
    for column in range(4):
        dataref = f"sim/custom/breakers[{column}]"
        with cockpit.block(
            place(0.30 + 0.05 * column, -0.01, PANEL_Z + 0.016), slide((0, 0, 0), (0, 0, 0.008), 1, 0, dataref)
        ):
            with cockpit.manipulator(toggle(1, 0, dataref, f"Circuit breaker {column + 1}", "button")):
                cockpit.draw(
                    f"Circuit breaker {column + 1}",
                    Mesh().lathe(((0.008, -0.01), (0.008, 0.008)), WHITE, 14, cap=BREAKER),
                )
    key = "sim/cockpit2/engine/actuators/ignition_key[0]"
    with cockpit.block(place(-0.47, 0.0, PANEL_Z + 0.02), turn(OUT, 0, -120, 0, 4, key)):
        with cockpit.manipulator(drag((0.05, 0, 0), 0, 4, key, "Magnetos", "rotate_medium")):
            cockpit.draw("Magneto key", Mesh().box((0, 0, 0.006), (0.004, 0.026, 0.03), CHROME))
    cockpit.command("ATTR_manip_command button sim/starters/engage_starter_1 Starter")
    cockpit.draw(
        "Starter button",
        Mesh().lathe(((0.011, 0), (0.011, 0.012)), CHROME, 16, centre=(-0.38, 0.0, PANEL_Z + 0.012), cap=BUTTON),
    )
    cockpit.command("ATTR_manip_none")


def draw_levers_and_wheels(cockpit):
    flaps = "sim/cockpit2/controls/flap_ratio"
    with cockpit.block(place(0.23, 0.095, PANEL_Z - 0.02), turn((1, 0, 0), -18, 22, 0, 1, flaps)):
        with cockpit.manipulator(drag((0, -0.06, 0), 0, 1, flaps, "Flaps", "down")):
            lever = Mesh().box((0, 0, 0.045), (0.006, 0.012, 0.09), CHROME)
            cockpit.draw("Flap lever", lever.box((0, 0, 0.10), (0.03, 0.014, 0.03), WHITE))
    trim = "sim/cockpit2/controls/elevator_trim"
    with cockpit.block(place(0, -0.26, -0.10), turn((1, 0, 0), 0, 270, -1, 1, trim)):
        with cockpit.manipulator(drag((0, 0, 0.1), -1, 1, trim, "Elevator trim", "up_down")):
            rim = ((0.0, -0.014), (0.085, -0.014), (0.085, 0.014), (0.0, 0.014))
            cockpit.draw("Trim wheel", Mesh().lathe(rim, RIDGES, 28, "x"))
    heat = "sim/cockpit2/pressurization/actuators/cabin_heat_ratio"
    with cockpit.block(place(0.565, 0.12, -0.16), turn((-1, 0, 0), 0, 270, 0, 1, heat)):
        with cockpit.manipulator(drag((0, 0.1, 0), 0, 1, heat, "Cabin heat", "rotate_large")):
            cockpit.draw("Cabin heat wheel", heat_wheel())
    tank = "sim/cockpit2/fuel/fuel_tank_selector"
    with cockpit.block(place(0, -0.268, -0.36), turn((0, 1, 0), 0, -180, 0, 4, tank)):
        with cockpit.manipulator(drag((0.05, 0, 0), 0, 4, tank, "Fuel selector", "rotate_large")):
            cockpit.draw("Fuel selector", Mesh().box((0, 0.012, -0.025), (0.014, 0.02, 0.08), SELECTOR))
    with cockpit.block():
        with cockpit.manipulator(drag((0.06, 0, 0), 0, 1, "sim/custom/cabin_air", "Cabin air", "left_right")):
            cockpit.draw("Cabin air slider", Mesh().box((-0.20, 0.0, PANEL_Z + 0.02), (0.02, 0.014, 0.02), BLUE))
    cockpit.command(
        "ATTR_manip_drag_xy hand 0.1 0.1 0 1 0 1 sim/cockpit2/controls/parking_brake_ratio none Parking brake"
    )
    cockpit.draw("Parking brake handle", Mesh().box((-0.10, -0.01, PANEL_Z + 0.04), (0.05, 0.014, 0.02), YELLOW))
    cockpit.command("ATTR_manip_none")


def heat_wheel():
    points = [(0, 0.16 * c, 0.16 * s) for c, s in circle(32)]
    mesh = Mesh().tube(points, 0.011, CHROME, 8)
    for _, y, z in points[:32:8]:
        mesh.tube([(0, 0, 0), (0, y, z)], 0.007, CHROME, 6)
    return mesh


def draw_cabin_fittings(cockpit):
    """The visor rotates by keyframes, which detection ignores; X-Plane does not draw the glove box spot."""
    for x in (PILOT_X, -PILOT_X):
        for side in (-1, 1):
            travel = (0, 0, 0.04 * side)
            with cockpit.block(
                slide((0, 0, 0), travel, 0, 1, YAW), place(x + 0.07 * side, -0.27, -0.70)
            ):
                cockpit.draw("Rudder pedal", pedal(side))
    with cockpit.block(place(-0.58, 0.22, -0.1), turn((1, 0, 0), 0, 60, 0, 1, "sim/cockpit2/switches/door_open[0]")):
        with cockpit.manipulator(toggle(0, 1, "sim/cockpit2/switches/door_open[0]", "Door")):
            cockpit.draw("Door handle", Mesh().box((0.012, 0, 0.06), (0.015, 0.022, 0.14), CHROME))
    with cockpit.block():
        for line in (
            "ANIM_rotate_begin 1 0 0 sim/custom/visor",
            "ANIM_rotate_key 0 0",
            "ANIM_rotate_key 1 80",
            "ANIM_rotate_end",
        ):
            cockpit.command(line)
        with cockpit.manipulator(toggle(0, 1, "sim/custom/visor", "Sun visor")):
            cockpit.draw("Sun visor", Mesh().box((PILOT_X, 0.955, -0.24), (0.36, 0.012, 0.16), GRIP))
    cockpit.command("ATTR_draw_disable")
    cockpit.draw("Collision box, which leaves no part", Mesh().box((0, 0.2, 0.2), (1.2, 1.2, 1.6), WHITE))
    cockpit.command("ATTR_cockpit")
    with cockpit.manipulator(toggle(0, 1, "sim/custom/glove_box", "Glove box")):
        z = PANEL_Z + 0.002
        cockpit.draw(
            "Glove box spot",
            Mesh().quad(
                [(0.305, 0.205, z), (0.505, 0.205, z), (0.505, 0.23, z), (0.305, 0.23, z)],
                OUT,
                panel_tile(0, 510, 400, 560),
            ),
        )
    cockpit.command("ATTR_no_cockpit")
    cockpit.command("ATTR_draw_enable")


def cockpit_object():
    cockpit = CockpitObject("trainer_interior.png")
    draw_cabin(cockpit)
    cockpit.command("TEXTURE trainer_controls.png")
    for draw in (
        draw_yokes,
        draw_engine_levers,
        draw_dial_knobs,
        draw_radio,
        draw_switches,
        draw_levers_and_wheels,
        draw_cabin_fittings,
    ):
        draw(cockpit)
    return cockpit


def aircraft_file():
    feet = [number(value / 0.3048) for value in EYE]
    lines = [
        "I",
        "1100 Version",
        "ACF",
        "",
        "PROPERTIES_BEGIN",
        "P acf/_descrip Vorelle Trainer",
        "P acf/_name Trainer",
    ]
    lines += [f"P acf/_pe_xyz/{axis} {value}" for axis, value in enumerate(feet)]
    return lines + ["P acf/_size_x 24.0", "PROPERTIES_END"]


def files():
    """(path below the sample's folder, content) of the aircraft."""
    yield f"{FOLDER}/trainer.acf", text_of(aircraft_file())
    yield f"{FOLDER}/trainer_cockpit.obj", text_of(cockpit_object().lines())
    yield f"{FOLDER}/trainer_interior.png", pictures.interior_picture().png()
    yield f"{FOLDER}/trainer_controls.png", pictures.controls_picture().png()
    yield f"{FOLDER}/cockpit_3d/-PANELS-/Panel.png", pictures.panel_picture().png()
