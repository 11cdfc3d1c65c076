# Installation on Linux: the bundle as a whole in a folder of its own, and a link to the program.
include(GNUInstallDirs)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(packaged ${PROJECT_BINARY_DIR}/packaging)
set(bundle ${CMAKE_INSTALL_LIBDIR}/dunvey/Dunvey.app/Contents)
set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(executable ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)

install(TARGETS Dunvey dunvey_inspect RUNTIME DESTINATION ${bundle}/MacOS)
install(TARGETS DunveyQt LIBRARY DESTINATION ${bundle}/PlugIns PERMISSIONS ${readable})
install(TARGETS helper_ps helper_open helper_osascript RUNTIME DESTINATION ${bundle}/Helpers)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/src/platform/linux/helpers/write-icons
    DESTINATION ${bundle}/Helpers)
install(FILES ${DUNVEY_CONTENTS}/Info.plist DESTINATION ${bundle})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION ${bundle}/Resources
    FILE_PERMISSIONS ${readable} PATTERN "*.scpt" PERMISSIONS ${executable})

install(TARGETS dunvey_register RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# Relative, so that an unpacked archive works in any folder.
file(RELATIVE_PATH program ${CMAKE_INSTALL_FULL_BINDIR}
    ${CMAKE_INSTALL_FULL_LIBDIR}/dunvey/Dunvey.app/Contents/MacOS/Dunvey)
file(MAKE_DIRECTORY ${packaged})
file(CREATE_LINK ${program} ${packaged}/dunvey SYMBOLIC)
cmake_path(REPLACE_FILENAME program dunvey-inspect)
file(CREATE_LINK ${program} ${packaged}/dunvey-inspect SYMBOLIC)
install(FILES ${packaged}/dunvey ${packaged}/dunvey-inspect DESTINATION ${CMAKE_INSTALL_BINDIR})
# Completion for bash and zsh.
install(DIRECTORY ${packaging}/linux/share/ DESTINATION ${CMAKE_INSTALL_DATADIR})
install(FILES ${packaging}/linux/dunvey.1 ${packaging}/linux/dunvey-inspect.1
    ${packaging}/linux/dunvey-register.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The menu entry, the document types, and their icons.
set(share ${CMAKE_INSTALL_DATADIR})
install(FILES ${packaging}/linux/dunvey.desktop DESTINATION ${share}/applications
    RENAME ${DUNVEY_IDENTIFIER}.desktop)
install(FILES ${packaging}/linux/dunvey.xml DESTINATION ${share}/mime/packages)
set(theme ${share}/icons/hicolor)
install(DIRECTORY ${packaging}/icons/hicolor/ DESTINATION ${theme} FILE_PERMISSIONS ${readable})
install(FILES ${packaging}/icons/dunvey.svg DESTINATION ${theme}/scalable/apps)
install(DIRECTORY ${packaging}/icons/ DESTINATION ${theme}/scalable/mimetypes
    FILE_PERMISSIONS ${readable} FILES_MATCHING PATTERN "application-*.svg" PATTERN hicolor EXCLUDE)

# The question that polkit asks before root writes the icons. It names the program by its absolute path.
set(write_icons ${CMAKE_INSTALL_FULL_LIBDIR}/dunvey/Dunvey.app/Contents/Helpers/write-icons)
configure_file(${packaging}/linux/dunvey.policy.in ${packaged}/${DUNVEY_IDENTIFIER}.policy @ONLY)
install(FILES ${packaged}/${DUNVEY_IDENTIFIER}.policy DESTINATION ${share}/polkit-1/actions)

# The release date is that of the newest changelog entry, as YYYY-MM-DD.
file(STRINGS ${packaging}/linux/changelog trailers REGEX "^ -- ")
list(GET trailers 0 trailer)
string(REGEX MATCH "([0-9]+) ([A-Z][a-z][a-z]) ([0-9][0-9][0-9][0-9])" date "${trailer}")
string(FIND "JanFebMarAprMayJunJulAugSepOctNovDec" "${CMAKE_MATCH_2}" month)
math(EXPR month "${month} / 3 + 101")
string(SUBSTRING ${month} 1 2 month)
set(DUNVEY_RELEASE_DATE ${CMAKE_MATCH_3}-${month}-${CMAKE_MATCH_1})
configure_file(${packaging}/linux/dunvey.metainfo.xml.in
    ${packaged}/${DUNVEY_IDENTIFIER}.metainfo.xml @ONLY)
install(FILES ${packaged}/${DUNVEY_IDENTIFIER}.metainfo.xml DESTINATION ${share}/metainfo)
