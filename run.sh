#!/usr/bin/env bash
# ./run.sh [X-PLANE-FOLDER]: installs packages, builds, and opens the annotator on the folder (default: a working copy of
# the sample). Without a display it runs 'vorelle-batch detect' on all aircraft instead.
set -euo pipefail
root=$(dirname "$(readlink -f "$0")")
source "$root/scripts/packages.sh"
source "$root/scripts/working-copy.sh"

case "${1-}" in
  -h | --help) echo "usage: ./run.sh [X-PLANE-FOLDER]"; exit 0 ;;
esac
[ $# -le 1 ] || fail "usage: ./run.sh [X-PLANE-FOLDER]"
if [ $# -eq 1 ]; then
  [ -d "$1/Aircraft" ] || fail "'$1' is not an X-Plane installation: there is no folder '$1/Aircraft'"
  folder=$(cd "$1" && pwd)
else
  folder=$root/build/sample
fi

configure_and_build() {
  say "Building in build/run"
  quietly cmake -S "$root" --preset release -B "$root/build/run" -DVORELLE_TESTS=OFF -DVORELLE_BENCH=OFF ||
    fail "configuring failed"
  cmake --build "$root/build/run" || fail "the build failed"
}

detect_on_terminal() {
  local code=0
  [ -z "${WAYLAND_DISPLAY-}" ] || say "This Wayland session has no X server, which the window needs: install xwayland and log in again"
  say "No display (DISPLAY is not set): detecting all aircraft with vorelle-batch instead of opening the window"
  "$root/build/run/src/vorelle-batch" -C "$folder" detect || code=$?
  # 3: the aircraft that could not be loaded have been named, and the files of the others are written.
  [ $code -eq 3 ] || return $code
}

install_packages "${tool_packages[@]}" "${library_packages[@]}" "${device_packages[@]}"
configure_and_build
[ $# -eq 1 ] || refresh_working_copy "$root/sample" "$folder"

if [ -z "${DISPLAY-}" ]; then
  detect_on_terminal
else
  say "Starting the annotator in $folder"
  cd "$folder"
  exec "$root/build/run/src/vorelle-annotator"
fi
