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

using Words = std::vector<std::string>;

/// The URIs as bytes, since a file name may not be valid text.
Words UrisIn(const QMimeData& data) {
    Words words;
    for (const QByteArray& line : data.data(QStringLiteral("text/uri-list")).split('\n')) {
        const QByteArray word = line.trimmed();
        if (!word.isEmpty() && !word.startsWith('#')) words.push_back(word.toStdString());
    }
    return words;
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
            const Words words = UrisIn(*event.mimeData());
            EventLoop::Current().Enter([&] { isWelcome_ = dock_->Drag(key_, words); });
        }
        // Never let the other program delete the files, as after a move.
        event.setDropAction(Qt::CopyAction);
        event.setAccepted(isWelcome_);
    }
    void Drop(QDropEvent& event) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
        Take(UrisIn(*event.mimeData()));
    }
    void Take(const Words& words) {
        EventLoop::Current().Enter([&] { dock_->Take(key_, words); });
    }
    void ChooseFiles() {
        files_ = std::make_unique<QFileDialog>(WindowWidget::Of(dock_.Get()),
                                               QString::fromStdString(Dock::kChooseDocuments("")),
                                               QString(), Filter());
        files_->setFileMode(QFileDialog::ExistingFiles);
        connect(files_.get(), &QFileDialog::filesSelected, this, [this](const QStringList& chosen) {
            Words words;
            for (const QString& path : chosen)
                words.push_back(QFile::encodeName(path).toStdString());
            Take(words);
        });
        files_->open();
    }

    UserAction key_;
    Ref<DockWindow> dock_ = New<DockWindow>();
    std::unique_ptr<QFileDialog> files_;
    bool isWelcome_ = false;
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
