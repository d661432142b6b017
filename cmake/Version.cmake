# Writes version.cpp. Run by every build: the file changes, and is compiled, only where the commit has
# changed. A source tree inside another project's checkout has no commit of its own.
#
#   cmake -DVERSION=... -DSOURCE=... -DTEMPLATE=... -DOUTPUT=... -P Version.cmake

set(ZERVAN_VERSION_TEXT ${VERSION})
if(EXISTS ${SOURCE}/.git)
  execute_process(COMMAND git describe --always --exclude=* --dirty --abbrev=10
                  WORKING_DIRECTORY ${SOURCE} OUTPUT_VARIABLE commit RESULT_VARIABLE failed
                  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(failed EQUAL 0)
    string(APPEND ZERVAN_VERSION_TEXT " (commit ${commit})")
  endif()
endif()
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
