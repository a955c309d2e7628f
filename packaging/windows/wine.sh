#!/bin/bash
# Runs a program for Windows under Wine, with a Windows of the build's own.
here=$(cd "$(dirname "$0")/../.." && pwd)
export WINEPREFIX=${WINEPREFIX:-$here/build/windows/wine} WINEDEBUG=${WINEDEBUG:--all}
# No page, no program for old formats, no menu of the desktop: nothing is to be installed.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
mkdir -p "$WINEPREFIX"
exec wine "$@"
