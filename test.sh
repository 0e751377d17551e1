#!/usr/bin/env bash
# ./test.sh: installs what is needed, builds with warnings as errors, runs every test.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/packages.sh

# What is for Windows alone, cross-compiled and run under Wine. A machine that had nothing of it needs about seven minutes;
# what a slower one has built when the ten are over serves the next run. Packages are installed first, as the limit
# must not stop them half way.
test_windows() {
  local code=0 end=$((SECONDS + 600))
  (install_packages "${windows_packages[@]}") || code=3
  if [ $code -eq 0 ]; then
    timeout $((end > SECONDS ? end - SECONDS : 1)) scripts/windows.sh --tests-only &
    trap 'kill $!' INT TERM
    wait $! || code=$?
    trap - INT TERM
  fi
  case $code in
    0) ;;
    3) say "Left out: the Windows tests, as the cross tools cannot be had here" ;;
    124) say "Left out: the Windows tests, which were not ready within ten minutes" ;;
    *) fail "Windows tests failed (named above)" ;;
  esac
}

[ $# -eq 0 ] || fail "takes no arguments"

install_packages "${tool_packages[@]}" "${library_packages[@]}" "${device_packages[@]}" "${test_packages[@]}"

say "Building in build/dev"
quietly cmake --preset dev || fail "configuring failed"
cmake --build --preset dev || fail "the build failed"

say "Running the tests"
ctest --preset dev || fail "tests failed (named above)"
test_windows
say "All tests passed"
