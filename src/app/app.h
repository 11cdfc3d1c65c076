#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/drop_timer.h"
#include "platform/files/folder_item.h"
#include "platform/loop/application.h"
#include "platform/values/reference.h"
#include "version/file_class.h"

namespace dunvey {

/// The application object. It collects the documents of one run, chooses the application for each,
/// opens them and ends the program.
class App : public Application {
 public:
    /// The registered application object as an App; nil if it has another class. Raises
    /// NilObjectException if there is none.
    static Ref<App> Instance() { return Application::Current().As<App>(); }

    /// Fires when no further document has arrived; nil until Event_Open.
    Ref<DropTimer> t;
    /// The documents of this run, in the order of arrival until JudgeToOpen sorts them.
    std::vector<Ref<FileClass>> Files;
    /// Whether documents are still accepted. Once False it stays False.
    bool CanAccepted = true;
    /// Whether a document was not opened because there is no screen to ask the user.
    bool CouldNotAsk = false;

    void Event_Open() override;
    void Event_Close() override;
    void Event_OpenDocument(const Ref<FolderItem>& document) override;
    /// The menu's About item. Returns whether the command was handled.
    virtual bool _FileAbout_Action();
    /// Chooses the application of each document, asks the user where needed, and calls OpenFile.
    /// Returns when all windows are closed and all commands have ended.
    virtual void JudgeToOpen();
    App() = default;

    std::vector<std::string> DocumentExtensions() const override;
    /// Sets the caption of the menu's About item: the program's name in the user's language.
    void localizeMenuText();
    /// Shows the chooser for the document at `idx` and returns when it has closed. Raises
    /// DesktopUnavailableException without a screen.
    void createNewWindow(int64_t idx, bool IsBootingApp, bool IsBootingOtherApp, bool IsInstalled,
                         bool NeedJudgment);
    /// Asks the operating system's application object to terminate.
    void terminate();
    /// Removes the withdrawn documents from Files and opens the others, one command for each group
    /// of neighbours with equal WillUseVer, in the order of Files.
    void OpenFile();

 private:
    void Judge(int64_t idx);
};

/// The item "FileAbout" of the application's menu bar; nil if there is none.
Ref<ApplicationMenuItem> FileAbout();

}  // namespace dunvey
