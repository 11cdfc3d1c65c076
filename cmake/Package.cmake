# The packages: `cpack -G DEB` and `cpack -G TGZ` in the build folder. The archive runs from any folder, since
# all its links are relative.
set(CPACK_PACKAGE_NAME dunvey)
set(CPACK_PACKAGE_VENDOR "Dunvey maintainers")
set(CPACK_PACKAGE_CONTACT "Dunvey maintainers <maintainers@dunvey.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "opens InDesign documents in the version that they were made with")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/DebianFiles.cmake)
set(CPACK_DUNVEY_DEBIAN_FILES ${PROJECT_SOURCE_DIR}/packaging/linux)
set(CPACK_DUNVEY_BUNDLE ${CMAKE_INSTALL_LIBDIR}/dunvey/Dunvey.app/Contents)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Raised for a new package of the same version, with an entry in packaging/linux/changelog.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt reads .icns files with the first plug-in; the file dialog in Japanese needs the translations.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins, qt6-translations-l10n")
# pkexec copies the document icons into the bundle where only root may write. Displays without an X
# server need qt6-wayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS pkexec)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Several versions of Adobe InDesign may be installed side by side. Dunvey
reads the version of each document from its header, knows which versions
are installed and which are running, and hands each document to the
version that it was made with.
.
It takes documents, templates, books and libraries, many of them at once.
The command dunvey-register makes a version known, for instance one that
runs under Wine.")

include(CPack)
