#!/usr/bin/env bash
# Runs every benchmark of a build folder; each prints its own figures and ratios.
set -euo pipefail
build=$1
for exe in "$build"/bench/bench_*; do
  [ -x "$exe" ] || continue
  echo "== $(basename "$exe")"
  # Medians of three runs, so that one noisy run does not decide a ratio.
  "$exe" --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
done
