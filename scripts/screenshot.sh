#!/usr/bin/env bash
# screenshot.sh [ANNOTATOR [IMAGE]]: opens the sample's trainer on an X server of its own, looks down at the panel, selects the
# pilot's yoke in the cockpit, and saves a screenshot of the whole window (default: docs/annotator.png).
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"

annotator=$(readlink -f "${1:-$root/build/run/src/vorelle-annotator}")
image=$(readlink -f "${2:-$root/docs/annotator.png}")
trainer="Aircraft/General Aviation/Vorelle Trainer"

install_packages "${device_packages[@]}" xvfb xauth xdotool imagemagick fonts-dejavu-core
[ -x "$annotator" ] || fail "there is no '$annotator'; ./run.sh builds it"

# With the trainer alone, it is the first entry of the selector, whatever the order of the folders.
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
  fail "timeout: the annotator's log has no line with: $1"
}

take_screenshot() {
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
  import -window root "$image"
}

export annotator folder image XDG_DATA_HOME="$folder/data"
mkdir -p "$(dirname "$image")"
env -u DISPLAY xvfb-run --auto-servernum --server-args="-screen 0 1400x800x24 +extension GLX" \
  bash -ec "$(declare -f take_screenshot wait_for_log fail); take_screenshot"
say "Saved $image"
