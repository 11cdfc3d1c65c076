#pragma once

#include <QDialog>
#include <vector>

#include "platform/controls/window.h"
#include "platform/loop/desktop.h"
#include "platform/qt/qt_controls.h"
#include "platform/qt/qt_menu_bar.h"

namespace dunvey {

/// The widget of a window: it shows what the model holds and hands it what the user does.
class WindowWidget final : public QDialog {
 public:
    WindowWidget(Window& window, UserAction key, bool modal);
    ~WindowWidget() override;

    /// The widget that shows the window, nullptr for none.
    static WindowWidget* Of(const Window* window);
    /// Puts it in front of the others, with the keyboard.
    void BringUp();
    /// Takes it off the screen and forgets the window. It deletes itself as soon as it isn't needed
    /// any more: the call may come out of one of its own events.
    void Detach();

 protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    struct Child {
        ControlView view;
        Observable::Observation observation;
    };

    void Enter(const UserInput& input);
    void AddControl(const Ref<RectControl>& control);
    void SetTabOrder();
    void Read();
    void ReadSize();
    void PlaceOnScreen();
    bool TakeKey(const QKeyEvent& event);
    QMargins FrameMargins() const;
    /// The height that a menu bar takes above the controls.
    int MenuHeight() const { return menuBar_ == nullptr ? 0 : menuBar_->HeightInWindow(); }

    Window* window_;
    UserAction key_;
    /// nullptr for none.
    QtMenuBar* menuBar_ = nullptr;
    /// Where the controls stand.
    QWidget area_{this};
    std::vector<Child> children_;
    QWidget* firstInTabOrder_ = nullptr;
    Observable::Observation observation_;
    int entered_ = 0;
    bool isResizedByUser_ = false;
    bool isFrameKnown_ = false;
};

/// A window on the screen.
class QtWindow final : public Shown {
 public:
    QtWindow(Window& window, UserAction key, bool modal)
        : widget_(*new WindowWidget(window, key, modal)) {}
    ~QtWindow() override { widget_.Detach(); }
    void Raise() override { widget_.BringUp(); }
    void Minimize() override { widget_.showMinimized(); }
    void Zoom() override { widget_.isMaximized() ? widget_.showNormal() : widget_.showMaximized(); }

 private:
    WindowWidget& widget_;
};

}  // namespace dunvey
