#!/usr/bin/env bash
# Builds everything and runs the demo on the emulated device library.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh
bash scripts/setup.sh
cmake --preset default >/dev/null
cmake --build --preset default -j"$jobs"
cmake --build build/default --target demo
