# Finds what it takes to talk to an installed LibreOffice: the headers and libraries of its SDK, the tool that
# makes C++ headers of its types, and the types themselves. LIBREOFFICE_HOME names the folder of an office that
# stands elsewhere than distributions put it.
#
# Gives the target LibreOffice::Uno. What includes UNO's headers must also depend on the target
# LibreOffice_headers, which makes the generated ones once.

find_path(LIBREOFFICE_PROGRAM types.rdb
  PATHS ${LIBREOFFICE_HOME}/program /usr/lib/libreoffice/program /usr/lib64/libreoffice/program
  NO_DEFAULT_PATH)
get_filename_component(LIBREOFFICE_FOUND_HOME "${LIBREOFFICE_PROGRAM}" DIRECTORY)
set(LIBREOFFICE_SDK ${LIBREOFFICE_FOUND_HOME}/sdk)
find_program(LIBREOFFICE_CPPUMAKER cppumaker PATHS ${LIBREOFFICE_SDK}/bin NO_DEFAULT_PATH)
find_path(LIBREOFFICE_INCLUDE cppuhelper/bootstrap.hxx PATHS ${LIBREOFFICE_SDK}/include NO_DEFAULT_PATH)
set(LIBREOFFICE_LIBRARIES)
foreach(name sal cppu cppuhelpergcc3 salhelpergcc3)
  find_library(LIBREOFFICE_${name} uno_${name} PATHS ${LIBREOFFICE_SDK}/lib NO_DEFAULT_PATH)
  list(APPEND LIBREOFFICE_LIBRARIES ${LIBREOFFICE_${name}})
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibreOffice REQUIRED_VARS LIBREOFFICE_PROGRAM LIBREOFFICE_CPPUMAKER
  LIBREOFFICE_INCLUDE LIBREOFFICE_sal LIBREOFFICE_cppu LIBREOFFICE_cppuhelpergcc3 LIBREOFFICE_salhelpergcc3)
mark_as_advanced(LIBREOFFICE_PROGRAM LIBREOFFICE_CPPUMAKER LIBREOFFICE_INCLUDE LIBREOFFICE_sal LIBREOFFICE_cppu
  LIBREOFFICE_cppuhelpergcc3 LIBREOFFICE_salhelpergcc3)

if(LibreOffice_FOUND AND NOT TARGET LibreOffice::Uno)
  set(headers ${CMAKE_BINARY_DIR}/uno)
  set(types ${LIBREOFFICE_PROGRAM}/types.rdb ${LIBREOFFICE_PROGRAM}/types/offapi.rdb)
  file(MAKE_DIRECTORY ${headers})
  add_custom_command(OUTPUT ${headers}.stamp
    COMMAND ${LIBREOFFICE_CPPUMAKER} -Gc -O${headers} ${types}
    COMMAND ${CMAKE_COMMAND} -E touch ${headers}.stamp
    DEPENDS ${types}
    COMMENT "Making the headers of LibreOffice's types"
    VERBATIM)
  add_custom_target(LibreOffice_headers DEPENDS ${headers}.stamp)

  add_library(LibreOffice::Uno INTERFACE IMPORTED GLOBAL)
  # Include folders of imported targets count as the system's, so our warnings leave them alone.
  target_include_directories(LibreOffice::Uno INTERFACE ${headers} ${LIBREOFFICE_INCLUDE})
  target_compile_definitions(LibreOffice::Uno INTERFACE UNX LINUX GCC CPPU_ENV=gcc3)
  target_link_libraries(LibreOffice::Uno INTERFACE ${LIBREOFFICE_LIBRARIES})
  # The libraries find one another only in the office's own folder, not through links from elsewhere.
  target_link_options(LibreOffice::Uno INTERFACE LINKER:-rpath,${LIBREOFFICE_PROGRAM})
  if(MERGELOOM_SANITIZE)
    # The stand-ins of remote objects are made while the program runs and carry no type information.
    target_compile_options(LibreOffice::Uno INTERFACE -fno-sanitize=vptr)
  endif()
endif()
