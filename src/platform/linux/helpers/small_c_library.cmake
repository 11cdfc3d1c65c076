# musl, a C library whose programs start in an eighth of the time: the usual one asks the processor for
# its features at each start, which takes half a millisecond in a virtual machine. A program of it is
# linked by hand, since the compiler knows only its own; and the C++ library is built for that one.
#
# Such a program is as guarded as the others but for two things. musl has no checked copies of strings
# and memory, and its objects don't bear the mark by which the processor itself would check jumps.

# Sets DUNVEY_HAS_SMALL_C_LIBRARY if it is there for this machine and its programs run.
function(dunvey_find_small_c_library)
    set(machine ${CMAKE_SYSTEM_PROCESSOR})
    find_path(DUNVEY_MUSL_INCLUDE features.h NO_DEFAULT_PATH
        PATHS /usr/include/${machine}-linux-musl /usr/lib/musl/include /usr/local/musl/include)
    find_path(DUNVEY_MUSL_LIBRARY rcrt1.o NO_DEFAULT_PATH
        PATHS /usr/lib/${machine}-linux-musl /usr/lib/musl/lib /usr/local/musl/lib)
    mark_as_advanced(DUNVEY_MUSL_INCLUDE DUNVEY_MUSL_LIBRARY)
    if(NOT DUNVEY_MUSL_INCLUDE OR NOT DUNVEY_MUSL_LIBRARY)
        message(STATUS "musl isn't there: the helper ps is linked with the usual C library")
        return()
    endif()
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include
        OUTPUT_VARIABLE own_include OUTPUT_STRIP_TRAILING_WHITESPACE)
    # Newer ones show what reads a folder straight only to those who ask for it.
    set(options -D_LARGEFILE64_SOURCE -nostdinc -nostdinc++ -isystem${DUNVEY_MUSL_INCLUDE} -isystem${own_include} -fPIE
        -fno-exceptions -fno-rtti -fno-threadsafe-statics)
    # On ARM the compiler's own functions for atomic operations ask the usual C library.
    if(machine STREQUAL aarch64)
        list(APPEND options -mno-outline-atomics)
    endif()
    set(DUNVEY_SMALL_C_COMPILE ${options} CACHE INTERNAL "")
    set(DUNVEY_SMALL_C_LINK -nostdlib -static-pie
        ${DUNVEY_MUSL_LIBRARY}/rcrt1.o ${DUNVEY_MUSL_LIBRARY}/crti.o CACHE INTERNAL "")
    set(DUNVEY_SMALL_C_LIBRARIES ${DUNVEY_MUSL_LIBRARY}/libc.a gcc ${DUNVEY_MUSL_LIBRARY}/crtn.o
        CACHE INTERNAL "")
    dunvey_try_small_c_library()
endfunction()

# It may be another machine's, or the compiler's linker have another opinion.
function(dunvey_try_small_c_library)
    list(JOIN DUNVEY_SMALL_C_COMPILE " " CMAKE_REQUIRED_FLAGS)
    set(CMAKE_REQUIRED_LINK_OPTIONS ${DUNVEY_SMALL_C_LINK})
    set(CMAKE_REQUIRED_LIBRARIES ${DUNVEY_SMALL_C_LIBRARIES})
    set(source "#include <dirent.h>
        #include <pthread.h>
        static int sum = 0;
        static void* Add(void*) { __atomic_fetch_add(&sum, 1, __ATOMIC_RELEASE); return nullptr; }
        int main() {
            pthread_t thread;
            if (pthread_create(&thread, nullptr, &Add, nullptr) != 0) return 1;
            alignas(dirent64) char entries[1024];
            const bool reads = getdents64(-1, reinterpret_cast<dirent64*>(entries), 1024) == -1;
            return reads && pthread_join(thread, nullptr) == 0 && sum == 1 ? 0 : 1;
        }")
    if(CMAKE_CROSSCOMPILING)
        check_cxx_source_compiles("${source}" DUNVEY_HAS_SMALL_C_LIBRARY)
    else()
        include(CheckCXXSourceRuns)
        check_cxx_source_runs("${source}" DUNVEY_HAS_SMALL_C_LIBRARY)
    endif()
endfunction()

function(dunvey_use_small_c_library target)
    target_sources(${target} PRIVATE small_c_library.cpp)
    target_compile_options(${target} PRIVATE ${DUNVEY_SMALL_C_COMPILE})
    target_link_options(${target} PRIVATE ${DUNVEY_SMALL_C_LINK})
    target_link_libraries(${target} PRIVATE ${DUNVEY_SMALL_C_LIBRARIES})
endfunction()
