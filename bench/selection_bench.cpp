// The work for a change of the chooser's selection: from the key press, through the buttons that
// follow it, to what is painted.
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "app/app.h"
#include "chooser/window1.h"
#include "chooser_home.h"
#include "platform/event_loop.h"
#include "platform/qt/qt_desktop.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kRows = 50;
constexpr int kRounds = 20;
constexpr double kGoal = 16;

/// Counts how often a widget is painted.
class Paints final : public QObject {
 public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int Count = 0;

 protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++Count;
        return false;
    }
};

QWidget* Named(const char* name) {
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->objectName() == QLatin1String(name)) return widget;
    std::fprintf(stderr, "There is no control \"%s\".\n", name);
    std::exit(1);
}

/// The time until both the list and the button that names the selected row are painted.
Milliseconds Press(Qt::Key key, QWidget& list, Paints& rows, Paints& button) {
    rows.Count = button.Count = 0;
    const auto start = std::chrono::steady_clock::now();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&list, &press);
    while (rows.Count == 0 || button.Count == 0)
        QApplication::processEvents();
    return std::chrono::steady_clock::now() - start;
}

std::vector<Milliseconds> Measure() {
    QWidget* list = Named("AppList");
    Paints rows(*list->findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport")));
    Paints button(*Named("PushButton1"));
    std::vector<Milliseconds> times;
    for (int round = 0; round < kRounds; ++round) {
        Press(Qt::Key_Home, *list, rows, button);
        for (int row = 1; row < kRows; ++row)
            times.push_back(Press(Qt::Key_Down, *list, rows, button));
    }
    return times;
}

Ref<Window1> ShowChooser(const std::string& document) {
    const Ref<Window1> window = New<Window1>();
    App::Instance()->Files = {InDesign::MakeNewFileClass(New<FolderItem>(document))};
    InDesign::GetInstalledApps();
    window->ReView();
    window->Show();
    return window;
}

void Run() {
    const bench::ChooserHome home(kRows);
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_RUNTIME_DIR", home.Path().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    EventLoop loop;
    Desktop::Install(std::make_unique<QtDesktop>());
    Application::Register(New<App>());
    const Ref<Window1> window = ShowChooser(home.Document());
    std::vector<Milliseconds> times = Measure();
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2].count();
    const double worst = times.back().count();
    std::printf("%-62s %9.3f %9.3f  ms %s\n", "change of selection among 50 rows, median", median,
                kGoal, median < kGoal ? "" : "NOT MET");
    std::printf("%-62s %9.3f %9.3f  ms %s\n", "change of selection among 50 rows, worst", worst,
                kGoal, worst < kGoal ? "" : "NOT MET");
    window->Close();
    Application::Register(nullptr);
    Desktop::Install(nullptr);
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::Run();
    return 0;
}
