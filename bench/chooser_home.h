#pragma once

#include <QBuffer>
#include <QPainter>
#include <string>
#include <utility>
#include <vector>

#include "support/headers.h"
#include "support/icon_file.h"
#include "versions_home.h"

namespace dunvey::bench {

/// A home whose versions have icons as applications have them, and a document that belongs to none
/// of them, so it must be asked about.
class ChooserHome : public VersionsHome {
 public:
    explicit ChooserHome(int versions) : VersionsHome(versions) {
        AddIcons(Icon());
        document_ = Folder().Write("Layout.indd", test::Header("DOCUMENT", kOldest - 1, 0));
    }

    const std::string& Document() const { return document_; }

 private:
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

    std::string document_;
};

}  // namespace dunvey::bench
