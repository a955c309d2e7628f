#!/usr/bin/env bash
# The notes of a release, cut out of a changelog.
#
# Usage: release_notes_test.sh PROGRAM
set -euo pipefail

changelog=$(mktemp)
trap 'rm -f -- "$changelog"' EXIT
printf '%s\n' '# Changelog' '' '## [1.2.0] - Unreleased' '' '- To come.' '' '## [1.1.0] - 2026-12-01' '' \
  '### Added' '' '- First.' '' '## [1.0.1] - 2026-11-25' '' '## [1.0] - 2026-11-24' '- Last.' >"$changelog"

# must STATUS OUTPUT VERSION
must() {
  local status=0 output
  output=$("$program" "$3" "$changelog" 2>&1) || status=$?
  [[ $status == "$1" && $output == "$2" ]] || { printf '%s: status %s\n%s\n' "$3" "$status" "$output" >&2; exit 1; }
}

program=$1
must 0 $'### Added\n\n- First.' v1.1.0
must 0 "- Last." 1.0
must 1 "The changelog has no date for version 1.2.0." 1.2.0
must 1 "The changelog tells nothing of version 1.0.1." 1.0.1
must 1 "The changelog has no version 1." 1
