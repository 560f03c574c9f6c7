# Turns the export listing into a GNU ld version script (Linux) and a module
# definition file (Windows), so that exactly the listed names leave the library.
#
# Listing format: one name per line; "#" starts a comment; "[module]" opens a
# section. Names in the [c++] section are demangled C++ member names.
#
# On Windows the [c++] member functions are exported by their declarations
# (VELARION_INCLUDER_API); a virtual table has no declaration to mark, so the
# .def names it, mangled as the Itanium ABI does ("vtable for A::B" is
# _ZTVN1A1BE).
function(velarion_export_files listing out_map out_def)
  file(STRINGS ${listing} lines)
  set(c_names "")
  set(cxx_names "")
  set(def_vtables "")
  set(section "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "#.*$" "" line "${line}")
    string(STRIP "${line}" line)
    if(line STREQUAL "")
      continue()
    endif()
    if(line MATCHES "^\\[(.+)\\]$")
      set(section "${CMAKE_MATCH_1}")
    elseif(section STREQUAL "c++")
      string(APPEND cxx_names "      \"${line}\";\n")
      if(line MATCHES "^vtable for (.+)$")
        string(REPLACE "::" ";" parts "${CMAKE_MATCH_1}")
        set(mangled "")
        foreach(part IN LISTS parts)
          string(LENGTH "${part}" length)
          string(APPEND mangled "${length}${part}")
        endforeach()
        list(LENGTH parts depth)
        if(depth GREATER 1)
          set(mangled "N${mangled}E")
        endif()
        string(APPEND def_vtables "  _ZTV${mangled} DATA\n")
      endif()
    else()
      string(APPEND c_names "    ${line};\n")
    endif()
  endforeach()
  set(map "{\n  global:\n${c_names}")
  if(NOT cxx_names STREQUAL "")
    string(APPEND map "    extern \"C++\" {\n${cxx_names}    };\n")
  endif()
  string(APPEND map "  local: *;\n};\n")
  file(CONFIGURE OUTPUT ${out_map} CONTENT "${map}" @ONLY)
  string(REPLACE "    " "  " def_names "${c_names}")
  string(REPLACE ";" "" def_names "${def_names}")
  file(CONFIGURE OUTPUT ${out_def} CONTENT "LIBRARY VelarionCSharp\nEXPORTS\n${def_names}${def_vtables}" @ONLY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${listing})
endfunction()
