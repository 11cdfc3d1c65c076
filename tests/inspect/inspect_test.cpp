#include <array>
#include <map>
#include <set>

#include "road/real_world.h"

namespace dunvey {
namespace {

class InspectTest : public test::RealWorld {
 protected:
    using Row = std::vector<std::string>;
    using Rows = std::vector<Row>;

    /// Runs dunvey-inspect and returns its exit code; what it prints is in `output` and in the file
    /// "errors".
    int Run(const std::vector<std::string>& arguments, const std::string& language = "C") {
        std::string command = "cd '" + folder_.Path() + "'; env -i";
        for (const std::string& variable : Variables({"LC_ALL=" + language}))
            command += " '" + variable + "'";
        command += " '" DUNVEY_INSPECT "'";
        for (const std::string& argument : arguments)
            command += " '" + argument + "'";
        command += " 2>errors";
        output_.clear();
        FILE* const pipe = popen(command.c_str(), "r");
        std::array<char, 4096> block;
        while (const size_t got = fread(block.data(), 1, block.size(), pipe))
            output_.append(block.data(), got);
        return WEXITSTATUS(pclose(pipe));
    }

    static Row Split(const std::string& text, char separator) {
        Row pieces(1);
        for (const char c : text) {
            if (c == separator) {
                pieces.emplace_back();
            } else {
                pieces.back() += c;
            }
        }
        return pieces;
    }
    /// The columns of each line of --tsv.
    Rows Tabs(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "--tsv");
        Run(arguments);
        Rows rows;
        for (const std::string& line : Split(output_, '\n')) {
            if (!line.empty()) rows.push_back(Split(line, '\t'));
        }
        return rows;
    }

    /// Starts the main program on the documents and compares what it opened with what was
    /// announced. Without a screen it opens nothing that it would ask about.
    void ExpectTheSameOf(const std::vector<std::string>& documents, const Rows& rows) {
        std::map<std::string, std::string> announced;
        std::set<std::string> applications;
        bool asks = false;
        for (const Row& row : rows) {
            ASSERT_EQ(row.size(), 8U) << row[0];
            const bool opens = row[7] == "open";
            asks = asks || !opens;
            if (opens) announced[row[0]] = row[4];
            if (opens) applications.insert(row[4]);
        }
        EXPECT_EQ(Dunvey(documents), asks ? 1 : 0);
        std::map<std::string, std::string> opened;
        for (const Record& record : AwaitRecords(applications.size())) {
            for (const std::string& document : record.arguments)
                opened[document] = record.executable.substr(0, record.executable.find("/Contents"));
        }
        EXPECT_EQ(opened, announced);
    }

    std::string output_;
};

TEST_F(InspectTest, SampleHeadersGoWhereItIsAnnounced) {
    const std::pair<const char*, const char*> kApplications[] = {
        {"2.0", ""},        {"CS", "3.0.1"}, {"CS5", "7.0.4"},
        {"CS5.5", "7.5.3"}, {"CC", "9.2.0"}, {"2021", "16.4.0"}};
    for (const auto& [suffix, version] : kApplications)
        Install(suffix, version);
    std::vector<std::string> documents;
    for (const test::SampleHeader& sample : test::kSampleHeaders) {
        const std::string name = "sample " + std::to_string(documents.size());
        documents.push_back(
            folder_.Write(name + "." + sample.extension, test::Bytes(sample.hexadecimal)));
    }
    const Rows rows = Tabs(documents);
    ASSERT_EQ(rows.size(), documents.size());
    const std::string kFound[] = {"3.0 big CS",    "2.0 little 2",        "no-match big ",
                                  "no-marker  ",   "7.0 little CS5",      "7.5 little CS5.5",
                                  "9.0 little CC", "10.0 little CC 2014", "16.0 little 2021"};
    for (size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i][1] + " " + rows[i][2] + " " + rows[i][3], kFound[i]) << i;
    EXPECT_EQ(rows[4][5], "7.5.3") << "the later of the two applications that match";
    EXPECT_EQ(rows[7][7], "ask-not-installed");
    ExpectTheSameOf(documents, rows);
}

TEST_F(InspectTest, ATreeOfDocumentsGoesWhereItIsAnnounced) {
#ifdef DUNVEY_SANITIZED
    // The program reads the process list for each document, slowly with sanitizers.
    constexpr int kDocuments = 2'000;
#else
    constexpr int kDocuments = 10'000;
#endif
    Install("CS6", "8.0.1");
    Install("CC", "9.2.0");
    std::vector<std::string> documents;
    for (int i = 0; i < kDocuments; ++i) {
        if (i % 100 == 0) folder_.MakeFolder("tree/" + std::to_string(i / 100));
        documents.push_back(Document(
            "tree/" + std::to_string(i / 100) + "/" + std::to_string(i) + ".indd", 8 + i % 2));
    }
    ASSERT_EQ(symlink("..", (folder_ / "tree/7/loop").c_str()), 0);
    folder_.Write("tree/note.txt", "");
    const Rows rows = Tabs({"--recursive", folder_ / "tree"});
    EXPECT_EQ(rows.size(), documents.size());
    ExpectTheSameOf(documents, rows);
}

