# Installation on macOS: the bundle with Qt inside, so that it runs without Qt's own installation.
# `cpack -G DragNDrop` makes a disk image of it.
get_filename_component(qt_prefix ${QT_DIR}/../../.. ABSOLUTE)
find_program(DUNVEY_MACDEPLOYQT macdeployqt HINTS ${qt_prefix}/bin REQUIRED)

add_dependencies(Dunvey copy_script)
install(DIRECTORY ${CMAKE_BINARY_DIR}/Dunvey.app DESTINATION . USE_SOURCE_PERMISSIONS)
# Qt's texts of the application menu, and where Qt finds its files in the bundle.
set(resources Dunvey.app/Contents/Resources)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/mac/qt.conf DESTINATION ${resources})
install(FILES ${qt_prefix}/translations/qtbase_ja.qm DESTINATION ${resources}/translations OPTIONAL)
# Only the plug-in links Qt. A binary's search path for Qt on the build machine is not needed then.
install(CODE "set(bundle \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Dunvey.app\")
    execute_process(COMMAND \"${DUNVEY_MACDEPLOYQT}\" \${bundle}
        -executable=\${bundle}/Contents/PlugIns/libDunveyQt.so COMMAND_ERROR_IS_FATAL ANY)")

set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_NAME Dunvey)
set(CPACK_PACKAGE_VENDOR "Dunvey maintainers")
include(CPack)
