#!/usr/bin/env python3
"""check-includes.py: holds the arrows of ARCHITECTURE.md. A file of src includes only from its own library and from those
below it, and the headers of toolkit, devices, command line and JSON, and the devices' names, stay where they belong."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1] / "src"

# Each library: its folders with all subfolders, and the libraries that it may include. The longest matching folder wins.
LIBRARIES = {
    "foundation": (["Utils", "Logging"], []),
    "threading": (["Threading"], ["foundation"]),
    "rendering": (["Rendering"], ["foundation", "threading"]),
    "opengl": (["Rendering/OpenGL"], ["foundation", "threading", "rendering"]),
    "d3d11": (["Rendering/D3D11"], ["foundation", "threading", "rendering"]),
    "cockpit": (["Sim", "CockpitModel"], ["foundation", "threading", "rendering"]),
    "annotator": (["Annotator"], ["foundation", "threading", "rendering", "cockpit"]),
    "window": (["Annotator/Window"], ["foundation", "threading", "rendering", "cockpit", "annotator", "opengl", "d3d11"]),
    "batch": (["Batch"], ["foundation", "threading", "rendering", "cockpit", "annotator", "opengl", "d3d11"]),
}
SYSTEM_HEADERS = {
    r"wx/|gtk/|gdk|atk/": ["window"],
    r"epoxy/|EGL/|GL/": ["opengl"],
    r"d3d|dxgi|wrl/": ["d3d11"],
    r"CLI/|nlohmann/": ["batch"],
    r"cairo": ["rendering"],
}
# Names of the devices' own interfaces, which other headers can bring along: the library that may use them.
DEVICE_NAMES = {
    re.compile(r"\b(?:gl[A-Z]\w*(?=\()|GL_[A-Z]\w*|epoxy\w*|egl[A-Z]\w*|EGL_?[A-Z]\w*|glX\w+)"): "opengl",
    re.compile(r"\b(?:ID3D11\w*|IDXGI\w*|D3D11?_\w+|DXGI_\w+|D3D11Create\w+|CreateDXGI\w+)"): "d3d11",
}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)', re.M)
FOLDERS = sorted(((folder, name) for name, (folders, _) in LIBRARIES.items() for folder in folders),
                 key=lambda row: -len(row[0]))


def library_of(path):
    return next((name for folder, name in FOLDERS if path.startswith(folder + "/")), None)


def faults_of(path):
    own = library_of(path)
    text = (ROOT / path).read_text()
    line_of = lambda match: text.count("\n", 0, match.start()) + 1
    for match in INCLUDE.finditer(text):
        quote, header = match.groups()
        line = line_of(match)
        if quote == '"':
            other = library_of(header)
            if other != own and other not in LIBRARIES[own][1]:
                yield f"src/{path}:{line}: {own} must not include \"{header}\" of {other}"
        for pattern, allowed in SYSTEM_HEADERS.items():
            if quote == "<" and re.match(pattern, header) and own not in allowed:
                yield f"src/{path}:{line}: <{header}> belongs into {' or '.join(allowed)}, not into {own}"
    for pattern, allowed in DEVICE_NAMES.items():
        for match in pattern.finditer(text) if own != allowed else ():
            yield f"src/{path}:{line_of(match)}: {match[0]} belongs into {allowed}, not into {own}"


paths = sorted(str(path.relative_to(ROOT)) for path in ROOT.rglob("*") if path.suffix in (".h", ".cpp"))
faults = [fault for path in paths for fault in faults_of(path)]
print("\n".join(faults + [f"{len(paths)} files, {len(faults)} faults"]))
sys.exit(1 if faults else 0)
