# What `cpack` makes: two Debian packages, `zervan` with the programs and `libzervan-dev` with what
# other projects build against, and the source as a tarball (`--target package package_source`).

set(CPACK_PACKAGE_NAME zervan)
set(CPACK_PACKAGE_VENDOR "the zervan authors")
set(CPACK_PACKAGE_CONTACT "the zervan authors <zervan@zervan.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# --- Debian. ---

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL programs development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME zervan)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS procps)  # zervan calls free
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS "graphviz, cadical | minisat | picosat | cryptominisat")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SUGGESTS "berkeley-abc, gtkwave, libzervan-dev")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
    "zervan writes the question whether a network of timed processes can reach
a state with some property, in so many steps, as clauses for a SAT solver.
Its workbench tpn answers for good: with a run that was replayed over exact
time, or with a certificate that no such state is ever reached.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzervan-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libcadical-dev, libbliss-dev, libpugixml-dev, libmd-dev, nlohmann-json3-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers and static libraries of zervan and of its workbench tpn: reading
networks of timed processes, formulas and clauses over their paths, search,
proofs, runs and their views. For find_package(zervan) and for pkg-config.")

# Compresses what Debian has compressed, and adds the changelog of the packages.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)

# --- The source. ---

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME zervan-${PROJECT_VERSION})
string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" tree "${PROJECT_SOURCE_DIR}")
set(CPACK_SOURCE_IGNORE_FILES "^${tree}/build/" "^${tree}/\\.git(/|$)" "^${tree}/\\.cache/"
    "^${tree}/compile_commands\\.json$")
set(CPACK_VERBATIM_VARIABLES ON)

include(CPack)
