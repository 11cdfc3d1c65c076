#include "documents_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace dunvey::demo {
namespace {

/// Room for the frame that the window manager puts around a window, in points.
constexpr QSize kFrame(8, 36);

/// The name of a document on one line.
QString NameOf(const QByteArray& path) {
    QString name = QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
    for (QChar& character : name) {
        if (character < QChar(0x20)) character = '?';
    }
    return name;
}

QString Heading(int documents, int starts) {
    return QStringLiteral("Process %1: %2 document(s) in %3 hand-over(s)")
        .arg(QCoreApplication::applicationPid())
        .arg(documents)
        .arg(starts);
}

}  // namespace

DocumentsWindow::DocumentsWindow(const QString& title, std::function<void()> shown)
    : heading_(Heading(0, 0)), shown_(std::move(shown)) {
    setWindowTitle(title);
    list_.setTextElideMode(Qt::ElideMiddle);
    list_.viewport()->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(&heading_);
    layout->addWidget(&list_);
}

void DocumentsWindow::Add(const QList<QByteArray>& documents) {
    for (const QByteArray& document : documents) {
        auto* item = new QListWidgetItem(style()->standardIcon(QStyle::SP_FileIcon),
                                         NameOf(document), &list_);
        item->setToolTip(QString::fromUtf8(document));
    }
    if (!documents.isEmpty()) ++starts_;
    heading_.setText(Heading(list_.count(), starts_));
    isBehind_ = true;
    list_.viewport()->update();
}

void DocumentsWindow::TakePlace(int place, int places) {
    const int columns = places > 4 ? 3 : 2;
    const int rows = (places + columns - 1) / columns;
    const QRect all = screen()->availableGeometry();
    const QSize cell(all.width() / columns, all.height() / rows);
    resize(cell - kFrame);
    move(all.x() + place % columns * cell.width(), all.y() + place / columns * cell.height());
}

bool DocumentsWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && isBehind_) {
        isBehind_ = false;
        QTimer::singleShot(0, this, shown_);  // once the paint has gone out to the screen
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace dunvey::demo
