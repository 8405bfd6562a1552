# Modules off Windows: shared objects with the platform's names and binary resources inside.

# Compiles a resource script to the platform's binary form.
function(oemui_compile_resources script output)
  # The compiler starts its preprocessor by way of a shell, which would take the path's blanks and
  # dollars for its own: it gets paths below the project's folder.
  file(RELATIVE_PATH script_in_project ${PROJECT_SOURCE_DIR} ${script})
  add_custom_command(OUTPUT ${output}
    COMMAND x86_64-w64-mingw32-windres --preprocessor=${CMAKE_CXX_COMPILER}
      --preprocessor-arg=-E --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED
      -I. -Iplatform/include -O res -i ${script_in_project} -o ${output}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
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

# Links a module with a list of what it exports. A copy below the build's folder, where the linker
# runs: its option would not survive a dollar in a whole path.
function(oemui_export_only target map)
  configure_file(${map} ${CMAKE_BINARY_DIR}/${map} COPYONLY)
  target_link_options(${target} PRIVATE -Wl,--version-script=${map})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${CMAKE_BINARY_DIR}/${map})
endfunction()
