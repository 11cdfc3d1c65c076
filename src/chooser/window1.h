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

/// The chooser for one document: the user picks the application that will open it, quits a running
/// version, or leaves the document out. The decision is written into the document's record.
class Window1 : public Window {
 public:
    /// In points; the list then has room for four rows.
    static constexpr int64_t kMinHeight = 356;

    Window1();

    /// The document's index in App::Files.
    int64_t idx = 0;
    /// The document's own application is running.
    bool IsBootingApp = false;
    /// Two or more versions are running, or one that isn't the document's own.
    bool IsBootingOtherApp = false;
    /// The document's own application was installed when the window was made.
    bool IsInstalled = false;
    /// The window shows a warning.
    bool NeedJudgment = false;

    /// Sets the title, the menu bar and the window's properties.
    virtual void Layout();
    /// Makes the controls and connects their handlers.
    virtual void CreateControls();
    virtual void _CreateControls0();

    virtual const Ref<myListBox>& AppList() const { return appList_; }
    /// Open.
    virtual const Ref<PushButton>& PushButton1() const { return pushButton1_; }
    /// Cancel.
    virtual const Ref<PushButton>& PushButton2() const { return pushButton2_; }
    virtual const Ref<Separator>& Separator3() const { return separator3_; }
    /// Allows higher versions.
    virtual const Ref<CheckBox>& CheckBox1() const { return checkBox1_; }
    /// Makes the quit button the default.
    virtual const Ref<CheckBox>& CheckBox2() const { return checkBox2_; }
    /// Quit.
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
    /// Sets grey for rows that can't open the document. Always false: the list draws the text.
    virtual bool AppList_CellTextPaint(Listbox& list, Graphics& graphics, int64_t row,
                                       int64_t column, int64_t x, int64_t y);
    /// Updates the open and the quit button for the selected row.
    virtual void AppList_Change(Listbox& list);
    virtual void AppList_DoubleClick(Listbox& list);
    virtual void PushButton1_Action(PushButton& button);
    virtual void PushButton2_Action(PushButton& button);
    virtual void CheckBox1_Action(CheckBox& checkBox);
    virtual void CheckBox2_Action(CheckBox& checkBox);
    virtual void PushButton3_Action(PushButton& button);
    /// Always true, so that the release is reported.
    virtual bool Canvas1_MouseDown(Canvas& canvas, int64_t x, int64_t y);
    virtual void Canvas1_MouseUp(Canvas& canvas, int64_t x, int64_t y);

