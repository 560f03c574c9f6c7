#!/usr/bin/env bash
# Runs the Mono tests (managed_test_mono) against what the Unity packages
# carry: the binding's netstandard2.1 assembly and the Linux plugins of both
# tarballs, unpacked as Unity would unpack them. A script reload, the device
# tests and the IL2CPP rules, under Mono, from the packaged files.
#
# Needs the packages (scripts/pack.sh) and the Mono tests' build
# (cmake --build build/default --target managed_test_mono).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh

root=$PWD
feed=${VELARION_FEED:-$root/build/packages}
tests=$root/build/default/managed/artifacts/bin/Velarion.MonoTests/release
version=$(dotnet msbuild managed/VelarionSharp/VelarionSharp.csproj -nologo -getProperty:Version)
[ -f "$tests/Velarion.MonoTests.dll" ] || { echo "unity-proof: build the Mono tests first (--target managed_test_mono)" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/run"
for package in com.velarioncsharp.velarionsharp com.velarioncsharp.velarionsharp.emulator; do
  mkdir "$work/$package"
  tar -xzf "$feed/$package-$version.tgz" -C "$work/$package"
done
# The test program and its other dependencies, then the packaged binding in place of the built one.
find "$tests" -maxdepth 1 -type f -name '*.dll' ! -name 'VelarionSharp.dll' -exec cp {} "$work/run/" \;
cp "$work/com.velarioncsharp.velarionsharp/package/Runtime/VelarionSharp.dll" \
   "$work/com.velarioncsharp.velarionsharp/package/Runtime/Plugins/x86_64/libVelarionCSharp.so" \
   "$work/com.velarioncsharp.velarionsharp.emulator/package/Runtime/Plugins/x86_64/libVelarion.so" "$work/run/"
cd "$work/run"
timeout 300 mono --debug Velarion.MonoTests.dll ScriptReloadTests. DeviceTests. Il2CppRulesTests.
