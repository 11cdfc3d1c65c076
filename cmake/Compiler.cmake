# Compiler and linker options for every target. Warnings become errors with CMake's own
# CMAKE_COMPILE_WARNING_AS_ERROR, which the presets set.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # False positives for string concatenation.
    add_compile_options(-Wno-restrict)
endif()
# Exception reports name the source file relative to the project, not the build machine's folder.
add_compile_options(-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)

if(DUNVEY_SANITIZE)
    add_compile_definitions(DUNVEY_SANITIZED)
    # float-cast-overflow is not part of "undefined", but numbers from files can be of any size.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
elseif(DUNVEY_HARDENING)
    # _FORTIFY_SOURCE needs an optimizing build.
    add_compile_options(-fstack-protector-strong
        "$<$<NOT:$<CONFIG:Debug>>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>")
    if(NOT APPLE)
        include(CheckCXXCompilerFlag)
        foreach(option -fstack-clash-protection -fcf-protection)
            string(MAKE_C_IDENTIFIER "DUNVEY_HAS${option}" known)
            check_cxx_compiler_flag(${option} ${known})
            if(${known})
                add_compile_options(${option})
            endif()
        endforeach()
        add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>
            -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
    endif()
endif()
