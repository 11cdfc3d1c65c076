# Cross-compiles for macOS on Debian, for tools/check-mac, which makes the folder DUNVEY_SYSROOT.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES DUNVEY_SYSROOT)
set(CMAKE_OSX_SYSROOT ${DUNVEY_SYSROOT})
set(CMAKE_FIND_ROOT_PATH ${DUNVEY_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(mode LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${mode} ONLY)
endforeach()

set(llvm /usr/lib/llvm-19)
set(CMAKE_CXX_COMPILER ${llvm}/bin/clang++)
set(CMAKE_CXX_COMPILER_TARGET ${CMAKE_OSX_ARCHITECTURES}-apple-macos${CMAKE_OSX_DEPLOYMENT_TARGET})
foreach(tool AR RANLIB NM STRIP OTOOL INSTALL_NAME_TOOL)
    string(TOLOWER ${tool} name)
    string(REPLACE "_" "-" name ${name})
    set(CMAKE_${tool} ${llvm}/bin/llvm-${name})
endforeach()
# The first folder holds libc++'s settings with the vendor's availability switched on.
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${DUNVEY_SYSROOT}/usr/include/c++ \
-isystem ${llvm}/include/c++/v1 -Werror=unguarded-availability")
foreach(kind EXE MODULE SHARED)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT -fuse-ld=lld)
endforeach()
