# The bundle has the same tree on every system, so the program's path rules are the same everywhere:
# Dunvey.app/Contents/{MacOS,Resources,Helpers,PlugIns,Info.plist}.
set(DUNVEY_CONTENTS ${CMAKE_BINARY_DIR}/Dunvey.app/Contents)
set(DUNVEY_IDENTIFIER org.dunvey.Dunvey)

# dunvey_bundle_resources(CONTENTS): copies all files of resources/ into a bundle, and on Linux the program that
# the copy script runs as root.
function(dunvey_bundle_resources contents)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/resources
        ${PROJECT_SOURCE_DIR}/resources/*)
    if(APPLE)
        list(REMOVE_ITEM files copyFile.scpt)
    endif()
    foreach(file ${files})
        configure_file(${PROJECT_SOURCE_DIR}/resources/${file} ${contents}/Resources/${file} COPYONLY)
    endforeach()
    if(NOT APPLE)
        configure_file(${PROJECT_SOURCE_DIR}/src/platform/linux/helpers/write-icons
            ${contents}/Helpers/write-icons COPYONLY)
    endif()
endfunction()

dunvey_bundle_resources(${DUNVEY_CONTENTS})
if(APPLE)
    find_program(DUNVEY_OSACOMPILE osacompile REQUIRED)
    set(script ${PROJECT_SOURCE_DIR}/packaging/mac/copyFile.applescript)
    set(compiled ${DUNVEY_CONTENTS}/Resources/copyFile.scpt)
    add_custom_command(OUTPUT ${compiled} DEPENDS ${script} VERBATIM
        COMMAND ${DUNVEY_OSACOMPILE} -o ${compiled} ${script})
    add_custom_target(copy_script ALL DEPENDS ${compiled})
endif()
configure_file(${PROJECT_SOURCE_DIR}/packaging/mac/Info.plist.in ${DUNVEY_CONTENTS}/Info.plist @ONLY)
