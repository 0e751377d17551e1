#!/usr/bin/env bash
# soak.sh [SECONDS [SEED [PROGRAM [INSTALLATION...]]]]: drives the desktop tool at random for SECONDS (default: 1200) on an X
# server of its own, with a copy of the sample and of further installations. Fails if memory, textures, handles or threads grow,
# if the window shows an error, or if a saved annotation is not found again. Without a PROGRAM it builds annotator_soak in build/release.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"
seconds=${1:-1200}
seed=${2:-$RANDOM}
program=${3-}
if [ -z "$program" ]; then
  install_packages "${tool_packages[@]}" "${library_packages[@]}" "${device_packages[@]}" "${test_packages[@]}"
  say "Building in build/release"
  quietly cmake -S "$root" --preset release || fail "configuring failed"
  quietly cmake --build "$root/build/release" --target annotator_soak || fail "the build failed"
  program=$root/build/release/soak/annotator_soak
fi

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/installation/QVRA"
for installation in "$root/sample" "${@:4}"; do cp -r "$installation/." "$folder/installation"; done
cp -r "$root/data/QVRA/." "$folder/installation/QVRA"
say "Driving the annotator for $seconds seconds with seed $seed"
cd "$folder/installation"
# With threads of its own, the software renderer keeps the textures of old frames.
env -u DISPLAY LP_NUM_THREADS=0 XDG_DATA_HOME="$folder/data" \
  "$root/tests/Annotator/Window/run_on_display.sh" "$program" "$seconds" "$seed" ||
  fail "the annotator failed (seed $seed)"
