# What a part of the tree needs from outside. All that is missing is told at once, with the line that
# installs it on Debian and the switch that does without.
#
#   zervan_needs(PART SWITCH KIND NAME PACKAGE ...)
#
# A row is three words: KIND package and the name that find_package knows, or KIND library and the
# name that the linker knows (found: NAME_LIBRARY), then Debian's package. Imported targets are
# seen everywhere.

function(zervan_needs part switch)
  set(names "")
  set(packages "")
  while(ARGN)
    list(POP_FRONT ARGN kind name package)
    if(kind STREQUAL "library")
      string(TOUPPER "${name}" variable)
      find_library(${variable}_LIBRARY ${name})
      set(found "${${variable}_LIBRARY}")
    else()
      find_package(${name} QUIET GLOBAL)
      set(found "${${name}_FOUND}")
    endif()
    if(NOT found)
      list(APPEND names ${name})
      list(APPEND packages ${package})
    endif()
  endwhile()
  if(names)
    list(JOIN names ", " names)
    list(JOIN packages " " packages)
    message(FATAL_ERROR "${part} cannot be built without ${names}.\n"
                        "Install what is missing: apt-get install ${packages}\n"
                        "or leave this part out: -D${switch}=OFF")
  endif()
endfunction()
