#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QTableView>

#include "platform/pictures/contrast.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"
#include "qt_test.h"

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

class ThemeTest : public QtTest {
 protected:
    ~ThemeTest() override { QApplication::setPalette(before_); }
    const QPalette before_ = QApplication::palette();
};

TEST_F(ThemeTest, EverythingCanBeReadUnderEveryTheme) {
    constexpr QRgb kStripe = 0xFFF1F2F2, kLine = 0xFFD5D5D5, kHighlight = 0xFF3060C0;
    struct Theme {
        QColor window, text;
        double least;
        bool isGivenColourGood;
    };
    FilledChooser window(5);
    window.AppList()->SetListIndex(2);
    window.LabelMsg()->SetTextColor({0xFB0C43});
    Open(window);
    for (const Theme& theme :
         {Theme{QColor(0xEF, 0xEF, 0xEF), Qt::black, 2.5, true},
          Theme{QColor(0x20, 0x20, 0x22), Qt::white, 4.5, false},
          Theme{QColor(0xE0, 0x20, 0x40), Qt::white, 4.5, false},
          Theme{Qt::black, Qt::white, 4.5, true}, Theme{Qt::white, Qt::black, 4.5, false}}) {
        SCOPED_TRACE(theme.window.name().toStdString());
        QPalette palette = ThemePalette(theme.window, theme.text);
        palette.setColor(QPalette::Highlight, QColor(kHighlight));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(palette);
        RunEvents();
        const QColor warning = Find("LabelMsg").palette().color(QPalette::WindowText);
        EXPECT_GE(ContrastOf(warning, theme.window), theme.least);
        EXPECT_TRUE(!theme.isGivenColourGood || warning == QColor(0xFB0C43));
        EXPECT_EQ(Find("LabelFileName").palette().color(QPalette::WindowText), theme.text);
        auto& list = Find<QTableView>("AppList");
        const QImage image = list.viewport()->grab().toImage();
        const auto expect = [&image](int x, int y, QRgb color) {
            EXPECT_EQ(image.pixelColor(x, y), QColor(color)) << x << "," << y;
        };
        const auto cell = [&list](int row, int column) {
            return list.visualRect(list.model()->index(row, column));
        };
        const QRect stripe = cell(1, 0);
        const int middle = stripe.center().y();
        expect(stripe.right() - 5, middle, kStripe);
        expect(stripe.right() - 5, stripe.top() - 10, 0xFFFFFFFF);
        expect(stripe.right(), middle, kLine);
        expect(stripe.right() - 5, stripe.bottom(), kLine);
        expect(10, middle, 0xFFD05090);
        // No line after the last column, and none in a selected row.
        expect(cell(1, 2).right(), middle, kStripe);
        expect(cell(2, 2).right() - 5, cell(2, 2).center().y(), kHighlight);
        expect(cell(2, 2).left() - 1, cell(2, 2).center().y(), kHighlight);
    }
}

}  // namespace
}  // namespace dunvey::test
