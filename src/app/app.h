#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "app/drop_timer.h"
#include "app/run_rescue.h"
#include "platform/files/folder_item.h"
#include "platform/loop/application.h"
#include "platform/values/reference.h"
#include "version/file_class.h"

namespace dunvey {

/// The application object. It gathers the documents of one run, decides for each and hands them on;
/// then the program ends.
class App : public Application {
 public:
    /// The registered application object as an App; nil if it is none. Raises NilObjectException
    /// before there is one.
    static Ref<App> Instance() { return Application::Current().As<App>(); }

    /// Ends a run of documents; nil until Event_Open makes it.
    Ref<DropTimer> t;
    /// The documents of this run, in the order of arrival until they are sorted.
    std::vector<Ref<FileClass>> Files;
    /// Whether a further document is still taken. Once False it stays False.
    bool CanAccepted = true;
    /// Whether a document was left out because its question could not be shown anywhere.
    bool CouldNotAsk = false;

    void Event_Open() override;
    void Event_Close() override;
    void Event_OpenDocument(const Ref<FolderItem>& document) override;
    std::vector<std::string> DocumentExtensions() const override;
    /// The menu's About item. Returns whether the command was dealt with.
    virtual bool _FileAbout_Action();
    /// Decides for each document of the run whether the user must be asked, asks, and hands the run
    /// on. Returns when every document has been dealt with.
    virtual void JudgeToOpen();
    App() = default;

    /// Puts the caption with the program's name, in the user's language, on the menu's About item.
    void localizeMenuText();
    /// Decides for the documents from that position on, then sorts the run again and hands it on.
    void JudgeFrom(int64_t first);
    /// Shows the chooser for the document at `idx` and returns when it has closed. Raises
    /// DesktopUnavailableException without a screen.
    void createNewWindow(int64_t idx, bool IsBootingApp, bool IsBootingOtherApp, bool IsInstalled,
                         bool NeedJudgment);
    /// Asks the operating system's application object to terminate.
    void terminate();
    /// Drops the documents that were withdrawn and hands the others to their applications, one
    /// command for each run of equal WillUseVer, in the order of Files.
    void OpenFile();

 private:
    /// Decides for one document, with what runs at this moment, and asks if need be.
    void Judge(int64_t idx);
    /// Hands on the documents from that position on, where a group begins.
    void OpenFrom(int64_t first);

    // From the start until the documents are judged.
    std::optional<RunAtRisk> intake_;
};

/// The item "FileAbout" of the application's menu bar; nil where there is no menu bar or none such
/// in it.
Ref<ApplicationMenuItem> FileAbout();

}  // namespace dunvey
