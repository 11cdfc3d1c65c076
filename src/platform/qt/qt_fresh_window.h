#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

class QWidget;

namespace dunvey {

/// Ignores input that would answer a window before the user can have seen it: a key typed for
/// another program, a key held down, the second click of a double click. A window can be answered
/// once it has been active for the time of a double click. Other input works at once.
class FreshWindowGuard final : public QObject {
 public:
    using QObject::QObject;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool IsFresh(const QWidget* window) const;

    /// The time since each window was first active.
    QHash<const QWidget*, QElapsedTimer> active_;
};

}  // namespace dunvey
