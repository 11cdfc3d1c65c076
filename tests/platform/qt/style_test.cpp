#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>

#include "platform/pictures/contrast.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"

namespace dunvey::test {
namespace {

QPalette Theme(const QColor& window, const QColor& text) {
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

/// How well the pixel of the widget that differs most can be told from the window.
double Seen(QWidget& widget, const QPalette& palette) {
    widget.setPalette(palette);
    widget.resize(80, 24);
    const QImage image = widget.grab().toImage();
    double best = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const Color pixel = ToColor(image.pixelColor(x, y));
            best = std::max(best, Contrast(pixel, ToColor(palette.color(QPalette::Window))));
        }
    return best;
}

TEST(StyleTest, OutlinesAndDisabledTextsAreSeenOnDarkWindows) {
    struct Row {
        QColor window;
        double least;
    };
    for (const Row& row : {Row{Qt::black, 4.4}, Row{QColor(0x23, 0x26, 0x29), 2.4}}) {
        QtStyle style;
        QPalette palette = Theme(row.window, Qt::white);
        style.polish(palette);
        QCheckBox box;
        QPushButton empty;
        QPushButton disabled(QStringLiteral("Quit"));
        disabled.setEnabled(false);
        for (QWidget* widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&empty)}) {
            widget->setStyle(&style);
            EXPECT_GE(Seen(*widget, palette), row.least) << row.window.name().toStdString();
        }
        const QColor faint = palette.color(QPalette::Disabled, QPalette::ButtonText);
        EXPECT_GE(Contrast(ToColor(faint), ToColor(row.window)), row.least);
        EXPECT_LT(Contrast(ToColor(faint), ToColor(row.window)),
                  Contrast(ToColor(Qt::white), ToColor(row.window)) / 2)
            << "it still looks disabled";
    }
}

TEST(StyleTest, TheDefaultButtonHasAThickOutlineInDarkAndHighContrastThemes) {
    for (const auto& [window, text] :
         {std::pair<QColor, QColor>{QColor(0x23, 0x26, 0x29), Qt::white},
          {Qt::black, Qt::white},
          {Qt::white, Qt::black}}) {
        QtStyle style;
        QDialog dialog;
        QPushButton button(&dialog);
        button.setStyle(&style);
        button.setPalette(Theme(window, text));
        button.resize(80, 24);
        button.setDefault(true);
        EXPECT_EQ(button.grab().toImage().pixelColor(40, 1), text) << window.name().toStdString();
        button.setDefault(false);
        EXPECT_NE(button.grab().toImage().pixelColor(40, 1), text) << window.name().toStdString();
    }
}

TEST(StyleTest, LightWindowsStayAsTheyAre) {
    QtStyle style;
    for (const QColor& window : {QColor(0xEF, 0xEF, 0xEF), QColor(Qt::white)}) {
        const QPalette palette = Theme(window, Qt::black);
        QPalette polished = palette;
        style.polish(polished);
        EXPECT_EQ(polished, palette);
        EXPECT_FALSE(OutlineOn(palette).isValid());
    }
}

}  // namespace
}  // namespace dunvey::test
