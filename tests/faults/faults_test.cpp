#include <ftw.h>

#include "faults/fault_world.h"

namespace dunvey {
namespace {

using test::Fault;
using test::Kind;

std::string Stored(const std::string& higher, const std::string& quit, const std::string& build,
                   const std::string& icons) {
    return "{\n  \"AllowOpenHigherVersion\":" + higher +
           ",\n  \"AllowQuitButtonActiveted\":" + quit + ",\n  \"NonReleaseVersion\":" + build +
           ",\n  \"IconVersion\":\"" + icons + "\",\n  \"Other\":[\n    1,\n    2\n  ]\n}";
}

/// The program in a bundle of its own, with scripts for helpers that write down what they are
/// asked.
class FaultsTest : public test::FaultWorld {
 protected:
    struct Outcome {
        int code = 0;
        /// The applications that a document was sent to, one after the other.
        std::map<std::string, std::string> sent;
        std::string errors;
        std::string shown;
        std::string preferences;
        std::set<std::string> files;
    };

    void SetUp() override {
        FaultWorld::SetUp();
        const std::string contents = folder_.MakeFolder("Dunvey.app/Contents");
        const std::string copying =
            "cd '" + contents + "' && mkdir MacOS Helpers PlugIns Resources &&" +
            " cp '" DUNVEY_PROGRAM "' MacOS/Dunvey && cp '" DUNVEY_STAND_INS "/'* Helpers &&" +
            " printf 'printf refused' > Resources/copyFile.scpt";
        ASSERT_EQ(system(copying.c_str()), 0);
        program_ = contents + "/MacOS/Dunvey";
    }

    void GiveDesktop() {
        ASSERT_EQ(system(("cp '" DUNVEY_DESKTOP "' '" + folder_.Path() +
                          "/Dunvey.app/Contents/PlugIns/libDunveyQt.so'")
                             .c_str()),
                  0);
    }
    void SetRunning(const std::string& suffix) {
        running_ = "/bin/sh\n" + ExecutablePath(suffix) + "\n";
    }
    /// Installs without a program: nothing is started here.
    void Put(const std::string& suffix, const std::string& version) {
        InstallList(suffix, version);
    }
    /// A desktop that answers, and two versions of which the later one runs.
    void GiveDesktopBesideRunningVersion() {
        GiveDesktop();
        Put("CS6", "8.0.1");
        Put("CC", "9.2.0");
        SetRunning("CC");
    }
    void Open(const std::string& name, int major, int minor, const std::string& suffix) {
        words_.push_back(Document(name, major, minor));
        expected_[name] = suffix;
    }

    Outcome Run(const Fault& fault, const std::vector<std::string>& extra = {}) {
        Reset();
        std::vector<std::string> variables = FaultVariables("Dunvey", fault);
        variables.insert(variables.end(), extra.begin(), extra.end());
        variables.push_back("DUNVEY_TEST_FOLDER=" + folder_.Path());
        variables.push_back("DUNVEY_SHOWN=" + (folder_ / "shown"));
        Outcome outcome;
        outcome.code = Dunvey(words_, variables);
        EXPECT_FALSE(IsChildLeft());
        outcome.sent = Sent();
        outcome.errors = folder_.Read("stderr");
        outcome.shown = folder_.Read("shown");
        outcome.preferences = folder_.Read(kPreferences);
        outcome.files = Files();
        return outcome;
    }

    /// The run without a fault, then one with each.
    void SweepRun() {
        whole_ = Run({});
        const Counts counts = ReadCounts();
        ASSERT_EQ(whole_.code, 0) << whole_.errors;
        ASSERT_EQ(whole_.errors, "");
        ASSERT_EQ(whole_.sent, expected_) << whole_.shown;
        ASSERT_FALSE(counts.empty());
        ASSERT_GT(counts.at(Kind::kOpen), 0);
        Sweep(counts, [this](const Fault& fault) { Judge(Run(fault), MustBeWhole(fault)); });
    }

    /// Whether the program is to get over the fault: by a repetition, by a second reading of the
    /// folder, or by a second start of the shell where the machine was short of something.
    static bool MustBeWhole(const Fault& fault) {
        switch (fault.kind) {
            case Kind::kFolder:
            case Kind::kEntry:
            case Kind::kPipe:
            case Kind::kDuplicate:
            case Kind::kMemory:
                return true;
            case Kind::kSpawn:
                return fault.action != std::to_string(EIO) &&
                       fault.action != std::to_string(EACCES);
            default:
                return fault.IsHarmless();
        }
    }

