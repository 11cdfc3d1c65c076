#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "chooser/window1.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_window.h"
#include "support/application.h"
#include "version/installed_apps.h"

namespace dunvey::test {

/// Runs the waiting events and those that they post.
inline void RunEvents() {
    for (int pass = 0; pass < 3; ++pass)
        QCoreApplication::processEvents();
}

/// What a user does later, each step as an event of its own. Its destructor drops open steps.
class Steps {
 public:
    using Step = std::function<void()>;

    /// Takes each step once the condition is true.
    void When(const std::function<bool()>& condition, const std::vector<Step>& steps) {
        if (steps.empty()) return;
        Soon([=, this] {
            if (!condition()) return When(condition, steps);
            steps.front()();
            When(condition, {steps.begin() + 1, steps.end()});
        });
    }
    void Soon(const Step& step) { QTimer::singleShot(0, &life_, step); }

 private:
    QObject life_;
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

    /// Shows the window, which closes when it is destroyed.
    void Open(Window& window) {
        window.Show();
        shown_ = &window;
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Shown()));
    }
    WindowWidget& Shown() { return *WindowWidget::Of(shown_); }
    template <typename Widget = QWidget>
    Widget& Find(const char* name) {
        return *Shown().findChild<Widget*>(QLatin1String(name));
    }

    /// What the user does at the next dialog.
    void AtBox(const Steps::Step& act) {
        steps_.When([] { return Box() != nullptr && Box()->isActiveWindow(); }, {act});
    }
    static QMessageBox* Box() {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }

    /// Presses the key where the focus is in the active window, and runs what follows.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* window = QApplication::activeWindow();
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window, key, modifiers);
        RunEvents();
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
    Ref<LogApplication> app_ = New<LogApplication>();
    Window* shown_ = nullptr;
};

/// An image in one colour.
inline Ref<Picture> PlainPicture(int64_t size, uint32_t color) {
    const Ref<Picture> picture = New<Picture>(size, size);
    for (uint32_t& pixel : picture->Pixels().Pixels)
        pixel = color;
    return picture;
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

}  // namespace dunvey::test
