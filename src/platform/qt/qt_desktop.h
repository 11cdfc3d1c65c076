#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <vector>

#include "platform/desktop.h"

namespace dunvey {

/// The toolkit's application. On macOS the documents arrive through it.
class QtApplication : public QApplication {
 public:
    QtApplication();

 protected:
    bool event(QEvent* event) override;
};

/// The desktop in Qt widgets.
class QtDesktop final : public Desktop {
 public:
    QtDesktop();

    void RunLoop() override;
    void LeaveLoop() override;
    void Wake() override;
    void BringToFront() override;
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) override;

 private:
    void Serve();

    QtApplication application_;
    QTimer wake_;
    std::vector<QEventLoop*> loops_;
    /// The front was asked for while there was no window: the next one comes up there.
    bool frontIsWanted_ = false;
};

}  // namespace dunvey
