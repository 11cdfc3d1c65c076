#include "chooser/window1.h"
#include "icons/icon.h"
#include "menus/localized.h"
#include "platform/loop/event_loop.h"
#include "platform/text/text.h"
#include "platform/values/array.h"
#include "version/application_version.h"
#include "version/booting_apps.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

constexpr Color kUnusable{0x999999};
/// The rows that fit into Window1::kMinHeight.
constexpr int64_t kRowsWithRoom = 4;

}  // namespace

void Window1::AppList_Open(Listbox& list) {
    list.SetColumnAlignment(1, Listbox::kAlignCentre);
    list.SetColumnAlignment(2, Listbox::kAlignCentre);
}

void Window1::SetAppList() {
    AppList()->DeleteAllRows();
    if (!InDesign::InstalledApps.empty()) {
        InDesign::GetBootingAppNames();
        const int64_t generation = AppList()->Generation();
        for (int64_t i = 0; i <= UpperBound(InDesign::InstalledApps); ++i) {
            AddAppRow(At(InDesign::InstalledApps, i));
            RuntimeBackgroundTask();
            // An event may have closed the window or rebuilt the list.
            if (IsClosed() || AppList()->Generation() != generation) return;
        }
        AppList()->SetColumnSortDirection(1, Listbox::kSortAscending);
        AppList()->SetSortedColumn(1);
        AppList()->Sort();
    }
    SetListHeight();
}

void Window1::AddAppRow(const Ref<FolderItem>& application) {
    myListBox& list = *AppList();
    list.AddRow(Replace(application->Name(), ".app", ""));
    const int64_t row = list.LastIndex();
    list.SetCellTag(row, 0, application);
    list.SetRowPicture(row, Icon::Get(application, 16));
    list.SetCell(row, 1, InDesign::AppVersion(application));
    if (IndexOf(InDesign::BootingAppNames, application->Name()) != -1) {
        list.SetCell(row, 2, Localized::kBooting(""));
        list.SetCellTag(row, 2, true);
    }
}

void Window1::SetListHeight() {
    SetMinHeight(kMinHeight);
    const int64_t rows = AppList()->ListCount();
    if (rows > kRowsWithRoom) {
        SetMinHeight(MinHeight() + AppList()->DefaultRowHeight() * (rows - kRowsWithRoom + 1));
    }
    SetHeight(MinHeight());
}

bool Window1::AppList_CellTextPaint(Listbox& list, Graphics& graphics, int64_t row, int64_t,
                                    int64_t, int64_t) {
    if (row != list.ListIndex() && !list.CellTag(row, 1).BooleanValue()) {
        graphics.ForeColor = kUnusable;
    }
    return false;
}

}  // namespace dunvey
