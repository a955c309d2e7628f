#!/usr/bin/env bash
# Makes an AppImage of a finished build, out of it and of Debian's libraries.
#
# Usage: make.sh BUILD FILE
set -euo pipefail

here=$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")
build=$(readlink -f -- "$1")
file=$(readlink -m -- "$2")
system=/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
plugins=$system/qt6/plugins
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
app=$work/AppDir
lib=$app/usr/lib

# What a program must take from the desktop that it runs on: the C and C++ libraries, which must not be
# older than the system's own; typefaces and their settings; and the way to the X server. Printing needs
# the desktop's CUPS, which would bring a dozen libraries and must fit its server.
from_desktop='^(ld-linux.*|lib(c|m|dl|rt|pthread|resolv|util|anl|mvec)|libstdc\+\+|libgcc_s'
from_desktop+='|lib(fontconfig|freetype|harfbuzz|expat|z|uuid)|lib(X11|X11-xcb|xcb|Xau|Xdmcp)|libcups)\.so'

# Plugins are loaded by name, so no library asks for them. The board draws without OpenGL.
chosen=(platforms/libq{xcb,offscreen,wayland-generic}.so wayland-shell-integration/libxdg-shell.so
  wayland-decoration-client/libbradient.so printsupport/libcupsprintersupport.so
  platforminputcontexts/lib{compose,ibus}platforminputcontextplugin.so
  imageformats/libq{gif,icns,ico,jpeg,tga,tiff,wbmp,webp}.so)

# Where the loader finds each library that FILE names itself.
needed_by() {
  ldd "$1" | awk 'NR == FNR { named[$1]; next } $2 == "=>" && $1 in named { print $1, $3 }' \
    <(patchelf --print-needed "$1") -
}

# Copies the libraries that a file of the AppDir needs beside all others, and theirs in turn.
take_libraries_of() {
  local name path
  while read -r name path; do
    [[ $name =~ $from_desktop || -e $lib/$name ]] && continue
    [[ -e $path ]] || { echo "There is no library $name." >&2; return 1; }
    cp -L -- "$path" "$lib/$name"
    chmod 644 "$lib/$name"
    readlink -f -- "$path" >>"$work/taken"
    take_libraries_of "$path"
  done < <(needed_by "$1")
}

# Each library with the licence under which Debian has it.
take_licences() {
  local path package
  while read -r path; do
    dpkg-query -S "$path" 2>/dev/null || dpkg-query -S "${path#/usr}"
  done <"$work/taken" | sed 's/:.*//' | sort -u | while read -r package; do
    install -D -m 644 "/usr/share/doc/$package/copyright" "$app/usr/share/doc/$package/copyright"
  done
}

cmake --install "$build" --prefix "$app/usr" --strip >/dev/null
rm -rf -- "$app"/usr/share/man "$app"/usr/share/doc/kelvane-diamond-table/changelog*
find "$app/usr/games" "$lib" -type f >"$work/programs"
while read -r program; do take_libraries_of "$program"; done <"$work/programs"
for plugin in "${chosen[@]}"; do
  install -D -m 644 "$plugins/$plugin" "$lib/plugins/$plugin"
  readlink -f -- "$plugins/$plugin" >>"$work/taken"
  take_libraries_of "$plugins/$plugin"
done
printf '[Paths]\nPrefix = ..\nPlugins = lib/plugins\n' >"$app/usr/games/qt.conf"
mkdir "$app/usr/games/fonts"
for font in /usr/share/fonts/truetype/{crosextra/Carlito-*,dejavu/DejaVuSans{,-Bold}}.ttf; do
  cp -- "$font" "$app/usr/games/fonts"
  echo "$font" >>"$work/taken"
done
take_licences

# Every program and library finds the others by its own place, so that no variable leads the programs
# that the board starts, such as a browser, to them.
find "$app/usr/games" "$lib" -type f \( -perm -u+x -o -name '*.so*' \) | while read -r program; do
  patchelf --set-rpath "\$ORIGIN/$(realpath --relative-to="$(dirname -- "$program")" -- "$lib")" "$program"
done

name=kelvane-diamond-table
desktop=example.kelvane_diamond_table.board.desktop
install -m 755 "$here/AppRun" "$app/AppRun"
sed '/^TryExec=/d' "$app/usr/share/applications/$desktop" >"$app/$desktop"
cp -- "$app/usr/share/icons/hicolor/256x256/apps/$name.png" "$app/$name.png"
ln -s "$name.png" "$app/.DirIcon"

# A newer image has newer files, by which the board sees what to renew in the person's folder.
time=${SOURCE_DATE_EPOCH:-$(date +%s)}
mksquashfs "$app" "$work/image" -all-root -comp zstd -Xcompression-level 22 -b 256K \
  -mkfs-time "$time" -all-time "$time" -noappend -quiet -no-progress
mkdir -p -- "$(dirname -- "$file")"
cat -- "$build/dtb_appimage_runtime" "$work/image" >"$file.new"
# By this sign in its head a desktop knows an AppImage, of the second type.
printf 'AI\002' | dd of="$file.new" bs=1 seek=8 conv=notrunc status=none
chmod 755 "$file.new"
mv -f -- "$file.new" "$file"
