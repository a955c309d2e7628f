#!/usr/bin/env bash
# Prints what CHANGELOG.md tells of a version. Fails where it tells nothing, or is not dated yet.
#
# Usage: release_notes.sh VERSION [CHANGELOG]
set -euo pipefail

(($# == 1 || $# == 2)) || { echo "Usage: release_notes.sh VERSION [CHANGELOG]" >&2; exit 2; }
version=${1#v}
changelog=${2:-$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")/../CHANGELOG.md}

fail() {
  printf '%s\n' "$1" >&2
  exit 1
}

title=$(grep -F -m 1 -- "## [$version]" "$changelog") || fail "The changelog has no version $version."
[[ $title =~ \ -\ [0-9]{4}-[0-9]{2}-[0-9]{2}$ ]] || fail "The changelog has no date for version $version."
notes=$(awk -v title="$title" '/^## / { inside = $0 == title; next } inside' "$changelog" | sed -e '/./,$!d')
[[ -n $notes ]] || fail "The changelog tells nothing of version $version."
printf '%s\n' "$notes"
