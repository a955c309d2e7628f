#!/bin/bash
# Builds for 64-bit Windows, from Debian's own sources, the libraries that the board needs, into
# FOLDER/libraries. What stands there already stays, so a second run takes a moment. FOLDER/built.txt
# says what was built, from which version, with which hash. The system's own lists are not changed.
#
# Usage: libraries.sh FOLDER [LIBRARY...]
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
folder=$(mkdir -p "$1" && cd "$1" && pwd)
shift
prefix=$folder/libraries
sources=$folder/sources
record=$folder/built.txt
host=x86_64-w64-mingw32
flags="-O2 -ffunction-sections -fdata-sections"
mkdir -p "$prefix" "$sources"
touch "$record"

# apt_of_sources LISTS ARGUMENT...
apt_of_sources() {
  apt-get -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$sources/$1/parts" \
    -o Dir::State::lists="$sources/$1/lists" -o APT::Sandbox::User=root "${@:2}"
}

# Lists of Debian's sources in a folder of their own, made from those of the packages.
update_lists() {
  local parts=$sources/$1/parts
  [[ -e $parts/sources.sources ]] && return
  mkdir -p "$parts" "$sources/$1/lists/partial"
  cat /etc/apt/sources.list.d/*.sources 2>/dev/null | sed 's/^Types:.*/Types: deb-src/' >"$parts/new" || true
  [[ ! -e /etc/apt/sources.list ]] ||
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$parts/sources.list"
  [[ $1 == usual ]] || sed -i 's/bookworm/trixie/g' "$parts"/*
  mv "$parts/new" "$parts/sources.sources"
  apt_of_sources "$1" update -qq
}

# Unpacks the source package with Debian's patches, and names it in the record.
fetch() {
  local name=$1
  update_lists usual
  (cd "$sources" && rm -rf "$name-source" && apt_of_sources usual source -qq --download-only "$name")
  local dsc=("$sources/${name}"_*.dsc)
  dpkg-source --no-check -x "${dsc[-1]}" "$sources/$name-source" >/dev/null
  version=$(sed -n 's/^Version: //p' "${dsc[-1]}" | head -n 1)
  hash=$(sha256sum <"${dsc[-1]}" | cut -d ' ' -f 1)
}

# The same of Debian 13, without patches.
fetch_later() {
  local name=$1 file
  update_lists later
  (cd "$sources" && rm -rf "$name"_*.orig.tar.* && apt_of_sources later source -qq --tar-only "$name")
  file=$(ls "$sources/$name"_*.orig.tar.*)
  rm -rf "$sources/$name-source" "$sources/unpacked"
  mkdir "$sources/unpacked"
  tar -C "$sources/unpacked" -xf "$file"
  # All of it may stand in a folder, or not.
  (cd "$sources/unpacked" && [[ $(ls | wc -l) == 1 ]] && mv ./* "../$name-source") ||
    mv "$sources/unpacked" "$sources/$name-source"
  version=${file##*_}
  version=${version%.orig.tar.*}
  hash=$(sha256sum <"$file" | cut -d ' ' -f 1)
}

built() { grep -q "^$1 " "$record"; }
note() { echo "$1 $version $hash" >>"$record"; }

with_cmake() {
  local source=$1 build=$2
  shift 2
  cmake -G Ninja -S "$source" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
    -DDTB_LIBRARIES="$prefix" -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release "$@"
  cmake --build "$build"
  cmake --install "$build"
}

build_qt() {
  fetch qt6-base
  with_cmake "$sources/qt6-base-source" "$folder/qt" -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake -DQT_BUILD_EXAMPLES=OFF \
    -DQT_BUILD_TESTS=OFF -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_dbus=OFF \
    -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_opengl=OFF -DINPUT_opengl=no \
    -DFEATURE_vulkan=OFF -DFEATURE_zstd=OFF -DFEATURE_tabletevent=OFF
  rm -rf "$folder/qt"
}

# The .c files of a folder that are named, as a static library, with the headers beside them.
archive_of() {
  local library=$1 source=$2 file objects=()
  shift 2
  for file in "$@"; do
    $host-gcc-posix $flags -I"$source" -I"$prefix/include" -c "$source/$file.c" -o "$source/$file.o"
    objects+=("$source/$file.o")
  done
  mkdir -p "$prefix/lib"
  rm -f "$prefix/lib/lib$library.a"
  $host-ar rcs "$prefix/lib/lib$library.a" "${objects[@]}"
}

build_zlib() {
  fetch zlib
  local source=$sources/zlib-source
  archive_of z "$source" adler32 compress crc32 deflate gzclose gzlib gzread gzwrite infback \
    inffast inflate inftrees trees uncompr zutil
  install -D -m 644 -t "$prefix/include" "$source/zlib.h" "$source/zconf.h"
}

build_minizip() {
  fetch minizip
  local source=$sources/minizip-source
  archive_of minizip "$source" zip unzip ioapi iowin32
  install -D -m 644 -t "$prefix/include/minizip" "$source"/{zip,unzip,ioapi,iowin32}.h
}

build_sqlite() {
  fetch sqlite3
  local source=$sources/sqlite3-source
  (cd "$source" && [[ -e sqlite3.c ]] || (cd "$source" && ./configure --disable-tcl && make sqlite3.c))
  flags="$flags -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_COLUMN_METADATA" \
    archive_of sqlite3 "$source" sqlite3
  install -D -m 644 -t "$prefix/include" "$source/sqlite3.h"
}

build_sqlitecpp() {
  fetch sqlitecpp
  with_cmake "$sources/sqlitecpp-source" "$folder/sqlitecpp" -DSQLITECPP_INTERNAL_SQLITE=OFF \
    -DSQLITECPP_RUN_CPPLINT=OFF -DSQLITECPP_BUILD_TESTS=OFF -DSQLite3_INCLUDE_DIR="$prefix/include" \
    -DSQLite3_LIBRARY="$prefix/lib/libsqlite3.a"
}

build_xlsxwriter() {
  fetch libxlsxwriter
  with_cmake "$sources/libxlsxwriter-source" "$folder/xlsxwriter" -DBUILD_SHARED_LIBS=OFF \
    -DZLIB_INCLUDE_DIR="$prefix/include" -DZLIB_LIBRARY="$prefix/lib/libz.a"
}

# Of ICU's data the program needs the order and case of letters and the encodings, but no language
# and no calendar: a tenth.
reduce_icu_data() {
  local icupkg=(env LD_LIBRARY_PATH="$folder/icu-here/lib" "$folder/icu-here/bin/icupkg")
  local data unwanted=$folder/icu-here/unwanted.txt
  data=$(ls "$1"/data/in/icudt*l.dat)
  "${icupkg[@]}" -l "$data" |
    grep -E '^(curr|zone|lang|region|unit|rbnf|brkitr|translit)/|^[a-z]{2,3}(_[A-Za-z0-9_]*)?\.res$|^coll/[a-z]{2,3}(_[A-Za-z_]*)?\.res$' \
      >"$unwanted" || true
  [[ ! -s $unwanted ]] || "${icupkg[@]}" -r "$unwanted" "$data"
}

# ICU builds its own tools for this machine first, and with them its data for Windows.
build_icu() {
  fetch icu
  local source
  source=$(dirname "$(find "$sources/icu-source" -path "*/source/configure")")
  local options=(--disable-samples --disable-tests --disable-extras --disable-icuio)
  mkdir -p "$folder/icu-here" "$folder/icu-windows" "$prefix/bin"
  (cd "$folder/icu-here" && CC=gcc CXX=g++ CFLAGS=-O1 CXXFLAGS="-O1 -std=c++17" \
    "$source/configure" "${options[@]}" && make -j2)
  reduce_icu_data "$source"
  (cd "$folder/icu-windows" && CC=$host-gcc-posix CXX=$host-g++-posix CFLAGS="$flags" \
    CXXFLAGS="$flags -std=c++17" "$source/configure" --host=$host --enable-static --disable-shared \
    --disable-tools --with-data-packaging=static --with-cross-build="$folder/icu-here" \
    --prefix="$prefix" "${options[@]}" && make -j2 && make install)
  # The data stands under another name and in another folder than a linker looks in.
  mv "$prefix/bin/sicudt.a" "$prefix/lib/libsicudt.a"
  rm -rf "$folder/icu-here" "$folder/icu-windows"
}

