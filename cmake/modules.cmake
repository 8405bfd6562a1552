# Modules off Windows: shared objects with the platform's names and binary resources inside.

find_program(OEMUI_WINDRES x86_64-w64-mingw32-windres REQUIRED)

# Compiles a resource script to the platform's binary form.
function(oemui_compile_resources script output)
  add_custom_command(OUTPUT ${output}
    COMMAND ${OEMUI_WINDRES} --preprocessor=${CMAKE_CXX_COMPILER}
      --preprocessor-arg=-E --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED
      -I${PROJECT_SOURCE_DIR} -I${PROJECT_SOURCE_DIR}/platform/include
      -O res -i ${script} -o ${output}
    DEPENDS ${script} ${ARGN}
    COMMENT "Compiling resources ${output}" VERBATIM)
endfunction()

# Links the glue and a compiled resource file into a module or a test program.
function(oemui_embed_resources target resources)
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/platform/modules/module_glue.cpp ${resources})
  set_property(SOURCE ${PROJECT_SOURCE_DIR}/platform/modules/module_glue.cpp
    TARGET_DIRECTORY ${target} APPEND PROPERTY OBJECT_DEPENDS ${resources})
  target_compile_definitions(${target} PRIVATE MODULE_RESOURCES="${resources}")
  target_link_libraries(${target} PRIVATE platform oemui_warnings)
endfunction()
