#!/usr/bin/env bash
# Runs the Mono tests (managed_test_mono) against what the Unity packages
# carry: the netstandard2.1 assemblies and the Linux plugins of the tarballs,
# unpacked as Unity would unpack them. A script reload, the device tests and
# the IL2CPP rules, under Mono, from the packaged files; then a circle played
# by the packaged sensations on the packaged emulator (unity/Tests/PackagedCircle).
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
packages=(com.velarioncsharp.velarionsharp com.velarioncsharp.velarionsharp.emulator com.velarioncsharp.velarionsharp.sensations)
for package in "${packages[@]}"; do
  mkdir "$work/$package"
  tar -xzf "$feed/$package-$version.tgz" -C "$work/$package"
done
# The test program and its other dependencies, then the packaged assemblies and plugins in place of the built ones.
shopt -s nullglob  # the sensations carry no plugins
packaged=()
for package in "${packages[@]}"; do
  packaged+=("$work/$package"/package/Runtime/*.dll "$work/$package"/package/Runtime/Plugins/x86_64/*.so)
done
exclude=()
for file in "${packaged[@]}"; do exclude+=(! -name "$(basename "$file")"); done
find "$tests" -maxdepth 1 -type f -name '*.dll' "${exclude[@]}" -exec cp {} "$work/run/" \;
cp "${packaged[@]}" "$work/run/"

# The circle program, compiled against the packaged assemblies alone.
dotnet build "$root/unity/Tests/PackagedCircle/PackagedCircle.csproj" -c Release --nologo -v:quiet \
  --artifacts-path "$root/build/unity-proof" -p:PackagedAssemblies="$work/run" >"$work/build.log" 2>&1 \
  || { cat "$work/build.log"; echo "unity-proof: the circle program did not build" >&2; exit 1; }
cp "$root/build/unity-proof/bin/PackagedCircle/release/PackagedCircle.dll" "$work/run/"

cd "$work/run"
timeout 300 mono --debug Velarion.MonoTests.dll ScriptReloadTests. DeviceTests. Il2CppRulesTests.
timeout 60 mono --debug PackagedCircle.dll
