#!/bin/sh
# Runs a command that opens windows: on the display there is, else on one of its own.
if [ -n "$DISPLAY" ]; then
    exec "$@"
fi
exec xvfb-run --auto-servernum --server-args="-screen 0 1600x1000x24 +extension GLX -nolisten tcp" "$@"
