#pragma once

#include <QProxyStyle>

namespace dunvey {

/// The outline of a control that can be told from the window; no colour where the style's own can,
/// under a light theme.
QColor OutlineOn(const QPalette& palette);

/// The desktop's style, with outlines and disabled texts that are seen on a dark window too.
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
