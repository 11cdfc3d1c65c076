#include "platform/pictures/workspace.h"

#include "platform/loop/desktop.h"

namespace dunvey {

const NSWorkspace& NSWorkspace::sharedWorkspace() {
    static const NSWorkspace workspace;
    return workspace;
}

Ref<NSImage> NSWorkspace::iconForFile(const std::string& path) const {
    return Desktop::Current().IconForFile(path);
}

Ref<NSImage> NSWorkspace::iconForFileType(const std::string& type) const {
    return Desktop::Current().IconForFileType(type);
}

}  // namespace dunvey
