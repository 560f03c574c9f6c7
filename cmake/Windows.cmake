# Settings of the Windows (MinGW-w64) build, included after project().

# Windows DLLs have no "lib" prefix: the device library is Velarion.dll and
# the interop library VelarionCSharp.dll (the name its .def and the managed
# binding use).
set(CMAKE_SHARED_LIBRARY_PREFIX "")

# The DLLs carry the GCC runtime (libstdc++, libgcc, winpthread) inside, so
# they load on any Windows machine without MinGW's runtime DLLs beside them.
option(VELARION_STATIC_RUNTIME "Link the MinGW runtime statically" ON)
if(VELARION_STATIC_RUNTIME)
  add_link_options(-static)
endif()

if(CMAKE_CROSSCOMPILING)
  # Test programs run under Wine, through a wrapper that knows this build's
  # Wine prefix.
  find_program(VELARION_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_DEFAULT_PATH)
  find_program(VELARION_WINE NAMES wine64 wine)
  find_program(VELARION_WINESERVER NAMES wineserver PATHS /usr/lib/wine NO_DEFAULT_PATH)
  find_program(VELARION_WINESERVER NAMES wineserver)
  set(VELARION_WINEPREFIX ${CMAKE_BINARY_DIR}/wineprefix)
  # The MinGW runtime DLLs, for programs linked without VELARION_STATIC_RUNTIME.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
                  OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE)
  get_filename_component(mingw_gcc_dir ${libgcc} DIRECTORY)
  set(VELARION_WINEPATH "${mingw_gcc_dir};/usr/${VELARION_MINGW_TRIPLE}/lib")
  configure_file(${CMAKE_CURRENT_LIST_DIR}/wine-run.sh.in ${CMAKE_BINARY_DIR}/wine-run.sh
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                  WORLD_READ WORLD_EXECUTE
                 @ONLY)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_BINARY_DIR}/wine-run.sh)
endif()
