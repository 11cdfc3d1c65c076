#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>

#include "platform/pictures/contrast.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"

namespace dunvey::test {
namespace {

const QColor kDark(0x23, 0x26, 0x29);

QPalette ThemePalette(const QColor& window, const QColor& text) {
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

double ContrastOf(const QColor& color1, const QColor& color2) {
    return Contrast(ToColor(color1), ToColor(color2));
}

/// The highest contrast of a pixel of the widget against the window's colour.
double Seen(QWidget& widget, const QPalette& palette) {
    widget.setPalette(palette);
    widget.resize(80, 24);
    const QImage image = widget.grab().toImage();
    double best = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            best =
                std::max(best, ContrastOf(image.pixelColor(x, y), palette.color(QPalette::Window)));
    return best;
}

TEST(StyleTest, OutlinesAndDisabledTextsAreSeenOnDarkWindows) {
    for (const auto& [window, least] : {std::pair<QColor, double>{Qt::black, 4.4}, {kDark, 2.4}}) {
        QtStyle style;
        QPalette palette = ThemePalette(window, Qt::white);
        style.polish(palette);
        QCheckBox box;
        QPushButton empty;
        for (QWidget* widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&empty)}) {
            widget->setStyle(&style);
            EXPECT_GE(Seen(*widget, palette), least) << window.name().toStdString();
        }
        const QColor faint = palette.color(QPalette::Disabled, QPalette::ButtonText);
        EXPECT_GE(ContrastOf(faint, window), least);
        EXPECT_LT(ContrastOf(faint, window), ContrastOf(Qt::white, window) / 2)
            << "it still looks disabled";
    }
}

}  // namespace
}  // namespace dunvey::test
