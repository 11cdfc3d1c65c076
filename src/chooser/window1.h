#pragma once

#include <cstdint>

#include "chooser/my_list_box.h"
#include "menus/cocoa_menu.h"
#include "platform/controls/canvas.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/push_button.h"
#include "platform/controls/separator.h"
#include "platform/controls/window.h"
#include "platform/files/folder_item.h"
#include "version/file_class.h"

namespace dunvey {

/// The chooser: the user decides for one document which application will open it, quits a running
/// version, or drops the document from the run. What is decided stands in the document's record.
class Window1 : public Window {
 public:
    /// The least height in points; it has room for four rows.
    static constexpr int64_t kMinHeight = 356;

    Window1();

    /// The document's position in the application's Files.
    int64_t idx = 0;
    /// The application that belongs to the document runs.
    bool IsBootingApp = false;
    /// Another version runs and may be in the way: two or more run, or one that isn't the
    /// document's own.
    bool IsBootingOtherApp = false;
    /// The application of the document's version was installed when the window was made.
    bool IsInstalled = false;
    /// There is something to warn of.
    bool NeedJudgment = false;

    /// Gives the window its title, its menu bar and its properties.
    virtual void Layout();
    /// Makes the controls and joins their handlers.
    virtual void CreateControls();
    virtual void _CreateControls0();

    virtual const Ref<myListBox>& AppList() const { return appList_; }
    /// Opens.
    virtual const Ref<PushButton>& PushButton1() const { return pushButton1_; }
    /// Cancels.
    virtual const Ref<PushButton>& PushButton2() const { return pushButton2_; }
    virtual const Ref<Separator>& Separator3() const { return separator3_; }
    /// Allows higher versions.
    virtual const Ref<CheckBox>& CheckBox1() const { return checkBox1_; }
    /// Makes the quit button the default.
    virtual const Ref<CheckBox>& CheckBox2() const { return checkBox2_; }
    /// Quits the selected version.
    virtual const Ref<PushButton>& PushButton3() const { return pushButton3_; }
    virtual const Ref<Label>& LabelFileName() const { return labelFileName_; }
    virtual const Ref<Label>& LabelAppName() const { return labelAppName_; }
    /// The document's icon.
    virtual const Ref<Canvas>& Canvas1() const { return canvas1_; }
    virtual const Ref<Separator>& Separator1() const { return separator1_; }
    virtual const Ref<Label>& LabelMsg() const { return labelMsg_; }
    virtual const Ref<Separator>& Separator2() const { return separator2_; }
    /// The caution badge.
    virtual const Ref<Canvas>& Canvas2() const { return canvas2_; }

    virtual void AppList_Open(Listbox& list);
    /// Greys the rows that can't open the document. Always false: the list draws the text itself.
    virtual bool AppList_CellTextPaint(Listbox& list, Graphics& graphics, int64_t row,
                                       int64_t column, int64_t x, int64_t y);
    /// Brings the open and the quit button into line with the selected row.
    virtual void AppList_Change(Listbox& list);
    virtual void AppList_DoubleClick(Listbox& list);
    virtual void PushButton1_Action(PushButton& button);
    virtual void PushButton2_Action(PushButton& button);
    virtual void CheckBox1_Action(CheckBox& checkBox);
    virtual void CheckBox2_Action(CheckBox& checkBox);
    virtual void PushButton3_Action(PushButton& button);
    /// Claims the click, and nothing comes of it.
    virtual bool Canvas1_MouseDown(Canvas& canvas, int64_t x, int64_t y);
    virtual void Canvas1_MouseUp(Canvas& canvas, int64_t x, int64_t y);

