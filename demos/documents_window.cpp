#include "documents_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace dunvey::demo {
namespace {

/// The size in points of the window manager's frame.
constexpr QSize kFrame(8, 36);

/// The file name, with control characters shown as "?".
QString NameOf(const QByteArray& path) {
    QString name = QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
    for (QChar& character : name) {
        if (character < QChar(0x20)) character = '?';
    }
    return name;
}

QString Heading(int documents, int commands) {
    return QStringLiteral("Process %1: %2 document(s) in %3 command(s)")
        .arg(QCoreApplication::applicationPid())
        .arg(documents)
        .arg(commands);
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
    if (!documents.isEmpty()) ++commands_;
    heading_.setText(Heading(list_.count(), commands_));
    needsPaint_ = true;
    list_.viewport()->update();
}

void DocumentsWindow::Place(int index, int count) {
    const int columns = count > 4 ? 3 : 2;
    const int rows = (count + columns - 1) / columns;
    const QRect all = screen()->availableGeometry();
    const QSize cell(all.width() / columns, all.height() / rows);
    resize(cell - kFrame);
    move(all.x() + index % columns * cell.width(), all.y() + index / columns * cell.height());
}

bool DocumentsWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && needsPaint_) {
        needsPaint_ = false;
        QTimer::singleShot(0, this, shown_);  // after the paint has been sent to the screen
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace dunvey::demo
