#!/usr/bin/env bash
# windows-libraries.sh CACHE: builds the static libraries of the Windows programs from Debian's source packages, once, into
# CACHE/prefix. Libraries that are already built are skipped. Ends with 3 if the sources cannot be fetched.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"

[ $# -eq 1 ] || fail "usage: windows-libraries.sh CACHE"
mkdir -p "$1"
cache=$(cd "$1" && pwd)
prefix=$cache/prefix
host=x86_64-w64-mingw32
jobs=$(nproc)
map=-ffile-prefix-map=$cache/= # keeps the machine's folders out of the programs
export CC=$host-gcc-posix CXX=$host-g++-posix
mkdir -p "$prefix"/{include,lib} "$cache"/{sources,build,logs} "$cache"/apt/{lists,archives}/partial
# Header-only libraries come from the machine's packages; all of /usr/include would include the machine's system headers.
ln -sfn -t "$prefix/include" /usr/include/{boost,CLI,nlohmann}

# A separate list with the machine's package sources, for source packages.
write_source_list() {
  # shellcheck disable=SC2016  # apt-get expands them
  apt-get indextargets --format '$(REPO_URI)|$(RELEASE)|$(COMPONENT)|$(TRUSTED)' 'Created-By: Packages' | sort -u |
    while IFS='|' read -r uri release component trusted; do
      [ "$trusted" = yes ] && option='[trusted=yes] ' || option=
      echo "deb-src $option$uri $release $component"
    done >"$cache/apt/sources.list"
}

apt_options=(-qq -o Dir::Etc::sourcelist="$cache/apt/sources.list" -o Dir::Etc::sourceparts=-
  -o Dir::State::lists="$cache/apt/lists" -o APT::Sandbox::User=root)

fetch() { # [PACKAGE...]: the upstream tarballs
  [ $# -gt 0 ] || return 0
  write_source_list && apt-get "${apt_options[@]}" update && cd "$cache/sources" &&
    apt-get "${apt_options[@]}" source --tar-only "$@"
}

unpack() { # NAME PATTERN [TAR-OPTION...]: unpacks the sources into build/NAME
  local folder=$cache/build/$1 tarball
  tarball=$(find "$cache/sources" -name "$2" | sort -V | tail -n 1)
  [ -n "$tarball" ] || fail "the sources of $1 ($2) are not in $cache/sources"
  shift 2
  rm -rf "$folder"
  mkdir -p "$folder"
  tar -xf "$tarball" -C "$folder" --strip-components=1 "$@"
}

with_cmake() { # NAME SUBDIR OPTION...
  local source=$cache/build/$1/$2
  shift 2
  cmake -S "$source" -B "$source/out" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
    -DVORELLE_WINDOWS_PREFIX="$prefix" -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release \
    -DBUILD_SHARED_LIBS=OFF -DCMAKE_C_FLAGS="$map" -DCMAKE_CXX_FLAGS="$map" "$@"
  cmake --build "$source/out" -j "$jobs"
  cmake --install "$source/out"
}

with_configure() { # NAME SUBDIR OPTION...: builds and installs SUBDIR
  local source=$cache/build/$1 part=$2
  shift 2
  (cd "$source" && ./configure --host=$host --prefix="$prefix" --disable-shared --enable-static \
    CPPFLAGS="-I$prefix/include" LDFLAGS="-L$prefix/lib" PKG_CONFIG_LIBDIR="$prefix/lib/pkgconfig" "$@" &&
    make -C "$part" -j "$jobs" && make -C "$part" install)
}

with_meson() { # NAME OPTION...
  local source=$cache/build/$1
  shift
  cat >"$source/windows.ini" <<TEXT
[binaries]
c = '$CC'
cpp = '$CXX'
ar = '$host-ar'
strip = '$host-strip'
windres = '$host-windres'
pkg-config = 'pkg-config'
[properties]
pkg_config_libdir = '$prefix/lib/pkgconfig'
[host_machine]
system = 'windows'
cpu_family = 'x86_64'
cpu = 'x86_64'
endian = 'little'
TEXT
  meson setup "$source/out" "$source" --cross-file "$source/windows.ini" --prefix "$prefix" --libdir lib \
    --buildtype release --default-library static --wrap-mode nodownload -Dc_args="$map" -Dtests=disabled "$@"
  ninja -C "$source/out" -j "$jobs" install
}

build_boost() { # only Filesystem is not header-only
  unpack boost "${packages[boost]}_*.orig.tar.xz" --wildcards '*/libs/filesystem/src'
  local source
  for source in "$cache"/build/boost/libs/filesystem/src/*.cpp; do
    # Since Boost 1.83 it needs std::atomic_ref.
    $CXX -std=c++20 -O2 "$map" -DBOOST_FILESYSTEM_STATIC_LINK=1 -DBOOST_FILESYSTEM_SOURCE -I"$prefix/include" -c "$source" \
      -o "${source%.cpp}.o"
  done
  $host-ar rcs "$prefix/lib/libboost_filesystem.a" "$cache"/build/boost/libs/filesystem/src/*.o
}

build_tinyxml2() {
  unpack tinyxml2 "${packages[tinyxml2]}_*.orig.tar.*"
  with_cmake tinyxml2 . -DBUILD_TESTING=OFF
}

build_polyclipping() {
  unpack polyclipping "${packages[polyclipping]}_*.orig.tar.*"
  $CXX -O2 "$map" -c "$cache/build/polyclipping/cpp/clipper.cpp" -o "$cache/build/polyclipping/clipper.o"
  $host-ar rcs "$prefix/lib/libpolyclipping.a" "$cache/build/polyclipping/clipper.o"
  mkdir -p "$prefix/include/polyclipping"
  cp "$cache/build/polyclipping/cpp/clipper.hpp" "$prefix/include/polyclipping/"
}

build_libpng() { # links the static zlib by its file name, otherwise its DLL would be needed
  cp /usr/$host/lib/libz.a "$prefix/lib/"
  cp /usr/$host/include/z{lib,conf}.h "$prefix/include/"
  mkdir -p "$prefix/lib/pkgconfig"
  printf 'Name: zlib\nDescription: zlib\nVersion: 1.2\nLibs: -L%s/lib -lz\nCflags: -I%s/include\n' "$prefix" "$prefix" \
    >"$prefix/lib/pkgconfig/zlib.pc"
  unpack libpng "${packages[libpng]}_*.orig.tar.*"
  with_configure libpng .
}

build_pixman() {
  unpack pixman "${packages[pixman]}_*.orig.tar.*"
  if [ -e "$cache/build/pixman/configure" ]; then
    with_configure pixman pixman --disable-gtk --disable-libpng
    cp "$cache/build/pixman/pixman-1.pc" "$prefix/lib/pkgconfig/"
  else # since 0.44
    with_meson pixman -Dgtk=disabled -Dlibpng=disabled -Ddemos=disabled
  fi
}

build_cairo() {
  unpack cairo "${packages[cairo]}_*.orig.tar.*" --exclude '*/test/reference/*'
  if [ -e "$cache/build/cairo/configure" ]; then
    with_configure cairo src --disable-xlib --disable-ft --disable-fc --disable-ps --disable-pdf --disable-svg \
      --disable-script --disable-interpreter --disable-gobject --disable-full-testing --disable-trace \
      --enable-png
  else # since 1.18
    with_meson cairo -Dpng=enabled -Dzlib=disabled -Dfreetype=disabled -Dfontconfig=disabled -Ddwrite=disabled -Dglib=disabled \
      -Dspectre=disabled -Dsymbol-lookup=disabled -Dxlib=disabled -Dxcb=disabled
  fi
}

build_wxwidgets() { # with the libpng and zlib built above
  unpack wxwidgets "${packages[wxwidgets]}_*.orig.tar.*"
  local option options=(-DwxBUILD_SHARED=OFF -DwxBUILD_SAMPLES=OFF -DwxBUILD_TESTS=OFF -DwxUSE_LIBPNG=sys -DwxUSE_ZLIB=sys)
  for option in LIBJPEG LIBTIFF LIBLZMA EXPAT XML XRC STC WEBVIEW MEDIACTRL RIBBON PROPGRID AUI HTML WXHTML_HELP RICHTEXT \
    NANOSVG OPENGL REGEX; do
    options+=("-DwxUSE_$option=OFF")
  done
  with_cmake wxwidgets . "${options[@]}"
}

build_googletest() {
  with_cmake_of_package /usr/src/googletest googletest
}

with_cmake_of_package() { # SOURCE NAME: sources installed by Debian
  mkdir -p "$cache/build/$2"
  cmake -S "$1" -B "$cache/build/$2" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release
  cmake --build "$cache/build/$2" -j "$jobs"
  cmake --install "$cache/build/$2"
}

# In the order of their dependencies, each with the package of its headers on this system.
libraries=(boost tinyxml2 polyclipping libpng pixman cairo googletest wxwidgets)
declare -A headers=([boost]=$(apt-cache depends libboost-filesystem-dev | sed -n 's/^ *Depends: //p' | head -n 1)
  [tinyxml2]=libtinyxml2-dev [polyclipping]=libpolyclipping-dev [libpng]=libpng-dev [pixman]=libpixman-1-dev
  [cairo]=libcairo2-dev [wxwidgets]=libwxgtk3.2-dev)

# The source package of a package, by the name and version that this system has.
source_of() { # PACKAGE
  local source
  source=$(apt-cache show --no-all-versions "$1" | sed -n 's/^Source: \([^ ]*\).*/\1/p')
  printf '%s' "${source:-$1}"
}

declare -A packages
[ -n "${WINDOWS_LIBRARIES-}" ] && read -ra libraries <<<"$WINDOWS_LIBRARIES"
missing=()
for library in "${libraries[@]}"; do
  [ -e "$prefix/$library.done" ] || missing+=("$library")
done
[ ${#missing[@]} -gt 0 ] || exit 0

sources=()
for library in "${missing[@]}"; do
  [ -n "${headers[$library]-}" ] || continue
  packages[$library]=$(source_of "${headers[$library]}")
  sources+=("${packages[$library]}")
done
say "Windows libraries: fetching the sources of ${missing[*]}"
(fetch "${sources[@]}") || { echo "${0##*/}: the sources could not be fetched" >&2; exit 3; }
for library in "${missing[@]}"; do
  say "Windows libraries: building $library"
  # In the background: in a command whose exit code is tested, 'set -e' does not stop at a step that fails.
  "build_$library" >"$cache/logs/$library.log" 2>&1 &
  wait $! || { tail -n 30 "$cache/logs/$library.log" >&2; fail "$library failed"; }
  touch "$prefix/$library.done"
done
