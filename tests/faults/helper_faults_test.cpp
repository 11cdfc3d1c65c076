#include <cstring>

#include "faults/fault_world.h"

namespace dunvey {
namespace {

using test::Fault;
using test::IsSoak;
using test::Kind;

/// The helpers by themselves, on a bundle with a real program.
class HelperFaultsTest : public test::FaultWorld {
 protected:
    void SetUp() override {
        FaultWorld::SetUp();
        Install("CS6", "8.0.1");
    }

    struct Outcome {
        int code = 0;
        std::string errors;
    };

    /// Starts the helper with one of its calls failing and waits for its end. Its standard output
    /// goes to the file "output".
    Outcome Run(const char* helper, const std::vector<std::string>& words, const Fault& fault,
                const std::string& below = {}) {
        const std::string name = std::strrchr(helper, '/') + 1;
        std::string command = "exec env '" + std::string(helper) + "'";
        for (const std::string& word : words)
            command += " '" + word + "'";
        program_ = "/bin/sh";
        std::vector<std::string> variables = FaultVariables(name, fault, below);
        const int code = Dunvey({"-c", command + " > '" + (folder_ / "output") + "'"}, variables);
        return {code, folder_.Read("stderr")};
    }

    /// Starts the application beforehand; returns its process.
    pid_t StartApplication() {
        EXPECT_EQ(Run(DUNVEY_OPEN, {"-a", folder_ / Bundle("CS6"), "/x.indd"}, {}).code, 0);
        const std::vector<Record> records = AwaitRecords(1);
        return records.empty() ? 0 : records[0].process;
    }

    void EndApplications() {
        EndAll();
        while (waitpid(-1, nullptr, WNOHANG) > 0)
            continue;
        remove((folder_ / "records").c_str());
    }

    static std::string LineOf(const std::string& path) { return "\n" + path + "\n"; }
};

TEST_F(HelperFaultsTest, PsListsARunningApplicationOrFails) {
    const pid_t process = StartApplication();
    const auto judge = [&](const Fault& fault, const std::string& below) {
        const Outcome outcome = Run(DUNVEY_PS, {"-ax", "-o", "comm"}, fault, below);
        const bool isListed =
            folder_.Read("output").find(LineOf(ExecutablePath("CS6"))) != std::string::npos;
        if (fault.IsHarmless()) {
            EXPECT_EQ(outcome.code, 0);
            EXPECT_EQ(outcome.errors, "");
        }
        if (outcome.code == 0) {
            EXPECT_TRUE(isListed);
        } else {
            EXPECT_EQ(outcome.code, 1);
            EXPECT_NE(outcome.errors, "");
        }
        EXPECT_FALSE(fault.IsHarmless() && !isListed);
    };
    // The processes of the machine come and go, so of what is read of them only the application's
    // files are counted.
    const std::string below = std::to_string(process) + "/";
    judge({}, below);
    Counts counts = ReadCounts();
    for (const Kind kind : {Kind::kFolder, Kind::kEntry, Kind::kWrite})
        counts.erase(kind);
    ASSERT_GT(counts[Kind::kOpen], 0);
    Sweep(counts, [&](const Fault& fault) { judge(fault, below); });
    judge({}, "");
    counts = ReadCounts();
    std::erase_if(counts, [](const auto& row) {
        return row.first != Kind::kFolder && row.first != Kind::kEntry && row.first != Kind::kWrite;
    });
    counts[Kind::kOpen] = 1;
    if (!IsSoak()) counts[Kind::kEntry] = std::min(counts[Kind::kEntry], 10);
    Sweep(counts, [&](const Fault& fault) { judge(fault, ""); });
    EndApplications();
}

TEST_F(HelperFaultsTest, OpenStartsOnceWithAllFilesOrNamesThem) {
    const std::vector<std::string> words = {"-a", folder_ / Bundle("CS6"), "/a/one.indd",
                                            "/a/two.indd"};
    const auto judge = [&](const Fault& fault) {
        const Outcome outcome = Run(DUNVEY_OPEN, words, fault);
        const std::vector<Record> records = outcome.code == 0 ? AwaitRecords(1) : Records();
        if (outcome.code == 0) {
            sent_ += 2;
            ASSERT_EQ(records.size(), 1U) << outcome.errors;
            EXPECT_EQ(records[0].arguments, (std::vector<std::string>{words[2], words[3]}));
        } else {
            EXPECT_EQ(outcome.code, 1) << outcome.errors;
            EXPECT_EQ(records.size(), 0U);
            for (const std::string& file : {words[2], words[3]}) {
                const bool isNamed = outcome.errors.find(file) != std::string::npos;
                EXPECT_TRUE(isNamed) << outcome.errors;
                ++(isNamed ? named_ : lost_);
            }
        }
        if (fault.IsHarmless()) {
            EXPECT_EQ(outcome.code, 0);
            EXPECT_EQ(outcome.errors, "");
        }
        EndApplications();
    };
    judge({});
    Counts counts = ReadCounts();
    // The child's calls come behind those of its parent, which alone are told.
    for (const Kind kind : {Kind::kSpawn, Kind::kWrite, Kind::kOpen, Kind::kClose})
        counts[kind] += 2;
    Sweep(counts, judge);
    for (const Fault& fault : {Fault{Kind::kEnter, 1, std::to_string(EACCES)},
                               {Kind::kEnter, 0, std::to_string(EACCES)}}) {
        SCOPED_TRACE(fault.Text());
        judge(fault);
        EXPECT_EQ(folder_.Read("stderr").empty(), fault.position == 1) << "any folder will do";
    }
}

TEST_F(HelperFaultsTest, OpenFindsARunningApplicationAndStartsNoOther) {
    StartApplication();
    const auto judge = [&](const Fault& fault) {
        const Outcome outcome = Run(DUNVEY_OPEN, {folder_ / Bundle("CS6")}, fault);
        EXPECT_TRUE(outcome.code == 0 || (outcome.code == 1 && !outcome.errors.empty()));
        EXPECT_TRUE(outcome.code == 0 || !fault.IsHarmless()) << outcome.errors;
        EXPECT_EQ(Records().size(), 1U) << "started again";
        if (Records().size() == 1) return;
        EndApplications();
        StartApplication();
    };
    judge({});
    Counts counts = ReadCounts();
    if (!IsSoak()) counts[Kind::kEntry] = std::min(counts[Kind::kEntry], 10);
    Sweep(counts, judge);
    EndApplications();
}

}  // namespace
}  // namespace dunvey