# Debian 12's libmdb needs GLib; this one can do without.
build_mdbtools() {
  fetch_later mdbtools
  local source=$sources/mdbtools-source values=(-e 's/@HAVE_[A-Z]*_H@/0/' -e "s/@VERSION@/$version/"
    -e 's/@PACKAGE@/mdbtools/' -e 's/@GLIB_INCLUDE_HEADER@/mdbfakeglib.h/' -e 's/@LOCALE_T@/_locale_t/')
  local header
  for header in mdbtools.h mdbver.h; do
    sed "${values[@]}" "$source/include/$header.in" >"$source/include/$header"
    install -D -m 644 -t "$prefix/include" "$source/include/$header"
  done
  install -D -m 644 -t "$prefix/include" "$source/include/mdbfakeglib.h"
  flags="$flags -I$source/include -D_GNU_SOURCE -DHAVE_VASPRINTF -DTLS=__thread -Wno-deprecated-declarations" \
    archive_of mdb "$source/src/libmdb" catalog file table data dump backend money sargs index like \
    write stats map props worktable options iconv version rc4 fakeglib
}

# Debian ships the sources of GoogleTest in a package of its own.
build_googletest() {
  local source=/usr/src/googletest
  with_cmake "$source" "$folder/googletest" -DBUILD_GMOCK=OFF
  version=$(dpkg-query -W -f='${Version}' googletest)
  hash=$(find "$source" -type f -print0 | sort -z | xargs -0 cat | sha256sum | cut -d ' ' -f 1)
  rm -rf "$folder/googletest"
}

build_rapidcheck() {
  fetch_later rapidcheck
  with_cmake "$sources/rapidcheck-source" "$folder/rapidcheck" -DRC_ENABLE_TESTS=OFF
  install -D -m 644 -t "$prefix/include/rapidcheck" \
    "$sources/rapidcheck-source/extras/gtest/include/rapidcheck/gtest.h"
  rm -rf "$folder/rapidcheck"
}

libraries=("$@")
[[ $# -gt 0 ]] || libraries=(zlib minizip sqlite sqlitecpp xlsxwriter mdbtools icu qt)
for library in "${libraries[@]}"; do
  built "$library" && continue
  echo "Building $library for Windows"
  "build_$library"
  note "$library"
done
