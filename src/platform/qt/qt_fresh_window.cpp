#include "platform/qt/qt_fresh_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QWidget>

namespace dunvey {
namespace {

/// Whether the event can press a button or open a row of a list.
bool IsAnswer(const QWidget& widget, const QEvent& event) {
    const bool isButton = qobject_cast<const QPushButton*>(&widget) != nullptr;
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            return isButton;
        case QEvent::MouseButtonDblClick:
            return qobject_cast<const QAbstractButton*>(&widget) == nullptr || isButton;
        case QEvent::KeyPress:
            switch (static_cast<const QKeyEvent&>(event).key()) {
                case Qt::Key_Return:
                case Qt::Key_Enter:
                case Qt::Key_Escape:
                    return true;
                case Qt::Key_Space:
                    return isButton;
                default:
                    return false;
            }
        default:
            return false;
    }
}

bool IsHeldDown(const QEvent& event) {
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).isAutoRepeat();
}

}  // namespace

bool FreshWindowGuard::IsFresh(const QWidget* window) const {
    const auto since = active_.constFind(window);
    const int interval = QApplication::doubleClickInterval();
    if (since == active_.constEnd()) return interval > 0;
    return since->elapsed() < interval;
}

bool FreshWindowGuard::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr) return false;
    QWidget* window = widget->window();
    // Only the user opens menus.
    if (window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip) return false;
    if (event->type() == QEvent::WindowActivate && !active_.contains(window)) {
        active_[window].start();
        connect(window, &QObject::destroyed, this, [this, window] { active_.remove(window); });
    }
    return IsAnswer(*widget, *event) && (IsHeldDown(*event) || IsFresh(window));
}

}  // namespace dunvey
