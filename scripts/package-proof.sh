#!/usr/bin/env bash
# Uses the packages as an application developer would: a new console app,
# outside the repository, adds both packages from the local feed and runs the
# quick start (managed/examples/QuickStart/Program.cs) on Linux and, published
# self-contained for win-x64, under Wine; the sample hardware configurations
# must land in the app's output folder. A net8.0 app runs on every package
# (managed/examples/Net8Consumer). VELARION_PROOF_LINUX_ONLY=1
# skips the Wine runs.
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
# The emulator package's sample hardware configurations, beside the app.
samples=$(cd bin/Release/net*/ && ls samples/hardware/*.vlcfg) || { echo "package proof: no samples/hardware/*.vlcfg in the app's output" >&2; exit 1; }
echo "$samples"

# Every package from a net8.0 app: the packages' net8.0 assemblies, run on
# the newest runtime installed (roll-forward), as a net8.0 app is run where
# .NET 8 itself is missing.
echo "--- net8.0 app on every package (managed/examples/Net8Consumer)"
mkdir -p "$work/Net8Consumer"
cat > "$work/Net8Consumer/Net8Consumer.csproj" <<PROJECT
<Project Sdk="Microsoft.NET.Sdk">
  <PropertyGroup>
    <OutputType>Exe</OutputType>
    <TargetFramework>net8.0</TargetFramework>
    <RollForward>Major</RollForward>
  </PropertyGroup>
  <ItemGroup>
    <PackageReference Include="VelarionSharp" Version="$version" />
    <PackageReference Include="VelarionSharp.Emulator" Version="$version" />
    <PackageReference Include="VelarionSharp.Emulator.Plotting" Version="$version" />
    <PackageReference Include="VelarionSharp.Extensions.Logging" Version="$version" />
    <PackageReference Include="VelarionSharp.Sensations" Version="$version" />
  </ItemGroup>
</Project>
PROJECT
cp "$root"/managed/examples/Net8Consumer/*.cs "$work/Net8Consumer/"
(cd "$work/Net8Consumer" && quiet dotnet build -c Release --nologo && dotnet run -c Release --no-build)
ls "$work"/Net8Consumer/bin/Release/net8.0/VelarionSharp*.dll >/dev/null

if [ -n "${VELARION_PROOF_LINUX_ONLY:-}" ]; then
  echo "package proof: Linux only (VELARION_PROOF_LINUX_ONLY)"
  exit 0
fi

echo "--- win-x64 under Wine, self-contained"
quiet dotnet publish -c Release -r win-x64 --self-contained --nologo -o "$work/win-x64"
ls "$work/win-x64" | grep -E '^(VelarionSharp.*|VelarionCSharp|Velarion)\.dll$'
ls "$work/win-x64"/samples/hardware/*.vlcfg >/dev/null || { echo "package proof: no samples in the published app" >&2; exit 1; }
"$wine_run" --session "$work/win-x64/QuickStart.exe"

# An app built without a runtime identifier (as an IDE runs it) keeps the
# native files under runtimes/win-x64/native/; Windows must find the device
# library beside the interop library there. Wine has no .NET of its own, so
# the shared framework is laid out from the win-x64 runtime pack.
echo "--- win-x64 under Wine, framework-dependent"
quiet dotnet build -c Release --nologo -p:AppHostRuntimeIdentifier=win-x64 -o "$work/portable"
ls "$work/portable/runtimes/win-x64/native"
runtime_pack=$(find "$NUGET_PACKAGES" "$machine_packages" -maxdepth 2 -type d \
  -path "*/microsoft.netcore.app.runtime.win-x64/$(dotnet --list-runtimes | sed -n 's/^Microsoft.NETCore.App \([^ ]*\) .*/\1/p' | tail -1)" \
  2>/dev/null | head -1)
[ -n "$runtime_pack" ] || { echo "package proof: no win-x64 runtime pack restored" >&2; exit 1; }
framework_version=$(basename "$runtime_pack")
dotnet_root=$work/windows-dotnet
mkdir -p "$dotnet_root/host/fxr/$framework_version" "$dotnet_root/shared/Microsoft.NETCore.App/$framework_version"
cp "$runtime_pack/runtimes/win-x64/native/hostfxr.dll" "$dotnet_root/host/fxr/$framework_version/"
cp "$runtime_pack"/runtimes/win-x64/native/* "$runtime_pack"/runtimes/win-x64/lib/net*/* \
  "$dotnet_root/shared/Microsoft.NETCore.App/$framework_version/"
mv "$work/portable/QuickStart" "$work/portable/QuickStart.exe"
DOTNET_ROOT="Z:${dotnet_root//\//\\}" "$wine_run" --session "$work/portable/QuickStart.exe"
