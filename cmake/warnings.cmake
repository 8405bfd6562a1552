# The warnings of all code of ours. Whether they are errors is CMAKE_COMPILE_WARNING_AS_ERROR's
# business: in CI and for developers they are, but the compiler or library of tomorrow, which warns of
# what nobody could know, must not stop anybody who only wants to build.
add_library(oemui_warnings INTERFACE)
if(MSVC)
  target_compile_options(oemui_warnings INTERFACE /W4 /permissive- /utf-8)
else()
  target_compile_options(oemui_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  # GCC 12 sees overlaps that are not there when it inlines the joining of strings.
  target_compile_options(oemui_warnings INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
endif()
