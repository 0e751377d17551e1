#!/usr/bin/env bash
# screenshot.sh [ANNOTATOR [PICTURE]]: opens the sample's trainer on a display of its own, looks down at the panel, selects the
# pilot's yoke in the cockpit, and saves a picture of the whole window (docs/annotator.png).
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"

annotator=$(readlink -f "${1:-$root/build/run/src/vorelle-annotator}")
picture=$(readlink -f "${2:-$root/docs/annotator.png}")
trainer="Aircraft/General Aviation/Vorelle Trainer"

install_packages "${device_packages[@]}" xvfb xauth xdotool imagemagick fonts-dejavu-core
[ -x "$annotator" ] || fail "'$annotator' is not there; ./run.sh builds it"

# Alone, the trainer is the first line of the selector in whatever order the folders are listed.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/installation/$(dirname "$trainer")"
cp -r "$root/sample/$trainer" "$folder/installation/$trainer"
cp -r "$root/sample/QVRA" "$folder/installation/QVRA"

wait_for_log() { # TEXT
  local tries
  for ((tries = 0; tries < 600; ++tries)); do
    grep -qs "$1" "$XDG_DATA_HOME/Vorelle/log.txt" && return
    sleep 0.1
  done
  fail "the annotator did not come as far as: $1"
}

take_picture() {
  local step
  cd "$folder/installation"
  "$annotator" &
  local running=$!
  trap 'kill $running' RETURN
  wait_for_log "Core Profile"
  xdotool mousemove 700 45 click 1 sleep 1 key Down sleep 0.5 key Return
  wait_for_log "Model has"
  sleep 3
  xdotool mousemove 500 200 mousedown 1
  for step in {1..10}; do xdotool mousemove $((500 - step)) $((200 + 10 * step)) sleep 0.1; done
  xdotool mouseup 1 sleep 1 mousemove 500 578 sleep 1 click 1 mousemove 1200 600 sleep 3
  import -window root "$picture"
}

export annotator folder picture XDG_DATA_HOME="$folder/data"
mkdir -p "$(dirname "$picture")"
env -u DISPLAY xvfb-run --auto-servernum --server-args="-screen 0 1400x800x24 +extension GLX" \
  bash -ec "$(declare -f take_picture wait_for_log fail); take_picture"
say "Saved $picture"
