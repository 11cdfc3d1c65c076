#include "platform/qt/qt_cells.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPicture>
#include <QToolTip>

#include "platform/loop/event_loop.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_text.h"

namespace dunvey {
namespace {

constexpr int kMargin = 5;

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem& option) {
    if ((option.state & QStyle::State_Enabled) == 0) return QPalette::Disabled;
    return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

}  // namespace

QRect CellPainter::TextRoom(const QSize& cell, int64_t row, int64_t column) const {
    const Ref<Picture>& picture = list_->RowPicture(row);
    const int start = column == 0 && picture ? kMargin + static_cast<int>(picture->Width()) : 0;
    return QRect(QPoint(0, 0), cell).adjusted(start + kMargin, 0, -kMargin, 0);
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const int row = index.row();
    // The list may have changed since the model read it.
    if (row >= list_->ListCount()) return;
    painter->save();
    painter->setClipRect(option.rect);
    painter->translate(option.rect.topLeft());
    EventLoop::Current().Enter([&] {
        PaintBackground(*painter, option, row, index.column());
        if (const Ref<Picture>& picture = list_->RowPicture(row); picture && index.column() == 0) {
            const int top = (option.rect.height() - static_cast<int>(picture->Height())) / 2;
            DrawPictureAt(*painter, *picture, {kMargin, top});
        }
        PaintText(*painter, option, row, index.column());
    });
    painter->restore();
}

void CellPainter::PaintBackground(QPainter& painter, const QStyleOptionViewItem& option,
                                  int64_t row, int64_t column) const {
    const QRect cell(QPoint(0, 0), option.rect.size());
    // Recorded: only its result says whether the background must be painted first.
    QPicture drawn;
    QPainter recorder(&drawn);
    QtGraphics graphics(recorder, cell.size());
    const bool isPainted = list_->Event_CellBackgroundPaint(graphics, row, column);
    recorder.end();
    const bool isSelected = list_->Selected(row);
    const auto role = isSelected ? QPalette::Highlight : QPalette::Base;
    if (isSelected || !isPainted)
        painter.fillRect(cell, option.palette.brush(GroupOf(option), role));
    painter.drawPicture(0, 0, drawn);
}

void CellPainter::PaintText(QPainter& painter, const QStyleOptionViewItem& option, int64_t row,
                            int64_t column) const {
    const bool isSelected = list_->Selected(row);
    const auto role = isSelected ? QPalette::HighlightedText : QPalette::Text;
    const QRect room = TextRoom(option.rect.size(), row, column);
    const QFontMetrics& metrics = option.fontMetrics;
    const int baseline = (room.height() - metrics.height()) / 2 + metrics.ascent();
    QtGraphics graphics(painter, option.rect.size());
    graphics.ForeColor = ToColor(option.palette.color(GroupOf(option), role));
    if (list_->Event_CellTextPaint(graphics, row, column, room.left(), baseline)) return;
    const QColor ground = option.palette.color(QPalette::AlternateBase);
    painter.setPen(isSelected ? ToQColor(graphics.ForeColor)
                              : ReadableOn(graphics.ForeColor, ground));
    painter.setFont(option.font);
    const bool isCentred = list_->ColumnAlignment(column) == Listbox::kAlignCentre;
    const int side = isCentred ? Qt::AlignHCenter : Qt::AlignLeft;
    painter.drawText(
        room, side | Qt::AlignVCenter | Qt::TextSingleLine,
        metrics.elidedText(LineOf(list_->Cell(row, column)), Qt::ElideMiddle, room.width()));
}

bool CellPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
    QStringList tip;
    if (index.isValid() && index.row() < list_->ListCount()) {
        const QString line = LineOf(list_->Cell(index.row(), index.column()));
        const QRect room = TextRoom(option.rect.size(), index.row(), index.column());
        if (option.fontMetrics.horizontalAdvance(line) > room.width()) tip << TipOf(line);
        const QString helpTag = LineOf(list_->RowHelpTag(index.row()));
        if (!helpTag.isEmpty()) tip << TipOf(helpTag);
    }
    QToolTip::showText(event->globalPos(), tip.join(QLatin1String("<br>")), view);
    return true;
}

}  // namespace dunvey
