# Moves SWIG's C# into the raw layer's namespace. SWIG mangles a -namespace
# into every entry point's name (Velarion.Raw would give CSharp_VelarionfRaw_…),
# and the native exports keep their names: so SWIG generates into `Velarion`
# and this script renames the namespace afterwards.
#   cmake -DFOLDER=<generated module folder> -P RawNamespace.cmake
cmake_minimum_required(VERSION 3.20)
file(GLOB sources "${FOLDER}/*.cs")
foreach(source IN LISTS sources)
  file(READ "${source}" text)
  string(REPLACE "\nnamespace Velarion {\n" "\nnamespace Velarion.Raw {\n" text "${text}")
  file(WRITE "${source}" "${text}")
endforeach()
