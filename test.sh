#!/usr/bin/env bash
# ./test.sh [--windows]: installs packages, builds, and runs every test of this system; --windows also tests the Windows
# programs, under Wine. The last lines say what ran, what was skipped and why, and what was left out.
# VORELLE_WERROR=ON turns compiler warnings into errors.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
source scripts/packages.sh

case "${1-}" in
  '') windows=no ;;
  --windows) windows=yes ;;
  *) fail "usage: ./test.sh [--windows]" ;;
esac
[ $# -le 1 ] || fail "usage: ./test.sh [--windows]"

# Skipped test programs and cases with their reasons, from a log of ctest.
skipped_in() { # LOG
  awk '
    /: Skipped$/ { reason = ""; reading = 1; next }
    /^\[  SKIPPED \] .* \(/ { sub(/^\[  SKIPPED \] /, ""); sub(/ \([0-9]+ ms\)$/, ""); print "  " $0 ": " reason; reading = 0; next }
    /^Skipped: / { print "  " $0; next }
    reading && reason == "" { reason = $0 }
  ' "$1"
}

ran_in() { # LOG
  grep -c '^Test Passed\.$' "$1" || true
}

summary() { # NAME BUILD-FOLDER
  local log=$2/Testing/Temporary/LastTest.log skipped
  say "$1: $(ran_in "$log") test programs passed"
  skipped=$(skipped_in "$log")
  [ -z "$skipped" ] || printf 'Skipped:\n%s\n' "$skipped"
}

install_packages "${tool_packages[@]}" "${library_packages[@]}" "${device_packages[@]}" "${test_packages[@]}"

say "Building in build/dev"
quietly cmake --preset dev -DVORELLE_WERROR="${VORELLE_WERROR:-OFF}" || fail "configuring failed"
cmake --build --preset dev || fail "the build failed"

say "Running the tests"
ctest --preset dev || fail "tests failed (named above)"
[ $windows = no ] || scripts/windows.sh --tests-only || fail "the Windows tests failed or could not run (see above)"

summary "Linux" build/dev
if [ $windows = yes ]; then
  summary "Windows, under Wine" build/windows
  say "All tests passed"
else
  say "All tests of this system passed; left out: the Windows tests (./test.sh --windows)"
fi
