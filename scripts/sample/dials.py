"""Instruments drawn on panel textures, in millimetres."""
import math

WHITE, BLACK, FACE = (235, 235, 230), (12, 12, 14), (24, 25, 28)
RED, GREEN, YELLOW, ORANGE = (205, 45, 40), (60, 165, 75), (225, 190, 50), (235, 130, 40)
BLUE, BROWN, GREY = (70, 135, 205), (125, 85, 50), (96, 98, 102)


def bezel(picture, x, y, radius):
    picture.disc(x, y, radius * 1.12, (48, 50, 54))
    picture.disc(x, y, radius * 1.07, (14, 15, 17))
    picture.disc(x, y, radius, FACE)
    for dx in (-1, 1):
        for dy in (-1, 1):
            picture.disc(x + dx * radius * 0.93, y + dy * radius * 0.93, radius * 0.07, (126, 128, 130))


def scale(picture, x, y, radius, start, end, steps, labels=(), minor=0):
    """Ticks from one angle to another, labels at the long ones."""
    every = (end - start) / steps
    for step in range(steps + 1):
        picture.ray(x, y, start + every * step, radius * 0.80, radius * 0.95, radius * 0.045, WHITE)
        for part in range(1, minor + 1 if step < steps else 0):
            picture.ray(
                x, y, start + every * (step + part / (minor + 1)), radius * 0.87, radius * 0.95, radius * 0.025, WHITE
            )
    for step, label in enumerate(labels):
        tip = Tip(x, y, start + every * step, radius * 0.62)
        picture.text(tip.x, tip.y, label, radius * 0.19, WHITE)


class Tip:
    def __init__(self, x, y, degrees, length):
        self.x, self.y = x + length * math.sin(math.radians(degrees)), y - length * math.cos(math.radians(degrees))


def needle(picture, x, y, radius, degrees, length=0.78, thickness=0.06, colour=WHITE):
    picture.ray(x, y, degrees, -radius * 0.18, radius * length, radius * thickness, colour)
    picture.disc(x, y, radius * 0.09, colour)
    picture.disc(x, y, radius * 0.05, BLACK)


def band(picture, x, y, radius, start, end, colour):
    picture.arc(x, y, radius * 0.89, start, end, radius * 0.07, colour)


def airspeed(picture, x, y, radius, with_needle=True):
    bezel(picture, x, y, radius)
    band(picture, x, y, radius, 60, 200, GREEN)
    band(picture, x, y, radius, 200, 265, YELLOW)
    scale(picture, x, y, radius, 20, 320, 8, ("40", "60", "80", "100", "120", "140", "160", "180"), 1)
    picture.ray(x, y, 265, radius * 0.78, radius * 0.96, radius * 0.06, RED)
    picture.text(x, y + radius * 0.28, "KNOTS", radius * 0.13, WHITE)
    if with_needle:
        needle(picture, x, y, radius, 132)


def attitude(picture, x, y, radius):
    bezel(picture, x, y, radius)
    picture.disc(x, y, radius * 0.95, BLUE)
    picture.fill(
        (x - radius, y, x + radius, y + radius),
        BROWN,
        lambda px, py: max((px - x) ** 2 + (py - y) ** 2 - (radius * 0.95) ** 2, (y - py) * 10) / radius,
    )
    picture.line(x - radius * 0.93, y, x + radius * 0.93, y, radius * 0.04, WHITE)
    for step, half in ((-0.45, 0.3), (-0.22, 0.16), (0.22, 0.16), (0.45, 0.3)):
        picture.line(x - radius * half, y + radius * step, x + radius * half, y + radius * step, radius * 0.03, WHITE)
    for degrees in (-60, -45, -30, -20, -10, 0, 10, 20, 30, 45, 60):
        picture.ray(x, y, degrees, radius * 0.82, radius * 0.94, radius * 0.03, WHITE)
    for side in (-1, 1):
        picture.line(x + side * radius * 0.22, y, x + side * radius * 0.6, y, radius * 0.07, ORANGE)
        picture.line(x + side * radius * 0.22, y, x + side * radius * 0.12, y + radius * 0.1, radius * 0.07, ORANGE)
    picture.disc(x, y, radius * 0.05, ORANGE)


def altimeter(picture, x, y, radius):
    bezel(picture, x, y, radius)
    scale(picture, x, y, radius, 0, 324, 9, "0123456789", 4)
    picture.rectangle(x + radius * 0.2, y - radius * 0.09, radius * 0.46, radius * 0.18, BLACK)
    picture.text(x + radius * 0.43, y, "1013", radius * 0.13, WHITE)
    needle(picture, x, y, radius, 75, 0.5, 0.1)
    needle(picture, x, y, radius, 200)


