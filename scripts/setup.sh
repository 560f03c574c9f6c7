#!/usr/bin/env bash
# Installs what the build needs on a Debian machine. Safe to run twice: it
# only installs what is missing.
set -euo pipefail

missing=()
command -v cmake >/dev/null 2>&1 || missing+=(cmake)
command -v g++ >/dev/null 2>&1 || missing+=(g++)
command -v make >/dev/null 2>&1 || missing+=(make)
command -v nm >/dev/null 2>&1 || missing+=(binutils)
command -v swig >/dev/null 2>&1 || missing+=(swig)
# The C compiler and linker driver of NativeAOT publishing.
command -v clang >/dev/null 2>&1 || missing+=(clang)
[ -f /usr/include/gtest/gtest.h ] || missing+=(libgtest-dev)
[ -f /usr/include/benchmark/benchmark.h ] || missing+=(libbenchmark-dev)
# The Windows build: MinGW-w64 (posix threads), GoogleTest's sources to build
# it with that toolchain, and Wine to run the results.
command -v x86_64-w64-mingw32-g++-posix >/dev/null 2>&1 || missing+=(g++-mingw-w64-x86-64-posix)
[ -f /usr/src/googletest/CMakeLists.txt ] || missing+=(googletest)
[ -x /usr/lib/wine/wine64 ] || command -v wine64 >/dev/null 2>&1 || missing+=(wine64)
command -v unzip >/dev/null 2>&1 || missing+=(unzip)
# Mono, the runtime of Unity's editor, runs the netstandard2.1 build's tests.
command -v mono >/dev/null 2>&1 || missing+=(mono-runtime)
[ -f /usr/lib/mono/4.5/Facades/netstandard.dll ] || missing+=(mono-devel)
# A font for the text of the plots (SkiaSharp draws with the system's fonts).
[ -f /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf ] || missing+=(fonts-dejavu-core)

if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -eq 0 ]; then
    echo "setup: installing ${missing[*]}"
    # Wine and MinGW are large: unpack them outside a small /tmp.
    mkdir -p /var/tmp/apt-tmp
    export TMPDIR=/var/tmp/apt-tmp
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
  else
    echo "setup: missing packages: ${missing[*]} (run this script as root, or install them with apt-get)" >&2
    exit 1
  fi
fi

if ! command -v dotnet >/dev/null 2>&1; then
  echo "setup: the .NET SDK (10 or later) is required and not on PATH" >&2
  exit 1
fi
echo "setup: $(cmake --version | head -1), $(swig -version | grep -i version), dotnet $(dotnet --version)"
