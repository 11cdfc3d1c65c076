# Prints the names of the shared libraries that a library needs: cmake -DLIBRARY=file -P this. CMake
# finds them in scripts alone.
file(GET_RUNTIME_DEPENDENCIES LIBRARIES ${LIBRARY} RESOLVED_DEPENDENCIES_VAR paths
    UNRESOLVED_DEPENDENCIES_VAR missing CONFLICTING_DEPENDENCIES_PREFIX several
    PRE_EXCLUDE_REGEXES "^ld-" "^lib(c|m|gcc_s|stdc\\+\\+)\\.")
foreach(path ${paths})
    cmake_path(GET path FILENAME name)
    list(APPEND names ${name})
endforeach()
execute_process(COMMAND ${CMAKE_COMMAND} -E echo "${names}")
