# Warnings are errors in all code of ours.
add_library(oemui_warnings INTERFACE)
if(MSVC)
  target_compile_options(oemui_warnings INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(oemui_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()
