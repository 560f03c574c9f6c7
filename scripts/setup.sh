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

if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -eq 0 ]; then
    echo "setup: installing ${missing[*]}"
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
