# Links a program to the archives of the XML parser and of the libraries below it: loading them takes a quarter of the
# time in which a program of ours starts. It grows by 34 MB, of which 30 are data of ICU that no mapping reads. Such a
# program has to be linked again after an update of the parser, so the Debian package has none.
include(CheckCXXSourceCompiles)

# mergeloom_archive(NAME LIBRARIES...) adds the archive of a library that needs the others.
function(mergeloom_archive name)
  find_library(MERGELOOM_ARCHIVE_${name} NAMES lib${name}.a)
  add_library(mergeloom_archive_${name} STATIC IMPORTED GLOBAL)
  set_target_properties(mergeloom_archive_${name} PROPERTIES IMPORTED_LOCATION "${MERGELOOM_ARCHIVE_${name}}")
  target_link_libraries(mergeloom_archive_${name} INTERFACE ${ARGN})
endfunction()
mergeloom_archive(z)
mergeloom_archive(lzma)
mergeloom_archive(icudata)
mergeloom_archive(icuuc mergeloom_archive_icudata ${CMAKE_DL_LIBS})
mergeloom_archive(xml2 mergeloom_archive_icuuc mergeloom_archive_lzma mergeloom_archive_z m)

# A system may lack an archive, or its parser may need further ones; then the program gets the shared libraries.
set(CMAKE_REQUIRED_INCLUDES ${LIBXML2_INCLUDE_DIRS})
set(CMAKE_REQUIRED_LIBRARIES mergeloom_archive_xml2)
check_cxx_source_compiles("#include <libxml/parser.h>
#include <unicode/uchar.h>
int main() { return xmlReadMemory(\"\", 0, \"\", nullptr, 0) ? u_foldCase(65, 0) : 0; }" MERGELOOM_ARCHIVES_LINK)
unset(CMAKE_REQUIRED_INCLUDES)
unset(CMAKE_REQUIRED_LIBRARIES)

# Targets that link to these names get the archives in a program of mergeloom_link_archives and the shared
# libraries in all others. Modules need the latter, since archives hold code for programs only.
function(mergeloom_link_archives program)
  set_target_properties(${program} PROPERTIES MERGELOOM_LINKS_ARCHIVES "${MERGELOOM_ARCHIVES_LINK}")
endfunction()
set(chosen "$<BOOL:$<TARGET_PROPERTY:MERGELOOM_LINKS_ARCHIVES>>")
set(MERGELOOM_LETTERS "$<IF:${chosen},mergeloom_archive_icuuc,ICU::uc>")
set(MERGELOOM_PARSER "$<IF:${chosen},mergeloom_archive_xml2,LibXml2::LibXml2>")
