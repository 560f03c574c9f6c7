#!/usr/bin/env bash
# Uses the packages as an application developer would: a new console app,
# outside the repository, adds both packages from the local feed and runs the
# quick start (managed/examples/QuickStart/Program.cs) on Linux and, published
# self-contained for win-x64, under Wine.
#
# Needs the feed (scripts/pack.sh) and, for Wine, the windows build's prefix
# wrapper (build/windows/wine-run.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh

root=$PWD
feed=${VELARION_FEED:-$root/build/packages}
wine_run=$root/build/windows/wine-run.sh
version=$(dotnet msbuild managed/VelarionSharp/VelarionSharp.csproj -nologo -getProperty:Version)
ls "$feed"/VelarionSharp."$version".nupkg "$feed"/VelarionSharp.Emulator."$version".nupkg >/dev/null

work=$(mktemp -d "${TMPDIR:-/tmp}/velarion-proof.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"

# Packages restored for this proof stay in a folder of its own, so a build of
# the same version made earlier cannot be picked up from NuGet's cache; what
# the machine already has (the .NET runtime packs) is read from there.
machine_packages=${NUGET_PACKAGES:-$HOME/.nuget/packages}
export NUGET_PACKAGES=$work/packages
fallback=""
if [ -d "$machine_packages" ]; then
  fallback="<fallbackPackageFolders><add key=\"machine\" value=\"$machine_packages\" /></fallbackPackageFolders>"
fi
cat > nuget.config <<CONFIG
<?xml version="1.0" encoding="utf-8"?>
<configuration>
  <packageSources>
    <add key="velarion-local" value="$feed" />
  </packageSources>
  $fallback
</configuration>
CONFIG

quiet() {
  "$@" >"$work/step.log" 2>&1 || { cat "$work/step.log"; echo "package proof: '$*' failed" >&2; return 1; }
}
quiet dotnet new console -o QuickStart
cd QuickStart
echo "dotnet add package VelarionSharp, VelarionSharp.Emulator ($version, from $feed)"
quiet dotnet add package VelarionSharp --version "$version"
quiet dotnet add package VelarionSharp.Emulator --version "$version"
cp "$root/managed/examples/QuickStart/Program.cs" Program.cs

echo "--- linux-x64"
quiet dotnet build -c Release --nologo
dotnet run -c Release --no-build

echo "--- win-x64 under Wine"
quiet dotnet publish -c Release -r win-x64 --self-contained --nologo -o "$work/win-x64"
ls "$work/win-x64" | grep -E '^(VelarionSharp.*|VelarionCSharp|Velarion)\.dll$'
"$wine_run" --session "$work/win-x64/QuickStart.exe"
