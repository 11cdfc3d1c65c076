#include "platform/qt/qt_desktop.h"

#include <QFileOpenEvent>
#include <QWidget>
#include <chrono>

#include "platform/application.h"
#include "platform/event_loop.h"
#include "platform/qt/qt_message_dialog.h"

namespace dunvey {
namespace {

// The toolkit keeps references to both for as long as it lives.
int argumentCount = 1;
char argument[] = "Dunvey";
char* argumentList[] = {argument, nullptr};

/// High-resolution drawing must be chosen ahead of the toolkit's application; later versions of the
/// toolkit always have it.
void PrepareScaling() {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, Application::SupportsHiDPI());
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, Application::SupportsHiDPI());
#endif
}

}  // namespace

QtApplication::QtApplication() : QApplication((PrepareScaling(), argumentCount), argumentList) {
    // With it on, the end of the first modal window would end all that follow, unseen.
    setQuitOnLastWindowClosed(false);
}

bool QtApplication::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen) {
        const std::string path = static_cast<QFileOpenEvent*>(event)->file().toStdString();
        EventLoop& loop = EventLoop::Current();
        loop.Enter([&] { loop.PostOpenDocument(New<FolderItem>(path)); });
        return true;
    }
    if (event->type() == QEvent::Quit) {
        // The desktop's wish that the program ends. The toolkit's own answer would make every later
        // loop return at once.
        EventLoop::Current().Enter([] { NSApplication::terminate(); });
        return true;
    }
    return QApplication::event(event);
}

QtDesktop::QtDesktop() {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake_, &QTimer::timeout, &wake_, [this] { Serve(); });
}

void QtDesktop::RunLoop() {
    QEventLoop loop;
    loops_.push_back(&loop);
    Wake();
    loop.exec();
    loops_.pop_back();
}

void QtDesktop::LeaveLoop() {
    if (!loops_.empty()) loops_.back()->quit();
}

void QtDesktop::Wake() {
    using std::chrono::milliseconds;
    const auto wait = EventLoop::Current().UntilNext();
    if (wait) wake_.start(std::chrono::ceil<milliseconds>(*wait));
}

void QtDesktop::Serve() {
    EventLoop& loop = EventLoop::Current();
    loop.Enter([&loop] { loop.ServeNext(); });
    Wake();
}

void QtDesktop::BringToFront() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) {
        frontIsWanted_ = true;
        return;
    }
    window->raise();
    window->activateWindow();
}

// No window of the contract is on the screen yet that could be a parent.
std::unique_ptr<Shown> QtDesktop::Show(MessageDialog& dialog, Window*) {
    auto shown = std::make_unique<QtMessageDialog>(dialog, ByUser(), nullptr);
    if (std::exchange(frontIsWanted_, false)) BringToFront();
    return shown;
}

}  // namespace dunvey
