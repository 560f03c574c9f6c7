#!/usr/bin/env bash
# Compares the exported symbols of the interop library with the export
# listing: C names by their raw names, [c++] names by their demangled names.
# A shared object's dynamic symbol table is read with nm; a DLL's export table
# with objdump -p (pass the target's objdump and c++filt for a cross-build).
set -euo pipefail
lib=$1
listing=$2
objdump=${3:-objdump}
cxxfilt=${4:-c++filt}

expected_c=$(mktemp); expected_cxx=$(mktemp); actual_c=$(mktemp); actual_cxx=$(mktemp); exported=$(mktemp)
trap 'rm -f "$expected_c" "$expected_cxx" "$actual_c" "$actual_cxx" "$exported"' EXIT

awk '
  { sub(/#.*/, ""); gsub(/^[ \t]+|[ \t]+$/, "") }
  $0 == "" { next }
  /^\[.*\]$/ { section = $0; next }
  section == "[c++]" { print > "/dev/stderr"; next }
  { print }
' "$listing" 2> >(LC_ALL=C sort -u > "$expected_cxx") | LC_ALL=C sort -u > "$expected_c"
wait

case "$lib" in
  *.dll | *.DLL)
    # The name pointer table lists every exported name once: "[ n] name".
    "$objdump" -p "$lib" | awk '
      /^\[Ordinal\/Name Pointer\] Table/ { inTable = 1; next }
      inTable && /^\t\[ *[0-9]+\]/ { print $NF; next }
      inTable { inTable = 0 }
    ' > "$exported"
    # The listing spells std::chrono::nanoseconds as LP64 has it (int64_t is
    # long); on 64-bit Windows int64_t is long long.
    sed -i -e 's/duration<long, std::ratio<1l, 1000000000l> >/duration<long long, std::ratio<1ll, 1000000000ll> >/g' \
      "$expected_cxx"
    ;;
  *)
    nm -D --defined-only "$lib" | awk '{ print $NF }' | sed 's/@@.*$//' > "$exported"
    ;;
esac

# Mangled C++ names start with _Z; everything else is a C name.
grep -v '^_Z' "$exported" | LC_ALL=C sort -u > "$actual_c" || true
grep '^_Z' "$exported" | "$cxxfilt" | LC_ALL=C sort -u > "$actual_cxx" || true

status=0
report() {
  local title=$1 file=$2
  if [ -s "$file" ]; then
    echo "$title:"; sed 's/^/  /' "$file"; status=1
  fi
}
report "listed but not exported" <(LC_ALL=C comm -23 "$expected_c" "$actual_c")
report "exported but not listed" <(LC_ALL=C comm -13 "$expected_c" "$actual_c")
report "listed C++ member not exported" <(LC_ALL=C comm -23 "$expected_cxx" "$actual_cxx")
report "C++ member exported but not listed" <(LC_ALL=C comm -13 "$expected_cxx" "$actual_cxx")

if [ $status -eq 0 ]; then
  echo "export listing matches: $(wc -l < "$expected_c") C names, $(wc -l < "$expected_cxx") C++ members"
fi
exit $status
