#pragma once

#include <string>
#include <vector>

#include "chooser/window1.h"
#include "support/temporary_folder.h"
#include "version/installed_apps.h"

namespace dunvey::test {

/// A picture in one colour, in resolutions of one and two pixels to the point.
inline Ref<Picture> PlainPicture(int64_t size, uint32_t color) {
    std::vector<Ref<Picture>> images;
    for (const int64_t scale : {1, 2}) {
        images.push_back(New<Picture>(size * scale, size * scale));
        for (uint32_t& pixel : images.back()->Pixels().Pixels)
            pixel = color;
    }
    return New<Picture>(size, size, images);
}

/// The chooser with so many rows, without a document and without a menu bar.
class FilledChooser final : public Window1 {
 public:
    explicit FilledChooser(int rows) {
        SetMenuBar(nullptr);
        const TemporaryFolder nothingRuns;
        nothingRuns.Write("ps-output", "");
        setenv("DUNVEY_TEST_FOLDER", nothingRuns.Path().c_str(), 1);
        for (int row = 0; row < rows; ++row)
            InDesign::InstalledApps.push_back(New<FolderItem>("/none/" + NameOf(row) + ".app"));
        SetAppList();
        InDesign::InstalledApps.clear();
        for (int row = 0; row < rows; ++row)
            Describe(row);
    }

    /// There is no document to leave out.
    void PushButton2_Action(PushButton&) override { Close(); }

 private:
    static std::string SuffixOf(int row) {
        return row < 3 ? "CS" + std::to_string(4 + row) : "CC " + std::to_string(2014 + row - 3);
    }
    static std::string NameOf(int row) { return "Adobe InDesign " + SuffixOf(row); }
    void Describe(int row) {
        AppList()->SetCell(row, 1, std::to_string(6 + row) + ".0.3");
        if (row == 1) AppList()->SetCell(row, 2, "Booting");
        AppList()->SetRowPicture(row, PlainPicture(16, 0xFFD05090));
        AppList()->SetCellTag(row, 1, row >= 2);
        AppList()->SetRowHelpTag(row, SuffixOf(row) + " described");
    }
};

}  // namespace dunvey::test
