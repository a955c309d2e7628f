#!/usr/bin/env bash
# The start of the board beside a bare window; takes the build folder.
set -euo pipefail
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
"$1/dtb_bench_start" "$1/dtb_start_board" "$1/dtb_start_bare"
