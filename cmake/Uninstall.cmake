# Removes what the last `cmake --install` of this build has installed, by its list, and the folders of
# our name that are empty then.
#
#   cmake -DMANIFEST=.../install_manifest.txt -P Uninstall.cmake

if(NOT EXISTS ${MANIFEST})
  message(FATAL_ERROR "Nothing has been installed from this build: there is no ${MANIFEST}")
endif()
file(STRINGS ${MANIFEST} files)
set(count 0)
set(folders "")
foreach(name ${files})
  set(file "$ENV{DESTDIR}${name}")
  if(EXISTS ${file} OR IS_SYMLINK ${file})
    file(REMOVE ${file})
    math(EXPR count "${count} + 1")
  endif()
  # From the innermost folder up to the one of our name.
  while(file MATCHES "/zervan/")
    get_filename_component(file ${file} DIRECTORY)
    list(APPEND folders ${file})
    if(file MATCHES "/zervan$")
      break()
    endif()
  endwhile()
endforeach()

list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)  # what is inside comes first
foreach(folder ${folders})
  file(GLOB inside LIST_DIRECTORIES true ${folder}/* ${folder}/.*)
  list(FILTER inside EXCLUDE REGEX "/\\.\\.?$")
  if(IS_DIRECTORY ${folder} AND NOT inside)
    file(REMOVE_RECURSE ${folder})
  endif()
endforeach()
file(REMOVE ${MANIFEST})
message("${count} files removed")
