"""An independent computation of the detection, to compare the program's output with.

It shares no code with the program. All arithmetic that the program does in 32-bit floats is done here in doubles that
are rounded after every operation, which has the same results for sums, products, quotients and square roots.
"""
import math
import os
import re
import struct

_FLOAT = struct.Struct("<f")
PANEL_TEXTURE = 0
NO_TEXTURE = 0xFFFFFFFF
NUMBER = re.compile(rb"[+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?")
INTEGER = re.compile(rb"[+-]?\d+")


class Unloadable(Exception):
    pass


def f32(value):
    return _FLOAT.unpack(_FLOAT.pack(value))[0]


LIMIT_BALANCE, LIMIT_SWEEP, LIMIT_TURN, TIP_SCALE = f32(0.3), f32(0.1), f32(0.1), f32(1.2)


# -- the text of an object ---------------------------------------------------------------------------------------------


class Values:
    """The values after a keyword. After the first malformed or missing one, all are zero or empty."""

    def __init__(self, text):
        self.text, self.broken = text, False

    def _take(self, pattern):
        self.text = self.text.lstrip(b" \t")
        match = None if self.broken else pattern.match(self.text)
        if not match:
            self.broken = True
            return None
        self.text = self.text[match.end() :]
        return match.group()

    def number(self):
        found = self._take(NUMBER)
        if found is None:
            return 0.0
        try:
            return f32(float(found))
        except OverflowError:
            self.broken = True
            return 0.0

    def integer(self):
        found = self._take(INTEGER)
        return 0 if found is None else max(-(2**31), min(2**31 - 1, int(found)))

    def word(self):
        words = [] if self.broken else self.text.split(None, 1)
        self.text = words[1] if len(words) > 1 else b""
        return words[0] if words else b""


def lines_of(path):
    try:
        with open(path, "rb") as file:
            data = file.read()
    except OSError:
        return []
    lines = data.split(b"\n")
    if lines and not lines[-1]:
        lines.pop()
    return [(line[:-1] if line.endswith(b"\r") else line).strip(b" \t") for line in lines]


class Node:
    def __init__(self, parent):
        self.parent, self.steps, self.children = parent, [], []


class Draw:
    def __init__(self, node, offset, count, texture, callback):
        self.node, self.offset, self.count, self.texture, self.callback = node, offset, count, texture, callback


class Object:
    def __init__(self):
        self.textures, self.positions, self.indices = [PANEL_TEXTURE], [], []
        self.draws, self.nodes = [], [Node(None)]


def read_object(path):
    obj, stack = Object(), [0]
    texture, cockpit, enabled, callback = NO_TEXTURE, False, True, None
    for line in lines_of(path):
        tokens = re.split(rb"[ \t]+", line)
        keyword, values = tokens[0], Values(line[len(tokens[0]) :])
        if keyword == b"VT":
            obj.positions.append(tuple(values.number() for _ in range(3)))
        elif keyword == b"IDX":
            obj.indices.append(values.integer())
        elif keyword == b"IDX10":
            for _ in range(10):
                value = values.integer()
                if values.broken:
                    break
                obj.indices.append(value)
        elif keyword == b"TRIS":
            offset, count = values.integer(), values.integer()
            if enabled or callback:
                used = PANEL_TEXTURE if cockpit else texture
                obj.draws.append(Draw(stack[-1], offset, count, used, callback))
        elif keyword == b"TEXTURE" and len(tokens) >= 2:
            texture = len(obj.textures)
            obj.textures.append(tokens[1])
        elif keyword in (b"ATTR_draw_enable", b"ATTR_draw_disable"):
            enabled = keyword == b"ATTR_draw_enable"
        elif keyword in (b"ATTR_cockpit", b"ATTR_no_cockpit"):
            cockpit = keyword == b"ATTR_cockpit"
        elif keyword == b"ANIM_begin":
            obj.nodes[stack[-1]].children.append(len(obj.nodes))
            obj.nodes.append(Node(stack[-1]))
            stack.append(len(obj.nodes) - 1)
        elif keyword == b"ANIM_end":
            if len(stack) > 1:
                stack.pop()
        elif keyword in (b"ANIM_trans", b"ANIM_rotate"):
            count = 6 if keyword == b"ANIM_trans" else 5
            numbers = [values.number() for _ in range(count + 2)][:count]
            obj.nodes[stack[-1]].steps.append((keyword[5:], numbers, values.word()))
        elif keyword in (b"ATTR_manip_none", b"ATTR_manip_drag_xy", b"ATTR_manip_command", b"ATTR_manip_command_axis"):
            callback = None
        elif keyword == b"ATTR_manip_toggle":
            callback = "toggle"
        elif keyword == b"ATTR_manip_drag_axis":
            callback = "drag"
    return obj


