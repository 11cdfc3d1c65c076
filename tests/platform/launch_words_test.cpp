#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/launch_documents.h"

namespace dunvey {
namespace {

TEST(LaunchWords, AWordIsAPathOrALocalFileUri) {
    const std::pair<const char*, const char*> kWords[] = {
        {"/a/b.indd", "/a/b.indd"},
        {"b c.indd", "b c.indd"},
        {"", ""},
        {"-psn_0_1", "-psn_0_1"},
        {"--help", "--help"},
        {"file:///a/b%20c.indd", "/a/b c.indd"},
        {"file:///a/%E6%97%A5.indd", "/a/\u65e5.indd"},
        {"FILE:///a%2fb", "/a/b"},
        {"file://localhost/a", "/a"},
        {"file://LocalHost/a", "/a"},
        {"file:/a", "/a"},
        {"file:///a%FF%0A", "/a\xFF\n"},
        {"file:///a#b?c", "/a#b?c"},
        // What is no local URI is a name like any other.
        {"file://server/a", "file://server/a"},
        {"file:a.indd", "file:a.indd"},
        {"file:///a%", "file:///a%"},
        {"file:///a%4", "file:///a%4"},
        {"file:///a%zz", "file:///a%zz"},
        {"file:///a%00b", "file:///a%00b"},
        {"file://", "file://"},
        {"file:", "file:"},
        {"http://host/a.indd", "http://host/a.indd"},
    };
    for (const auto& [word, path] : kWords)
        EXPECT_EQ(PathOfWord(word), path) << word;
    char own[256] = {};
    ASSERT_EQ(gethostname(own, sizeof own - 1), 0);
    EXPECT_EQ(PathOfWord("file://" + std::string(own) + "/a"), "/a") << own;
}

}  // namespace
}  // namespace dunvey
