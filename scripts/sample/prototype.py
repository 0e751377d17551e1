"""The aircraft that cannot be loaded: its parts come before any texture, so that they have no material."""
from .mesh import CockpitObject, Mesh, Tile, text_of

FOLDER = "Aircraft/Experimental/Unpainted Prototype"
WHOLE = Tile(0, 0, 1, 1)


def cockpit_object():
    cockpit = CockpitObject(None)
    cockpit.draw("Floor", Mesh().box((0, -0.4, 0), (1, 0.02, 1.6), WHOLE))
    cockpit.draw("Panel", Mesh().box((0, 0.2, -0.6), (1, 0.4, 0.02), WHOLE))
    cockpit.command("# The texture comes too late.")
    cockpit.command("TEXTURE paint.png")
    cockpit.draw("Seat", Mesh().box((0, -0.1, 0.2), (0.5, 0.1, 0.5), WHOLE))
    return cockpit


def files():
    """(path below the sample's folder, content) of the aircraft."""
    lines = [
        "I",
        "1100 Version",
        "ACF",
        "",
        "PROPERTIES_BEGIN",
        "P acf/_descrip Unpainted Prototype (cannot be loaded)",
        "P acf/_pe_xyz/1 2",
        "PROPERTIES_END",
    ]
    yield f"{FOLDER}/prototype.acf", text_of(lines)
    yield f"{FOLDER}/prototype_cockpit.obj", text_of(cockpit_object().lines())
