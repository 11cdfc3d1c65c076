#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QTranslator>
#include <chrono>
#include <string>
#include <vector>

#include "platform/loop/desktop.h"
#include "platform/qt/qt_fresh_window.h"
#include "platform/qt/qt_icons.h"

namespace dunvey {

/// Qt's application object. On macOS it receives the documents.
class QtApplication : public QApplication {
 public:
    explicit QtApplication(const std::string& platform);

 protected:
    bool event(QEvent* event) override;

 private:
    void TranslateTexts();

    FreshWindowGuard freshWindowGuard_;
    QTranslator translator_;
};

/// The desktop in Qt widgets.
class QtDesktop final : public Desktop {
 public:
    /// `platform` names a Qt platform; empty for the one in QT_QPA_PLATFORM, else Qt's choice.
    explicit QtDesktop(const std::string& platform = {});
    ~QtDesktop() override;

    void RunLoop() override;
    void LeaveLoop() override;
    void Wake() override;
    void Turn() override;
    void BringToFront() override;
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) override;
    std::unique_ptr<Shown> Show(Window& window, bool modal) override;
    bool IsCommandKeyDown() const override;
    Ref<NSImage> IconForFile(const std::string& path) override { return QtIconForFile(path); }
    Ref<NSImage> IconForFileType(const std::string& type) override {
        return QtIconForFileType(type);
    }
    int64_t CompareTexts(const std::string& text1, const std::string& text2) override;

 private:
    void Serve();

    std::chrono::steady_clock::time_point lastTurn_;
    QtApplication application_;
    QTimer wake_;
    std::vector<QEventLoop*> loops_;
    /// BringToFront was called without a window; it is repeated for the next dialog.
    bool activatesNextDialog_ = false;
};

}  // namespace dunvey
