#include "platform/qt/qt_icon_drawing.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace dunvey {
namespace {

// All drawings are made on a square of 32 by 32.
constexpr qreal kSide = 32;

QPen Outline(const QColor& color) {
    return {color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void DrawPage(QPainter& painter) {
    painter.setPen(Outline(QColor(0x5B, 0x6B, 0x7B)));
    painter.setBrush(QColor(0xFD, 0xFD, 0xFB));
    painter.drawPolygon(QPolygonF({{6, 2}, {19, 2}, {26, 9}, {26, 30}, {6, 30}}));
    painter.setBrush(QColor(0xD5, 0xDD, 0xE5));
    painter.drawPolygon(QPolygonF({{19, 2}, {26, 9}, {19, 9}}));
    for (const qreal y : {14., 18., 22., 26.})
        painter.drawLine(QPointF(10, y), QPointF(22, y));
}

void DrawFolder(QPainter& painter) {
    painter.setPen(Outline(QColor(0x4A, 0x6F, 0x96)));
    painter.setBrush(QColor(0x8F, 0xB4, 0xD9));
    painter.drawPolygon(QPolygonF({{2, 6}, {12, 6}, {15, 9}, {30, 9}, {30, 27}, {2, 27}}));
    painter.drawLine(QPointF(2, 12), QPointF(30, 12));
}

void DrawApplication(QPainter& painter) {
    painter.setPen(Outline(QColor(0x3F, 0x4E, 0x5E)));
    painter.setBrush(QColor(0xE9, 0xEE, 0xF3));
    painter.drawRoundedRect(QRectF(2, 4, 28, 24), 3, 3);
    painter.setBrush(QColor(0x5B, 0x6B, 0x7B));
    painter.drawRect(QRectF(2, 7, 28, 4));
    painter.drawLine(QPointF(7, 16), QPointF(11, 19.5));
    painter.drawLine(QPointF(11, 19.5), QPointF(7, 23));
    painter.drawLine(QPointF(14, 23), QPointF(20, 23));
}

void DrawCaution(QPainter& painter) {
    painter.setPen(Outline(QColor(0x8A, 0x65, 0x00)));
    painter.setBrush(QColor(0xFF, 0xCC, 0x33));
    painter.drawPolygon(QPolygonF({{16, 3}, {30.5, 29}, {1.5, 29}}));
    painter.setPen(QPen(QColor(0x30, 0x24, 0x00), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(16, 12), QPointF(16, 20));
    painter.drawPoint(QPointF(16, 25));
}

void Draw(IconDrawing drawing, QPainter& painter) {
    switch (drawing) {
        case IconDrawing::Page:
            return DrawPage(painter);
        case IconDrawing::Folder:
            return DrawFolder(painter);
        case IconDrawing::Application:
            return DrawApplication(painter);
        case IconDrawing::Caution:
            return DrawCaution(painter);
    }
}

}  // namespace

QImage DrawIcon(IconDrawing drawing, const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(size.width(), size.height());
    painter.translate((size.width() - side) / 2, (size.height() - side) / 2);
    painter.scale(side / kSide, side / kSide);
    Draw(drawing, painter);
    return image;
}

}  // namespace dunvey
