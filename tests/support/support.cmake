# What tests of the plug-in share: how a test begins and ends, a printer, recorded messages, `main`.
include_guard(GLOBAL)

add_library(oemui_test_support STATIC
  ${CMAKE_CURRENT_LIST_DIR}/document_page.cpp
  ${CMAKE_CURRENT_LIST_DIR}/plugin_fixture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/test_main.cpp
  ${CMAKE_CURRENT_LIST_DIR}/test_printer.cpp)
target_include_directories(oemui_test_support PUBLIC ${PROJECT_SOURCE_DIR})
target_compile_definitions(oemui_test_support PUBLIC UNICODE _UNICODE)
target_link_libraries(oemui_test_support PUBLIC oemui_platform_api GTest::gtest PRIVATE oemui_warnings)
if(WIN32)
  target_sources(oemui_test_support PRIVATE ${CMAKE_CURRENT_LIST_DIR}/test_machine_windows.cpp)
else()
  target_sources(oemui_test_support PRIVATE ${CMAKE_CURRENT_LIST_DIR}/test_machine_layer.cpp)
  target_link_libraries(oemui_test_support PUBLIC platform)
endif()
