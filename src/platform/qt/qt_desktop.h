#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <vector>

#include "platform/loop/desktop.h"
#include "platform/qt/qt_fresh_window.h"

namespace dunvey {

/// The toolkit's application. On macOS the documents arrive through it.
class QtApplication : public QApplication {
 public:
    QtApplication();

 protected:
    bool event(QEvent* event) override;

 private:
    FreshWindowGuard freshWindowGuard_;
};

/// The desktop in Qt widgets.
class QtDesktop final : public Desktop {
 public:
    QtDesktop();
    ~QtDesktop() override;

    void RunLoop() override;
    void LeaveLoop() override;
    void Wake() override;
    void Turn() override;
    void BringToFront() override;
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) override;
    std::unique_ptr<Shown> Show(Window& window, bool modal) override;
    Ref<NSImage> IconForFile(const std::string& path) override;
    Ref<NSImage> IconForFileType(const std::string& type) override;
    int64_t CompareTexts(const std::string& text1, const std::string& text2) override;

 private:
    void Serve();

    std::chrono::steady_clock::time_point lastTurn_;
    QtApplication application_;
    QTimer wake_;
    std::vector<QEventLoop*> loops_;
    /// The front was asked for while there was no window: the next one comes up there.
    bool frontIsWanted_ = false;
};

}  // namespace dunvey
