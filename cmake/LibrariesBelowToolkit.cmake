# Writes a header with the names of the shared libraries that the toolkit needs and that aren't its
# own: cmake -DTOOLKIT=library -DHEADER=file -P LibrariesBelowToolkit.cmake. What every program in
# this language has is left out. Where they can't be found there are none.
file(GET_RUNTIME_DEPENDENCIES LIBRARIES ${TOOLKIT} RESOLVED_DEPENDENCIES_VAR found
    UNRESOLVED_DEPENDENCIES_VAR missing CONFLICTING_DEPENDENCIES_PREFIX several
    PRE_EXCLUDE_REGEXES "^ld-" "^lib(c|m|gcc_s|stdc\\+\\+)\\.")
set(count 0)
foreach(path ${found})
    cmake_path(GET path FILENAME name)
    if(NOT name MATCHES "Qt[56]")
        string(APPEND lines "    \"${name}\",\n")
        math(EXPR count "${count} + 1")
    endif()
endforeach()
file(CONFIGURE OUTPUT ${HEADER} @ONLY CONTENT [[
#pragma once

#include <array>

namespace dunvey {

inline constexpr std::array<const char*, @count@> kLibrariesBelowToolkit = {
@lines@};

}  // namespace dunvey
]])
