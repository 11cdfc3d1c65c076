#include "platform/qt/qt_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "platform/pictures/contrast.h"
#include "platform/qt/qt_text.h"

namespace dunvey {
namespace {

bool IsDefault(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    return button != nullptr && (button->features & QStyleOptionButton::DefaultButton) != 0;
}

/// The outline of the default button, without a colour in usual light themes.
QPen DefaultOutlineOn(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const bool isHighContrast = Contrast(ToColor(window), ToColor(text)) >= kHighContrast;
    return {isHighContrast || OutlineOn(palette).isValid() ? text : QColor(), 3};
}

}  // namespace

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
    const bool isButton = element == PE_PanelButtonCommand;
    const QPen pen = isButton && IsDefault(option) ? DefaultOutlineOn(option->palette)
                                                   : QPen(OutlineOn(option->palette), 1);
    if (!pen.color().isValid()) return;
    painter->save();
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing);
    const double inset = pen.widthF() / 2;
    const double radius = isButton ? 2.5 : 1;
    painter->drawRoundedRect(QRectF(option->rect).adjusted(inset, inset, -inset, -inset), radius,
                             radius);
    painter->restore();
}

QIcon QtStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                            const QWidget* widget) const {
    if (icon != SP_ToolBarHorizontalExtensionButton) {
        // Where no icon theme is set, Qt would look for its own icons in thousands of files.
        const bool hasTheme = QIcon::themeName() != QLatin1String("hicolor");
        QApplication::setDesktopSettingsAware(hasTheme);
        QIcon result = QProxyStyle::standardIcon(icon, option, widget);
        QApplication::setDesktopSettingsAware(true);
        return result;
    }
    // Every new menu bar asks for this icon. The style would load an image plug-in for it.
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
