"""The scout: a cockpit in today's way. It has no cockpit object; its .acf attaches a cabin and a panel, whose controls have every
manipulator keyword, key frames, and a yoke that is dragged in two directions."""
from .mesh import CockpitObject, Mesh, Tile, number, numbers, text_of
from .picture import Picture

FOLDER = "Aircraft/General Aviation/Vorelle Scout"
FEET = 1 / 0.3048
# In metres from the aircraft's reference point.
EYE, CABIN, PANEL = (0, 1.00, 0.30), (0, 0, 0), (0, 0.72, -0.48)
CENTRE_OF_GRAVITY = (0, 0.50, 0.60)
PITCH, ROLL = (f"sim/cockpit2/controls/yoke_{axis}_ratio" for axis in ("pitch", "roll"))
OUT = (0, 0, 1)

WALL, CUSHION, BOARD, BLACK = (Tile.of_grid(column, 0, 4, 2) for column in range(4))
METAL, RED, GREEN, WHITE = (Tile.of_grid(column, 1, 4, 2) for column in range(4))
COLOURS = [(196, 190, 176), (120, 60, 48), (60, 66, 72), (30, 30, 32), (170, 172, 176), (190, 50, 40), (60, 140, 70), (230, 230, 224)]


def skin_picture():
    picture = Picture(128, 64, 1, COLOURS[0])
    for cell, colour in enumerate(COLOURS):
        picture.rectangle(cell % 4 * 32, cell // 4 * 32, 32, 32, colour)
    return picture


# -- shapes ------------------------------------------------------------------------------------------------------------


def button(x, y, tile):
    return Mesh().box((x, y, 0.008), (0.022, 0.022, 0.016), tile)


def switch(x, y):
    return Mesh().box((x, y, 0.004), (0.024, 0.034, 0.008), METAL).box((x, y + 0.006, 0.018), (0.008, 0.010, 0.028), WHITE)


def knob(x=0.0, y=0.0, z=0.0):
    return Mesh().lathe(((0.015, 0), (0.015, 0.02), (0.012, 0.026)), BLACK, 16, centre=(x, y, z), cap=WHITE)


def lever(tile):
    return Mesh().box((0, 0, 0.03), (0.010, 0.014, 0.06), METAL).box((0, 0, 0.066), (0.026, 0.022, 0.016), tile)


# -- the panel ---------------------------------------------------------------------------------------------------------

# Tooltip, line of the manipulator without "ATTR_manip_", shape. Each is drawn at a place of its own on the panel.
STILL = (
    ("Battery", "toggle hand 0 1 sim/scout/battery", switch),
    ("Starter", "push button 1 0 sim/scout/starter", lambda x, y: button(x, y, RED)),
    ("Radio 1", "radio button 1 sim/scout/radio", lambda x, y: button(x, y, WHITE)),
    ("Radio 2", "radio button 2 sim/scout/radio", lambda x, y: button(x, y, WHITE)),
    ("Mark", "command button sim/scout/mark", lambda x, y: button(x, y, GREEN)),
    ("Step", "delta hand 1 1 0 9 sim/scout/step", lambda x, y: button(x, y, METAL)),
    ("Page", "wrap hand 1 1 0 3 sim/scout/page", lambda x, y: button(x, y, METAL)),
    ("Touch screen", "device hand sim/scout/screen", lambda x, y: Mesh().box((x, y, 0.003), (0.05, 0.04, 0.006), GREEN)),
    ("Heading", "command_knob rotate_small sim/scout/heading_up sim/scout/heading_down", knob),
    ("Course", "command_knob2 rotate_small sim/scout/course", knob),
    ("Lights", "command_switch_up_down hand sim/scout/lights_up sim/scout/lights_down", switch),
    ("Magnetos", "command_switch_left_right rotate_large sim/scout/magneto_left sim/scout/magneto_right", knob),
    ("Pump", "command_switch_up_down2 hand sim/scout/pump", switch),
    ("Wipers", "command_switch_left_right2 hand sim/scout/wipers", switch),
    ("Fan", "axis_switch_up_down hand 0 2 1 1 sim/scout/fan", switch),
    ("Source", "axis_switch_left_right rotate_small 0 2 1 1 sim/scout/source", knob),
    ("Dimmer", "drag_axis_pix rotate_large 200 1 1 0 1 sim/scout/dimmer", knob),
    ("Volume", "drag_axis_pix hand 200 1 1 0 1 sim/scout/volume", lambda x, y: Mesh().box((x, y, 0.01), (0.014, 0.03, 0.02), BLACK)),
)


def places():
    """Five rows of five, from the top left."""
    for row in range(5):
        for column in range(5):
            yield (column - 2) * 0.075, 0.10 - row * 0.06


def draw_still_controls(panel, free):
    for tooltip, line, shape in STILL:
        with panel.manipulator(f"ATTR_manip_{line} {tooltip}"):
            if tooltip == "Heading":
                panel.command("ATTR_manip_wheel 1")
            panel.draw(tooltip, shape(*next(free)))


def draw_key_framed_controls(panel, free):
    """Two keys, and a value that goes round."""
    x, y = next(free)
    with panel.block(f"ANIM_trans {numbers((x, y, 0))} {numbers((x, y, 0))} 0 0 none"):
        panel.command("ANIM_rotate_begin 0 0 1 sim/scout/altimeter")
        panel.command("ANIM_rotate_key 0 0")
        panel.command("ANIM_rotate_key 10 -360")
        panel.command("ANIM_rotate_end")
        panel.command("ANIM_keyframe_loop 10")
        with panel.manipulator("ATTR_manip_axis_knob rotate_small 0 10 0.1 1 sim/scout/altimeter Altimeter"):
            panel.draw("Altimeter", knob())
    x, y = next(free)
    with panel.block(f"ANIM_trans {numbers((x, y, 0))} {numbers((x, y, 0))} 0 0 none"):
        panel.command("ANIM_trans_begin sim/scout/flaps")
        for value, height in ((0, 0), (0.5, -0.02), (1, -0.03)):
            panel.command(f"ANIM_trans_key {number(value)} 0 {number(height)} 0")
        panel.command("ANIM_trans_end")
        with panel.manipulator("ATTR_manip_drag_axis hand 0 -0.03 0 0 1 sim/scout/flaps Flaps"):
            panel.command("ATTR_axis_detented 0.02 0 0 0 1 sim/scout/flap_gate")
            panel.command("ATTR_axis_detent_range 0 0 0")
            panel.command("ATTR_axis_detent_range 0.5 0.5 0.2")
            panel.draw("Flaps", lever(WHITE))


def panel_object():
    panel = CockpitObject("../scout.png")
    board = Mesh().box((0, -0.02, -0.012), (0.42, 0.34, 0.02), BOARD)
    panel.draw("Board", board)
    free = places()
    draw_still_controls(panel, free)
    draw_key_framed_controls(panel, free)
    panel.command("ATTR_manip_noop A shield")
    panel.draw("Shield", Mesh().box((0.15, -0.155, 0.02), (0.05, 0.03, 0.004), METAL))
    panel.command("ATTR_manip_none")
    return panel


# -- the cabin ---------------------------------------------------------------------------------------------------------


def cabin_shell():
    mesh = Mesh().quad([(-0.55, 0.2, 0.9), (0.55, 0.2, 0.9), (0.5, 0.2, -1), (-0.5, 0.2, -1)], (0, 1, 0), BLACK)
    for side in (-1, 1):
        mesh.quad(
            [(side * 0.55, 0.2, 0.9), (side * 0.5, 0.2, -1), (side * 0.5, 0.85, -1), (side * 0.55, 0.85, 0.9)], (-side, 0, 0), WALL
        )
        mesh.tube([(side * 0.55, 0.85, 0.5), (side * 0.45, 1.45, 0.4)], 0.015, METAL)
        mesh.tube([(side * 0.5, 0.85, -0.75), (side * 0.42, 1.42, -0.25), (side * 0.45, 1.45, 0.4)], 0.015, METAL)
    return mesh.box((0, 0.60, -0.55), (0.9, 0.5, 0.08), BOARD).box((0, 0.86, -0.60), (0.95, 0.03, 0.22), BLACK)


def draw_yoke(cabin):
    with cabin.manipulator(f"ATTR_manip_drag_xy hand 0.3 0.2 -1 1 -1 1 {ROLL} {PITCH} Yoke"):
        yoke = Mesh().tube([(0, 0.58, -0.5), (0, 0.62, -0.30)], 0.012, METAL).box((0, 0.62, -0.30), (0.24, 0.02, 0.02), BLACK)
        for side in (-1, 1):
            yoke.box((side * 0.11, 0.665, -0.30), (0.02, 0.09, 0.024), BLACK)
        cabin.draw("Yoke", yoke)


def draw_throttle(cabin):
    """Five keys, in another order than their values'."""
    with cabin.block("ANIM_trans 0.18 0.42 -0.2 0.18 0.42 -0.2 0 0 none"):
        cabin.command("ANIM_rotate_begin 1 0 0 sim/scout/throttle")
        for value, angle in ((0, 30), (1, -30), (0.25, 18), (0.5, 5), (0.75, -12)):
            cabin.command(f"ANIM_rotate_key {number(value)} {number(angle)}")
        cabin.command("ANIM_rotate_end")
        line = "drag_rotate hand 0.18 0.42 -0.2 1 0 0 30 -30 0 0 1 0 0 sim/scout/throttle none"
        with cabin.manipulator(f"ATTR_manip_{line} Throttle"):
            cabin.command("ATTR_manip_keyframe 0.25 18")
            cabin.command("ATTR_manip_keyframe 0.5 5")
            cabin.draw("Throttle", Mesh().box((0, 0.09, 0), (0.012, 0.18, 0.016), METAL).box((0, 0.19, 0), (0.03, 0.03, 0.03), RED))


def cabin_object():
    cabin = CockpitObject("../scout.png")
    cabin.draw("Shell", cabin_shell())
    seat = Mesh().box((0, 0.48, 0.25), (0.46, 0.12, 0.46), CUSHION).box((0, 0.82, 0.50), (0.46, 0.62, 0.1), CUSHION)
    cabin.draw("Seat", seat)
    draw_yoke(cabin)
    draw_throttle(cabin)
    with cabin.manipulator("ATTR_manip_drag_xy hand 0.1 0.1 -30 30 -30 30 sim/scout/vent_x sim/scout/vent_y Vent"):
        cabin.draw("Vent", knob(0.36, 0.75, -0.51))
    with cabin.manipulator("ATTR_manip_command_axis hand 0 0 0.1 sim/scout/door_open sim/scout/door_close Door"):
        cabin.draw("Door", Mesh().box((-0.49, 0.6, -0.2), (0.03, 0.03, 0.14), METAL))
    with cabin.manipulator("ATTR_manip_command_axis rotate_large 0 0.1 0 sim/scout/trim_up sim/scout/trim_down Trim"):
        cabin.draw("Trim", Mesh().lathe(((0.07, -0.012), (0.08, -0.012), (0.08, 0.012)), BLACK, 20, "x", (0.05, 0.36, -0.1)))
    return cabin


def attached(index, file, place):
    yield f"P _obja/{index}/_v10_att_file_stl {file}"
    yield f"P _obja/{index}/_v10_att_part -1"
    for axis, value in zip("xyz", place):
        yield f"P _obja/{index}/_v10_att_{axis}_acf_prt_ref {number(value * FEET)}"
    yield f"P _obja/{index}/_obj_flags 1"


def aircraft_file():
    yield from ("I", "1100 Version", "ACF", "", "PROPERTIES_BEGIN")
    yield from attached(0, "cabin.obj", CABIN)
    yield from attached(1, "panel.obj", PANEL)
    yield "P _obja/count 2"
    for axis, value in zip("YZ", CENTRE_OF_GRAVITY[1:]):
        yield f"P acf/_cg{axis} {number(value * FEET)}"
    yield "P acf/_descrip Vorelle Scout"
    for axis, value in enumerate(EYE):
        yield f"P acf/_pe_xyz/{axis} {number(value * FEET)}"
    yield "PROPERTIES_END"


# -- the VR configuration ----------------------------------------------------------------------------------------------

# It has each fault that 'vrconfig check' finds, once. What is right in it shows how a block looks.
VR_CONFIGURATION = """\
# Vorelle Scout: a comment before the header
A
1100
VRCONFIG

# It counts from the reference point, but REF_POINT_ACF is missing.
BEGIN_TELEPORT_HOTSPOT SITTING Pilot's seat
	AABB -0.4 0.6 -0.1 0.4 1.3 0.7
	PRESET_XYZ 0 1 0.3
	PRESET_PSI 0
	PRESET_THE 0
	PRESET_PHI 0
END_TELEPORT_HOTSPOT

# Greatest and least y are exchanged.
BEGIN_TELEPORT_HOTSPOT SITTING Back seat
	AABB -0.4 1.3 0.7 0.4 0.6 1.5
	PRESET_XYZ 0 1 1.1
	PRESET_PSI 0
	PRESET_THE 0
	PRESET_PHI 0
END_TELEPORT_HOTSPOT

# PRESET_PHI is missing.
BEGIN_TELEPORT_HOTSPOT SITTING Beside the door
	AABB -1.9 1 -0.5 -1.1 2 0.5
	PRESET_XYZ -1.5 1.6 0
	PRESET_PSI 90
	PRESET_THE -10
END_TELEPORT_HOTSPOT

BEGIN_MANIP drag_xy sim/cockpit2/controls/yoke_roll_ratio sim/cockpit2/controls/yoke_pitch_ratio
	YOKE_MANIP_ROTATE 0 0.58 -0.5 1 0 0 -8 8 0 0.62 -0.3 0 0 1 -60 60
END_MANIP

BEGIN_MANIP command_knob sim/scout/heading_up sim/scout/heading_down
	DEG_PER_ACTION 10
END_MANIP

BEGIN_MANIP command_switch_left_right sim/scout/magneto_left sim/scout/magneto_right
	DEG_PER_ACTION 30
END_MANIP

BEGIN_MANIP axis_switch_left_right sim/scout/source
	DEG_PER_ACTION 45
	HAPTIC_CLICK 1
END_MANIP

BEGIN_MANIP command_axis sim/scout/trim_up sim/scout/trim_down
	INVERT_MANIP
END_MANIP

# A second block for the heading knob
BEGIN_MANIP command_knob sim/scout/heading_up sim/scout/heading_down
	DEG_PER_ACTION 15
END_MANIP

# The name is not that of the object, and END_MANIP is missing.
BEGIN_MANIP command_knob2 sim/scout/corse
	DEG_PER_ACTION 15

BEGIN_MANIP drag_axis_pix sim/scout/dimmer
	ACTION axis_nob 0 1 0.05 sim/scout/dimmer
END_MANIP

BEGIN_MANIP axis_knob sim/scout/altimeter
	DEG_PER_ACTION 3,6
END_MANIP

# A button does not turn.
BEGIN_MANIP toggle sim/scout/battery
	DEG_PER_ACTION 30
END_MANIP

# A switch is no knob.
BEGIN_MANIP command_switch_up_down sim/scout/lights_up sim/scout/lights_down
	ACTION command_knob sim/scout/lights_up sim/scout/lights_down
END_MANIP
"""


def files():
    """(path below the sample's folder, content) of the aircraft."""
    yield f"{FOLDER}/scout.acf", text_of(aircraft_file())
    yield f"{FOLDER}/objects/cabin.obj", text_of(cabin_object().lines())
    yield f"{FOLDER}/objects/panel.obj", text_of(panel_object().lines())
    yield f"{FOLDER}/scout_vrconfig.txt", VR_CONFIGURATION.encode()
    yield f"{FOLDER}/scout.png", skin_picture().png()
