#include <dirent.h>
#include <sys/stat.h>

#include "endurance/endurance.h"
#include "road/display.h"

namespace dunvey {
namespace {

/// The program and its helpers under a checker of memory, which the sanitizers' build can't have.
class Valgrind : public test::Endurance {
 protected:
    void SetUp() override {
        Endurance::SetUp();
#ifdef DUNVEY_SANITIZED
        GTEST_SKIP() << "This build has checkers of its own.";
#endif
        if (!test::IsSoak() || system("command -v valgrind >/dev/null") != 0)
            GTEST_SKIP() << "Takes its time: part of tools/soak.";
        folder_.MakeFolder("found");
        program_ = folder_.Write(
            "checked",
            "#!/bin/sh\n"
            "exec valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite "
            "--show-leak-kinds=definite --suppressions='" DUNVEY_SUPPRESSIONS
            "' --trace-children=yes "
            "'--trace-children-skip=/bin/*,/usr/bin/*,*/Applications/*' "
            "--log-file='" +
                folder_.Path() + "/found/%p' '" + program_ + "' \"$@\"\n");
        chmod(program_.c_str(), 0755);
        Install("CS6", "8.0.1");
        Install("CC", "9.2.0");
    }

    /// What each process found, the program's and its helpers'; empty texts if nothing is wrong.
    Words Found() const {
        Words found;
        DIR* entries = opendir((folder_ / "found").c_str());
        while (const dirent* entry = entries != nullptr ? readdir(entries) : nullptr)
            if (entry->d_name[0] != '.')
                found.push_back(folder_.Read(std::string("found/") + entry->d_name));
        if (entries != nullptr) closedir(entries);
        return found;
    }
    void ExpectNothingFound(size_t leastProcesses) const {
        const Words found = Found();
        EXPECT_GE(found.size(), leastProcesses);
        for (const std::string& text : found)
            EXPECT_EQ(text, "");
    }
};

TEST_F(Valgrind, FindsNothingInRunsWithoutAScreen) {
    const Words documents = {Document("a.indd", 8), Document("b.indd", 9), Document("c.indb", 8),
                             folder_.Write("d.indl", "nothing")};
    for (const std::string preferences : {"", "{\"AllowOpenHigherVersion\":true}", "[[["}) {
        if (!preferences.empty()) folder_.Write("config/Dunvey/Dunvey.pref", preferences);
        EXPECT_EQ(AwaitEnd(Start(documents)).exitCode, 1) << "one must be asked about";
    }
    EXPECT_EQ(Stragglers(), "");
    // The program, the process list for each document, and two starts.
    ExpectNothingFound(3 * (1 + 4 + 2));
    EXPECT_GE(CountOf(AwaitArrived(6)), 6U);
}

TEST_F(Valgrind, FindsNothingInAChooser) {
    const test::Display screen(test::Display::Manager::Openbox);
    const pid_t program =
        Start({Document("a.indd", 8), Document("missing.indd", 12)},
              {"DISPLAY=" + screen.Name(), "XDG_RUNTIME_DIR=" + folder_.Path() + "/run",
               "QT_LOGGING_RULES=*=false"});
    const std::string title = "Marlit Id - Notification";
    for (int i = 0; i < 600 && screen.Ask("getwindowfocus getwindowname") != title; ++i)
        usleep(200'000);
    sleep(5);
    EXPECT_TRUE(screen.Do("key Escape"));
    EXPECT_EQ(AwaitEnd(program).exitCode, 0);
    ExpectNothingFound(1 + 3 + 1);
    EXPECT_EQ(CountOf(AwaitArrived(1)), 1U);
}

}  // namespace
}  // namespace dunvey
