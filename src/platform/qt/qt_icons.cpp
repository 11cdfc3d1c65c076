#include "platform/qt/qt_icons.h"

#include <utility>
#include <vector>

#include "platform/bundles/bundle_icon.h"
#include "platform/loop/application.h"
#include "platform/qt/qt_bitmap.h"
#include "platform/qt/qt_icon_drawing.h"
#include "platform/qt/qt_icon_source.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

/// The first of the pictures that has pixels, else the drawing in that size.
Bitmap FirstOf(const std::vector<CGImage>& images, IconDrawing drawing, const QSize& size) {
    for (const CGImage& unpack : images) {
        Bitmap bitmap = unpack();
        if (!bitmap.Pixels.empty()) return bitmap;
    }
    return BitmapOf(DrawIcon(drawing, size));
}

/// The picture of the first source that has one, at last a drawing.
class SourcedImage final : public NSImage {
 public:
    SourcedImage(std::vector<IconSource> sources, IconDrawing drawing)
        : sources_(std::move(sources)), drawing_(drawing) {}

    CGImage CGImageForProposedRect(const PixelRectangle& rectangle) const override {
        const QSize size(static_cast<int>(rectangle.Width), static_cast<int>(rectangle.Height));
        if (size.isEmpty()) return [] { return Bitmap(); };
        std::vector<CGImage> images;
        for (const IconSource& source : sources_)
            images.push_back(source(size));
        return [images = std::move(images), drawing = drawing_, size] {
            return FirstOf(images, drawing, size);
        };
    }

 private:
    std::vector<IconSource> sources_;
    IconDrawing drawing_;
};

/// The imported icon that documents of the extension have; empty for other kinds of files.
std::string ImportedIcon(const std::string& extension) {
    const std::string lowered = Lowercase(extension);
    const bool isBook = lowered == "indb";
    if (!isBook && lowered != "indd" && lowered != "indl" && lowered != "indt") return {};
    return Application::ExecutableFile()
        ->Parent()
        ->Parent()
        ->Child("Resources")
        ->Child(isBook ? "ID_Book_Icon.icns" : "ID_Document_Icon.icns")
        ->NativePath();
}

Ref<NSImage> FileImage(const std::string& extension, const QString& path) {
    std::vector<IconSource> sources;
    const std::string imported = ImportedIcon(extension);
    if (!imported.empty()) sources.push_back(IconFileSource(imported));
    sources.push_back(SystemSource(path));
    return New<SourcedImage>(std::move(sources), IconDrawing::Page);
}

Ref<NSImage> BundleImage(const FolderItem& bundle) {
    std::vector<IconSource> sources;
    const std::string icon = BundleIconPath(bundle);
    if (!icon.empty()) sources.push_back(IconFileSource(icon));
    sources.push_back(ThemeSource(QStringLiteral("application-x-executable")));
    return New<SourcedImage>(std::move(sources), IconDrawing::Application);
}

}  // namespace

Ref<NSImage> QtIconForFile(const std::string& path) {
    const FolderItem item(path);
    const QString name = QString::fromStdString(path);
    if (IsBundle(item)) return BundleImage(item);
    if (item.Directory()) {
        return New<SourcedImage>(std::vector{SystemSource(name)}, IconDrawing::Folder);
    }
    return FileImage(SplitB(item.Name(), ".").back(), name);
}

Ref<NSImage> QtIconForFileType(const std::string& type) {
    // Not the icon theme's: a tenth of the time until the chooser is on the screen would go into
    // reading its tables.
    if (type == "'caut'") {
        return New<SourcedImage>(std::vector<IconSource>(), IconDrawing::Caution);
    }
    return FileImage(type, QStringLiteral("file.") + QString::fromStdString(type));
}

}  // namespace dunvey
