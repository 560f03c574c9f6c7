#!/usr/bin/env bash
# Publishes the streaming example with NativeAOT against the default build and
# runs it: fails when any way from the device library into C# is not AOT-safe.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh
build=$PWD/build/default
dotnet publish managed/examples/StreamingAot/StreamingAot.csproj -c Release -r linux-x64 --nologo -v:minimal \
  --artifacts-path "$build/managed/artifacts" \
  -p:VelarionGeneratedDir="$build/managed/generated" -p:VelarionNativeDir="$build/lib"
"$build/managed/artifacts/publish/StreamingAot/release_linux-x64/StreamingAot"
