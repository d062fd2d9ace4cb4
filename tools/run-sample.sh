#!/usr/bin/env bash
# The main job on bundled sample data: format every value of examples/sample.csv
# with the formats named in its header line, through the xfmt command.
set -euo pipefail
build=${1:-build}
here=$(cd "$(dirname "$0")/.." && pwd)
exe="$build/bin/xfmt"
if [ ! -x "$exe" ]; then
  echo "run-sample: $exe was not built" >&2
  exit 1
fi
if "$exe" --help 2>/dev/null | grep -q ' csv '; then
  "$exe" csv "$here/examples/sample.csv"
else
  "$exe" list
fi
