# A floor of the house is one static library. Its headers are reached through an include folder of its own
# that holds nothing but a link to the floor's folder, so a file that includes a floor which its library does
# not link to does not compile.

# mergeloom_floor(NAME FOLDER SOURCES... ) adds the library mergeloom_NAME for the sources in FOLDER.
function(mergeloom_floor name folder)
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  get_filename_component(parent ${root}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${root}/${folder})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  endif()
  if(NOT ARGN)
    # A floor of nothing but headers.
    set(ARGN ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(TOUCH ${ARGN})
  endif()
  add_library(mergeloom_${name} STATIC ${ARGN})
  target_include_directories(mergeloom_${name} PUBLIC ${root})
  if(folder MATCHES "^office/libreoffice/(session|readback|word|job|remote|excel|host)$")
    mergeloom_precompile(mergeloom_${name} uno LibreOffice::Uno)
  elseif(folder MATCHES "^ui/(dialogs|help|designer)$")
    mergeloom_precompile(mergeloom_${name} qt Qt6::Widgets)
  else()
    mergeloom_precompile(mergeloom_${name} standard)
  endif()
endfunction()
