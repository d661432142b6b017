# Run by CPack once everything stands in the folder of a package. Manual pages and changelogs are
# compressed, without a time in them; a package has Debian's changelog and a copyright file.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH where that is set

# debian_files(FOLDER PACKAGE)
function(debian_files folder package)
  set(documents ${folder}/usr/share/doc/${package})
  file(WRITE ${documents}/changelog.Debian
"${package} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * As CHANGELOG.md of zervan tells.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  file(GLOB pages ${folder}/usr/share/man/*/*.[1-9])
  execute_process(COMMAND gzip -9nf ${pages} ${documents}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
  # The licence is in `copyright`, and once is enough.
  file(REMOVE ${documents}/LICENSE)
  file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/../LICENSE ${documents}/copyright)
  execute_process(COMMAND chmod -R u=rwX,go=rX ${folder}/usr COMMAND_ERROR_IS_FATAL ANY)
endfunction()

debian_files(${CPACK_TEMPORARY_INSTALL_DIRECTORY}/programs zervan)
debian_files(${CPACK_TEMPORARY_INSTALL_DIRECTORY}/development libzervan-dev)
