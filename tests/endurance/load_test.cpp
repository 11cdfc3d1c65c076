#include <algorithm>
#include <cstdio>
#include <random>
#include <set>

#include "endurance/endurance.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

using test::Figure;
using test::ShortOrLong;

class Load : public test::Endurance {
 protected:
    /// So much memory is enough for any run, in MiB.
    static constexpr size_t kMostMemory = 32;

    static Words Shuffled(Words words) {
        std::mt19937 random(42);
        std::shuffle(words.begin(), words.end(), random);
        return words;
    }
    /// Those of the documents whose names begin with the prefix, in their order.
    Words Beginning(const Words& documents, const std::string& prefix) const {
        Words chosen;
        for (const std::string& document : documents)
            if (document.starts_with(folder_ / prefix)) chosen.push_back(document);
        return chosen;
    }
};

TEST_F(Load, ThousandsOfDocumentsOfFiveVersionsArriveOnceAndInOrder) {
    const std::map<int, std::string> kVersions = {
        {6, "CS4"}, {8, "CS6"}, {9, "CC"}, {14, "CC 2019"}, {16, "2021"}};
    for (const auto& [major, suffix] : kVersions)
        Install(suffix, std::to_string(major) + ".0.1");
    Words words;
    for (size_t i = 0; i < ShortOrLong(40, 2'000); ++i) {
        for (const auto& [major, suffix] : kVersions) {
            words.push_back(Document(
                "documents/" + std::to_string(major) + "-" + std::to_string(i) + ".indd", major));
        }
    }
    words = Shuffled(words);
    const Ended ended = AwaitEnd(Start(words));
    EXPECT_EQ(ended.exitCode, 0);
    ExpectPeakBelow(ended, kMostMemory, "KiB at the most for documents of five versions");
    const auto arrived = AwaitArrived(words.size());
    for (const auto& [major, suffix] : kVersions) {
        const auto documents = arrived.find(ExecutablePath(suffix));
        ASSERT_NE(documents, arrived.end()) << suffix;
        EXPECT_EQ(documents->second, Beginning(words, "documents/" + std::to_string(major) + "-"));
    }
    EXPECT_EQ(Records().size(), 5U) << "one start for each version";
    Tell(words.size(), CountOf(arrived));
}

/// Three hundred applications, named with everything that a careless command line can't hold.
class ManyApplications : public Load {
 protected:
    static constexpr size_t kInstalled = 300;
    /// Below 3 a version belongs to names of its own, a document's has one byte, and 7.5 is apart.
    static constexpr int kFirst = 8;
    static constexpr int kLast = 255;

    static Words Suffixes() {
        Words suffixes;
        for (const std::string& name : test::HostileNames())
            if (name.size() < 200) suffixes.push_back(name);
        while (suffixes.size() < kInstalled)
            suffixes.push_back("plain " + std::to_string(suffixes.size()));
        return suffixes;
    }
};

TEST_F(ManyApplications, GetTheirDocumentsUnderAnyName) {
    ASSERT_EQ(chdir((folder_ / "documents").c_str()), 0);
    Words suffixes = Suffixes();
    for (const std::string& suffix : suffixes)
        Install(suffix, "1.0");
    std::set<std::string> tried;
    size_t sent = 0;
    size_t received = 0;
    // Those without a version that a document can have get one in the second run.
    for (size_t run = 0; run < ShortOrLong(1, 2); ++run) {
        std::map<std::string, Words> expected;
        Words words;
        for (size_t i = 0; i < suffixes.size(); ++i) {
            const int major = kFirst + static_cast<int>(i);
            InstallList(suffixes[i], std::to_string(major) + ".0");
            if (major > kLast || i % ShortOrLong(8, 1) != 0) continue;
            words.push_back(Document("documents/" + suffixes[i] + ".indd", major));
            expected[ExecutablePath(suffixes[i])] = {words.back()};
            tried.insert(suffixes[i]);
        }
        const Ended ended = AwaitEnd(Start(Shuffled(words), {"DUNVEY_RECORD_EXIT=1"}));
        EXPECT_EQ(ended.exitCode, 0);
        const auto arrived = AwaitArrived(words.size());
        EXPECT_EQ(arrived, expected);
        ExpectPeakBelow(ended, kMostMemory, "KiB at the most for 300 installed versions");
        sent += words.size();
        received += CountOf(arrived);
        std::rotate(suffixes.begin(), suffixes.begin() + kInstalled / 2, suffixes.end());
        unlink((folder_ / "records").c_str());
    }
    for (const char* canary : {"documents/canary", "canary"})
        EXPECT_NE(access((folder_ / canary).c_str(), F_OK), 0) << canary;
    Figure("names tried", tried.size());
    Tell(sent, received);
}

TEST_F(Load, ARunningVersionIsFoundAmongFiveThousandProcesses) {
    Install("CS6", "8.0.1");
    Install("CC", "9.2.0");
    EXPECT_EQ(AwaitEnd(Start({Document("a.indd", 9)})).exitCode, 0);
    AwaitArrived(1);
    FILE* crowd = popen("exec '" DUNVEY_CROWD "' 5000", "r");
    ASSERT_NE(crowd, nullptr);
    char said[16] = "";
    if (fgets(said, sizeof said, crowd) == nullptr || std::string(said) != "ready\n")
        GTEST_SKIP() << "no room for so many processes";
    // The document's own version runs ahead of the crowd: nothing is asked. Any other document is
    // asked about.
    const Ended own = AwaitEnd(Start({folder_ / "a.indd"}));
    const Ended other = AwaitEnd(Start({Document("b.indd", 8)}));
    EndChildren();
    pclose(crowd);
    EXPECT_EQ(own.exitCode, 0);
    EXPECT_EQ(other.exitCode, 1);
    EXPECT_NE(folder_.Read("stderr").find("b.indd isn't opened"), std::string::npos);
    const size_t arrived = CountOf(AwaitArrived(2));
    EXPECT_EQ(arrived, 2U);
    ExpectPeakBelow(own, kMostMemory, "KiB at the most beside 5,000 processes");
    Tell(2, arrived);
}

TEST_F(Load, AHundredStartsAtOnceShareOneHome) {
    Install("CS6", "8.0.1");
    Install("CC", "9.2.0");
    const std::string preferences = folder_ / "config/Dunvey/Dunvey.pref";
    Words documents;
    std::vector<pid_t> starts;
    for (size_t i = 0; i < 100; ++i) {
        documents.push_back(Document(std::to_string(i) + ".indd", 8));
        starts.push_back(Start({documents.back()}, {"DUNVEY_RECORD_EXIT=1"}));
    }
    for (const pid_t start : starts)
        EXPECT_EQ(AwaitEnd(start).exitCode, 0);
    Words arrived = AwaitArrived(documents.size())[ExecutablePath("CS6")];
    Tell(documents.size(), arrived.size());
    std::sort(documents.begin(), documents.end());
    std::sort(arrived.begin(), arrived.end());
    EXPECT_EQ(arrived, documents);
    const std::string together = folder_.Read("config/Dunvey/Dunvey.pref");
    unlink(preferences.c_str());
    EXPECT_EQ(AwaitEnd(Start({documents[0]}, {"DUNVEY_RECORD_EXIT=1"})).exitCode, 0);
    EXPECT_EQ(together, folder_.Read("config/Dunvey/Dunvey.pref"));
}

}  // namespace
}  // namespace dunvey
