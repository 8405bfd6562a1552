# Warnings are errors in all code of ours.
add_library(oemui_warnings INTERFACE)
if(MSVC)
  target_compile_options(oemui_warnings INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(oemui_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  # GCC 12 sees overlaps that are not there when it inlines the joining of strings.
  target_compile_options(oemui_warnings INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
endif()
