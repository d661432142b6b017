# What `cmake --install` puts where, in two parts: `programs`, and `development` for other projects'
# builds. The latter sees two archives, libzervan of the core and libtpn of the workbench, whatever
# rooms they are made of here; headers are below include/zervan as they are in this tree.

include(CMakePackageConfigHelpers)

# --- Programs, their manual pages and documents. ---

set(ZERVAN_DOCUMENTS ${CMAKE_INSTALL_DATAROOTDIR}/doc/zervan)

install(TARGETS zervan COMPONENT programs)
install(FILES docs/zervan.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
if(ZERVAN_WORKBENCH)
  install(TARGETS tpn COMPONENT programs)
  foreach(page tpn tpn-certify tpn-check tpn-collect tpn-convert tpn-export tpn-lint tpn-make tpn-plan tpn-run
      tpn-show tpn-trace tpn-work)
    install(FILES docs/${page}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
  endforeach()
endif()
if(ZERVAN_WORKBENCH)
  set(completion ${PROJECT_BINARY_DIR}/workbench/command/tpn)
  install(FILES ${completion}.bash COMPONENT programs RENAME tpn
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${completion}.fish COMPONENT programs
          DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  # What a package of Debian's brings, and what an administrator adds, zsh looks for in two places.
  install(CODE "
    set(place site-functions)
    if(CMAKE_INSTALL_PREFIX MATCHES \"/usr/?$\")
      set(place vendor-completions)
    endif()
    file(INSTALL \"${completion}.zsh\" RENAME _tpn
         DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/zsh/\${place}\")"
    COMPONENT programs)
endif()
install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE DESTINATION ${ZERVAN_DOCUMENTS} COMPONENT programs)
install(DIRECTORY docs examples DESTINATION ${ZERVAN_DOCUMENTS} COMPONENT programs
        PATTERN *.1 EXCLUDE PATTERN check EXCLUDE)

# --- Libraries, headers, and how they are found. ---

set(core boolform boolformvect clock ectl model translation)
set(rooms base network families nets runs encoding solvers machine proof prover search views campaign walking)

# zervan_archive(NAME LIBRARIES library ... USES what its users link, too)
function(zervan_archive name)
  cmake_parse_arguments(ARG "" "" "LIBRARIES;USES" ${ARGN})
  set(objects "")
  foreach(library ${ARG_LIBRARIES})
    list(APPEND objects $<TARGET_OBJECTS:${library}>)
  endforeach()
  add_library(archive_${name} STATIC ${objects})
  set_target_properties(archive_${name} PROPERTIES
    OUTPUT_NAME ${name} EXPORT_NAME ${name} LINKER_LANGUAGE CXX
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/archives)
  target_compile_features(archive_${name} INTERFACE cxx_std_20)
  target_link_libraries(archive_${name} INTERFACE ${ARG_USES})
  install(TARGETS archive_${name} EXPORT zervan ARCHIVE COMPONENT development
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zervan)
endfunction()

function(zervan_headers)
  foreach(folder ${ARGN})
    get_filename_component(parent ${folder} DIRECTORY)
    install(DIRECTORY ${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zervan/${parent}
            COMPONENT development FILES_MATCHING PATTERN *.hpp)
  endforeach()
endfunction()

# A .pc file finds the installation from where it lies itself, so that this can be moved.
file(RELATIVE_PATH ZERVAN_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
function(zervan_pkgconfig name)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT development)
endfunction()

zervan_archive(zervan LIBRARIES ${core})
zervan_headers(${core})
zervan_pkgconfig(zervan)
if(ZERVAN_WORKBENCH)
  list(TRANSFORM rooms PREPEND tpn_ OUTPUT_VARIABLE libraries)
  zervan_archive(tpn LIBRARIES ${libraries}
    USES archive_zervan nlohmann_json::nlohmann_json cadical bliss gmp md
      pugixml::pugixml)
  list(TRANSFORM rooms PREPEND workbench/ OUTPUT_VARIABLE folders)
  zervan_headers(${folders})
  zervan_pkgconfig(tpn)
endif()

set(there ${CMAKE_INSTALL_LIBDIR}/cmake/zervan)
install(EXPORT zervan NAMESPACE zervan:: FILE zervanTargets.cmake DESTINATION ${there}
        COMPONENT development)
configure_package_config_file(cmake/zervanConfig.cmake.in zervanConfig.cmake
                              INSTALL_DESTINATION ${there})
write_basic_package_version_file(zervanConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zervanConfig.cmake ${PROJECT_BINARY_DIR}/zervanConfigVersion.cmake
        DESTINATION ${there} COMPONENT development)

# --- And away again. ---

add_custom_target(uninstall
  COMMAND ${CMAKE_COMMAND} -DMANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
          -P ${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake
  COMMENT "" VERBATIM)
