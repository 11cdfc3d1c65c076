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
    add_compile_definitions(DUNVEY_SANITIZED)
    # float-cast-overflow is not part of "undefined", yet a number from a file can be any size.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
else()
    # What is handed out gives an attacker of a broken file as little as the compiler can arrange:
    # addresses that nobody knows, tables that nobody writes to, stacks and copies that are checked.
    include(CheckCXXCompilerFlag)
    add_compile_options(-fstack-protector-strong)
    foreach(option -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "DUNVEY_HAS${option}" known)
        check_cxx_compiler_flag(${option} ${known})
        if(${known})
            add_compile_options(${option})
        endif()
    endforeach()
    # It takes an optimising build.
    add_compile_options($<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
    if(NOT APPLE)
        add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>
            -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
        # Nothing that no other code asks for.
        add_compile_options(-ffunction-sections -fdata-sections)
        add_link_options(-Wl,--gc-sections)
    endif()
endif()
