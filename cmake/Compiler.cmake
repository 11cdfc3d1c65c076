# Warnings are errors, in every target; the sanitizers come with the preset "dev".
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # It sees overlaps in the concatenation of strings that aren't there.
    add_compile_options(-Wno-restrict)
endif()
# The report of an exception names the file that raised it, not the folder it was built in.
add_compile_options(-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)

if(DUNVEY_SANITIZE)
    # float-cast-overflow is not part of "undefined", yet a number from a file can be any size.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()
