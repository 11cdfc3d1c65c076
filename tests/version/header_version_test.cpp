#include "version/header_version.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/world.h"
#include "version/file_class.h"

namespace dunvey {
namespace {

using test::Header;

class HeaderVersion : public test::World {
 protected:
    /// "major.minor" of a file with the given bytes.
    std::string Version(const std::string& extension, const std::string& bytes) {
        const auto file = New<FolderItem>(folder_.Write("file." + extension, bytes));
        const std::vector<int64_t> version = InDesign::GetVerHexToDec(file, extension);
        EXPECT_EQ(version.size(), 2U);
        return std::to_string(version[0]) + "." + std::to_string(version[1]);
    }
};

TEST_F(HeaderVersion, EveryKindInBothByteOrders) {
    const std::pair<const char*, const char*> kKinds[] = {
        {"indd", "DOCUMENT"}, {"indt", "DOCUMENT"}, {"indb", "BOOKBOOK"}, {"indl", "LIBRARY4"}};
    for (const auto& [extension, typeWord] : kKinds) {
        for (const bool littleEndian : {true, false}) {
            EXPECT_EQ(Version(extension, Header(typeWord, 8, 1, littleEndian)), "8.1");
            EXPECT_EQ(Version(extension, Header(typeWord, 16, 255, littleEndian)), "16.255");
            EXPECT_EQ(Version(extension, Header(typeWord, 255, 0, littleEndian)), "255.0");
        }
    }
}

TEST_F(HeaderVersion, TheExtensionSelectsTheKind) {
    for (const auto& [extension, typeWord] : {std::pair{"indb", "DOCUMENT"},
                                              {"indd", "BOOKBOOK"},
                                              {"indl", "DOCUMENT"},
                                              {"idml", "DOCUMENT"}})
        EXPECT_EQ(Version(extension, Header(typeWord, 8, 0)), "0.0") << extension;
    EXPECT_EQ(Version("INDD", Header("DOCUMENT", 8, 0)), "8.0");
}

TEST_F(HeaderVersion, UnreadableFilesHaveNoVersion) {
    ASSERT_EQ(mkfifo((folder_ / "fifo.indd").c_str(), 0600), 0);
    folder_.MakeFolder("folder.indd");
    for (const char* name : {"fifo.indd", "folder.indd", "none.indd"}) {
        const auto item = New<FolderItem>(folder_ / name);
        EXPECT_EQ(InDesign::GetVerHexToDec(item, "indd"), (std::vector<int64_t>{0, 0})) << name;
    }
}

class FileRecord : public test::World {};

TEST_F(FileRecord, IsFilledFromTheFile) {
    const auto item = Document("My Layout.v2.indd", 8, 1);
    const Ref<FileClass> record = InDesign::MakeNewFileClass(item);
    EXPECT_EQ(record->File, item);
    EXPECT_EQ(record->FileExt, "indd");
    EXPECT_EQ(record->Vers, (std::vector<int64_t>{8, 1}));
    EXPECT_EQ(record->Ver, "8");
    EXPECT_EQ(record->WillUseVer, "8");
    EXPECT_TRUE(record->WillOpen);
    EXPECT_FALSE(record->App);
    EXPECT_FALSE(record->WillUseApp);
    EXPECT_EQ(record->AppName, "");
}

TEST_F(FileRecord, OnlySevenPointFiveKeepsItsMinorVersion) {
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("a.indd", 7, 5))->Ver, "7.5");
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("b.indd", 7, 0))->Ver, "7");
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("c.indd", 8, 5))->Ver, "8");
}

TEST_F(FileRecord, OnlyTheFourExtensionsAreAccepted) {
    for (const char* name : {"a.indd", "a.indt", "a.indb", "a.indl", "indd", ".indd", "A.INDD",
                             "a.bak.Indt", "\u65e5\u672c.indd"}) {
        folder_.Write(name, "");
        EXPECT_TRUE(InDesign::MakeNewFileClass(New<FolderItem>(folder_ / name))) << name;
    }
    EXPECT_EQ(InDesign::MakeNewFileClass(New<FolderItem>(folder_ / "A.INDD"))->FileExt, "INDD");
    for (const char* name : {"Layout.indd.bak", "a.idml", "a", "a.indd ", "aindd"}) {
        folder_.Write(name, "");
        EXPECT_FALSE(InDesign::MakeNewFileClass(New<FolderItem>(folder_ / name))) << name;
    }
    ASSERT_EQ(symlink("nowhere", (folder_ / "dangling.indd").c_str()), 0);
    EXPECT_FALSE(InDesign::MakeNewFileClass(New<FolderItem>(folder_ / "dangling.indd")));
    EXPECT_FALSE(InDesign::MakeNewFileClass(New<FolderItem>(folder_ / "none.indd")));
    EXPECT_FALSE(InDesign::MakeNewFileClass(nullptr));
}

}  // namespace
}  // namespace dunvey
