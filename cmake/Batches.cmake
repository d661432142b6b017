# Several sources compiled at a time: most of what a compiler does for one of them is headers that the
# others include too. For a build of everything that is made once.
option(ZERVAN_BATCHES "Compile several sources of the workbench and of the tests at a time" OFF)

# zervan_batches(TARGET [ALONE ...]): all sources of a target but those whose names others have too.
function(zervan_batches target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${ZERVAN_BATCHES})
  if(ARGN)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()
