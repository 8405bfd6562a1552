# How plug-in code is compiled, and what it is linked with.

set(OEMUI_MODELS U T V)

# No exceptions and no RTTI cross the driver's boundary; everything is hidden but the two exports.
function(oemui_plugin_options target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PUBLIC UNICODE _UNICODE)
  target_link_libraries(${target} PUBLIC oemui_platform_api PRIVATE oemui_warnings)
  if(MSVC)
    target_compile_options(${target} PRIVATE /GR- /guard:cf)
  else()
    target_compile_options(${target} PRIVATE
      -fno-exceptions -fno-rtti -fvisibility=hidden -ffunction-sections)
  endif()
  if(NOT WIN32)
    # For Windows this would put what is zero at load into the file.
    target_compile_options(${target} PRIVATE -fdata-sections
      $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  endif()
endfunction()

# The platform as the plug-in sees it: its own headers and libraries on Windows, the layer elsewhere.
add_library(oemui_platform_api INTERFACE)
if(WIN32)
  target_compile_definitions(oemui_platform_api INTERFACE
    WINVER=0x0601 _WIN32_WINNT=0x0601 NTDDI_VERSION=0x06010000 NOMINMAX STRICT)
  if(MSVC)
    # The version query and the socket library 1.1 are what the family's drivers rely on.
    target_compile_definitions(oemui_platform_api INTERFACE
      BUILD_WINDOWS _WINSOCK_DEPRECATED_NO_WARNINGS)
  endif()
  target_link_libraries(oemui_platform_api INTERFACE
    kernel32 user32 gdi32 advapi32 winspool wsock32)
else()
  target_include_directories(oemui_platform_api INTERFACE ${PROJECT_SOURCE_DIR}/platform/include)
endif()
