#!/usr/bin/env bash
# Builds and runs every test: the native tests, the native tests again under
# AddressSanitizer + UndefinedBehaviorSanitizer, the threaded native tests
# (streaming, logging, directors) under ThreadSanitizer, the managed tests, the
# streaming example compiled with NativeAOT; the netstandard2.1 build's tests
# under Mono (script reloads included) and the Unity samples compiled; the
# Windows build's native and managed tests under Wine; then makes the NuGet and
# Unity packages (checking the Unity ones' structure and import settings),
# proves the NuGet ones in a new console app and runs the Unity ones' files
# under Mono.
set -uo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh
bash scripts/setup.sh || exit 1

failed=()
stage() {
  local name=$1 started=$SECONDS
  shift
  echo
  echo "=== $name ==="
  if ! "$@"; then
    failed+=("$name")
  fi
  echo "--- $name: $((SECONDS - started)) s"
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
# Unity's runtime: the netstandard2.1 build under Mono, and the packages' samples.
stage "managed tests under Mono" cmake --build build/default --target managed_test_mono
stage "Unity samples" cmake --build build/default --target unity_samples

# Windows: the MinGW-w64 cross-build, its native and managed tests under Wine.
stage "configure (windows)" cmake --preset windows
stage "build (windows)" cmake --build --preset windows -j"$jobs"
stage "native tests under Wine" ctest --preset windows
stage "managed tests under Wine" cmake --build build/default --target managed_test_wine
# The packages (local feed build/packages: NuGet and Unity), the NuGet ones
# used by a new app outside the repository.
stage "packages" bash scripts/pack.sh
stage "package proof (Linux, and win-x64 under Wine)" bash scripts/package-proof.sh
stage "Unity packages under Mono" bash scripts/unity-proof.sh

echo
if [ ${#failed[@]} -gt 0 ]; then
  echo "FAILED: ${failed[*]}"
  exit 1
fi
echo "all test stages passed"
