"""Pictures drawn with smooth edges, and written as PNG files."""
import math
import struct
import zlib

# Five bits per row, seven rows from the top.
FONT = {
    "A": "0E11111F111111",
    "B": "1E11111E11111E",
    "C": "0E11101010110E",
    "D": "1E11111111111E",
    "E": "1F10101E10101F",
    "F": "1F10101E101010",
    "G": "0E11101711110F",
    "H": "1111111F111111",
    "I": "0E04040404040E",
    "J": "0702020202120C",
    "K": "11121418141211",
    "L": "1010101010101F",
    "M": "111B1515111111",
    "N": "11111915131111",
    "O": "0E11111111110E",
    "P": "1E11111E101010",
    "Q": "0E11111115120D",
    "R": "1E11111E141211",
    "S": "0F10100E01011E",
    "T": "1F040404040404",
    "U": "1111111111110E",
    "V": "1111110A0A0A04",
    "W": "1111111515150A",
    "X": "11110A040A1111",
    "Y": "1111110A040404",
    "Z": "1F01020408101F",
    "0": "0E11131519110E",
    "1": "040C040404040E",
    "2": "0E11010204081F",
    "3": "1F02040201110E",
    "4": "02060A121F0202",
    "5": "1F101E0101110E",
    "6": "0608101E11110E",
    "7": "1F010204080808",
    "8": "0E11110E11110E",
    "9": "0E11110F01020C",
    ".": "000000000C0C00",
    "-": "0000001F000000",
    "/": "00010204081000",
    "+": "0004041F040400",
}


class Picture:
    """Coordinates are in units of the caller's choice, y downwards; pixels_per_unit is the resolution."""

    def __init__(self, width, height, pixels_per_unit, colour):
        self.scale = pixels_per_unit
        self.width, self.height = round(width * pixels_per_unit), round(height * pixels_per_unit)
        self.rows = [bytearray(bytes(colour) * self.width) for _ in range(self.height)]

    def fill(self, box, colour, distance):
        """Fills the shape whose distance(x, y), in units, is negative inside; box is its bounding box."""
        scale, (red, green, blue) = self.scale, colour
        left, right = max(0, int((box[0]) * scale) - 1), min(self.width, int(box[2] * scale) + 2)
        for row in range(max(0, int(box[1] * scale) - 1), min(self.height, int(box[3] * scale) + 2)):
            line, y = self.rows[row], (row + 0.5) / scale
            for column in range(left, right):
                cover = 0.5 - distance((column + 0.5) / scale, y) * scale
                if cover <= 0:
                    continue
                at = 3 * column
                if cover >= 1:
                    line[at : at + 3] = bytes(colour)
                    continue
                line[at] += round((red - line[at]) * cover)
                line[at + 1] += round((green - line[at + 1]) * cover)
                line[at + 2] += round((blue - line[at + 2]) * cover)

    def rectangle(self, x, y, width, height, colour, radius=0.0):
        middle_x, middle_y, half_x, half_y = x + width / 2, y + height / 2, width / 2 - radius, height / 2 - radius

        def distance(px, py):
            dx, dy = abs(px - middle_x) - half_x, abs(py - middle_y) - half_y
            if dx <= 0 or dy <= 0:
                return max(dx, dy) - radius
            return math.hypot(dx, dy) - radius

        self.fill((x, y, x + width, y + height), colour, distance)

    def disc(self, x, y, radius, colour):
        self.fill(
            (x - radius, y - radius, x + radius, y + radius), colour, lambda px, py: math.hypot(px - x, py - y) - radius
        )

    def line(self, x1, y1, x2, y2, thickness, colour):
        dx, dy, half = x2 - x1, y2 - y1, thickness / 2
        squared = dx * dx + dy * dy or 1.0

        def distance(px, py):
            along = max(0.0, min(1.0, ((px - x1) * dx + (py - y1) * dy) / squared))
            return math.hypot(px - x1 - along * dx, py - y1 - along * dy) - half

        box = (min(x1, x2) - half, min(y1, y2) - half, max(x1, x2) + half, max(y1, y2) + half)
        self.fill(box, colour, distance)

    def ray(self, x, y, degrees, inner, outer, thickness, colour):
        """A line outwards from (x, y); 0 degrees is up, angles increase clockwise."""
        sine, cosine = math.sin(math.radians(degrees)), math.cos(math.radians(degrees))
        self.line(x + inner * sine, y - inner * cosine, x + outer * sine, y - outer * cosine, thickness, colour)

    def arc(self, x, y, radius, start, end, thickness, colour):
        """An arc from one angle to a greater one, as steps short enough to look round."""
        steps = max(1, round((end - start) / 6))
        points = [math.radians(start + (end - start) * step / steps) for step in range(steps + 1)]
        for first, second in zip(points, points[1:]):
            self.line(
                x + radius * math.sin(first),
                y - radius * math.cos(first),
                x + radius * math.sin(second),
                y - radius * math.cos(second),
                thickness,
                colour,
            )

    def text(self, x, y, text, height, colour):
        """Text in upper case, centred on (x, y)."""
        dot = height / 7
        left, top = x - (6 * len(text) - 1) * dot / 2, y - height / 2
        for place, letter in enumerate(text):
            rows = bytes.fromhex(FONT.get(letter, "00" * 7))
            for row, bits in enumerate(rows):
                for column in range(5):
                    if bits & (16 >> column):
                        self.rectangle(left + (6 * place + column) * dot, top + row * dot, dot, dot, colour)

    def grain(self, x, y, width, height, strength, seed):
        """Darkens and lightens pixels of a rectangle at random, the same pixels in each run."""
        state = seed
        for row in range(round(y * self.scale), round((y + height) * self.scale)):
            line = self.rows[row]
            for at in range(3 * round(x * self.scale), 3 * round((x + width) * self.scale), 3):
                state = (1103515245 * state + 12345) & 0x7FFFFFFF
                change = (state >> 16) % (2 * strength + 1) - strength
                for channel in range(at, at + 3):
                    line[channel] = max(0, min(255, line[channel] + change))

    def png(self):
        return png_of(self.width, self.height, b"".join(b"\0" + bytes(row) for row in self.rows))


def png_of(width, height, scanlines):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(scanlines, 9))
        + chunk(b"IEND", b"")
    )


def same_picture(left, right):
    """Compares the pixels of two files of png_of: zlib's versions compress the same scan lines differently."""
    return _content(left) == _content(right)


def _content(png):
    try:
        length = struct.unpack(">I", png[33:37])[0]
        return png[:33], zlib.decompress(png[41 : 41 + length]), png[45 + length :]
    except (struct.error, zlib.error):
        return png
