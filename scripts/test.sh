#!/usr/bin/env bash
# Builds and runs every test: the native tests, the native tests again under
# AddressSanitizer + UndefinedBehaviorSanitizer, the threaded native tests
# (streaming, logging, directors) under ThreadSanitizer, the managed tests, and
# the streaming example compiled with NativeAOT.
set -uo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh
bash scripts/setup.sh || exit 1

failed=()
stage() {
  local name=$1
  shift
  echo
  echo "=== $name ==="
  if ! "$@"; then
    failed+=("$name")
  fi
}

stage "configure (default)" cmake --preset default
stage "build (default)" cmake --build --preset default -j"$jobs"
stage "native tests" ctest --preset default -j"$jobs"
stage "configure (asan)" cmake --preset asan
stage "build (asan)" cmake --build --preset asan -j"$jobs"
stage "native tests under ASan+UBSan" env ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --preset asan -j"$jobs"
stage "configure (tsan)" cmake --preset tsan
stage "build (tsan)" cmake --build --preset tsan -j"$jobs"
stage "threaded native tests under TSan" ctest --preset tsan -j"$jobs"
stage "managed tests" cmake --build build/default --target managed_test
stage "NativeAOT streaming" bash scripts/aot.sh

echo
if [ ${#failed[@]} -gt 0 ]; then
  echo "FAILED: ${failed[*]}"
  exit 1
fi
echo "all test stages passed"
