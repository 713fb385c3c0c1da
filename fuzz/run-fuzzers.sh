#!/usr/bin/env bash
# Runs every fuzz target of a build folder for the given number of seconds. fuzz/<name>.options, if
# there, holds further libFuzzer flags of that target on one line (e.g. -max_len=4096).
set -euo pipefail
build=$1; seconds=${2:-60}
here=$(cd "$(dirname "$0")" && pwd)
status=0
for exe in "$build"/fuzz/fuzz_*; do
  [ -x "$exe" ] || continue
  name=$(basename "$exe"); name=${name#fuzz_}
  work=$(mktemp -d)
  seeds=()
  [ -d "$here/corpus/$name" ] && seeds=("$here/corpus/$name")
  echo "== fuzz $name for ${seconds}s"
  dict=()
  [ -f "$here/$name.dict" ] && dict=(-dict="$here/$name.dict")
  options=()
  [ -f "$here/$name.options" ] && read -r -a options < "$here/$name.options"
  # Inputs up to 1 MB, so that faults that grow with the size of a document can show; a target's
  # .options file may say otherwise, since libFuzzer takes the last -max_len it is given.
  if ! ASAN_OPTIONS=detect_leaks=1 "$exe" -max_total_time="$seconds" -max_len=1048576 -print_final_stats=1 \
       "${dict[@]}" "${options[@]}" "$work" "${seeds[@]}" 2>"$work.log"; then
    tail -n 60 "$work.log"; status=1
  else
    grep -E '^stat::number_of_executed_units|^Done' "$work.log" || true
  fi
  rm -rf "$work" "$work.log"
done
exit $status
