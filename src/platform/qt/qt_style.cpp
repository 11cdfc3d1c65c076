#include "platform/qt/qt_style.h"

#include <QPainter>
#include <QStyleOption>

#include "platform/qt/qt_text.h"
#include "platform/shown_text.h"

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

}  // namespace dunvey
