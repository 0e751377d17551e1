#!/usr/bin/env bash
# package.sh: installs packages, builds the programs, and creates build/package/vorelle-annotator_<version>_<architecture>.deb.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"
[ $# -eq 0 ] || fail "takes no arguments"

build=$root/build/package
stage=$build/stage
maintainer="${DEBFULLNAME:-The Vorelle Aircraft Annotator developers} <${DEBEMAIL:-maintainers@vorelle.invalid}>"
# Files and changelog have the time of the last commit, so that the same commit results in the same package.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct 2>/dev/null || date +%s)}
export SOURCE_DATE_EPOCH

build_and_stage() {
  say "Building in build/package"
  local flags
  flags="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS) -ffile-prefix-map=$root=."
  quietly cmake -S "$root" --preset release -B "$build" -DVORELLE_TESTS=OFF -DVORELLE_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS) -Wl,-z,now" ||
    fail "configuring failed"
  cmake --build "$build" --target vorelle-annotator vorelle-batch || fail "the build failed"
  rm -rf "$stage"
  # File modes must not depend on the user's umask.
  (umask 022 && DESTDIR="$stage" quietly cmake --install "$build" --prefix /usr --strip) || fail "staging failed"
}

finish_documents() {
  local documents=$stage/usr/share/doc/vorelle-annotator
  cat >"$documents/changelog" <<TEXT
vorelle-annotator ($version) stable; urgency=medium

  * See CHANGELOG.md.

 -- $maintainer  $(date -u -R -d "@$SOURCE_DATE_EPOCH")
TEXT
  gzip -9n "$documents/changelog" "$stage"/usr/share/man/man1/*.1
}

# The packages of the libraries that the programs are linked with; those that they open at run time are listed by hand.
library_dependencies() {
  mkdir -p "$build/debian"
  printf 'Source: vorelle-annotator\n\nPackage: vorelle-annotator\nArchitecture: any\n' >"$build/debian/control"
  (cd "$build" && dpkg-shlibdeps -O "$stage"/usr/bin/* 2>/dev/null) | sed -n 's/^shlibs:Depends=//p'
}

write_control() {
  local dependencies
  dependencies=$(library_dependencies)
  [ -n "$dependencies" ] || fail "the packages of the libraries cannot be determined"
  mkdir -p "$stage/DEBIAN"
  (cd "$stage" && find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum >DEBIAN/md5sums)
  cat >"$stage/DEBIAN/control" <<TEXT
Package: vorelle-annotator
Version: $version
Architecture: $architecture
Maintainer: $maintainer
Installed-Size: $(du -sk --apparent-size "$stage/usr" | cut -f 1)
Depends: $dependencies, libegl1, libgl1, libgl1-mesa-dri
Recommends: librsvg2-common
Suggests: bash-completion, parallel, zenity
Section: graphics
Priority: optional
Description: work out how a hand touches the cockpits of X-Plane aircraft
 In virtual reality the user operates the cockpit with a hand, not a mouse. The
 annotator works out for every part of an aircraft's cockpit whether a hand
 taps, twists or moves it, and shows that in a 3D preview. The user can override
 it or record what should have been detected, and the annotator tests the
 detection against those records.
 .
 vorelle-batch does the same without a window, for servers and for the
 continuous integration of an aircraft's author.
TEXT
}

install_packages "${tool_packages[@]}" "${library_packages[@]}" dpkg-dev
build_and_stage
version=$("$stage/usr/bin/vorelle-batch" --version | cut -d ' ' -f 2)
architecture=$(dpkg --print-architecture)
package=$build/vorelle-annotator_${version}_$architecture.deb
finish_documents
write_control
find "$stage" -newermt "@$SOURCE_DATE_EPOCH" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
quietly dpkg-deb --root-owner-group --build "$stage" "$package" || fail "packing failed"
say "Created $package"
