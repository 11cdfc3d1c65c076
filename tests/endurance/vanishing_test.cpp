#include <cstdio>

#include "endurance/endurance.h"
#include "endurance/stepper.h"

namespace dunvey {
namespace {

using test::Figure;
using test::ShortOrLong;
using test::Stepper;

/// An applications folder that may go away, or take its time, at every step of a run.
class Vanishing : public test::Endurance {
 protected:
    Vanishing() {
        Install("CS6", "8.0.1");
        Install("CC", "9.2.0");
        documents_ = {Document("a.indd", 8), Document("b.indd", 9)};
    }

    Stepper::Outcome Step(const Stepper::AtStep& atStep) {
        Words variables = Variables({"ASAN_OPTIONS=detect_leaks=0", "DUNVEY_RECORD_EXIT=1"});
        Words arguments = Arguments(documents_);
        return Stepper::Run(program_, Pointers(arguments).data(), Pointers(variables).data(),
                            folder_ / "stderr", 60, atStep);
    }
    void Move(const std::string& from, const std::string& to) const {
        EXPECT_EQ(rename((folder_ / from).c_str(), (folder_ / to).c_str()), 0);
    }

    /// Each document has arrived where it belongs, once, or it was said on standard error that it
    /// is left out or that its application can't be started.
    void ExpectNothingLost() {
        EXPECT_EQ(Stragglers(Applications::End), "");
        // Where an application runs from may have a new name meanwhile.
        std::map<std::string, Words> arrived;
        for (const auto& [executable, documents] : Arrived())
            arrived[executable.substr(executable.rfind('/') + 1)] = documents;
        const std::string said = folder_.Read("stderr");
        const std::map<std::string, Words> kPlaces = {{"Adobe InDesign CS6", {documents_[0]}},
                                                      {"Adobe InDesign CC", {documents_[1]}}};
        for (const auto& [name, documents] : kPlaces) {
            const bool isSaid =
                said.find(documents[0]) != said.npos || said.find(name) != said.npos;
            if (arrived[name] == documents || (arrived[name].empty() && isSaid)) continue;
            ADD_FAILURE() << name << ": " << testing::PrintToString(arrived[name]) << said;
            ++lost_;
        }
        sent_ += documents_.size();
        unlink((folder_ / "records").c_str());
    }

    Words documents_;
    size_t sent_ = 0;
    size_t lost_ = 0;
};

TEST_F(Vanishing, AFolderThatGoesAwayLosesNoDocumentInSilence) {
    const size_t steps = Step([](size_t) { return true; }).steps;
    ExpectNothingLost();
    std::printf("a run: %zu steps\n", steps);
    const size_t kTimes = ShortOrLong(16, steps);
    for (size_t i = 0; i < kTimes; ++i) {
        const size_t gone = 1 + i * steps / kTimes;
        // Sometimes it comes back.
        const size_t back = i % 2 == 0 ? gone + 1 + i % 16 : steps * 2;
        SCOPED_TRACE(std::to_string(gone) + " to " + std::to_string(back));
        bool isGone = false;
        const auto outcome = Step([&](size_t step) {
            if (step == gone) Move("Applications", "away");
            if (step == back) Move("away", "Applications");
            isGone = step >= gone && step < back;
            return true;
        });
        if (isGone) Move("away", "Applications");
        EXPECT_GE(outcome.exitCode, 0);
        EXPECT_FALSE(outcome.isIdle);
        ExpectNothingLost();
    }
    Figure("faults injected", kTimes);
    Figure("documents sent", sent_);
    Figure("documents lost", lost_);
}

TEST_F(Vanishing, ASlowFolderLosesNothing) {
    const auto outcome = Step([](size_t) {
        usleep(static_cast<useconds_t>(ShortOrLong(2'000, 50'000)));
        return true;
    });
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(CountOf(AwaitArrived(2)), 2U);
    ExpectNothingLost();
    EXPECT_EQ(lost_, 0U);
    Figure("documents sent", sent_);
    Figure("documents lost", lost_);
}

}  // namespace
}  // namespace dunvey
