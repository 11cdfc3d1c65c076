// The chooser's list in the process: how long it takes to fill, and the work for a change of its
// selection, from the key press, through the buttons that follow it, to what is painted.
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>

#include "app/app.h"
#include "chooser/window1.h"
#include "chooser_home.h"
#include "measure.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_desktop.h"
#include "program.h"
#include "report.h"
#include "version/booting_apps.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr double kMilliseconds = 1e3;
constexpr int kRows = 50;

const ChooserHome& HomeWith(int versions) {
    static std::map<int, ChooserHome> homes;
    return homes.try_emplace(versions, versions).first->second;
}

/// A home's versions become those that are installed.
void Install(const ChooserHome& home) {
    setenv("HOME", home.Path().c_str(), 1);
    InDesign::GetInstalledApps();
}

Ref<Window1> ChooserFor(const ChooserHome& home) {
    App::Instance()->Files = {InDesign::MakeNewFileClass(New<FolderItem>(home.Document()))};
    return New<Window1>();
}

/// What any filling must do: list the processes, read the property lists.
void FillBare(const ChooserHome& home, int versions) {
    Keep(BareShell(std::string(DUNVEY_HELPERS) + "/ps -ax -o comm"));
    for (int i = 0; i < versions; ++i) {
        std::ifstream list(home.PropertyList(i), std::ios::binary);
        char bytes[8192];
        list.read(bytes, sizeof bytes);
        Keep(bytes);
    }
}

void MeasureFilling() {
    std::map<int, double> seconds;
    for (const int versions : {5, 50, 300}) {
        const ChooserHome& home = HomeWith(versions);
        Install(home);
        const Ref<Window1> window = ChooserFor(home);
        const auto times =
            InTurns({[&] { window->SetAppList(); }, [&] { FillBare(home, versions); },
                     [] { InDesign::GetBootingAppNames(); }},
                    21);
        if (window->AppList()->ListCount() != versions) std::abort();
        seconds[versions] = times[0] - times[2];
        ReportGrowth({"versions", "the chooser's list filled", static_cast<double>(versions),
                      times[0], "processes listed, property lists read", times[1]});
        window->Close();
    }
    Report({"list filled, exponent of growth from 50 to 300 versions", "",
            Exponent(50, seconds[50], 300, seconds[300]), 0, "", OursAtMost(1.2)});
}

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

/// The seconds until both the list and the button that names the selected row are painted.
double Press(Qt::Key key, QWidget& list, Paints& rows, Paints& button) {
    rows.Count = button.Count = 0;
    const auto start = std::chrono::steady_clock::now();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&list, &press);
    while (rows.Count == 0 || button.Count == 0)
        QApplication::processEvents();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<double> PressAll() {
    QWidget* list = Named("AppList");
    Paints rows(*list->findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport")));
    Paints button(*Named("PushButton1"));
    std::vector<double> times;
    for (int round = 0; round < 20; ++round) {
        Press(Qt::Key_Home, *list, rows, button);
        for (int row = 1; row < kRows; ++row)
            times.push_back(Press(Qt::Key_Down, *list, rows, button));
    }
    return times;
}

void MeasureSelection() {
    const ChooserHome& home = HomeWith(kRows);
    Install(home);
    const Ref<Window1> window = ChooserFor(home);
    window->ReView();
    window->Show();
    const std::vector<double> times = PressAll();
    Report({"change of selection among 50 rows, to its paint", "ms", Median(times) * kMilliseconds,
            0, "", OursAtMost(16)});
    Report({"the longest of 980 such changes", "ms",
            *std::max_element(times.begin(), times.end()) * kMilliseconds, 0, "", OursAtMost(16)});
    window->Close();
}

}  // namespace
}  // namespace dunvey

int main() {
    using namespace dunvey;
    const test::TemporaryFolder folder;
    setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("QT_LOGGING_RULES", "*.warning=false", 1);
    EventLoop loop;
    Desktop::Install(std::make_unique<QtDesktop>());
    Application::Register(New<App>());
    MeasureFilling();
    MeasureSelection();
    Application::Register(nullptr);
    Desktop::Install(nullptr);
}