def turn_and_slip(picture, x, y, radius):
    bezel(picture, x, y, radius)
    for degrees in (-90, -65, 65, 90):
        picture.ray(x, y, degrees, radius * 0.78, radius * 0.95, radius * 0.07, WHITE)
    picture.line(x - radius * 0.62, y, x + radius * 0.62, y, radius * 0.07, WHITE)
    picture.line(x, y, x, y - radius * 0.22, radius * 0.07, WHITE)
    picture.disc(x, y, radius * 0.12, WHITE)
    picture.rectangle(x - radius * 0.42, y + radius * 0.42, radius * 0.84, radius * 0.2, WHITE, radius * 0.1)
    picture.disc(x, y + radius * 0.52, radius * 0.09, BLACK)
    picture.text(x, y + radius * 0.78, "2 MIN", radius * 0.13, WHITE)


def heading(picture, x, y, radius):
    bezel(picture, x, y, radius)
    scale(picture, x, y, radius, 0, 330, 11, ("N", "3", "6", "E", "12", "15", "S", "21", "24", "W", "30", "33"), 2)
    picture.ray(x, y, 40, radius * 0.72, radius * 0.95, radius * 0.14, ORANGE)
    picture.line(x, y - radius * 0.4, x, y + radius * 0.35, radius * 0.06, WHITE)
    picture.line(x - radius * 0.3, y - radius * 0.02, x + radius * 0.3, y - radius * 0.02, radius * 0.08, WHITE)
    picture.line(x - radius * 0.12, y + radius * 0.32, x + radius * 0.12, y + radius * 0.32, radius * 0.06, WHITE)


def climb(picture, x, y, radius):
    bezel(picture, x, y, radius)
    scale(picture, x, y, radius, -90 - 160, -90 + 160, 8, ("4", "3", "2", "1", "0", "1", "2", "3", "4"), 1)
    picture.text(x + radius * 0.1, y - radius * 0.22, "UP", radius * 0.12, WHITE)
    picture.text(x + radius * 0.1, y + radius * 0.24, "DN", radius * 0.12, WHITE)
    needle(picture, x, y, radius, -90)


def tachometer(picture, x, y, radius):
    bezel(picture, x, y, radius)
    band(picture, x, y, radius, 20, 90, GREEN)
    scale(picture, x, y, radius, -130, 130, 7, ("0", "5", "10", "15", "20", "25", "30", "35"), 4)
    picture.ray(x, y, 93, radius * 0.78, radius * 0.96, radius * 0.06, RED)
    picture.text(x, y + radius * 0.4, "RPM", radius * 0.15, WHITE)
    needle(picture, x, y, radius, -60)


def bearing(picture, x, y, radius):
    bezel(picture, x, y, radius)
    scale(picture, x, y, radius, 0, 330, 11, ("N", "3", "6", "E", "12", "15", "S", "21", "24", "W", "30", "33"), 1)
    picture.line(x + radius * 0.1, y - radius * 0.45, x + radius * 0.1, y + radius * 0.45, radius * 0.05, YELLOW)
    for step in (-0.4, -0.2, 0.2, 0.4):
        picture.disc(x + radius * step, y, radius * 0.035, WHITE)


def small_gauge(picture, x, y, radius, label, degrees):
    bezel(picture, x, y, radius)
    band(picture, x, y, radius, -30, 70, GREEN)
    band(picture, x, y, radius, 70, 100, RED)
    scale(picture, x, y, radius, -100, 100, 4, (), 1)
    picture.text(x, y + radius * 0.45, label, radius * 0.26, WHITE)
    needle(picture, x, y, radius, degrees, 0.75, 0.09)


def clock(picture, x, y, radius):
    bezel(picture, x, y, radius)
    scale(picture, x, y, radius, 0, 330, 11, ("12", "", "", "3", "", "", "6", "", "", "9", "", ""))
    needle(picture, x, y, radius, 305, 0.5, 0.09)
    needle(picture, x, y, radius, 60, 0.8, 0.06)
    needle(picture, x, y, radius, 190, 0.85, 0.03, RED)


def radio(picture, x, y, width, height, label, active, standby):
    picture.rectangle(x, y, width, height, (30, 31, 34), 2)
    picture.rectangle(x + 18, y + height * 0.25, width - 80, height * 0.5, (10, 12, 10), 1)
    amber = (250, 150, 50)
    picture.text(x + 18 + (width - 80) * 0.27, y + height * 0.5, active, height * 0.17, amber)
    picture.text(x + 18 + (width - 80) * 0.75, y + height * 0.5, standby, height * 0.17, amber)
    picture.text(x + 9, y + height * 0.5, label, 3, WHITE)
