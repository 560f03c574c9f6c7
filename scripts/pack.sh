#!/usr/bin/env bash
# Makes the NuGet packages into the local feed build/packages: stages the
# Linux and Windows native libraries, stripped, under build/runtimes/<rid>/native/,
# then packs every packable project of managed/. Then makes the Unity packages
# (tarballs for the Package Manager) from those packages' netstandard2.1
# assemblies and the same libraries, beside them, and checks their structure
# and import settings.
#
# Needs the "default" and "windows" builds (scripts/test.sh makes both; or
# cmake --build --preset default / windows).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/env.sh

root=$PWD
linux=$root/build/default
windows=$root/build/windows
runtimes=$root/build/runtimes
feed=${VELARION_FEED:-$root/build/packages}

need() {
  if [ ! -f "$1" ]; then
    echo "pack: $1 is missing; build the $2 preset first" >&2
    exit 1
  fi
}
need "$linux/lib/libVelarionCSharp.so" default
need "$linux/lib/libVelarion.so" default
need "$windows/bin/VelarionCSharp.dll" windows
need "$windows/bin/Velarion.dll" windows
[ -d "$linux/managed/generated" ] || { echo "pack: no generated C# in $linux/managed/generated; build the default preset" >&2; exit 1; }

# The packages carry the libraries without debug information; the builds keep theirs.
rm -rf "$runtimes"
mkdir -p "$runtimes/linux-x64/native" "$runtimes/win-x64/native"
for lib in libVelarionCSharp.so libVelarion.so; do
  strip --strip-unneeded -o "$runtimes/linux-x64/native/$lib" "$linux/lib/$lib"
done
for lib in VelarionCSharp.dll Velarion.dll; do
  x86_64-w64-mingw32-strip --strip-unneeded -o "$runtimes/win-x64/native/$lib" "$windows/bin/$lib"
done

# Relocatable and stripped: RUNPATH $ORIGIN only, a SONAME, no symbol table.
for lib in "$runtimes"/linux-x64/native/*.so; do
  dynamic=$(readelf -d "$lib")
  runpath=$(sed -n 's/.*(RUNPATH).*\[\(.*\)\]/\1/p' <<<"$dynamic")
  if [ -n "$runpath" ] && [ "$runpath" != '$ORIGIN' ]; then
    echo "pack: $lib has RUNPATH $runpath" >&2; exit 1
  fi
  grep -q '(SONAME)' <<<"$dynamic" || { echo "pack: $lib has no SONAME" >&2; exit 1; }
  if readelf -S "$lib" | grep -q -E ' \.(symtab|debug_info) '; then
    echo "pack: $lib is not stripped" >&2; exit 1
  fi
done

# The DLLs load on a plain Windows: they import no MinGW runtime DLL.
for lib in "$runtimes"/win-x64/native/*.dll; do
  if x86_64-w64-mingw32-objdump -p "$lib" | grep -i -E 'DLL Name: (libstdc\+\+|libgcc|libwinpthread)'; then
    echo "pack: $lib needs the MinGW runtime DLLs above" >&2; exit 1
  fi
done

properties=(
  "-p:VelarionGeneratedDir=$linux/managed/generated"
  "-p:VelarionNativeDir=$linux/lib"
  "-p:VelarionRuntimesDir=$runtimes"
  "-p:RepositoryCommit=$(git rev-parse HEAD 2>/dev/null || echo unknown)"
)
if [ -n "${VELARION_REPOSITORY_URL:-}" ]; then
  properties+=("-p:RepositoryUrl=$VELARION_REPOSITORY_URL")
fi

mkdir -p "$feed"
rm -f "$feed"/VelarionSharp*.nupkg "$feed"/com.velarioncsharp.*.tgz
packed=0
while IFS= read -r project; do
  if [ "$(dotnet msbuild "$project" -nologo -getProperty:IsPackable "${properties[@]}")" != "true" ]; then
    continue
  fi
  dotnet pack "$project" -c Release --nologo -v:minimal -o "$feed" \
    --artifacts-path "$root/build/pack-artifacts" "${properties[@]}"
  packed=$((packed + 1))
done < <(find managed -name '*.csproj' -not -path '*/bin/*' -not -path '*/obj/*' | sort)

# Each package: its assembly with XML documentation for every target
# framework, and exactly its native libraries (the binding never carries a
# device library; the emulator package is one; the sensations carry none).
version=$(dotnet msbuild managed/VelarionSharp/VelarionSharp.csproj -nologo -getProperty:Version)
check() {
  local id=$1 package=$feed/$1.$version.nupkg natives entries
  shift
  entries=$(unzip -Z1 "$package")
  natives=$( (grep '^runtimes/' <<<"$entries" || true) | LC_ALL=C sort | tr '\n' ' ')
  local expected=${*:+$* }
  if [ "$natives" != "$expected" ]; then
    echo "pack: $id has native files: $natives(expected: $*)" >&2; exit 1
  fi
  local assemblies
  assemblies=$(grep -E "^lib/[^/]+/$id\.dll$" <<<"$entries") || { echo "pack: $id has no assembly" >&2; exit 1; }
  for assembly in $assemblies; do
    grep -q -x "${assembly%.dll}.xml" <<<"$entries" || { echo "pack: $assembly has no XML documentation" >&2; exit 1; }
  done
}
check VelarionSharp runtimes/linux-x64/native/libVelarionCSharp.so runtimes/win-x64/native/VelarionCSharp.dll
check VelarionSharp.Emulator runtimes/linux-x64/native/libVelarion.so runtimes/win-x64/native/Velarion.dll
check VelarionSharp.Sensations

# The emulator package brings the sample hardware configurations as content
# files, which land in a consuming app's output folder under samples/hardware/.
samples=$(cd samples/hardware && ls -1 ./*.vlcfg | sed 's|^\./|contentFiles/any/any/samples/hardware/|' | LC_ALL=C sort)
packed_samples=$(unzip -Z1 "$feed/VelarionSharp.Emulator.$version.nupkg" | grep '^contentFiles/' | LC_ALL=C sort || true)
if [ "$packed_samples" != "$samples" ]; then
  echo "pack: VelarionSharp.Emulator has content files: $packed_samples (expected: $samples)" >&2; exit 1
fi

# Unity: com.velarioncsharp.velarionsharp, .emulator and .sensations (unity/
# holds their templates and the tool that makes and checks them).
dotnet build unity/UnityPackages/UnityPackages.csproj -c Release --nologo -v:quiet --artifacts-path "$root/build/unity-tool" >/dev/null
unity_tool=$root/build/unity-tool/bin/UnityPackages/release/UnityPackages
"$unity_tool" pack unity "$feed" "$runtimes" "$version" "$feed"
tarballs=("$feed"/com.velarioncsharp.*.tgz)
"$unity_tool" check "${tarballs[@]}"
packed=$((packed + ${#tarballs[@]}))

echo "pack: $packed packages in $feed:"
ls -1 "$feed"
