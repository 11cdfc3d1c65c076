#include "platform/qt/qt_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "platform/qt/qt_text.h"
#include "platform/text/shown_text.h"

namespace dunvey {

QColor OutlineOn(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    if (text.lightness() <= window.lightness() || window.lightness() > 0x60) return {};
    return ToQColor(
        Readable({0x707070}, ToColor(window), LeastContrast(ToColor(window), ToColor(text))));
}

void QtStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    const QColor faint = OutlineOn(palette);
    if (!faint.isValid()) return;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
}

void QtStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_PanelButtonCommand) return;
    const QColor outline = OutlineOn(option->palette);
    if (!outline.isValid()) return;
    painter->save();
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing);
    const double round = element == PE_PanelButtonCommand ? 2.5 : 1;
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
    painter->restore();
}

QIcon QtStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                            const QWidget* widget) const {
    if (icon != SP_ToolBarHorizontalExtensionButton) {
        return QProxyStyle::standardIcon(icon, option, widget);
    }
    // Every menu bar asks for it when it is made, and the style's own is in a file, for which the
    // toolkit loads all that it has for pictures.
    constexpr int kSide = 16;
    QPixmap arrow(kSide, kSide);
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QApplication::palette().color(QPalette::ButtonText), 2));
    painter.drawPolyline(QPolygon({{5, 3}, {10, 8}, {5, 13}}));
    return QIcon(arrow);
}

}  // namespace dunvey
