# The modules for Windows as mingw-w64 builds them: small, the same bytes from any folder at any time.

# The whole plug-in as one unit of which only the module's entry and exports are seen from outside:
# what the compiler may then inline and drop is a fifth of the code. Link-time optimisation would do
# the same, but this linker names it only the symbols of other objects, not those that oemui.def
# exports, so that they and all that they call are dropped; and where --defsym gives a symbol that
# optimised code calls, it crashes.
function(oemui_whole_plugin target)
  get_target_property(sources oemui_plugin SOURCES)
  list(TRANSFORM sources REPLACE "^${PROJECT_SOURCE_DIR}/(.*)$" "#include \"\\1\"")
  list(JOIN sources "\n" OEMUI_INCLUDES)
  configure_file(${PROJECT_SOURCE_DIR}/resources/whole_plugin.cpp.in whole_plugin.cpp @ONLY)
  add_library(${target} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/whole_plugin.cpp)
  oemui_plugin_options(${target})
  # Sections of their own would be aligned to 16 bytes each, and nothing is left to be dropped.
  target_compile_options(${target} PRIVATE -Oz -fwhole-program -fno-function-sections)
endfunction()

function(oemui_windows_module_options target)
  # The plug-in throws nothing, so the exception machinery of the C++ runtime (200 KiB) stays out: a
  # range error of the standard library ends the program, memory comes from the C runtime directly.
  target_link_options(${target} PRIVATE
    -Wl,--defsym=_ZSt24__throw_out_of_range_fmtPKcz=abort
    -Wl,--defsym=_ZnwyRKSt9nothrow_t=malloc -Wl,--defsym=_ZnayRKSt9nothrow_t=malloc
    -Wl,--defsym=_ZdlPv=free -Wl,--defsym=_ZdlPvy=free -Wl,--defsym=_ZdaPv=free)
  # No object needs construction at load or destruction at unload (.ci/check-clang-windows holds
  # it), so the loader calls DllMain itself and the start-up code (7 KiB) stays out as well.
  target_link_options(${target} PRIVATE -static -s -Wl,--gc-sections -nostartfiles -Wl,--entry,DllMain)
  # Hardening, written out instead of left to the toolchain's defaults. Without imported data and
  # pseudo relocations no section is made writable at load.
  target_link_options(${target} PRIVATE -mwindows -Wl,--high-entropy-va -Wl,--dynamicbase
    -Wl,--nxcompat -Wl,--disable-auto-import -Wl,--disable-runtime-pseudo-reloc)
  # The preferred base would otherwise follow from the name of the output file.
  target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp -Wl,--image-base,0x180000000)
endfunction()
