#include "platform/qt/dock.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>

#include "platform/linux/dock_texts.h"
#include "platform/linux/dock_window.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_window.h"

namespace dunvey {
namespace {

using Files = std::vector<std::string>;

/// The URIs as bytes, since a file name may not be valid UTF-8.
Files UrisIn(const QMimeData& data) {
    Files uris;
    for (const QByteArray& line : data.data(QStringLiteral("text/uri-list")).split('\n')) {
        const QByteArray uri = line.trimmed();
        if (!uri.isEmpty() && !uri.startsWith('#')) uris.push_back(uri.toStdString());
    }
    return uris;
}

QString Filter() {
    QStringList patterns;
    for (const std::string& extension : Application::Current()->DocumentExtensions())
        patterns += QStringLiteral("*.") + QString::fromStdString(extension);
    if (patterns.isEmpty()) patterns += QStringLiteral("*");
    return QString::fromStdString(Dock::kDocuments("")) + QStringLiteral(" (") +
           patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

class LinuxDock final : public QtDock, public QObject {
 public:
    explicit LinuxDock(UserAction key) : key_(key) {
        dock_->Choose = [this] { ChooseFiles(); };
        dock_->Show();
        WindowWidget* widget = WindowWidget::Of(dock_.Get());
        widget->setAcceptDrops(true);
        widget->installEventFilter(this);
    }

    ~LinuxDock() override { dock_->Withdraw(); }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::DragEnter:
            case QEvent::DragMove:
                Drag(static_cast<QDragMoveEvent&>(*event));
                return true;
            case QEvent::Drop:
                Drop(static_cast<QDropEvent&>(*event));
                return true;
            default:
                return false;
        }
    }

 private:
    void Drag(QDragMoveEvent& event) {
        if (event.type() == QEvent::DragEnter) {
            const Files files = UrisIn(*event.mimeData());
            EventLoop::Current().Enter([&] { acceptsDrag_ = dock_->Drag(key_, files); });
        }
        // Never let the other program delete the files, as after a move.
        event.setDropAction(Qt::CopyAction);
        event.setAccepted(acceptsDrag_);
    }
    void Drop(QDropEvent& event) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
        Take(UrisIn(*event.mimeData()));
    }
    void Take(const Files& files) {
        EventLoop::Current().Enter([&] { dock_->Take(key_, files); });
    }
    void ChooseFiles() {
        fileDialog_ = std::make_unique<QFileDialog>(
            WindowWidget::Of(dock_.Get()), QString::fromStdString(Dock::kChooseDocuments("")),
            QString(), Filter());
        fileDialog_->setFileMode(QFileDialog::ExistingFiles);
        connect(fileDialog_.get(), &QFileDialog::filesSelected, this,
                [this](const QStringList& chosen) {
                    Files files;
                    for (const QString& path : chosen)
                        files.push_back(QFile::encodeName(path).toStdString());
                    Take(files);
                });
        fileDialog_->open();
    }

    UserAction key_;
    Ref<DockWindow> dock_ = New<DockWindow>();
    std::unique_ptr<QFileDialog> fileDialog_;
    bool acceptsDrag_ = false;
};

}  // namespace

bool HasApplicationMenu() {
    return false;
}

void ActivateApplication() {}

std::unique_ptr<QtDock> QtDock::Show(UserAction key) {
    return std::make_unique<LinuxDock>(key);
}

}  // namespace dunvey
