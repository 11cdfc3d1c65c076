#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

class QWidget;

namespace dunvey {

/// Keeps keys and presses that were meant for something else from answering a window that has only
/// just come up: the second half of a double click, a key typed into another program, a key that is
/// held. A window takes an answer once it has stood there, active, for as long as a double click
/// may last.
class FreshWindowGuard final : public QObject {
 public:
    using QObject::QObject;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool IsFresh(const QWidget* window) const;

    /// Since when each window is active for the first time.
    QHash<const QWidget*, QElapsedTimer> active_;
};

}  // namespace dunvey
