#pragma once

#include <QDialog>
#include <QScrollArea>
#include <vector>

#include "platform/controls/window.h"
#include "platform/loop/desktop.h"
#include "platform/qt/qt_controls.h"
#include "platform/qt/qt_menu_bar.h"

class QHelpEvent;

namespace dunvey {

/// The widget of a window: shows the model and passes the user's actions to it.
class WindowWidget final : public QDialog {
 public:
    /// Needs the registered application.
    WindowWidget(Window& window, UserAction key, bool modal);
    ~WindowWidget() override;

    /// The widget that shows the window, nullptr for none.
    static WindowWidget* Of(const Window* window);
    /// Raises the window above the others and gives it the keyboard.
    void ShowInFront();
    /// Hides the widget and forgets the window. The widget deletes itself later, since the call may
    /// come from one of its own events.
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
        Ref<RectControl> control;
        ControlView view;
        Observable::Observation observation;
    };

    void Enter(const UserInput& input);
    void AddControl(const Ref<RectControl>& control);
    void ReadControl(const RectControl& control, const ControlView& view);
    void ReadChildren();
    void SetTabOrder();
    void Read();
    void ReadSize();
    void ResizeModel();
    void PlaceOnScreen();
    bool TakeKey(const QKeyEvent& event);
    bool ShowTip(const QObject* watched, const QHelpEvent& event) const;
    QMargins FrameMargins() const;
    /// The size below which the content scrolls: all but the rows of a list must be visible.
    QSize MinContentSize() const;
    /// The window's size, without its menu bar, for this content; limited by the screen.
    QSize SizeAround(const QSize& content) const;
    int MenuHeight() const { return menuBar_ == nullptr ? 0 : menuBar_->HeightInWindow(); }

    Window* window_;
    UserAction key_;
    /// nullptr for none.
    QtMenuBar* menuBar_ = nullptr;
    /// A child, so that it is deleted after eventFilter can no longer be called.
    QScrollArea& scroll_ = *new QScrollArea(this);
    /// The parent of the controls. Belongs to the scroll area.
    QWidget* const content_ = new QWidget;
    std::vector<Child> children_;
    QWidget* firstInTabOrder_ = nullptr;
    Observable::Observation observation_;
    /// The space on the screen without the frame and the menu bar.
    QSize room_;
    /// The running calls of Enter. In one of them a nested event loop may close the window; the
    /// widget is then deleted after the last of them, since Qt would delete it in that loop.
    int entered_ = 0;
    bool isResizing_ = false;
    bool isFrameKnown_ = false;
};

/// A window on the screen.
class QtWindow final : public Shown {
 public:
    QtWindow(Window& window, UserAction key, bool modal)
        : widget_(*new WindowWidget(window, key, modal)) {}
    ~QtWindow() override { widget_.Detach(); }
    void Raise() override { widget_.ShowInFront(); }
    void Minimize() override { widget_.showMinimized(); }
    void Zoom() override { widget_.isMaximized() ? widget_.showNormal() : widget_.showMaximized(); }

 private:
    WindowWidget& widget_;
};

}  // namespace dunvey
