#!/bin/sh
# Runs a command that opens windows: on the display in DISPLAY, otherwise on a new Xvfb. The server chooses its own display
# number, so that concurrent servers do not conflict, and does not reset when its last client disconnects: a client that
# connects during the reset would be refused.
if [ -n "$DISPLAY" ]; then
    exec "$@"
fi
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 "${SCREEN_SIZE:-1600x1000}x24" +extension GLX -nolisten tcp -noreset 3>"$number" 2>/dev/null &
server=$!
trap 'kill $server 2>/dev/null; rm -f "$number"' EXIT
for _ in $(seq 100); do
    [ -s "$number" ] && break
    sleep 0.1
done
[ -s "$number" ] || { echo "run_on_display.sh: Xvfb did not start" >&2; exit 1; }
DISPLAY=:$(cat "$number")
export DISPLAY
"$@"
