#!/usr/bin/env bash
# Runs the benchmarks with short settings, each figure beside its floors in the
# same run: the native emission bridge (Google Benchmark) and the managed
# boundary (BenchmarkDotNet). Results land in build/default/bench-results.
#
#   bash scripts/bench.sh           short runs (about ten minutes)
#   BENCH_QUICK=1 bash scripts/bench.sh   one pass of each, to see that they run
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh
bash scripts/setup.sh

root=$PWD
results=$root/build/default/bench-results
artifacts=$root/build/default/managed/bench-artifacts
mkdir -p "$results"

if [ "${BENCH_QUICK:-0}" = 1 ]; then
  native_args=(--benchmark_min_time=0.01)
  managed_args=(--job dry)
else
  native_args=(--benchmark_min_time=0.5 --benchmark_repetitions=3 --benchmark_report_aggregates_only=true)
  managed_args=(--warmupCount 3 --iterationCount 10 --launchCount 1)
fi

cmake --preset default >/dev/null
cmake --build build/default -j"$jobs" --target streaming_bench managed

echo
echo "=== native: emission bridge ==="
build/default/bin/streaming_bench "${native_args[@]}" | tee "$results/streaming_bench.txt"

echo
echo "=== managed boundary ==="
dotnet build bench/VelarionSharp.Benchmarks/VelarionSharp.Benchmarks.csproj -c Release --nologo -v:quiet \
  --artifacts-path "$artifacts" \
  -p:VelarionGeneratedDir="$root/build/default/managed/generated" -p:VelarionNativeDir="$root/build/default/lib"
# BenchmarkDotNet finds the project from the working directory and builds one
# process per benchmark, so floors that register their own callbacks never
# share a process with the binding.
(cd bench/VelarionSharp.Benchmarks &&
  dotnet "$artifacts/bin/VelarionSharp.Benchmarks/release/VelarionSharp.Benchmarks.dll" \
    --filter '*' "${managed_args[@]}" --artifacts "$results/managed") | tee "$results/managed.txt"
echo
echo "results: $results (tables in managed/results/*.md)"
