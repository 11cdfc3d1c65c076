# The names of the shared libraries that the toolkit needs and that aren't its own, in a header below
# the folder. What every program in this language has is left out. Where they can't be found there are
# none, and the toolkit loads all in its own time.
set(DUNVEY_LIBRARIES_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/print_libraries.cmake)

function(dunvey_list_libraries_below toolkit folder)
    execute_process(COMMAND ${CMAKE_COMMAND} -DLIBRARY=${toolkit} -P ${DUNVEY_LIBRARIES_SCRIPT}
        OUTPUT_VARIABLE names ERROR_VARIABLE error RESULT_VARIABLE result
        OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT result EQUAL 0)
        message(STATUS "The libraries below the toolkit can't be told, so none is loaded ahead: ${error}")
        set(names "")
    endif()
    set(count 0)
    foreach(name ${names})
        if(NOT name MATCHES "Qt[56]")
            string(APPEND lines "    \"${name}\",\n")
            math(EXPR count "${count} + 1")
        endif()
    endforeach()
    file(CONFIGURE OUTPUT ${folder}/platform/linux/libraries_below_toolkit.h @ONLY CONTENT [[
#pragma once

#include <array>

namespace dunvey {

inline constexpr std::array<const char*, @count@> kLibrariesBelowToolkit = {
@lines@};

}  // namespace dunvey
]])
endfunction()
