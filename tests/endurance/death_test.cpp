#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <random>
#include <set>

#include "endurance/endurance.h"
#include "endurance/stepper.h"

namespace dunvey {
namespace {

using test::Figure;
using test::ShortOrLong;
using test::Stepper;

/// Runs that are killed, and the start after each of them.
class Death : public test::Endurance {
 protected:
    Death() {
        Install("CS6", "8.0.1");
        Install("CC", "9.2.0");
        documents_ = {Document("a.indd", 8), Document("b.indd", 9)};
    }

    /// What every start needs whose end nobody knows.
    Words Mortal(const Words& extra = {}) const {
        Words variables = {"TMPDIR=" + folder_.Path() + "/tmp",
                           "XDG_RUNTIME_DIR=" + folder_.Path() + "/run",
                           "ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=1"};
        variables.insert(variables.end(), extra.begin(), extra.end());
        return variables;
    }

    Stepper::Outcome Step(const Words& words, const Words& extra, unsigned patience,
                          const Stepper::AtStep& atStep) {
        Words variables = Variables(Mortal(extra));
        Words arguments = Arguments(words);
        return Stepper::Run(program_, Pointers(arguments).data(), Pointers(variables).data(),
                            folder_ / "stderr", patience, atStep);
    }

    void SetPreferences(const std::string& text) {
        unlink(kPreferences_.c_str());
        if (text.empty()) {
            rmdir((folder_ / "config/Dunvey").c_str());
        } else {
            folder_.MakeFolder("config/Dunvey");
            folder_.Write("config/Dunvey/Dunvey.pref", text);
        }
    }
    std::string Preferences() const { return folder_.Read("config/Dunvey/Dunvey.pref"); }
    /// The text as a run without a question leaves it.
    std::string AfterARun(const std::string& text) {
        SetPreferences(text);
        EXPECT_EQ(AwaitEnd(Start(documents_, Mortal({"DUNVEY_RECORD_EXIT=1"}))).exitCode, 0);
        EXPECT_EQ(Stragglers(), "");
        unlink((folder_ / "records").c_str());
        return Preferences();
    }

    /// Every path below the folder of the test but those of the applications.
    std::set<std::string> Left(const std::string& folder = "") const {
        std::set<std::string> paths;
        DIR* entries = opendir((folder_ / folder).c_str());
        while (const dirent* entry = entries != nullptr ? readdir(entries) : nullptr) {
            const std::string name = entry->d_name;
            const std::string path = folder + name;
            if (name == "." || name == ".." || path == "Applications") continue;
            paths.insert(path);
            if (entry->d_type == DT_DIR) paths.merge(Left(path + "/"));
        }
        if (entries != nullptr) closedir(entries);
        return paths;
    }

    /// Looks at what a killed run has left behind; then the next start must work, and its
    /// preferences be one of the texts.
    void ExpectGoodAfterlife(const std::set<std::string>& preferences) {
        EXPECT_EQ(Stragglers(), "");
        static const std::set<std::string> kOwn = {"a.indd",
                                                   "b.indd",
                                                   "config",
                                                   "config/Dunvey",
                                                   "config/Dunvey/Dunvey.pref",
                                                   "documents",
                                                   "documents/missing.indd",
                                                   "records",
                                                   "run",
                                                   "stderr",
                                                   "tmp"};
        for (const std::string& path : Left())
            EXPECT_TRUE(kOwn.contains(path)) << path;
        EndChildren();
        unlink((folder_ / "records").c_str());
        EXPECT_EQ(AwaitEnd(Start(documents_, Mortal({"DUNVEY_RECORD_EXIT=1"}))).exitCode, 0);
        const auto arrived = AwaitArrived(documents_.size());
        const size_t count = CountOf(arrived);
        EXPECT_EQ(count, documents_.size());
        EXPECT_TRUE(preferences.contains(Preferences())) << Preferences();
        EXPECT_EQ(Stragglers(), "");
        sent_ += documents_.size();
        lost_ += Lost(documents_.size(), count);
        unlink((folder_ / "records").c_str());
    }

    void TellAll() const {
        Figure("kills survived", survived_);
        Figure("documents sent", sent_);
        Figure("documents lost", lost_);
    }

