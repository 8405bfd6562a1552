# What tests, benchmarks and fuzz targets share: one of each stand-in, for whoever refers to it.
include_guard(GLOBAL)

set(sources document_page loopback_printer plugin_fixture scripted_user test_printer watchdog
  states/dialog_state states/page_state states/state states/watermark_state)
if(WIN32)
  list(APPEND sources scripted_user_windows test_machine_windows)
else()
  list(APPEND sources scripted_user_layer test_machine_layer)
endif()
list(TRANSFORM sources REPLACE "(.+)" "${CMAKE_CURRENT_LIST_DIR}/\\1.cpp")
add_library(oemui_test_support STATIC ${sources})
target_include_directories(oemui_test_support PUBLIC ${PROJECT_SOURCE_DIR})
target_compile_definitions(oemui_test_support PUBLIC UNICODE _UNICODE)
target_link_libraries(oemui_test_support PUBLIC oemui_platform_api GTest::gtest PRIVATE oemui_warnings)
if(NOT WIN32)
  target_link_libraries(oemui_test_support PUBLIC platform)
endif()
