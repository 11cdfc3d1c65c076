# What the system knows the program by, and what is installed where. Below the prefix stands the bundle as
# it is built, so that every path rule of the program holds, and links lead into it.
include(GNUInstallDirs)

set(DUNVEY_IDENTIFIER org.dunvey.Dunvey)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(packaged ${PROJECT_BINARY_DIR}/packaging)

# The date of the newest entry of the changelog.
file(STRINGS ${packaging}/linux/changelog trailers REGEX "^ -- ")
list(GET trailers 0 trailer)
set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
string(REGEX MATCH "([0-9]+) ([A-Z][a-z][a-z]) ([0-9][0-9][0-9][0-9])" date "${trailer}")
list(FIND months "${CMAKE_MATCH_2}" month)
math(EXPR month "${month} + 101")
string(SUBSTRING ${month} 1 2 month)
set(DUNVEY_RELEASE_DATE ${CMAKE_MATCH_3}-${month}-${CMAKE_MATCH_1})

configure_file(${packaging}/mac/Info.plist.in ${DUNVEY_CONTENTS}/Info.plist @ONLY)

function(dunvey_install_linux)
    set(bundle lib/dunvey/Dunvey.app/Contents)
    set(share ${CMAKE_INSTALL_DATADIR})
    set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    set(executable ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)

    install(TARGETS Dunvey RUNTIME DESTINATION ${bundle}/MacOS)
    install(TARGETS DunveyQt LIBRARY DESTINATION ${bundle}/PlugIns PERMISSIONS ${readable})
    install(TARGETS helper_ps helper_open helper_osascript RUNTIME DESTINATION ${bundle}/Helpers)
    install(TARGETS dunvey_register RUNTIME DESTINATION bin)
    install(FILES ${DUNVEY_CONTENTS}/Info.plist DESTINATION ${bundle})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION ${bundle}/Resources
        FILE_PERMISSIONS ${readable} PATTERN "*.scpt" PERMISSIONS ${executable})
    file(MAKE_DIRECTORY ${packaged})
    file(CREATE_LINK ../lib/dunvey/Dunvey.app/Contents/MacOS/Dunvey ${packaged}/dunvey SYMBOLIC)
    install(FILES ${packaged}/dunvey DESTINATION bin)

    install(FILES ${packaging}/linux/dunvey.desktop DESTINATION ${share}/applications
        RENAME ${DUNVEY_IDENTIFIER}.desktop)
    install(FILES ${packaging}/linux/dunvey.xml DESTINATION ${share}/mime/packages)
    configure_file(${packaging}/linux/dunvey.metainfo.xml.in
        ${packaged}/${DUNVEY_IDENTIFIER}.metainfo.xml @ONLY)
    install(FILES ${packaged}/${DUNVEY_IDENTIFIER}.metainfo.xml DESTINATION ${share}/metainfo)
    dunvey_install_icons()
    dunvey_install_documentation()
endfunction()

function(dunvey_install_icons)
    set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
    install(DIRECTORY ${packaging}/icons/hicolor/ DESTINATION ${theme} FILE_PERMISSIONS ${readable})
    install(FILES ${packaging}/icons/dunvey.svg DESTINATION ${theme}/scalable/apps)
    install(DIRECTORY ${packaging}/icons/ DESTINATION ${theme}/scalable/mimetypes
        FILE_PERMISSIONS ${readable} FILES_MATCHING PATTERN "application-*.svg" PATTERN hicolor EXCLUDE)
endfunction()

# Compressed as Debian has it; "-n" keeps the time of the build out of them.
function(dunvey_install_documentation)
    find_program(DUNVEY_GZIP gzip REQUIRED)
    set(files dunvey.1 dunvey-register.1 changelog)
    foreach(file ${files})
        set(output ${packaged}/${file}.gz)
        add_custom_command(OUTPUT ${output} DEPENDS ${packaging}/linux/${file} VERBATIM
            COMMAND sh -c "exec \"$1\" -9nc \"$2\" >\"$3\"" sh ${DUNVEY_GZIP}
                ${packaging}/linux/${file} ${output})
        list(APPEND outputs ${output})
    endforeach()
    add_custom_target(documentation ALL DEPENDS ${outputs})
    install(FILES ${packaged}/dunvey.1.gz ${packaged}/dunvey-register.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    set(documents ${CMAKE_INSTALL_DATADIR}/doc/dunvey)
    install(FILES ${packaged}/changelog.gz DESTINATION ${documents} RENAME changelog.Debian.gz)
    install(FILES ${packaging}/linux/copyright DESTINATION ${documents})
    install(FILES ${packaging}/linux/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME dunvey)
endfunction()
