#!/bin/sh
# Runs a command that opens windows: on the display there is, else on one of its own, whose number the server chooses, so
# that no other one that starts or ends at the same time is in its way. It stays as it is when its last client leaves: a
# client that came while it started anew would be refused.
if [ -n "$DISPLAY" ]; then
    exec "$@"
fi
number=$(mktemp)
Xvfb -displayfd 3 -screen 0 1600x1000x24 +extension GLX -nolisten tcp -noreset 3>"$number" 2>/dev/null &
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
