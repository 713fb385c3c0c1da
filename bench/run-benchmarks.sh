#!/usr/bin/env bash
# Runs every benchmark of a build folder; each prints its Google Benchmark table (the CPU column is
# the figure; wall time on a shared machine is mostly other people's work), then its ratios and
# target figures from interleaved pairs of timed batches, with min, median and max over the pairs.
# Further arguments go to every benchmark: Google Benchmark's flags, and --pairs=N, --batch_ms=X,
# --pause_ms=X for the pairs (see bench/QelBenchMain.h).
set -euo pipefail
build=${1:?usage: run-benchmarks.sh BUILD_FOLDER [benchmark flags...]}
shift
# The same addresses on every run: the cache-set and alias effects of a layout then repeat from one
# run to the next instead of moving a hot read by a tenth.
norandom=()
if setarch "$(uname -m)" -R true 2>/dev/null; then norandom=(setarch "$(uname -m)" -R); fi
for exe in "$build"/bench/bench_*; do
  [ -x "$exe" ] || continue
  echo "== $(basename "$exe")"
  "${norandom[@]}" "$exe" --benchmark_min_time=0.2 "$@"
done
