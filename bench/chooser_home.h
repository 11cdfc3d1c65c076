#pragma once

#include <QBuffer>
#include <QPainter>
#include <string>
#include <utility>
#include <vector>

#include "support/headers.h"
#include "support/icon_file.h"
#include "support/temporary_folder.h"

namespace dunvey::bench {

/// A home with so many versions, each with an icon as applications have them, and a document that
/// belongs to none of them, so it must be asked about.
class ChooserHome {
 public:
    explicit ChooserHome(int versions) {
        const std::string icon = Icon();
        for (int i = 0; i < versions; ++i)
            Install(std::to_string(kOldest + i), icon);
        document_ = folder_.Write("Layout.indd", test::Header("DOCUMENT", kOldest - 1, 0));
    }

    const std::string& Path() const { return folder_.Path(); }
    const std::string& Document() const { return document_; }

 private:
    static constexpr int kOldest = 6;

    /// A picture with soft colours and a hard edge, which packs about as well as a real one.
    static std::string Png(int pixels) {
        QImage image(pixels, pixels, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QRadialGradient colors(QPointF(pixels, pixels) / 3, pixels);
        colors.setColorAt(0, QColor(0xF0, 0x80, 0xB0));
        colors.setColorAt(1, QColor(0x30, 0x10, 0x40));
        painter.setBrush(colors);
        const QRectF all(0, 0, pixels, pixels);
        painter.drawRoundedRect(all.marginsRemoved(QMarginsF(1, 1, 1, 1) * (pixels * 0.1)),
                                pixels * 0.15, pixels * 0.15);
        painter.end();
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "png");
        return bytes.toStdString();
    }

    static std::string Icon() {
        std::vector<std::string> parts;
        for (const auto& [type, pixels] : {std::pair{"icp4", 16},
                                           {"icp5", 32},
                                           {"ic11", 32},
                                           {"ic12", 64},
                                           {"ic07", 128},
                                           {"ic13", 256},
                                           {"ic08", 256},
                                           {"ic14", 512},
                                           {"ic09", 512}}) {
            parts.push_back(test::IconPart(type, Png(pixels)));
        }
        return test::IconFile(parts);
    }

    void Install(const std::string& version, const std::string& icon) {
        const std::string name = "Adobe InDesign CC " + version;
        const std::string contents = "Applications/" + name + "/" + name + ".app/Contents";
        folder_.MakeFolder(contents + "/Resources");
        folder_.Write(contents + "/Resources/Icon.icns", icon);
        folder_.Write(contents + "/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                          version +
                          ".0.1</string><key>CFBundleIconFile</key><string>Icon</string></dict>"
                          "</plist>");
    }

    test::TemporaryFolder folder_;
    std::string document_;
};

}  // namespace dunvey::bench
