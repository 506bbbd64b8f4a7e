# What is included everywhere is parsed once for each kind of source: standard, uno, qt, tests, uno_tests and qt_tests,
# each with a header of its own in cmake/precompiled/. The headers hold nothing of this project, so the floors stay
# guarded; tools/lint.py looks at the sources without them and so finds a missing include.

# mergeloom_precompile(TARGET KIND [LIBRARIES...]) lets the sources of TARGET use the parsed headers of KIND, which
# need LIBRARIES.
function(mergeloom_precompile target kind)
  if(NOT MERGELOOM_PRECOMPILE)
    return()
  endif()
  set(owner mergeloom_precompiled_${kind})
  if(NOT TARGET ${owner})
    set(source ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "")
    add_library(${owner} OBJECT ${source})
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${owner} PRIVATE ${ARGN})
    target_precompile_headers(${owner} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled/${kind}.h)
    if(kind MATCHES "^uno")
      add_dependencies(${owner} LibreOffice_headers)
    endif()
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()
