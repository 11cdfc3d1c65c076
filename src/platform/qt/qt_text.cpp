#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QPalette>

#include "platform/pictures/contrast.h"
#include "platform/text/shown_text.h"

namespace dunvey {

QString LineOf(const std::string& text) {
    return QString::fromStdString(OneLine(text));
}

QString WithoutMnemonics(QString line) {
    return line.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString TipOf(const QString& lines) {
    QString html = lines.toHtmlEscaped();
    html.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<span>") + html + QLatin1String("</span>");
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
