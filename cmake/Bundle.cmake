# The bundle has the same tree on every system, so each path rule of the program holds everywhere:
# Dunvey.app/Contents/{MacOS,Resources,Helpers,PlugIns,Info.plist}.
set(DUNVEY_CONTENTS ${CMAKE_BINARY_DIR}/Dunvey.app/Contents)
