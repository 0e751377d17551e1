#!/usr/bin/env bash
# ./test.sh: installs what is needed, builds with warnings as errors, runs every test.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/packages.sh

[ $# -eq 0 ] || fail "takes no arguments"

install_packages "${tool_packages[@]}" "${library_packages[@]}" "${device_packages[@]}" "${test_packages[@]}"

say "Building in build/dev"
quietly cmake --preset dev || fail "configuring failed"
cmake --build --preset dev || fail "the build failed"

say "Running the tests"
ctest --preset dev || fail "tests failed (named above)"
say "All tests passed"