    void Judge(const Outcome& outcome, bool mustBeWhole) {
        EXPECT_TRUE(outcome.code == 0 || (outcome.code == 1 && !outcome.errors.empty()))
            << outcome.code << outcome.errors;
        JudgeDocuments(outcome);
        JudgePreferences(outcome.preferences);
        for (const std::string& file : outcome.files)
            EXPECT_TRUE(whole_.files.contains(file)) << file;
        JudgeIcon("ID_Document_Icon.icns");
        JudgeIcon("ID_Book_Icon.icns");
        if (!mustBeWhole) return;
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_EQ(outcome.shown, whole_.shown);
        EXPECT_EQ(outcome.sent, expected_);
        EXPECT_EQ(outcome.preferences, whole_.preferences);
        EXPECT_EQ(outcome.files, whole_.files);
    }

    /// Each document must be sent where it belongs, once, or be named to the user.
    void JudgeDocuments(const Outcome& outcome) {
        for (const auto& [name, suffix] : expected_)
            JudgeDocument(outcome, name, suffix);
        for (const auto& [name, suffix] : outcome.sent)
            EXPECT_TRUE(expected_.contains(name) || IsNamed(outcome, name)) << name;
    }

    void PutIcons(const std::string& suffix) {
        icon_ = std::string(100'000, 'i');
        folder_.MakeFolder(Bundle(suffix) + "/Contents/Resources");
        for (const char* name : {"ID_Document_Icon.icns", "ID_Book_Icon.icns"})
            folder_.Write(Bundle(suffix) + "/Contents/Resources/" + name, icon_);
    }

    static constexpr char kPreferences[] = "config/Dunvey/Dunvey.pref";
    std::vector<std::string> words_;
    /// Document and the version that it belongs to.
    std::map<std::string, std::string> expected_;
    /// What stands in the file before each run; empty for a first run.
    std::string before_;
    /// What the import of icons of a version that can't be read leaves in the preferences.
    std::string unknownIcons_;
    std::string icon_;
    /// The lines of the process list.
    std::string running_;
    Outcome whole_;

 private:
    void Reset() {
        const std::string resources = "Dunvey.app/Contents/Resources/";
        for (const std::string& name :
             {std::string(kPreferences), std::string("config/Dunvey"), std::string("config"),
              std::string("open-calls"), std::string("ps-runs"), std::string("osascript-calls"),
              std::string("shown"), std::string("counts"), resources + "ID_Document_Icon.icns",
              resources + "ID_Book_Icon.icns"}) {
            remove((folder_ / name).c_str());
        }
        folder_.Write("ps-output", "COMM\n" + running_);
        folder_.Write("after-quit", "COMM\n");
        if (!before_.empty()) {
            folder_.MakeFolder("config/Dunvey");
            folder_.Write(kPreferences, before_);
        }
        if (icon_.empty()) return;
        folder_.Write(resources + "ID_Document_Icon.icns", "an older one");
    }

    /// Of the words with a zero byte behind each, one more behind a call.
    std::map<std::string, std::string> Sent() const {
        std::map<std::string, std::string> sent;
        const std::string calls = folder_.Read("open-calls");
        std::vector<std::string> call;
        for (size_t begin = 0, end; (end = calls.find('\0', begin)) != calls.npos;
             begin = end + 1) {
            if (end > begin) {
                call.push_back(calls.substr(begin, end - begin));
                continue;
            }
            for (size_t i = 2; i < call.size() && call[0] == "-a"; ++i) {
                std::string& suffixes = sent[call[i].substr(call[i].rfind('/') + 1)];
                suffixes += (suffixes.empty() ? "" : "|") + SuffixOf(call[1]);
            }
            call.clear();
        }
        return sent;
    }
    static std::string SuffixOf(const std::string& bundle) {
        const std::string name = bundle.substr(bundle.rfind('/') + 1);
        return name.substr(15, name.size() - 15 - 4);
    }

    std::set<std::string> Files() const {
        static std::set<std::string> files;
        files.clear();
        nftw(
            folder_.Path().c_str(),
            [](const char* path, const struct stat*, int, FTW*) {
                files.insert(path);
                return 0;
            },
            16, FTW_PHYS);
        // Who is asked, and to quit, is judged by itself.
        for (const char* name : {"shown", "after-quit", "osascript-calls"})
            files.erase(folder_ / name);
        return files;
    }

    static bool IsNamed(const Outcome& outcome, const std::string& name) {
        return outcome.errors.find(name) != std::string::npos ||
               outcome.shown.find(name) != std::string::npos;
    }

    void JudgeDocument(const Outcome& outcome, const std::string& name, const std::string& suffix) {
        const auto sent = outcome.sent.find(name);
        if (sent == outcome.sent.end()) {
            ++(IsNamed(outcome, name) ? named_ : lost_);
            EXPECT_TRUE(IsNamed(outcome, name)) << name << " is lost: " << outcome.errors;
            return;
        }
        ++sent_;
        EXPECT_EQ(sent->second.find('|'), std::string::npos) << name << " " << sent->second;
        EXPECT_TRUE(sent->second == suffix || IsNamed(outcome, name)) << name << sent->second;
    }

    /// Whatever follows the document in the file isn't looked at by its reader.
    void JudgePreferences(const std::string& text) {
        const bool isOld = before_.empty() ? text.empty() : text.starts_with(before_);
        const bool isNew = text.starts_with(whole_.preferences) || text == unknownIcons_;
        EXPECT_TRUE(isOld || isNew) << text;
        const bool isThere = access((folder_ / kPreferences).c_str(), F_OK) == 0;
        EXPECT_EQ(isThere, !text.empty()) << "an empty file";
    }

    void JudgeIcon(const std::string& name) {
        if (icon_.empty()) return;
        const std::string path = "Dunvey.app/Contents/Resources/" + name;
        const std::string text = folder_.Read(path);
        EXPECT_TRUE(access((folder_ / path).c_str(), F_OK) != 0 || text == icon_ ||
                    text == "an older one")
            << name << text.size();
    }
};

TEST_F(FaultsTest, DocumentsOfTwoVersions) {
    Put("CS5.5", "7.5.3");
    Put("CS6", "8.0.1");
    before_ = Stored("true", "true", "1", "8.0.1");
    Open("a.indd", 8, 0, "CS6");
    Open("b.indt", 7, 5, "CS5.5");
    Open("c.indd", 8, 1, "CS6");
    SweepRun();
}

TEST_F(FaultsTest, AFirstRun) {
    Put("CS6", "8.0.1");
    Open("a.indd", 8, 0, "CS6");
    SweepRun();
    EXPECT_NE(whole_.preferences, "");
}

TEST_F(FaultsTest, PreferencesThatGetShorterAndLonger) {
    Put("CS6", "8.0.1");
    Open("a.indd", 8, 0, "CS6");
    for (const std::string& before :
         {Stored("true", "true", "123456789", "8.0.1"),
          std::string("{\"NonReleaseVersion\":0,\"AllowOpenHigherVersion\":true,"
                      "\"AllowQuitButtonActiveted\":true,\"IconVersion\":\"8.0.1\"}")}) {
        before_ = before;
        SweepRun();
        EXPECT_NE(whole_.preferences, before);
        EXPECT_NE(whole_.preferences.find("Version\":true"), std::string::npos);
    }
}

TEST_F(FaultsTest, ACommandTooLongForOneArgument) {
    Put("CS6", "8.0.1");
    before_ = Stored("true", "true", "1", "8.0.1");
    std::string deep;
    for (int i = 0; i < 15; ++i)
        deep += std::string(200, 'd') + "/";
    folder_.MakeFolder(deep.substr(0, deep.size() - 1));
    for (int i = 0; i < 44; ++i) {
        const std::string name = std::to_string(i) + ".indd";
        words_.push_back(Document(deep + name, 8));
        expected_[name] = "CS6";
    }
    whole_ = Run({});
    ASSERT_EQ(whole_.sent, expected_) << whole_.errors;
    Counts counts;
    for (const auto& [kind, count] : ReadCounts()) {
        const bool isOfLongCommand = kind == Kind::kMemory || kind == Kind::kWrite;
        if (isOfLongCommand) counts[kind] = count;
    }
    Sweep(counts, [this](const Fault& fault) { Judge(Run(fault), MustBeWhole(fault)); });
}

TEST_F(FaultsTest, DocumentsThatAreAskedAbout) {
    GiveDesktopBesideRunningVersion();
    before_ = Stored("false", "false", "1", "9.2.0");
    Open("a.indd", 8, 0, "CS6");
    Open("b.indd", 9, 0, "CC");
    Open("c.indd", 6, 0, "CC");
    SweepRun();
    EXPECT_NE(whole_.preferences.find("HigherVersion\":true"), std::string::npos);
}

TEST_F(FaultsTest, ARunningVersionIsAskedToQuit) {
    GiveDesktopBesideRunningVersion();
    before_ = Stored("true", "true", "1", "9.2.0");
    Open("a.indd", 8, 0, "CS6");
    SweepRun();
    EXPECT_NE(folder_.Read("osascript-calls"), "");
}

TEST_F(FaultsTest, IconsOfANewVersion) {
    GiveDesktop();
    Put("CS6", "8.0.1");
    PutIcons("CS6");
    before_ = Stored("true", "true", "1", "7.0.4");
    unknownIcons_ = Stored("true", "true", "1", "0.0.0");
    Open("a.indd", 8, 0, "CS6");
    SweepRun();
    EXPECT_NE(whole_.preferences.find("IconVersion\":\"8.0.1"), std::string::npos);
}

TEST_F(FaultsTest, WhereverTheScreenGoesAwayEachDocumentGoesOutOnceOrIsNamed) {
    GiveDesktop();
    for (const auto& [suffix, version] : {std::pair("CS5", "7.0.4"), {"CS6", "8.0.1"}})
        Put(suffix, version);
    PutIcons("CS6");
    before_ = Stored("true", "true", "1", "7.0.4");
    Open("a.indd", 7, 0, "CS5");
    Open("b.indd", 8, 0, "CS6");
    Open("c.indd", 7, 0, "CS5");
    words_.push_back(Document("missing.indd", 6));
    whole_ = Run({});
    ASSERT_EQ(whole_.sent.size(), expected_.size()) << whole_.errors;
    int event = 0;
    for (int code = 1; code != 0; ++faults_) {
        SCOPED_TRACE(++event);
        const Outcome outcome = Run({}, {"DUNVEY_SCREEN_LOST_AT=" + std::to_string(event),
                                         "ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0"});
        JudgeDocuments(outcome);
        EXPECT_EQ(outcome.sent, expected_) << "none of them needs an answer";
        EXPECT_TRUE(outcome.preferences.starts_with("{") && outcome.preferences.ends_with("}"));
        code = outcome.code;
        ASSERT_LT(event, 100);
    }
    EXPECT_GT(event, 10) << "the note, the chooser, and a turn for each document";
}

TEST_F(FaultsTest, WithoutAHelperNothingOfItsNameIsRun) {
    Put("CS6", "8.0.1");
    Open("a.indd", 8, 0, "CS6");
    folder_.MakeFolder("strangers");
    for (const char* helper : {"open", "osascript", "ps"}) {
        const std::string stranger = folder_.Write(
            std::string("strangers/") + helper, "#!/bin/sh\n: > '" + (folder_ / "canary") + "'\n");
        ASSERT_EQ(chmod(stranger.c_str(), 0755), 0);
    }
    const std::string path = "PATH=" + (folder_ / "strangers") + ":/usr/bin:/bin";
    for (const char* helper : {"open", "osascript", "ps"}) {
        SCOPED_TRACE(helper);
        const std::string place = folder_ / (std::string("Dunvey.app/Contents/Helpers/") + helper);
        ASSERT_EQ(rename(place.c_str(), (folder_ / "kept").c_str()), 0);
        const Outcome outcome = Run({}, {path});
        EXPECT_TRUE(outcome.sent.empty());
        JudgeDocuments(outcome);
        EXPECT_NE(outcome.errors.find(place), std::string::npos) << outcome.errors;
        EXPECT_NE(access((folder_ / "canary").c_str(), F_OK), 0) << "a stranger was run";
        ASSERT_EQ(rename((folder_ / "kept").c_str(), place.c_str()), 0);
    }
    const Outcome outcome = Run({}, {path, "BASH_FUNC_open%%=() { : > canary; }"});
    EXPECT_EQ(outcome.sent, expected_) << "with all of them, neither programs nor functions";
}

TEST_F(FaultsTest, AShortageThatStaysIsNotWaitedForAtEachDocument) {
    Put("CS6", "8.0.1");
    for (int i = 0; i < 100; ++i)
        Open(std::to_string(i) + ".indd", 8, 0, "CS6");
    const Outcome outcome = Run({Kind::kPipe, 0, std::to_string(EMFILE)});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.sent.empty());
    JudgeDocuments(outcome);
    EXPECT_LT(ReadCounts()[Kind::kPipe], 150) << "attempts, of which most come behind a pause";
}

}  // namespace
}  // namespace dunvey
