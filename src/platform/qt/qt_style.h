#pragma once

#include <QProxyStyle>

namespace dunvey {

/// An outline colour for controls in a dark theme; invalid for a light theme, where the style's own
/// outlines are visible.
QColor OutlineOn(const QPalette& palette);

/// The desktop's style, with visible outlines and disabled texts in dark themes, and a thick
/// outline for the default button in dark and high-contrast themes.
class QtStyle final : public QProxyStyle {
 public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace dunvey
