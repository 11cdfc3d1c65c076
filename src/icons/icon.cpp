#include "icons/icon.h"

#include "platform/pictures/workspace.h"

namespace dunvey::Icon {
namespace {

Ref<Picture> Render(const NSImage& image, int64_t size) {
    const PixelRectangle rectangle{0, 0, size, size};
    Ref<Picture> picture = New<Picture>(size, size);
    CGContextDrawImage(picture->Pixels(), rectangle, image.CGImageForProposedRect(rectangle));
    return picture;
}

Ref<Picture> InTwoResolutions(const NSImage& image, int64_t size) {
    return New<Picture>(size, size, std::vector{Render(image, size), Render(image, size * 2)});
}

}  // namespace

Ref<Picture> Get(const Ref<FolderItem>& item, int64_t size) {
    if (!item || !item->Exists()) return nullptr;
    return InTwoResolutions(*NSWorkspace::sharedWorkspace().iconForFile(item->NativePath()), size);
}

Ref<Picture> GetForFileType(const std::string& type, int64_t size) {
    return InTwoResolutions(*NSWorkspace::sharedWorkspace().iconForFileType(type), size);
}

Ref<Picture> GetAlertCaution(int64_t size) {
    return GetForFileType("'caut'", size);
}

}  // namespace dunvey::Icon