    // The items of the window's menu bar, by name; nil for one that isn't there.
    virtual Ref<MenuItem> FileMenu() const { return MenuItemNamed<MenuItem>("FileMenu"); }
    virtual Ref<CocoaMenu::CocoaMenuItemClose> FileClose() const {
        return MenuItemNamed<CocoaMenu::CocoaMenuItemClose>("FileClose");
    }
    virtual Ref<ApplicationMenuItem> FileAbout() const {
        return MenuItemNamed<ApplicationMenuItem>("FileAbout");
    }
    virtual Ref<ApplicationMenuItem> FileSeparator1() const {
        return MenuItemNamed<ApplicationMenuItem>("FileSeparator1");
    }
    virtual Ref<QuitMenuItem> FileQuit() const { return MenuItemNamed<QuitMenuItem>("FileQuit"); }
    virtual Ref<MenuItem> EditMenu() const { return MenuItemNamed<MenuItem>("EditMenu"); }
    virtual Ref<CocoaMenu::CocoaMenuItemUndo> EditUndo() const {
        return MenuItemNamed<CocoaMenu::CocoaMenuItemUndo>("EditUndo");
    }
    virtual Ref<CocoaMenu::CocoaMenuItemRedo> EditRedo() const {
        return MenuItemNamed<CocoaMenu::CocoaMenuItemRedo>("EditRedo");
    }
    virtual Ref<MenuItem> UntitledSeparator() const {
        return MenuItemNamed<MenuItem>("UntitledSeparator");
    }
    virtual Ref<MenuItem> EditCut() const { return MenuItemNamed<MenuItem>("EditCut"); }
    virtual Ref<MenuItem> EditCopy() const { return MenuItemNamed<MenuItem>("EditCopy"); }
    virtual Ref<MenuItem> EditPaste() const { return MenuItemNamed<MenuItem>("EditPaste"); }
    virtual Ref<MenuItem> EditClear() const { return MenuItemNamed<MenuItem>("EditClear"); }
    virtual Ref<CocoaMenu::CocoaMenuItemSelectAll> EditSelectAll() const {
        return MenuItemNamed<CocoaMenu::CocoaMenuItemSelectAll>("EditSelectAll");
    }
    virtual Ref<MenuItem> WindowMenu0() const { return MenuItemNamed<MenuItem>("WindowMenu0"); }
    virtual Ref<MenuItem> UntitledSeparator2() const {
        return MenuItemNamed<MenuItem>("UntitledSeparator2");
    }
    virtual Ref<MenuItem> UntitledSeparator3() const {
        return MenuItemNamed<MenuItem>("UntitledSeparator3");
    }
    virtual Ref<CocoaMenu::MenuItemMinimize> WindowMinimize() const {
        return MenuItemNamed<CocoaMenu::MenuItemMinimize>("WindowMinimize");
    }
    virtual Ref<CocoaMenu::MenuItemZoom> WindowZoom() const {
        return MenuItemNamed<CocoaMenu::MenuItemZoom>("WindowZoom");
    }
    virtual Ref<MenuItem> WindowSeparator1() const {
        return MenuItemNamed<MenuItem>("WindowSeparator1");
    }
    virtual Ref<CocoaMenu::MenuItemBringAllToFront> WindowBringAlltoFront() const {
        return MenuItemNamed<CocoaMenu::MenuItemBringAllToFront>("WindowBringAlltoFront");
    }
    virtual Ref<MenuItem> UntitledSeparator0() const {
        return MenuItemNamed<MenuItem>("UntitledSeparator0");
    }
    virtual Ref<MenuItem> UntitledSeparator1() const {
        return MenuItemNamed<MenuItem>("UntitledSeparator1");
    }
    virtual Ref<MenuItem> HelpMenu() const { return MenuItemNamed<MenuItem>("HelpMenu"); }

    /// Hides the three title-bar buttons.
    void Event_Open() override;
    /// Rebuilds the list of installed applications and sets the window's height for it.
    virtual void SetAppList();
    /// Shows the document's icon, name and version, and a warning if there is one.
    virtual void SetFileInfo();
    /// Marks the rows that may open the document and selects the best one. Call it after
    /// SetAppList.
    virtual void SetEaseUse();
    /// Updates the state, the list, the document's information and the selection.
    virtual void ReView();
    /// Recomputes the state flags except IsInstalled.
    virtual void JudgeFile();

    /// Asks whether to open the document although several versions will then run. True if not. The
    /// user may also end the program.
    bool ShowAlertIMixed();
    /// Sends quit requests until the application isn't running any more or the window has closed.
    /// Events are processed meanwhile.
    void QuitTheApp(const Ref<FolderItem>& application);
    /// Writes the selected application into the document's record and closes the window. Does
    /// nothing where no row is selected or the application is gone from the disk.
    void OpenWithSelectApp();

 private:
    /// The record of the document.
    Ref<FileClass> Document() const;
    /// The application of a row; nil if the row has none.
    Ref<FolderItem> ApplicationAt(int64_t row) const;
    /// Nil if no row is selected or the application is gone from the disk.
    Ref<FolderItem> SelectedApplication() const;
    /// "CS5.5" of "Adobe InDesign CS5.5.app", "CC" of "Adobe InDesign CC 2019".
    static std::string ShortName(const std::string& name);
    void JoinHandlers();
    void AddAppRow(const Ref<FolderItem>& application);
    void SetListHeight();
    void Warn();
    /// Sets the row's tag "can open" and help tag; selects the row if it is the best so far.
    void JudgeRow(int64_t row, double documentVersion);
    void UpdateButtons(int64_t row);
    template <typename T>
    Ref<T> MenuItemNamed(const char* name) const {
        return MenuBar() ? MenuBar()->Find(name).template As<T>() : Ref<T>();
    }

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
