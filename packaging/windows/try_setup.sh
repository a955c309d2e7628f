#!/bin/bash
# Installs the board under Wine by its setup, an older one first; plays a game; updates and removes it.
# What the person has must survive all of that.
#
# Usage: try_setup.sh SOURCES
set -euo pipefail

root=$1
tree=$root/build/windows/program/tree
setup=$(ls "$root"/build/windows/out/kelvane-diamond-table-*-setup.exe)
scratch=$(mktemp -d)
export WINEPREFIX=$scratch/windows
wine=$root/packaging/windows/wine.sh
unset DISPLAY WAYLAND_DISPLAY

Xvfb -displayfd 3 -screen 0 1366x768x24 3>"$scratch/display" 2>/dev/null &
server=$!
tidy() {
  WINEDEBUG=-all wineserver -k 2>/dev/null || true
  kill "$server" 2>/dev/null || true
  rm -rf -- "$scratch"
}
trap tidy EXIT

fail() {
  printf 'try_setup: %s\n' "$1" >&2
  exit 1
}
# waits COMMAND...: until it is true; a machine that is busy may take long.
waits() {
  local turn
  for ((turn = 0; turn < 600; ++turn)); do
    if "$@"; then return; fi
    sleep 0.2
  done
  return 1
}

waits test -s "$scratch/display" || fail "there is no screen."
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

# An older version has a file that the new one lacks, and another help page.
mkdir "$scratch/older"
cp -r -- "$tree/." "$scratch/older"
echo "old" >"$scratch/older/shipped/Charts/Of an older version.txt"
echo "old" >"$scratch/older/shipped/HELP.htm"
makensis -V1 -DVERSION=1.0.0 -DTREE="$scratch/older" -DICON="$root/packaging/windows/board.ico" \
  -DOUT="$scratch/older-setup.exe" "$root/packaging/windows/setup.nsi"

"$wine" wineboot --init >/dev/null 2>&1
local_data=$(echo "$WINEPREFIX"/drive_c/users/*/AppData/Local)
program="$local_data/Programs/Kelvane Diamond Table"
person=$local_data/kelvane-diamond-table
board=$program/kelvane-diamond-table.exe

# start: the board fills the person's folder, and shows its window until it is ended by force.
start() {
  "$wine" "$board" >"$scratch/board.log" 2>&1 &
  waits test -s "$person/$1" || fail "the board did not start: $(cat "$scratch/board.log")"
}
stop() { WINEDEBUG=-all wineserver -k && WINEDEBUG=-all wineserver -w; }

"$wine" "$scratch/older-setup.exe" /S
[[ -e $board && -e $program/uninstall.exe ]] || fail "the older version was not installed."
start DTB.mdb
stop
[[ $(cat "$person/HELP.htm") == old ]] || fail "the person's folder was not filled."

# He plays a game, which is saved, and changes a team.
"$wine" "$program/kelvane-diamond-table-replay.exe" --database "$person/DTB.mdb" \
  "$root/tests/games/1960-10-05" || fail "the game was not played."
team=$(ls -d "$person"/Teams/*.txt | head -n 1)
echo "of the person" >>"$team"
database=$(sha256sum <"$person/DTB.mdb")

# An open board keeps the setup out.
start DTB.mdb
sleep 2
if "$wine" "$setup" /S; then fail "the setup replaced a board that was open."; fi
stop

"$wine" "$setup" /S || fail "the update failed."
[[ ! -e "$program/shipped/Charts/Of an older version.txt" ]] || fail "the update left an old file."
start DTB.mdb
waits cmp -s "$person/HELP.htm" "$tree/shipped/HELP.htm" || fail "the update did not reach the folder."
stop
tail -n 1 "$team" | grep -q "of the person" || fail "the update lost what the person changed."
[[ $(sha256sum <"$person/DTB.mdb") == "$database" ]] || fail "the update changed the database."

# The removal goes on in a program of its own, since no program can delete itself.
"$wine" "$program/uninstall.exe" /S || fail "the removal failed."
waits test ! -e "$program" || fail "the removal left $(ls "$program")."
[[ $(sha256sum <"$person/DTB.mdb") == "$database" ]] || fail "the removal took the database."
echo "The setup installs, updates and removes the board, and leaves what the person has."
