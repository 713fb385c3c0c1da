#!/usr/bin/env bash
# The main job of `make run`: the three built-in standards written out, checked, loaded by name and
# compared, as a drafting module would obtain them.
set -euo pipefail
qelstd=$1
here=$(cd "$(dirname "$0")" && pwd)
work=${ADL_ODT_OUT:-$(mktemp -d)}
export ADL_ODT_OUT=$work

"$qelstd" --version
echo
echo "== built-in standards written and checked (in $work)"
for name in ISO ANSI-ASME JIS; do
  "$qelstd" builtin "$name" -o "$work/builtin-$name.xml"
  printf '%-10s %8d bytes  ' "$name" "$(stat -c %s "$work/builtin-$name.xml")"
  "$qelstd" check "$work/builtin-$name.xml" | grep -E '^(version|enum faults)' | paste -sd' ' -
done
echo
echo "== the three default standards, obtained by name"
"$qelstd" compare
echo
echo "== a style value as a drafting module reads it"
"$qelstd" get ASME Curve.Default.Color
"$qelstd" get ISO Text.Default.Font.Size
echo
echo "== sheet formats and styles of JIS"
"$qelstd" sheets JIS
echo
echo "== edit strings tried on an empty document"
"$qelstd" apply "$here/samples/first-standard.edits" | tail -n 4
