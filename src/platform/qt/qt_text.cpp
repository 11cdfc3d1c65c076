#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>

#include "platform/text/shown_text.h"

namespace dunvey {
namespace {

bool Fits(const QString& line, const QFont& font, const QSize& room) {
    const QFontMetrics metrics(font);
    return metrics.height() <= room.height() && metrics.horizontalAdvance(line) <= room.width();
}

}  // namespace

QString LineOf(const std::string& text) {
    return QString::fromStdString(OneLine(text));
}

QString WithoutKeys(QString line) {
    return line.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString TipOf(const QString& line) {
    return QLatin1String("<span>") + line.toHtmlEscaped() + QLatin1String("</span>");
}

FittedLine::FittedLine(const QString& line, const QFont& wanted, const QSize& room,
                       Qt::TextElideMode mode)
    : text(line), font(wanted), isCut(false) {
    constexpr int kLeastSize = 9;
    for (int size = QFontInfo(font).pixelSize(); size > kLeastSize && !Fits(line, font, room);)
        font.setPixelSize(--size);
    text = QFontMetrics(font).elidedText(line, mode, room.width());
    isCut = text != line;
}

QColor ToQColor(Color color) {
    return QColor::fromRgb(static_cast<QRgb>(color.RedGreenBlue));
}

Color ToColor(const QColor& color) {
    return {color.rgb() & 0xFFFFFFu};
}

QColor ReadableOn(Color color, const QColor& background) {
    const QPalette theme = QApplication::palette();
    const double least =
        LeastContrast(ToColor(theme.color(QPalette::Active, QPalette::Window)),
                      ToColor(theme.color(QPalette::Active, QPalette::WindowText)));
    return ToQColor(Readable(color, ToColor(background), least));
}

}  // namespace dunvey
