"""The types that the full reading should find in the sample's attached objects, worked out from the lines alone, without the
program's code: for each draw call under a manipulator its object, line, keyword, names and type."""
import os
import re

TAP = ("push", "radio", "command", "toggle", "delta", "wrap", "device")
TWIST = ("command_knob", "command_knob2", "axis_knob")
MOVE = ("drag_axis", "drag_axis_pix", "drag_rotate", "command_axis", "drag_xy")
MODIFIERS = ("wheel", "keyframe")
# Number of words before the first name, and number of names.
WORDS = {
    "command": (1, 1), "toggle": (3, 1), "push": (3, 1), "radio": (2, 1), "delta": (5, 1), "wrap": (5, 1), "device": (0, 0),
    "drag_axis": (6, 1), "drag_axis_pix": (6, 1), "drag_rotate": (14, 2), "drag_xy": (7, 2), "command_axis": (4, 2),
    "command_knob": (1, 2), "command_knob2": (1, 1), "axis_knob": (5, 1), "command_switch_up_down": (1, 2),
    "command_switch_left_right": (1, 2), "command_switch_up_down2": (1, 1), "command_switch_left_right2": (1, 1),
    "axis_switch_up_down": (5, 1), "axis_switch_left_right": (5, 1),
}


def type_of(keyword, cursor, names):
    if keyword == "drag_xy":
        axes = [any(f"yoke_{axis}_ratio" in name for name in names) for axis in ("roll", "pitch")]
        return "YokePrimary" if all(axes) else "Move"
    if keyword in TAP:
        return "Tap"
    if keyword in TWIST or cursor.startswith("rotate"):
        return "Twist"
    assert keyword in MOVE or "_switch_" in keyword
    return "Move"


def attached_objects(acf_path):
    with open(acf_path, encoding="utf-8") as file:
        found = re.findall(r"^P _obja/(\d+)/_v10_att_file_stl (.+)$", file.read(), re.MULTILINE)
    return [f"objects/{name}" for _, name in sorted(found, key=lambda entry: int(entry[0]))]


def controls_of(object_path):
    """(line of the TRIS, keyword, names, type) of each control."""
    manipulator = None
    with open(object_path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            words = line.split()
            if words and words[0].startswith("ATTR_manip_"):
                keyword = words[0].removeprefix("ATTR_manip_")
                if keyword not in MODIFIERS:
                    manipulator = (keyword, words[1:]) if keyword in WORDS else None
            elif words and words[0] == "TRIS" and manipulator:
                keyword, values = manipulator
                before, count = WORDS[keyword]
                names = [name for name in values[before : before + count] if name not in ("none", "no_ref")]
                yield number, keyword, " ".join(names), type_of(keyword, values[0], names)


def controls(acf_path):
    folder = os.path.dirname(acf_path)
    return sorted(
        (name, *control) for name in attached_objects(acf_path) for control in controls_of(os.path.join(folder, name))
    )
