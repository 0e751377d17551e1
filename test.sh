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

# The Direct3D device and the Windows services, where the cross tools may be installed.
windows_minutes=10
if apt-cache show g++-mingw-w64-x86-64-posix wine64 >/dev/null 2>&1 && { [ "$(id -u)" -eq 0 ] || sudo -n true 2>/dev/null; }; then
  code=0
  timeout "${windows_minutes}m" scripts/windows.sh --tests-only || code=$?
  case $code in
    0) ;;
    3) say "Left out: the Windows tests, as their tools or libraries cannot be had here (see above)" ;;
    124) say "Left out: the Windows tests, which did not end within $windows_minutes minutes" ;;
    *) fail "the Windows tests failed" ;;
  esac
else
  say "Left out: the Windows tests, as the cross compiler and Wine cannot be installed here"
fi
say "All tests passed"
