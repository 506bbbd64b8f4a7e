# Run by cpack behind the packing. It takes the module in lib/mergeloom for a library of the system and lets the
# package's scripts call ldconfig, which never looks there; Debian wants no such scripts.
foreach(package ${CPACK_PACKAGE_FILES})
  set(folder ${package}.unpacked)
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${folder} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${folder}/DEBIAN/postinst ${folder}/DEBIAN/postrm)
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${folder} ${package} COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_QUIET)
  file(REMOVE_RECURSE ${folder})
endforeach()