    const std::string kPreferences_ = folder_ / "config/Dunvey/Dunvey.pref";
    Words documents_;
    size_t survived_ = 0;
    size_t sent_ = 0;
    size_t lost_ = 0;
};

/// The number of kills, spread over the steps from first to last; all if there are fewer.
std::vector<size_t> Spread(size_t last, size_t kills) {
    std::vector<size_t> steps;
    const size_t count = std::min(last, kills);
    for (size_t i = 0; i < count; ++i)
        steps.push_back(1 + i * last / count);
    return steps;
}

TEST_F(Death, AtAnyStepOfARunTheNextStartWorks) {
    const std::string kChanged =
        "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":true,"
        "\"NonReleaseVersion\":%,\"IconVersion\":\"\"}";
    const auto changed = [&](const std::string& blanks) {
        std::string text = kChanged;
        return text.replace(text.find('%'), 1, "7" + blanks);
    };
    const std::string kDefaults = AfterARun("");
    const std::string kWhole = AfterARun(changed(""));
    ASSERT_NE(kWhole, kDefaults);
    struct Scenario {
        const char* name;
        std::string before;
        std::set<std::string> after;
    };
    const Scenario kScenarios[] = {
        {"a first run", "", {kDefaults}},
        {"nothing to change", kWhole, {kWhole}},
        {"the file grows", changed(""), {kWhole}},
        {"the file shrinks", changed(std::string(200, ' ')), {kWhole}},
    };
    for (const Scenario& scenario : kScenarios) {
        SCOPED_TRACE(scenario.name);
        SetPreferences(scenario.before);
        const auto all = Step(documents_, {}, 60, [](size_t) { return true; });
        ASSERT_EQ(all.exitCode, 0);
        ExpectGoodAfterlife({scenario.before.empty() ? kDefaults : kWhole});
        std::printf("%s: %zu steps\n", scenario.name, all.steps);
        for (const size_t last : Spread(all.steps, ShortOrLong(12, 1'000))) {
            SCOPED_TRACE(last);
            SetPreferences(scenario.before);
            const auto outcome =
                Step(documents_, {}, 60, [&](size_t step) { return step != last; });
            // No two runs are alike to the last step.
            EXPECT_TRUE(outcome.steps == last || outcome.exitCode == 0);
            ExpectGoodAfterlife(scenario.after);
            ++survived_;
        }
    }
    TellAll();
}

TEST_F(Death, AtAnyMomentNoHelperStaysBehind) {
    const std::string whole = AfterARun("");
    timespec begin{}, end{};
    clock_gettime(CLOCK_MONOTONIC, &begin);
    EXPECT_EQ(AwaitEnd(Start(documents_, Mortal())).exitCode, 0);
    clock_gettime(CLOCK_MONOTONIC, &end);
    ExpectGoodAfterlife({whole});
    const size_t length = static_cast<size_t>((end.tv_sec - begin.tv_sec) * 1'000'000 +
                                              (end.tv_nsec - begin.tv_nsec) / 1'000);
    std::vector<size_t> moments = Spread(length, ShortOrLong(15, 200));
    std::shuffle(moments.begin(), moments.end(), std::mt19937(42));
    for (const size_t moment : moments) {
        SCOPED_TRACE(std::to_string(moment) + " microseconds");
        const pid_t program = Start(documents_, Mortal());
        usleep(static_cast<useconds_t>(moment));
        kill(program, SIGKILL);
        AwaitEnd(program);
        ExpectGoodAfterlife({whole});
        ++survived_;
    }
    TellAll();
}

TEST_F(Death, WhileTheChooserIsUpOrOnItsWayTheNextStartWorks) {
    const std::string whole = AfterARun("");
    const Words kScreen = {"QT_QPA_PLATFORM=offscreen", "QT_LOGGING_RULES=*=false"};
    const Words kMissing = {documents_[0], Document("documents/missing.indd", 12)};
    const auto up = Step(kMissing, kScreen, 3, [](size_t) { return true; });
    ASSERT_TRUE(up.isIdle) << "the chooser waits for an answer: " << folder_.Read("stderr");
    ExpectGoodAfterlife({whole});
    std::printf("the chooser: %zu steps\n", up.steps);
    for (const size_t last : Spread(up.steps + up.steps / 10, ShortOrLong(6, 100))) {
        SCOPED_TRACE(last);
        Step(kMissing, kScreen, 3, [&](size_t step) { return step != last; });
        ExpectGoodAfterlife({whole});
        ++survived_;
    }
    TellAll();
}

}  // namespace
}  // namespace dunvey