def split_chains(obj):
    """One step per node: further steps of a node get nodes of their own, at the end of the list."""
    last_of = {}
    for index in range(len(obj.nodes)):
        node = obj.nodes[index]
        if len(node.steps) < 2:
            continue
        last, children, node.children = index, node.children, []
        for step in node.steps[1:]:
            obj.nodes.append(Node(last))
            obj.nodes[last].children.append(len(obj.nodes) - 1)
            last = len(obj.nodes) - 1
            obj.nodes[last].steps.append(step)
        del node.steps[1:]
        for child in children:
            obj.nodes[child].parent = last
        obj.nodes[last].children = children
        last_of[index] = last
    for draw in obj.draws:
        draw.node = last_of.get(draw.node, draw.node)


# -- animations --------------------------------------------------------------------------------------------------------


def length_of(v):
    return f32(math.sqrt(squared_length(v)))


def squared_length(v):
    total = 0.0
    for component in v:
        total = f32(total + f32(component * component))
    return total


def normalised(v):
    length = length_of(v)
    return [f32(c / length) for c in v] if length != 0 else [0.0] * len(v)


def quaternion(axis, degrees):
    angle = f32(degrees * math.pi / 180.0)
    sine, cosine = f32(math.sin(angle / 2)), f32(math.cos(angle / 2))
    x, y, z = (f32(c * sine) for c in normalised(axis))
    return [-x, -y, z, cosine]


def keys_of(node):
    """(is translation, first key, second key, name) of a node's animation."""
    if not node.steps:
        return True, [0.0] * 3, [0.0] * 3, b"Dummy Animation"
    kind, n, name = node.steps[0]
    if kind == b"trans":
        return True, [n[0], n[1], -n[2]], [n[3], n[4], -n[5]], name
    return False, quaternion(n[:3], n[3]), quaternion(n[:3], n[4]), name


def hamilton(a, b):
    def total(*products):
        result = 0.0
        for sign, left, right in products:
            result = f32(result + sign * f32(left * right))
        return result

    (ax, ay, az, aw), (bx, by, bz, bw) = a, b
    return [
        total((1, aw, bx), (1, ax, bw), (1, ay, bz), (-1, az, by)),
        total((1, aw, by), (-1, ax, bz), (1, ay, bw), (1, az, bx)),
        total((1, aw, bz), (1, ax, by), (-1, ay, bx), (1, az, bw)),
        total((1, aw, bw), (-1, ax, bx), (-1, ay, by), (-1, az, bz)),
    ]


def rotation_matrix(q):
    x, y, z, w = q
    return [
        [1 - 2 * (y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w), 0],
        [2 * (x * y - z * w), 1 - 2 * (x * x + z * z), 2 * (y * z + x * w), 0],
        [2 * (x * z + y * w), 2 * (y * z - x * w), 1 - 2 * (x * x + y * y), 0],
        [0, 0, 0, 1],
    ]


def product(a, b):
    return [[sum(a[r][k] * b[k][c] for k in range(4)) for c in range(4)] for r in range(4)]


def world_matrix(obj, index):
    """With all animations at their second keys; node 0 is never animated."""
    matrix = rotation_matrix([0, 0, 0, 1])
    while index:
        is_translation, _, second, _ = keys_of(obj.nodes[index])
        if is_translation:
            step = rotation_matrix([0, 0, 0, 1])
            step[3][:3] = second
        else:
            step = rotation_matrix(second)
        matrix = product(matrix, step)
        index = obj.nodes[index].parent
    return matrix


# -- motion and detection ----------------------------------------------------------------------------------------------


class Part:
    def __init__(self, node, corners, draw):
        self.node, self.corners, self.callback, self.texture = node, corners, draw.callback, draw.texture
        self.balance = self.sweep = 0.0
        self.tip, self.type = [0.0] * 3, "None"


def build_parts(obj):
    parts = {index: [] for index in range(len(obj.nodes))}
    for draw in obj.draws:
        corners = []
        for position in range(draw.offset, draw.offset + max(draw.count, 0)):
            if not 0 <= position < len(obj.indices) or not 0 <= obj.indices[position] < len(obj.positions):
                raise Unloadable("an index is out of range")
            x, y, z = obj.positions[obj.indices[position]]
            corners.append((x, y, -z))
        if draw.count < 0:
            raise Unloadable("a negative count")
        if len(corners) < 3:
            continue
        if draw.texture == NO_TEXTURE:
            raise Unloadable("TRIS before any TEXTURE line")
        parts[draw.node].append(Part(draw.node, corners, draw))
    return parts


def motion_of(node):
    """The direction of motion and the axis magnitude of a node's animation, from the sum of its keys."""
    is_translation, first, second, _ = keys_of(node)
    shift, turn = [0.0] * 3, [0.0, 0.0, 0.0, 1.0]
    for key in (first, second):
        if is_translation:
            shift = [f32(a + b) for a, b in zip(shift, key)]
        else:
            turn = hamilton(turn, key)
    turn = normalised(turn)
    mask, magnitude = [1.0] * 3, [0.0] * 3
    if f32(2 * f32(math.acos(max(-1.0, min(1.0, turn[3]))))) > LIMIT_TURN:
        mask = [f32(1 - c) for c in turn[:3]]
        magnitude = [abs(c) for c in turn[:3]]
    if length_of(shift) > LIMIT_TURN:
        mask = [f32(m * s) for m, s in zip(mask, normalised(shift))]
    return normalised(mask), magnitude


