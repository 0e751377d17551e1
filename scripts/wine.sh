#!/usr/bin/env bash
# wine.sh PROGRAM ARGUMENT...: runs a Windows program under Wine, two minutes at most. It needs a display for a device.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
mkdir -p "$root/build"
# Names of files are UTF-8 whatever the machine is set to.
export LC_ALL=C.UTF-8 WINEPREFIX=${WINEPREFIX:-$root/build/wine} WINEDEBUG=-all
# No installers that ask, and no debugger that waits, when a program ends badly.
export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
exec timeout 120 /usr/lib/wine/wine64 "$@"
