#!/usr/bin/env bash
# wine.sh PROGRAM ARGUMENT...: runs a Windows program under Wine, for at most two minutes. A graphics device needs a display.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
mkdir -p "$root/build"
# File names are UTF-8, whatever the machine's locale.
export LC_ALL=C.UTF-8 WINEPREFIX=${WINEPREFIX:-$root/build/wine} WINEDEBUG=-all
# No installers that ask, and no debugger that waits if a program crashes.
export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
exec timeout 120 /usr/lib/wine/wine64 "$@"