def analyse(part, node):
    direction, magnitude = motion_of(node)
    total, absolute, widest, longest, tip = [0.0] * 3, [0.0] * 3, 0.0, 0.0, [0.0] * 3
    for corner in part.corners:
        along = [f32(c * a) for c, a in zip(corner, magnitude)]
        swept = [f32(c * d) for c, d in zip(corner, direction)]
        total = [f32(t + s) for t, s in zip(total, swept)]
        absolute = [f32(t + abs(s)) for t, s in zip(absolute, swept)]
        widest = max(widest, squared_length(swept))
        if length_of(along) > longest:
            longest, tip = length_of(along), along
    part.tip = [f32(c * TIP_SCALE) for c in tip]
    divisor = length_of(absolute)
    part.balance = f32(length_of(total) / (divisor if divisor > 1.0 else 1.0))
    part.sweep = f32(math.sqrt(widest))


def centroid(part):
    total = [0.0] * 3
    for corner in part.corners:
        total = [f32(t + c) for t, c in zip(total, corner)]
    return [f32(t * f32(1.0 / len(part.corners))) for t in total]


ROLL = (b"YOKE X POSITION", b"sim/cockpit2/controls/yoke_roll_ratio")
PITCH = (b"YOKE Y POSITION", b"sim/cockpit2/controls/yoke_pitch_ratio")


def under_yoke(obj, index):
    names = []
    while index:
        names.append(keys_of(obj.nodes[index])[3])
        index = obj.nodes[index].parent
    return all(any(word in name for name in names for word in words) for words in (ROLL, PITCH))


def classify(obj, part):
    if part.callback is None:
        return "YokePart" if under_yoke(obj, part.node) else "None"
    if part.callback == "toggle":
        return "Tap"
    if part.node == 0:
        return "Twist"
    is_translation, first, second, _ = keys_of(obj.nodes[part.node])
    if is_translation or (first[3] == 1.0 and second[3] == 1.0):
        return "Move"
    return "Move" if part.balance > LIMIT_BALANCE or part.sweep > LIMIT_SWEEP else "Twist"


def choose_primary(obj, parts):
    best, best_score = None, -1000000.0
    for part in parts:
        if part.type == "YokePart":
            matrix = world_matrix(obj, part.node)
            x = sum(c * matrix[r][0] for r, c in enumerate(part.tip)) + matrix[3][0]
            score = 10.0 * part.sweep - x
            if score > best_score:
                best, best_score = part, score
    if best:
        best.type = "YokePrimary"


def detect(obj_path):
    """The object and its parts by node, classified."""
    obj = read_object(obj_path)
    split_chains(obj)
    by_node = build_parts(obj)
    parts = [part for index in sorted(by_node) for part in by_node[index]]
    for part in parts:
        if part.node:
            analyse(part, obj.nodes[part.node])
        else:
            part.tip = centroid(part)
        part.type = classify(obj, part)
    choose_primary(obj, parts)
    return obj, by_node


# -- the installation --------------------------------------------------------------------------------------------------


def aircraft_of(installation):
    """(acf path, object path or "") of each aircraft, in scan order."""
    top = os.path.join(installation, "Aircraft")
    for group in folders(top):
        for folder in folders(group):
            names = [
                e.name for e in os.scandir(folder) if e.is_file() and os.path.splitext(e.name)[1].lower() == ".acf"
            ]
            if names:
                wanted = os.path.splitext(names[0])[0] + "_cockpit.obj"
                entries = sorted(os.listdir(folder))
                found = wanted if wanted in entries else next((e for e in entries if e.lower() == wanted.lower()), "")
                yield os.path.join(folder, names[0]), os.path.join(folder, found) if found else ""


def folders(path):
    return [entry.path for entry in os.scandir(path) if entry.is_dir()]


def output_name(acf_path):
    return os.path.splitext(os.path.basename(os.path.dirname(acf_path)))[0] + ".xml"


def xml_of(by_node):
    rows = []
    for node in sorted(by_node):
        for position, part in enumerate(by_node[node]):
            fields = [
                ("NodeId", node),
                ("PartId", position),
                ("InteractionType", part.type),
                ("EventType", "Wheel"),
                ("Reverse", 0),
            ]
            inner = "".join(f"        <{name}>{value}</{name}>\n" for name, value in fields)
            rows.append(f"    <Part>\n{inner}    </Part>\n")
    return f"<NodePartList>\n{''.join(rows)}</NodePartList>\n" if rows else "<NodePartList/>\n"
