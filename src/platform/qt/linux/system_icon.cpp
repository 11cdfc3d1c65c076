#include <QApplication>
#include <QFileInfo>
#include <QMimeDatabase>

#include "platform/bundles/bundle_icon.h"
#include "platform/bundles/executable_path.h"
#include "platform/qt/qt_icons.h"

namespace dunvey {
namespace {

QString OwnResource(const char* name) {
    return QString::fromStdString(OwnResources()->Child(name)->NativePath());
}

/// The icon that was imported for documents with this extension; empty for other files.
QString ImportedIcon(const QString& extension) {
    if (extension == QLatin1String("indb")) return OwnResource("ID_Book_Icon.icns");
    for (const char* document : {"indd", "indl", "indt"})
        if (extension == QLatin1String(document)) return OwnResource("ID_Document_Icon.icns");
    return {};
}

/// By the file name only: opening a FIFO would block.
QIcon DocumentIcon(const QString& fileName) {
    for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(fileName))
        for (const QString& name : {type.iconName(), type.genericIconName()})
            if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    return StandardIcon(QStyle::SP_FileIcon)();
}

QIcon ApplicationIcon() {
    const QIcon icon = QIcon::fromTheme(QStringLiteral("application-x-executable"));
    return icon.availableSizes().isEmpty() ? StandardIcon(QStyle::SP_FileIcon)() : icon;
}

}  // namespace

IconSource SystemIcon(const QString& path) {
    const FolderItem item(path.toStdString());
    if (IsBundle(item)) return {QString::fromStdString(BundleIconPath(item)), &ApplicationIcon};
    if (item.Directory()) return {{}, StandardIcon(QStyle::SP_DirIcon)};
    const QFileInfo file(path);
    return {ImportedIcon(file.suffix().toLower()),
            [name = file.fileName()] { return DocumentIcon(name); }};
}

void SetWindowIcon() {
    QIcon icon;
    IconFile file(OwnResource("Dunvey.icns"));
    for (const int side : {16, 32, 64, 128}) {
        const QImage image = file.Read(side);
        if (!image.isNull()) icon.addPixmap(QPixmap::fromImage(image));
    }
    QApplication::setWindowIcon(icon);
}

}  // namespace dunvey
