# The Debian package: cpack -G DEB in a build folder. scripts/package builds it with the flags that Debian wants.
set(MERGELOOM_MAINTAINER "The Mergeloom team <maintainers@mergeloom.invalid>" CACHE STRING
  "Name and address of whoever cares for the package")

include(GNUInstallDirs)
set(documents ${CMAKE_BINARY_DIR}/package)
configure_file(${PROJECT_SOURCE_DIR}/data/debian/changelog ${documents}/changelog @ONLY)
# The same input gives the same bytes: gzip notes neither name nor time.
execute_process(COMMAND gzip -9nc ${documents}/changelog OUTPUT_FILE ${documents}/changelog.Debian.gz)
install(FILES ${documents}/changelog.Debian.gz ${PROJECT_SOURCE_DIR}/data/debian/copyright
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/mergeloom)
install(FILES ${PROJECT_SOURCE_DIR}/data/debian/lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME mergeloom)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME mergeloom)
set(CPACK_PACKAGE_CONTACT ${MERGELOOM_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "make Word and Excel templates for the data of a database")
set(CPACK_PACKAGE_DESCRIPTION
"Mergeloom reads the description of a database's tables, queries and forms and
puts named places for their fields into Word documents and Excel workbooks,
without a user on the command line or by dragging in a window. Whatever fills
the templates later finds each place by its name.
.
The command line needs no office suite. The window, and formats other than
Office Open XML, need LibreOffice.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
# Folders of a package are everybody's to read, whatever the builder's own habit is.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/PackageWithoutLdconfig.cmake)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libreoffice-writer, libreoffice-calc")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS fonts-crosextra-carlito)
include(CPack)