TEST_F(InspectTest, RunningVersionsDecideAsInTheMainProgram) {
    Install("CS6", "8.0.1");
    Install("CC", "9.2.0");
    const std::string own = Document("own.indd", 8);
    const std::string other = Document("other.indd", 9);
    ASSERT_EQ(Dunvey({own}), 0);
    ASSERT_EQ(AwaitRecords(1).size(), 1U);
    const Rows rows = Tabs({own, other, Document("missing.indd", 12)});
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0][6] + " " + rows[0][7], "own open");
    EXPECT_EQ(rows[1][6] + " " + rows[1][7], "others ask-another-runs");
    EXPECT_EQ(rows[2][6] + " " + rows[2][7], "others ask-another-runs");
    EXPECT_EQ(Dunvey({other}), 1);
    EXPECT_EQ(Records().size(), 1U);
}

TEST_F(InspectTest, FilesThatAreNoDocumentsGetTheirReason) {
    ASSERT_EQ(mkfifo((folder_ / "fifo.indd").c_str(), 0600), 0);
    folder_.MakeFolder("folder");
    Document("folder/-x.indd", 8);
    folder_.Write("cut.indl", std::string("x") + "LIBRARY4\x02");
    folder_.Write("note.txt", "");
    Document("a\nb\x1B.indd", 8);
    const Rows rows = Tabs(
        {"gone.indd", "fifo.indd", "/dev/zero", "folder", "note.txt", "cut.indl", "a\nb\x1B.indd"});
    std::string reasons;
    for (const Row& row : rows)
        reasons += row[1] + " ";
    EXPECT_EQ(reasons, "missing not-regular not-regular folder other-kind no-match 8.0 ");
    EXPECT_EQ(rows[6][0], "a?b?.indd");
    EXPECT_EQ(Run({"--version-only", "--recursive", "folder", "cut.indl"}), 0);
    EXPECT_EQ(output_, "8.0\n-\n");
    EXPECT_EQ(Run({"--version-only", "cut.indl", "gone.indd"}), 1);
    EXPECT_EQ(Run({"--json", "a\nb\x1B.indd", "note.txt", "\xFF"}), 1);
    EXPECT_NE(output_.find("\"\\uFFFD\""), std::string::npos) << output_;
    EXPECT_NE(output_.find("\"a\\nb\\u001B.indd\""), std::string::npos) << output_;
    EXPECT_NE(output_.find("\"reason\":\"other-kind\""), std::string::npos) << output_;
    EXPECT_EQ(Run({"--json", "--recursive", "folder"}), 0);
    EXPECT_TRUE(output_.starts_with("[") && output_.ends_with("]\n")) << output_;
}

TEST_F(InspectTest, TheTableIsAlignedInBothLanguages) {
    Install("CS6", "8.0.1");
    Document("名前.indd", 8);
    Document("long name.indd", 9);
    ASSERT_EQ(Run({"名前.indd", "long name.indd"}), 0);
    Row lines = Split(output_, '\n');
    ASSERT_EQ(lines.size(), 4U) << output_;
    EXPECT_EQ(lines[0].find("Version"), lines[2].find("9.0"));
    // Each of the two characters takes three bytes and two columns.
    EXPECT_EQ(lines[0].find("Version") + 2, lines[1].find("8.0"));
    EXPECT_NE(lines[2].find("asks: this version is not installed"), std::string::npos);
    ASSERT_EQ(Run({"long name.indd"}, "ja_JP.UTF-8"), 0);
    EXPECT_NE(output_.find("このバージョンは"), std::string::npos) << output_;
}

TEST_F(InspectTest, ArgumentsAndABrokenPipe) {
    Document("-x.indd", 8);
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_TRUE(output_.starts_with("Usage: dunvey-inspect "));
    EXPECT_EQ(Run({"--version-only", "--", "-x.indd"}), 0);
    EXPECT_EQ(output_, "8.0\n");
    using Arguments = std::vector<std::string>;
    for (const Arguments& wrong :
         {Arguments{}, {"--"}, {"-x.indd"}, {"--json", "--tsv", "a.indd"}, {"--no", "a.indd"}}) {
        EXPECT_EQ(Run(wrong), 2);
        EXPECT_EQ(output_, "");
        EXPECT_TRUE(folder_.Read("errors").starts_with("dunvey-inspect: "));
    }
    EXPECT_EQ(system(("'" DUNVEY_INSPECT "' --help 2>'" + (folder_ / "errors") + "' | :").c_str()),
              0);
    EXPECT_EQ(folder_.Read("errors"), "");
}

}  // namespace
}  // namespace dunvey
