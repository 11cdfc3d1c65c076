#include "platform/qt/qt_desktop.h"

#include <QCollator>
#include <QFileOpenEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QWidget>
#include <algorithm>
#include <array>
#include <chrono>
#include <functional>

#include "platform/bundles/system.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/display.h"
#include "platform/qt/dock.h"
#include "platform/qt/qt_message_dialog.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_window.h"

namespace dunvey {
namespace {

// The command line for Qt, which keeps references to it until the process ends.
std::array<std::string, 3> arguments{"Dunvey", "-platform", ""};
std::array<char*, 4> argumentList{};
int argumentCount = 0;

/// Sets what must be set before QApplication is constructed. Returns the number of arguments.
int& PrepareQt(const std::string& platform) {
    // Else each menu bar asks over D-Bus for a global one, even if it stays in its window.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar, !HasApplicationMenu());
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, Application::SupportsHiDPI());
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, Application::SupportsHiDPI());
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
#endif
    // Passed as an option: commands would inherit QT_QPA_PLATFORM.
    arguments[2] = platform;
    argumentCount = platform.empty() ? 1 : 3;
    for (size_t i = 0; i < static_cast<size_t>(argumentCount); ++i)
        argumentList[i] = arguments[i].data();
    return argumentCount;
}

QCollator MakeCollator() {
    // QCollator ignores its numeric mode under the C and POSIX locales.
    const bool isPlain = QLocale().language() == QLocale::C;
    QCollator collator(isPlain ? QLocale(QLocale::English, QLocale::UnitedStates) : QLocale());
    collator.setNumericMode(true);
    return collator;
}

bool IsAnythingShown() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), std::mem_fn(&QWidget::isVisible));
}

}  // namespace

QtApplication::QtApplication(const std::string& platform)
    : QApplication(PrepareQt(platform), argumentList.data()) {
    // Else the end of the first modal window ends all later loops at once.
    setQuitOnLastWindowClosed(false);
    // The desktop entry that the packages install: desktops take its icon for the windows.
    setDesktopFileName(QStringLiteral("org.dunvey.Dunvey"));
    // QFileDialog would save its state in the user's configuration. Below /dev/null it can't.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    SetWindowIcon();
    installEventFilter(&freshWindowGuard_);
    TranslateTexts();
    setStyle(new QtStyle);
    // QApplication owns its style. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
}

void QtApplication::TranslateTexts() {
    const std::string language = UserLanguage();
    if (language.empty()) return;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
    const bool isLoaded = translator_.load(QLocale(QString::fromStdString(language)),
                                           QStringLiteral("qtbase"), QStringLiteral("_"), folder);
    if (isLoaded) installTranslator(&translator_);
}

bool QtApplication::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen) {
        const std::string path = static_cast<QFileOpenEvent*>(event)->file().toStdString();
        EventLoop& loop = EventLoop::Current();
        loop.Enter([&] { loop.PostOpenDocument(New<FolderItem>(path)); });
        return true;
    }
    if (event->type() == QEvent::Quit) {
        // The session ends. Qt's own handler would make every later loop return at once.
        EventLoop::Current().Enter([] { NSApplication::terminate(); });
        return true;
    }
    return QApplication::event(event);
}

QtDesktop::QtDesktop(const std::string& platform) : application_(platform) {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake_, &QTimer::timeout, &wake_, [this] { Serve(); });
}

QtDesktop::~QtDesktop() {
    // No event loop will run to delete the widgets of closed windows.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtDesktop::RunLoop() {
    // With nothing to do and nothing on the screen, the program waits for documents.
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
    // The logic calls this for each of hundreds of rows; once a frame is enough.
    constexpr std::chrono::milliseconds kFrame(8);
    const auto now = std::chrono::steady_clock::now();
    if (now - lastTurn_ < kFrame) return;
    QCoreApplication::processEvents();
    lastTurn_ = std::chrono::steady_clock::now();
}

void QtDesktop::BringToFront() {
    ActivateApplication();
    QWidget* front = QApplication::activeModalWidget();
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (!each->isVisible() || dynamic_cast<WindowWidget*>(each) == nullptr) continue;
        each->raise();
        if (front == nullptr) front = each;
    }
    if (front == nullptr) {
        activatesNextDialog_ = true;
        return;
    }
    front->raise();
    front->activateWindow();
}

std::unique_ptr<Shown> QtDesktop::Show(MessageDialog& dialog, Window* parent) {
    auto shown = std::make_unique<QtMessageDialog>(dialog, ByUser(), WindowWidget::Of(parent));
    if (std::exchange(activatesNextDialog_, false)) BringToFront();
    return shown;
}

std::unique_ptr<Shown> QtDesktop::Show(Window& window, bool modal) {
    activatesNextDialog_ = false;
    return std::make_unique<QtWindow>(window, ByUser(), modal);
}

bool QtDesktop::IsCommandKeyDown() const {
    return QGuiApplication::focusWindow() != nullptr &&
           QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

int64_t QtDesktop::CompareTexts(const std::string& text1, const std::string& text2) {
    static const QCollator collator = MakeCollator();
    const int order =
        collator.compare(QString::fromStdString(text1), QString::fromStdString(text2));
    return order != 0 ? order : text1.compare(text2);
}

}  // namespace dunvey

extern "C" __attribute__((visibility("default"))) dunvey::Desktop* DunveyMakeDesktop() {
    if (const std::optional<dunvey::Display> display = dunvey::ReachDisplay())
        return new dunvey::QtDesktop(display->platform);
    throw dunvey::DesktopUnavailableException(
        "No display can be reached, so nothing can be asked or shown. Start Dunvey in a desktop "
        "session, or set DISPLAY. If QT_QPA_PLATFORM is set, it must name a platform with windows, "
        "such as xcb.");
}