    // The items of the window's menu bar by their names; nil for one that isn't there.
    virtual Ref<MenuItem> FileMenu() const;
    virtual Ref<CocoaMenu::CocoaMenuItemClose> FileClose() const;
    virtual Ref<ApplicationMenuItem> FileAbout() const;
    virtual Ref<ApplicationMenuItem> FileSeparator1() const;
    virtual Ref<QuitMenuItem> FileQuit() const;
    virtual Ref<MenuItem> EditMenu() const;
    virtual Ref<CocoaMenu::CocoaMenuItemUndo> EditUndo() const;
    virtual Ref<CocoaMenu::CocoaMenuItemRedo> EditRedo() const;
    virtual Ref<MenuItem> UntitledSeparator() const;
    virtual Ref<MenuItem> EditCut() const;
    virtual Ref<MenuItem> EditCopy() const;
    virtual Ref<MenuItem> EditPaste() const;
    virtual Ref<MenuItem> EditClear() const;
    virtual Ref<CocoaMenu::CocoaMenuItemSelectAll> EditSelectAll() const;
    virtual Ref<MenuItem> WindowMenu0() const;
    virtual Ref<MenuItem> UntitledSeparator2() const;
    virtual Ref<MenuItem> UntitledSeparator3() const;
    virtual Ref<CocoaMenu::MenuItemMinimize> WindowMinimize() const;
    virtual Ref<CocoaMenu::MenuItemZoom> WindowZoom() const;
    virtual Ref<MenuItem> WindowSeparator1() const;
    virtual Ref<CocoaMenu::MenuItemBringAllToFront> WindowBringAlltoFront() const;
    virtual Ref<MenuItem> UntitledSeparator0() const;
    virtual Ref<MenuItem> UntitledSeparator1() const;
    virtual Ref<MenuItem> HelpMenu() const;

    /// Takes the three buttons off the title bar.
    void Event_Open() override;
    /// Rebuilds the list of installed applications, and gives the window the height for it.
    virtual void SetAppList();
    /// Fills the head of the window: which document it is and what is wrong.
    virtual void SetFileInfo();
    /// Marks the rows that may open the document, and selects the best one. It needs a filled list.
    virtual void SetEaseUse();
    /// Judges and fills everything anew.
    virtual void ReView();
    /// Works out the state anew; IsInstalled stays.
    virtual void JudgeFile();

    /// Asks whether to go on although several versions will run. True if the open must not go on;
    /// the user may also end the program here.
    bool ShowAlertIMixed();
    /// Asks the application to quit until it has left the list of running ones, or this window has
    /// closed.
    void QuitTheApp(const Ref<FolderItem>& application);
    /// Writes the selected application into the document's record and closes the window. In silence
    /// it does nothing where no row is selected or the application has gone from the disk.
    void OpenWithSelectApp();

 private:
    /// The record of the document.
    Ref<FileClass> Document() const;
    /// The application of a row; nil if the row has none.
    Ref<FolderItem> ApplicationAt(int64_t row) const;
    /// The application of the selected row; nil if no row is selected or it has gone from the disk.
    Ref<FolderItem> SelectedApplication() const;
    void JoinHandlers();
    void AddAppRow(const Ref<FolderItem>& application);
    void SetListHeight();
    void Warn();
    /// Marks a row as one that may open the document or not.
    void SetUsable(int64_t row, bool usable);
    void JudgeRow(int64_t row, double documentVersion);
    template <typename T>
    Ref<T> MenuItemNamed(const char* name) const {
        return MenuBar() ? MenuBar()->Find(name).template As<T>() : Ref<T>();
    }

    /// The names of those that are being asked to quit.
    std::vector<std::string> quitting_;
    Ref<myListBox> appList_;
    Ref<PushButton> pushButton1_;
    Ref<PushButton> pushButton2_;
    Ref<PushButton> pushButton3_;
    Ref<Separator> separator3_;
    Ref<CheckBox> checkBox1_;
    Ref<CheckBox> checkBox2_;
    Ref<Label> labelFileName_;
    Ref<Label> labelAppName_;
    Ref<Canvas> canvas1_;
    Ref<Separator> separator1_;
    Ref<Label> labelMsg_;
    Ref<Separator> separator2_;
    Ref<Canvas> canvas2_;
};

}  // namespace dunvey
