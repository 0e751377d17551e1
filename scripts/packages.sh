# shellcheck shell=bash disable=SC2034
# Sourced by the other scripts: the Debian packages that they need, and functions that install them.

tool_packages=(g++ cmake ninja-build pkg-config)
library_packages=(libwxgtk3.2-dev libboost-dev libboost-filesystem-dev libtinyxml2-dev libpolyclipping-dev
  libcairo2-dev libeigen3-dev libepoxy-dev libegl-dev libgl-dev libcli11-dev nlohmann-json3-dev)
# Mesa's drivers, including the software renderer; the loader of the toolkit's images, such as its check marks.
device_packages=(libgl1-mesa-dri librsvg2-common)
# weston, xwayland and xdotool: the test in a Wayland session.
test_packages=(libgtest-dev libgmock-dev xvfb xauth python3 parallel mandoc jq weston xwayland xdotool)
# To build the Windows programs and run their tests.
windows_packages=(g++-mingw-w64-x86-64-posix wine64 libz-mingw-w64-dev dpkg-dev xz-utils cmake ninja-build meson python3
  libboost-dev libeigen3-dev libcli11-dev nlohmann-json3-dev googletest xvfb xauth libgl1-mesa-dri)

say() {
  printf '==> %s\n' "$*"
}

fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# Runs a command and prints its output only if it fails.
quietly() {
  local output
  output=$("$@" 2>&1) || { printf '%s\n' "$output" >&2; return 1; }
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "installing packages needs root or sudo; to install by hand: apt-get install ${missing_packages[*]}"
  fi
}

# Sets missing_packages to the arguments that are not installed.
find_missing_packages() {
  local installed name
  installed=" $(dpkg-query -W -f '${db:Status-Status}=${Package} ' "$@" 2>/dev/null || true)"
  missing_packages=()
  for name in "$@"; do
    [[ "$installed" == *" installed=$name "* ]] || missing_packages+=("$name")
  done
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 "$@"
}

install_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    fail "apt-get is not available; install the equivalents of: $*"
  fi
  find_missing_packages "$@"
  if [ ${#missing_packages[@]} -eq 0 ]; then
    say "Packages: all $# are installed"
    return
  fi
  say "Packages: installing ${missing_packages[*]} (this can take minutes)"
  quietly apt_get update || fail "apt-get update failed"
  quietly apt_get install --no-install-recommends "${missing_packages[@]}" || fail "apt-get install failed"
}
