#!/usr/bin/env bash
# check_wayland.sh ANNOTATOR: runs the annotator in a Wayland session (weston, which itself is shown by Xvfb) and uses it with real
# mouse and keyboard events: start, load, draw, turn the view, close. The program reaches the session through Xwayland.
# It also checks what the program says if there is no X server.
set -euo pipefail
annotator=$(readlink -f "$1")
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
for program in weston Xwayland Xvfb xdotool; do
  command -v "$program" >/dev/null || { echo "Skipped: $program is not installed"; exit 77; }
done

folder=$(mktemp -d)
started=()
stop() {
  local index
  for ((index = ${#started[@]} - 1; index >= 0; --index)); do
    if kill "${started[index]}" 2>/dev/null; then wait "${started[index]}" 2>/dev/null || true; fi
  done
  rm -rf "$folder"
}
trap stop EXIT
export XDG_RUNTIME_DIR="$folder/run" XDG_DATA_HOME="$folder/data" WAYLAND_DISPLAY=vorelle
log=$folder/data/Vorelle/log.txt
mkdir -m 700 "$XDG_RUNTIME_DIR"
trainer="Aircraft/General Aviation/Vorelle Trainer"
mkdir -p "$folder/installation/$(dirname "$trainer")" "$folder/frame"
cp -r "$root/sample/$trainer" "$folder/installation/$trainer"
cd "$folder/installation"

fail() {
  echo "FAILED: $*" >&2
  tail -n 20 "$folder/weston.log" "$folder/annotator.txt" "$log" >&2 2>/dev/null || true
  exit 1
}

wait_until() { # COMMAND...
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "timeout, waited for: $*"
}

says() { # TEXT: the annotator refuses to start, with that text
  local output
  output=$(env -u DISPLAY timeout 30 "$annotator" 2>&1) && fail "it started without an X server"
  [[ "$output" == *"$1"* ]] || fail "without an X server it says: $output"
}
says "install the package xwayland"
WAYLAND_DISPLAY='' says "DISPLAY is not set"

timeout 150 Xvfb -displayfd 3 -screen 0 1700x1100x24 -fbdir "$folder/frame" 3>"$folder/screen" 2>/dev/null &
started+=($!)
wait_until test -s "$folder/screen"
screen=:$(cat "$folder/screen")

pixman=--use-pixman backend=x11-backend.so
[ "$(weston --version | sed 's/^weston \([0-9]*\).*/\1/')" -lt 13 ] || pixman=--renderer=pixman backend=x11
printf '[core]\nxwayland=true\nidle-time=0\n[shell]\npanel-position=none\n[keyboard]\nkeymap_layout=us\n' >"$folder/weston.ini"
DISPLAY=$screen timeout -k 5 150 weston --backend=$backend $pixman --config="$folder/weston.ini" --socket=$WAYLAND_DISPLAY --width=1700 --height=1100 \
  --log="$folder/weston.log" >/dev/null 2>&1 &
started+=($!)
wait_until grep -q 'listening on display' "$folder/weston.log"
export DISPLAY
DISPLAY=$(sed -n 's/.*listening on display \(:[0-9]*\).*/\1/p' "$folder/weston.log")

timeout -k 5 140 "$annotator" >"$folder/annotator.txt" 2>&1 &
running=$!
started+=("$running")
wait_until grep -q 'Core Profile' "$log"

find_window() {
  window=$(timeout 10 xdotool search --onlyvisible --name '^Vorelle Aircraft Annotator$') && [ -n "$window" ]
}
wait_until find_window
# xdotool counts the frame that weston draws around the window twice.
read -r X Y WIDTH < <(timeout 20 python3 - "$window" <<'PYTHON'
import ctypes, sys
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
display, window = ctypes.c_void_p(x11.XOpenDisplay(None)), ctypes.c_ulong(int(sys.argv[1]))
x11.XDefaultRootWindow.restype = ctypes.c_ulong
root, other = ctypes.c_ulong(x11.XDefaultRootWindow(display)), ctypes.c_ulong()
left, top, width, unused = (ctypes.c_int() for _ in range(4))
ref = ctypes.byref
x11.XGetGeometry(display, window, ref(other), ref(left), ref(top), ref(width), ref(unused), ref(unused), ref(unused))
x11.XTranslateCoordinates(display, window, root, 0, 0, ref(left), ref(top), ref(other))
print(left.value, top.value, width.value)
PYTHON
)

# The share of the canvas, in percent, that is not in its plain grey, and the checksum of its picture.
canvas() {
  sync
  python3 - "$folder/frame/Xvfb_screen0" $((X + 300)) $((Y + 150)) <<'PYTHON'
import struct, sys, zlib
data = open(sys.argv[1], "rb").read()
left, top = map(int, sys.argv[2:])
header = struct.unpack(">25I", data[:100])  # an X window dump
size, stride, colours = header[0], header[12], header[19]
start = size + 12 * colours
rows = [data[start + y * stride + 4 * left:][:4 * 600] for y in range(top, top + 500)]
grey = sum(row[i:i + 3] == b"\x80\x80\x80" for row in rows for i in range(0, len(row), 4))
print(100 - 100 * grey // (600 * 500), zlib.crc32(b"".join(rows)))
PYTHON
}
outside() {
  DISPLAY=$screen timeout 20 xdotool "$@"
}
is_drawn() {
  read -r share _ < <(canvas) && [ "$share" -ge 20 ]
}
has_turned() {
  read -r _ now < <(canvas) && [ "$now" != "$before" ]
}

read -r share _ < <(canvas)
[ "$share" -lt 5 ] || fail "$share % of the canvas differ from its plain colour before a load"
outside mousemove $((X + 700)) $((Y + 45)) click 1 sleep 1 key Down sleep 0.5 key Return
wait_until grep -q 'Model has' "$log"
wait_until is_drawn
read -r _ before < <(canvas)
outside mousemove $((X + 500)) $((Y + 300)) mousedown 1 sleep 0.2 mousemove_relative 60 30 sleep 0.2 mousemove_relative 60 30 sleep 0.2 mouseup 1
wait_until has_turned
# The button at the right end of the title bar that weston draws above the window.
outside mousemove $((X + WIDTH - 12)) $((Y - 14)) sleep 0.5 click 1
wait_until eval "! kill -0 $running"
wait $running || fail "the annotator ended with $?"
echo "passed"
