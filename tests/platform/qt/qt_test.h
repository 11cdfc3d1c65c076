#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "chooser/window1.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_window.h"
#include "version/installed_apps.h"

namespace dunvey::test {

/// What a user does later, each step as an event of its own. Its destructor drops open steps.
class Steps {
 public:
    using Step = std::function<void()>;

    /// Takes the step as soon as the condition is true.
    void When(const std::function<bool()>& condition, const Step& then) {
        Soon([this, condition, then] { condition() ? then() : When(condition, then); });
    }
    void Take(const std::vector<Step>& steps, size_t place = 0) {
        if (place == steps.size()) return;
        steps[place]();
        Soon([this, steps, place] { Take(steps, place + 1); });
    }
    void Soon(const Step& step) { QTimer::singleShot(0, &life_, step); }

 private:
    QObject life_;
};

/// An application that logs what it is told.
class Recorder : public Application {
 public:
    void Event_Open() override { open(); }
    void Event_Close() override { log += "close "; }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        log += document->Name() + " ";
    }
    std::function<void()> open = [] {};
    std::string log;
};

/// An application in English, with a user at its windows and dialogs.
class QtTest : public ::testing::Test {
 protected:
    QtTest() {
        setenv("LC_ALL", "C", 1);
        Application::Register(app_);
    }
    ~QtTest() override {
        unsetenv("LC_ALL");
        Application::Register(nullptr);
    }

    /// Shows the window while the user takes the steps, and closes it.
    static void Show(Window& window, std::vector<Steps::Step> steps) {
        steps.emplace_back([&window] { window.Close(); });
        Steps user;
        user.When(
            [&window] {
                const QWidget* widget = WindowWidget::Of(&window);
                return widget != nullptr && widget->isActiveWindow();
            },
            [&user, steps] { user.Take(steps); });
        window.ShowModal();
    }
    /// What the user does at the next dialog.
    void AtBox(const Steps::Step& act) {
        steps_.When([] { return Box() != nullptr && Box()->isActiveWindow(); }, act);
    }

    static QMessageBox* Box() {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    static WindowWidget& Shown() {
        return dynamic_cast<WindowWidget&>(*QApplication::activeModalWidget());
    }
    template <typename Widget = QWidget>
    static Widget& Find(const char* name) {
        return *Shown().findChild<Widget*>(QLatin1String(name));
    }
    /// Presses the key where the focus is in the active window.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* window = QApplication::activeWindow();
        if (window == nullptr) window = QApplication::activeModalWidget();
        QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, key,
                        modifiers);
    }
    /// Sends a key press that repeats, as of a key held down.
    static void HoldKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
            QKeyEvent held(type, key, modifiers, QStringLiteral("\r"), true);
            QApplication::sendEvent(&widget, &held);
        }
    }

    EventLoop loop_;
    Steps steps_;
    Ref<Recorder> app_ = New<Recorder>();
};

/// A plain picture with one and two pixels for each point.
inline Ref<Picture> PlainPicture(int64_t size, uint32_t color) {
    std::vector<Ref<Picture>> images;
    for (const int64_t scale : {1, 2}) {
        images.push_back(New<Picture>(size * scale, size * scale));
        for (uint32_t& pixel : images.back()->Pixels().Pixels)
            pixel = color;
    }
    return New<Picture>(size, size, images);
}

/// The chooser with that many rows, without a document and without a menu bar.
class FilledChooser final : public Window1 {
 public:
    explicit FilledChooser(int rows) {
        SetMenuBar(nullptr);
        // No list of processes: nothing runs.
        setenv("DUNVEY_TEST_FOLDER", "/none", 1);
        for (int row = 0; row < rows; ++row)
            InDesign::InstalledApps.push_back(New<FolderItem>("/none/" + NameOf(row) + ".app"));
        SetAppList();
        InDesign::InstalledApps.clear();
        for (int row = 0; row < rows; ++row) {
            AppList()->SetCell(row, 1, std::to_string(6 + row) + ".0.3");
            if (row == 1) AppList()->SetCell(row, 2, "Booting");
            AppList()->SetRowPicture(row, PlainPicture(16, 0xFFD05090));
            AppList()->SetCellTag(row, 1, row >= 2);
            AppList()->SetRowHelpTag(row, NameOf(row) + " described");
        }
    }

 private:
    static std::string NameOf(int row) {
        return "Adobe InDesign " +
               (row < 3 ? "CS" + std::to_string(4 + row) : "CC " + std::to_string(2011 + row));
    }
};

/// The colours of a theme.
inline QPalette ThemePalette(const QColor& window, const QColor& text) {
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

}  // namespace dunvey::test
