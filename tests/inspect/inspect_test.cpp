#include <map>
#include <set>
#include <sstream>

#include "road/real_world.h"

namespace dunvey {
namespace {

using test::Words;

class InspectTest : public test::RealWorld {
 protected:
    using Row = std::vector<std::string>;
    using Rows = std::vector<Row>;

    /// Runs dunvey-inspect in the home folder and returns its exit code; what it prints is in
    /// `output_` and in the file "stderr".
    int Run(const Words& arguments, const std::string& language = "C") {
        const int code =
            Script("exec '" DUNVEY_INSPECT "' \"$@\" >stdout", arguments, {"LC_ALL=" + language});
        output_ = folder_.Read("stdout");
        return code;
    }

    static Row Split(const std::string& text, char separator) {
        Row pieces;
        std::istringstream stream(text);
        for (std::string piece; std::getline(stream, piece, separator);)
            pieces.push_back(piece);
        return pieces;
    }
    /// The columns of each line of --tsv.
    Rows Tabs(Words arguments) {
        arguments.insert(arguments.begin(), "--tsv");
        Run(arguments);
        Rows rows;
        for (const std::string& line : Split(output_, '\n'))
            rows.push_back(Split(line, '\t'));
        return rows;
    }

    /// Starts the main program on the documents and compares what it opened with what was
    /// announced, in one command for each version and application. Without a display it opens
    /// nothing that it would ask about.
    void ExpectTheSameOf(const Words& documents, const Rows& rows) {
        std::map<std::string, std::string> announced;
        std::set<std::string> commands;
        for (const Row& row : rows) {
            ASSERT_EQ(row.size(), 8U) << row[0];
            if (row[7] != "open") continue;
            announced[row[0]] = row[4];
            commands.insert(row[4] + row[1]);
        }
        EXPECT_EQ(Dunvey(documents), announced.size() < rows.size() ? 1 : 0);
        const std::vector<Record> records = AwaitRecords(commands.size());
        EXPECT_EQ(records.size(), commands.size());
        std::map<std::string, std::string> opened;
        for (const Record& record : records) {
            for (const std::string& document : record.arguments)
                opened[document] = record.executable.substr(0, record.executable.find("/Contents"));
        }
        EXPECT_EQ(opened, announced);
    }

    std::string output_;
};

TEST_F(InspectTest, SampleHeadersAreOpenedAsAnnounced) {
    const std::pair<const char*, const char*> kApplications[] = {
        {"2.0", ""},        {"CS", "3.0.1"}, {"CS5", "7.0.4"},
        {"CS5.5", "7.5.3"}, {"CC", "9.2.0"}, {"2021", "16.4.0"}};
    for (const auto& [suffix, version] : kApplications)
        Install(suffix, version);
    Words documents;
    // The first 48 bytes of real files, each behind its extension.
    std::ifstream samples(DUNVEY_SAMPLE_HEADERS);
    for (std::string extension, digits; samples >> extension >> digits;) {
        const std::string name = "sample " + std::to_string(documents.size()) + "." + extension;
        documents.push_back(folder_.Write(name, test::Bytes(digits)));
    }
    const Rows rows = Tabs(documents);
    Words found;
    for (const Row& row : rows)
        found.push_back(row[1] + " " + row[2] + " " + row[3]);
    EXPECT_EQ(found, (Words{"3.0 big CS", "2.0 little 2", "no-match big ", "no-marker  ",
                            "7.0 little CS5", "7.5 little CS5.5", "9.0 little CC",
                            "10.0 little CC 2014", "16.0 little 2021"}));
    EXPECT_EQ(rows[4][5], "7.5.3") << "the later of the two applications that match";
    EXPECT_EQ(rows[7][7], "ask-not-installed");
    ExpectTheSameOf(documents, rows);
}

TEST_F(InspectTest, ATreeOfDocumentsIsOpenedAsAnnounced) {
#ifdef DUNVEY_SANITIZED
    // The program reads the process list for each document, slowly with sanitizers.
    constexpr int kDocuments = 2'000;
#else
    constexpr int kDocuments = 10'000;
#endif
    Install("CS6", "8.0.1");
    Install("CC", "9.2.0");
    Words documents;
    for (int i = 0; i < kDocuments; ++i) {
        const std::string folder = "tree/" + std::to_string(i / 100);
        if (i % 100 == 0) folder_.MakeFolder(folder);
        documents.push_back(Document(folder + "/" + std::to_string(i) + ".indd", 8 + i % 2));
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
    AwaitRecords(1);
    Words decisions;
    for (const Row& row : Tabs({own, other, Document("missing.indd", 12)}))
        decisions.push_back(row[6] + " " + row[7]);
    EXPECT_EQ(decisions, (Words{"own open", "others ask-another-runs", "others ask-another-runs"}));
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
    for (const char* text : {"\"\\uFFFD\"", "\"a\\nb\\u001B.indd\"", "\"reason\":\"other-kind\""})
        EXPECT_NE(output_.find(text), std::string::npos) << output_;
    EXPECT_TRUE(output_.starts_with("[") && output_.ends_with("]\n")) << output_;
}

TEST_F(InspectTest, TheTableIsAlignedInBothLanguages) {
    Install("CS6", "8.0.1");
    Document("名前.indd", 8);
    Document("long name.indd", 9);
    ASSERT_EQ(Run({"名前.indd", "long name.indd"}), 0);
    const Row lines = Split(output_, '\n');
    ASSERT_EQ(lines.size(), 3U) << output_;
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
    for (const Words& wrong :
         {Words{}, {"--"}, {"-x.indd"}, {"--json", "--tsv", "a.indd"}, {"--no", "a.indd"}}) {
        EXPECT_EQ(Run(wrong), 2);
        EXPECT_EQ(output_, "");
        EXPECT_TRUE(folder_.Read("stderr").starts_with("dunvey-inspect: "));
    }
    EXPECT_EQ(Script("'" DUNVEY_INSPECT "' --help | :"), 0);
    EXPECT_EQ(folder_.Read("stderr"), "");
}

}  // namespace
}  // namespace dunvey
