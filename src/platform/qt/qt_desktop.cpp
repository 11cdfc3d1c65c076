#include "platform/qt/qt_desktop.h"

#include <QFileOpenEvent>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <functional>

#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/dock.h"
#include "platform/qt/qt_icons.h"
#include "platform/qt/qt_message_dialog.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_window.h"
#include "platform/qt/text_order.h"

namespace dunvey {
namespace {

// The toolkit keeps references to both for as long as it lives.
int argumentCount = 1;
char argument[] = "Dunvey";
char* argumentList[] = {argument, nullptr};

/// What must be chosen ahead of the toolkit's application. High-resolution drawing later versions
/// of it always have.
void PrepareToolkit() {
    // Else each menu bar asks the session for one that shows the menus of all programs, even where
    // it is told to stay in its window.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar, !HasApplicationMenu());
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, Application::SupportsHiDPI());
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, Application::SupportsHiDPI());
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
#endif
}

bool IsAnythingShown() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), std::mem_fn(&QWidget::isVisible));
}

}  // namespace

QtApplication::QtApplication() : QApplication((PrepareToolkit(), argumentCount), argumentList) {
    // With it on, the end of the first modal window would end all that follow, unseen.
    setQuitOnLastWindowClosed(false);
    // The desktop entry of the packages: its icon stands for the windows.
    setDesktopFileName(QStringLiteral("org.dunvey.Dunvey"));
    installEventFilter(&freshWindowGuard_);
    setStyle(new QtStyle);
    // The toolkit owns its style. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
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

QtDesktop::~QtDesktop() {
    // The widgets of windows that have closed wait for a loop to delete them.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtDesktop::RunLoop() {
    // Nothing is left to do and to see: the program waits for documents.
    const bool isWaiting =
        loops_.empty() && !EventLoop::Current().UntilNext() && !IsAnythingShown();
    const std::unique_ptr<QtDock> dock = isWaiting ? QtDock::Show(ByUser()) : nullptr;
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

void QtDesktop::Turn() {
    // A loop over hundreds of rows gives a turn for each; the user needs no more than one a frame.
    constexpr std::chrono::milliseconds kFrame(8);
    const auto now = std::chrono::steady_clock::now();
    if (now - lastTurn_ < kFrame) return;
    QCoreApplication::processEvents();
    lastTurn_ = std::chrono::steady_clock::now();
}

void QtDesktop::BringToFront() {
    QWidget* front = QApplication::activeModalWidget();
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (!each->isVisible() || dynamic_cast<WindowWidget*>(each) == nullptr) continue;
        each->raise();
        if (front == nullptr) front = each;
    }
    if (front == nullptr) {
        frontIsWanted_ = true;
        return;
    }
    front->raise();
    front->activateWindow();
}

std::unique_ptr<Shown> QtDesktop::Show(MessageDialog& dialog, Window* parent) {
    auto shown = std::make_unique<QtMessageDialog>(dialog, ByUser(), WindowWidget::Of(parent));
    if (std::exchange(frontIsWanted_, false)) BringToFront();
    return shown;
}

std::unique_ptr<Shown> QtDesktop::Show(Window& window, bool modal) {
    frontIsWanted_ = false;
    return std::make_unique<QtWindow>(window, ByUser(), modal);
}

Ref<NSImage> QtDesktop::IconForFile(const std::string& path) {
    return QtIconForFile(path);
}

Ref<NSImage> QtDesktop::IconForFileType(const std::string& type) {
    return QtIconForFileType(type);
}

int64_t QtDesktop::CompareTexts(const std::string& text1, const std::string& text2) {
    return CompareAsNames(text1, text2);
}

}  // namespace dunvey
