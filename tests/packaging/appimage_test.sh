#!/usr/bin/env bash
# The head of the AppImage, before a small image of its own.
#
# Usage: appimage_test.sh RUNTIME
set -euo pipefail

runtime=$(readlink -f -- "$1")
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export TMPDIR=$work/temporary
mkdir -p "$work/app/folder" "$TMPDIR"
cat >"$work/app/AppRun" <<'SCRIPT'
#!/bin/sh
echo "$* $ARGV0 $APPIMAGE $OWD"
cmp "$APPDIR/link" "$APPDIR/folder/large" || exit 1
[ "${1-}" != wait ] || exec sleep 60
exit 7
SCRIPT
chmod +x "$work/app/AppRun"
seq 400000 >"$work/app/folder/large"
ln -s folder/large "$work/app/link"
: >"$work/app/empty"
mksquashfs "$work/app" "$work/image" -comp zstd -noappend -quiet -no-progress
cat "$runtime" "$work/image" >"$work/board"
chmod +x "$work/board"
cd "$work"

# must STATUS OUTPUT COMMAND...: both must be so, and nothing may be left behind.
must() {
  local status=0 output
  output=$("${@:3}" 2>&1) || status=$?
  # shellcheck disable=SC2053 # what is expected is a pattern
  if [[ $status != "$1" || $output != $2 || -n $(ls -A "$TMPDIR") ]]; then
    printf '%s\nstatus %s, left: %s\n%s\n' "${*:3}" "$status" "$(ls -A "$TMPDIR")" "$output" >&2
    exit 1
  fi
}

must 7 "one two ./board $work/board $work" ./board one two
must 7 "three ./board $work/board $work" ./board --appimage-extract-and-run three
must 7 " ./board $work/board $work" env APPIMAGE_EXTRACT_AND_RUN=1 ./board
must 0 "$(stat -c %s "$runtime")" ./board --appimage-offset
must 0 squashfs-root ./board --appimage-extract
must 0 "" diff -r --no-dereference app squashfs-root
# What ends the head ends the program, too.
must 143 "wait *" bash -c './board wait >told & until [ -s told ]; do sleep 0.1; done; cat told; kill $!; wait $!'

whole=$(stat -c %s board)
head -c $((whole - 5000)) board >short
cp board damaged
head -c 20000 /dev/zero | tr '\0' '\377' | dd of=damaged bs=1 seek=$((whole - 60000)) conv=notrunc status=none
chmod +x short damaged
must 1 "*/short\" is incomplete: it has $((whole - 5000)) bytes of at least *; fetch it again" ./short
must 1 "*/damaged\" is damaged; fetch it again" ./damaged --appimage-extract-and-run
