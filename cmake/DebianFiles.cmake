# Run by CPack on the staged files of the Debian package only: what Debian's policy asks for.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(documents ${share}/doc/dunvey)
file(COPY ${CPACK_DUNVEY_DEBIAN_FILES}/copyright ${CPACK_DUNVEY_DEBIAN_FILES}/changelog
    DESTINATION ${documents})
file(RENAME ${documents}/changelog ${documents}/changelog.Debian)
configure_file(${CPACK_DUNVEY_DEBIAN_FILES}/lintian-overrides ${share}/lintian/overrides/dunvey COPYONLY)
# The prefix of the package is not the one that was configured.
set(write_icons ${CPACK_PACKAGING_INSTALL_PREFIX}/${CPACK_DUNVEY_BUNDLE}/Helpers/write-icons)
configure_file(${CPACK_DUNVEY_DEBIAN_FILES}/dunvey.policy.in
    ${share}/polkit-1/actions/org.dunvey.Dunvey.policy @ONLY)
# "-n" keeps the time of the build out of the files.
file(GLOB pages ${share}/man/man1/*.1)
execute_process(COMMAND gzip -9n ${documents}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
