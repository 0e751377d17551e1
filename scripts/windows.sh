#!/usr/bin/env bash
# windows.sh [--tests-only]: installs the cross tools, builds the libraries once, builds the Windows programs and their
# tests, runs the tests under Wine, and creates build/windows/Vorelle (and its .zip) to unpack into an X-Plane
# installation. With --tests-only it builds neither toolkit nor desktop tool and creates no package.
# The libraries are built once for all checkouts, into the folder WINDOWS_CACHE (default: the user's cache folder).
# Ends with 3 if the tools or the sources of the libraries cannot be installed or fetched.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"

case "${1-}" in
  '') window=ON ;;
  --tests-only) window=OFF ;;
  *) fail "usage: windows.sh [--tests-only]" ;;
esac

libraries="boost tinyxml2 polyclipping libpng pixman cairo googletest"
[ $window = OFF ] || libraries="$libraries wxwidgets"
system=$(sed -n "s/^VERSION_CODENAME=//p" /etc/os-release)
cache=${WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vorelle-annotator/windows-${system:-unknown}}
build=$root/build/windows
targets=(foundation_tests rendering_tests rendering_d3d11_tests batch_jobs_tests vorelle-batch)
[ $window = OFF ] || targets+=(annotator_window_tests vorelle-annotator)

run_tests() {
  local code=0
  # One at a time: the first start creates Wine's prefix.
  env -u DISPLAY xvfb-run -a -s "-screen 0 1600x1000x24" ctest --test-dir "$build" --output-on-failure -j1 || code=$?
  WINEPREFIX=$root/build/wine /usr/lib/wine/wineserver64 -k || true
  return $code
}

pack() {
  local folder=$build/Vorelle
  rm -rf "$folder" "$folder.zip"
  mkdir -p "$folder"
  x86_64-w64-mingw32-strip -o "$folder/vorelle-annotator.exe" "$build/src/vorelle-annotator.exe"
  x86_64-w64-mingw32-strip -o "$folder/vorelle-batch.exe" "$build/src/vorelle-batch.exe"
  cp -r "$root/data/QVRA" "$folder/"
  (cd "$folder" && cmake -E tar cf ../Vorelle.zip --format=zip .)
  say "Created $folder and $folder.zip: unpack it into an X-Plane installation"
}

(install_packages "${windows_packages[@]}") || exit 3
WINDOWS_LIBRARIES=$libraries "$root/scripts/windows-libraries.sh" "$cache" || exit $?

say "Building in build/windows"
quietly cmake -S "$root" -B "$build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
  -DVORELLE_WINDOWS_PREFIX="$cache/prefix" -DVORELLE_WINDOW=$window -DVORELLE_WERROR="${VORELLE_WERROR:-OFF}" -DCMAKE_BUILD_TYPE=Release ||
  fail "configuring failed"
cmake --build "$build" --target "${targets[@]}" || fail "the build failed"

say "Running the Windows tests under Wine"
run_tests || fail "Windows tests failed (named above)"
[ $window = OFF ] || pack
