#!/usr/bin/env bash
# ./test.sh: installs what is needed, builds with warnings as errors, runs every test.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/packages.sh

# The parts that are for Windows alone, cross-compiled and run under Wine. Ten minutes serve a machine that has nothing of
# it; a slower one gets further with each run.
test_windows() {
  local code=0
  timeout 10m scripts/windows.sh --tests-only || code=$?
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
