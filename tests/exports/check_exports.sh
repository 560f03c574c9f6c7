#!/usr/bin/env bash
# Compares the dynamic symbol table of the interop library with the export
# listing: C names by their raw names, [c++] names by their demangled names.
set -euo pipefail
lib=$1
listing=$2

expected_c=$(mktemp); expected_cxx=$(mktemp); actual_c=$(mktemp); actual_cxx=$(mktemp)
trap 'rm -f "$expected_c" "$expected_cxx" "$actual_c" "$actual_cxx"' EXIT

awk '
  { sub(/#.*/, ""); gsub(/^[ \t]+|[ \t]+$/, "") }
  $0 == "" { next }
  /^\[.*\]$/ { section = $0; next }
  section == "[c++]" { print > "/dev/stderr"; next }
  { print }
' "$listing" 2> >(LC_ALL=C sort -u > "$expected_cxx") | LC_ALL=C sort -u > "$expected_c"
wait

# Mangled C++ names start with _Z; everything else is a C name.
nm -D --defined-only "$lib" | awk '{ print $NF }' | grep -v '^_Z' | LC_ALL=C sort -u > "$actual_c"
nm -D --defined-only --demangle "$lib" | awk '$2 != "U" { $1 = ""; $2 = ""; sub(/^  /, ""); print }' \
  | grep -v -F -x -f "$actual_c" | sed 's/@@.*$//' | LC_ALL=C sort -u > "$actual_cxx" || true

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
