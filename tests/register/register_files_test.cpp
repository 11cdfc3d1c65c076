#include <cstdint>

#include "register/register_world.h"
#include "support/icon_file.h"

namespace dunvey::test {
namespace {

/// What dunvey-register creates, leaves alone and removes.
class RegisterFilesTest : public RegisterWorld {
 protected:
    int RegisterOne(const Words& options = {}) { return Register(Call(kName, "8.0.1", options)); }
    /// Expects the exit code, a message and no change of the applications.
    void ExpectRefused(const Words& words, int code, const std::string& preparation = {},
                       const std::string& message = {}) {
        const std::string before = Tree();
        EXPECT_EQ(Register(words, preparation), code) << ::testing::PrintToString(words);
        const std::string errors = folder_.Read("stderr");
        EXPECT_TRUE(errors.starts_with("dunvey-register: ")) << errors;
        EXPECT_NE(errors.find(message), std::string::npos) << errors;
        EXPECT_EQ(Tree(), before) << ::testing::PrintToString(words);
    }
};

/// The beginning of an image of 128 by 128 pixels.
const std::string kImage = std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16) + BigEndian(128) +
                           BigEndian(128) + std::string(900, 'p');

TEST_F(RegisterFilesTest, WrongArgumentsCreateNothing) {
    const std::string tooLong = "Adobe InDesign " + std::string(237, 'x');
    for (const char* name :
         {"", ".", "..", "CS6", "Adobe InDesign", "Adobe InDesign ", "Adobe InDesignCS6",
          "adobe indesign CS6", " Adobe InDesign CS6", "../Adobe InDesign CS6",
          "Adobe InDesign CS6/x", "Adobe InDesign /../../x", "Adobe InDesign a\nb",
          "Adobe InDesign \x1B[2J", "Adobe InDesign \xFF", "Adobe InDesign \xEF\xBF\xBE",
          tooLong.c_str()}) {
        ExpectRefused(Call(name, "8.0.1"), 2);
        ExpectRefused({"--remove", name}, 2);
    }
    for (const char* version : {"", ".", "8.", ".8", "8..1", "8a", "-8", " 8", "8\n", "x", "08.1"})
        ExpectRefused(Call(kName, version), 2);
    for (const Words& words : {Words(),
                               {"--list", "x"},
                               {"--remove"},
                               {"list"},
                               Call(kName, "8", {}, {}),
                               Call(kName, "8", {}, {""}),
                               Call(kName, "8", {"-x"}),
                               Call(kName, "8", {"--name", kName})})
        ExpectRefused(words, 2);
}

TEST_F(RegisterFilesTest, WhatItDidNotCreateStays) {
    folder_.MakeFolder("elsewhere");
    folder_.MakeFolder("Applications");
    ASSERT_EQ(Register(Call("Adobe InDesign 2021", "16")), 0);
    // Each creates an entry of the name; the last two lead to an application that is registered.
    const char* kScripts[] = {
        "mkdir \"$1\"; echo mine >\"$1/$1.app\"",
        "mkdir -p \"$1/$1.app/Contents/MacOS\"; cp \"$HOME/foreign\" "
        "\"$1/$1.app/Contents/Info.plist\"",
        "mkdir -p \"$1/$1.app/Contents\"; mkfifo \"$1/$1.app/Contents/Info.plist\"",
        "echo mine >\"$1\"",
        "ln -s \"$HOME/elsewhere\" \"$1\"",
        "ln -s \"$HOME/nowhere\" \"$1\"",
        "mkdir \"$1\"; ln -s \"$HOME/nowhere\" \"$1/$1.app\"",
        "mkdir \"$1\"; ln -s '../Adobe InDesign 2021/Adobe InDesign 2021.app' \"$1/$1.app\"",
        "cp -a 'Adobe InDesign 2021/Adobe InDesign 2021.app' \"$HOME/elsewhere/$1.app\"; "
        "ln -s \"$HOME/elsewhere\" \"$1\""};
    folder_.Write("foreign",
                  "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key>"
                  "<string>DunveyRegisterCommand</string></dict></plist>");
    for (const char* script : kScripts) {
        ASSERT_EQ(Script(std::string("cd Applications; ") + script, {kName}), 0) << script;
        ExpectRefused(Call(kName, "8.0.1"), 1);
        ExpectRefused({"--remove", kName}, 1);
        EXPECT_EQ(List(), "Adobe InDesign 2021  16  /bin/true\n");
        ASSERT_EQ(Script("rm -r \"Applications/$1\"", {kName}), 0) << script;
    }
    ExpectRefused({"--remove", kName}, 1);
}

TEST_F(RegisterFilesTest, RenewalAndRemovalKeepTheUsersFiles) {
    const std::string icon = BundleOf(kName) + "/Contents/Resources/Application.icns";
    folder_.Write("image.png", kImage);
    ASSERT_EQ(Script("mkdir \"Applications/$1\"; echo mine >\"Applications/$1/notes\"", {kName}),
              0);
    const std::string before = Tree();
    ASSERT_EQ(RegisterOne({"--icon", "image.png"}), 0) << folder_.Read("stderr");
    ASSERT_EQ(RegisterCommand(kName, "8.1", {"/bin/sh", "-c", "true"}), 0);
    EXPECT_EQ(List(), "Adobe InDesign CS6  8.1  /bin/sh -c true\n");
    EXPECT_EQ(folder_.Read(icon), IconFile({IconPart("ic07", kImage)}));
    EXPECT_TRUE(Has(BundleOf(kName) + "/Contents/Info.plist", "Application.icns"));
    ASSERT_EQ(Register({"--remove", kName}), 0);
    EXPECT_EQ(Tree(), before);

    ASSERT_EQ(RegisterOne(), 0);
    folder_.Write(BundleOf(kName) + "/Contents/MacOS/plug-in", "mine");
    ASSERT_EQ(Register({"--remove", kName}), 0);
    EXPECT_TRUE(Has("stderr", BundleOf(kName))) << "it isn't empty";
    EXPECT_EQ(List(), "");
    ASSERT_EQ(Script("cd \"$1\"; find . -type f >\"$HOME/left\"", {BundleOf(kName)}), 0);
    EXPECT_EQ(folder_.Read("left"), "./Contents/MacOS/plug-in\n");
}

TEST_F(RegisterFilesTest, FailureLeavesNothingBehind) {
    // Files are limited to 8 KiB: first the icon is longer, then the script.
    const char* const limit = "ulimit -f 16;";
    folder_.Write("icon", kImage + std::string(9000, 'p'));
    ExpectRefused(Call(kName, "8", {"--icon", "icon"}), 1, limit);
    const Words longCall = Call(kName, "8", {}, {"/bin/true", std::string(9000, 'x')});
    ExpectRefused(longCall, 1, limit);
    // What was registered before is unchanged.
    ASSERT_EQ(RegisterOne(), 0);
    ExpectRefused(longCall, 1, limit);

    for (const char* command : {"no-such-program", "/", "./icon", "/bin/true/x", "Applications"})
        ExpectRefused(Call(kName, "8", {}, {command}), 1);
    ExpectRefused(
        Call("Adobe InDesign CC", "9"), 1,
        "mv Applications a; echo >Applications; trap 'rm Applications; mv a Applications' "
        "EXIT; '" DUNVEY_REGISTER "' \"$@\"; exit;");
}

TEST_F(RegisterFilesTest, LinksInABundleAreNotFollowed) {
    folder_.Write("icon", kImage);
    for (const std::string linked : {"MacOS", "Resources"}) {
        const Words arguments = {BundleOf(kName), kName, linked};
        ASSERT_EQ(RegisterOne(), 0) << folder_.Read("stderr");
        ASSERT_EQ(Script("mkdir mine; echo mine | tee mine/Application.icns >\"mine/$2\"; "
                         "cd \"$1/Contents\"; rm -rf $3; ln -s \"$HOME/mine\" $3",
                         arguments),
                  0);
        ExpectRefused(Call(kName, "8.1", {"--force", "--icon", "icon"}), 1);
        EXPECT_EQ(Register({"--remove", kName}), 0) << folder_.Read("stderr");
        EXPECT_EQ(List(), "");
        ASSERT_EQ(Script("cat mine/* >left; rm -r mine \"Applications/$2\"", arguments), 0);
        EXPECT_EQ(folder_.Read("left"), "mine\nmine\n") << linked;
    }
}

TEST_F(RegisterFilesTest, FilesThatTheUserChangedStay) {
    const std::string icon = BundleOf(kName) + "/Contents/Resources/Application.icns";
    const std::string script = ScriptOf(kName);
    folder_.Write("icon", kImage);
    ASSERT_EQ(RegisterOne(), 0);
    folder_.MakeFolder(BundleOf(kName) + "/Contents/Resources");
    folder_.Write(icon, "mine");
    ASSERT_EQ(RegisterOne(), 0) << "a renewal without an icon keeps the icon";
    ExpectRefused(Call(kName, "8", {"--icon", "icon"}), 1);
    folder_.Write(script, folder_.Read(script) + "# mine\n");
    ExpectRefused(Call(kName, "8"), 1);
    EXPECT_EQ(Register({"--remove", kName}), 0);
    EXPECT_EQ(folder_.Read(icon), "mine");
    EXPECT_TRUE(folder_.Read(script).ends_with("# mine\n"));
    EXPECT_EQ(folder_.Read(BundleOf(kName) + "/Contents/Info.plist"), "");
}

TEST_F(RegisterFilesTest, QuestionableVersionsNeedForce) {
    ASSERT_EQ(Register(Call("Adobe InDesign CC 2019", "14.0.1")), 0);
    // A questionable version and a right one.
    const char* const kRows[][3] = {
        {"CS4", "9", "6.0.1"}, {"CS5", "7.5.1", "7.0.4"}, {"CS5.5", "7.0.4", "7.5"},
        {"CC", "14", "9.2"},   {"2021", "2021", "16"},    {"CC 2018", "14", "13"},
        {"2.0", "8", "2.0.2"}, {"CS6 Beta", "9", "8"},    {"Beta", "14.5", "10"}};
    for (const auto& [suffix, questionable, right] : kRows) {
        const std::string name = std::string("Adobe InDesign ") + suffix;
        ExpectRefused(Call(name, questionable), 1, {}, "--force");
        EXPECT_EQ(Register(Call(name, questionable, {"--force"})), 0) << suffix;
        EXPECT_EQ(Register({"--remove", name}), 0) << suffix;
        EXPECT_EQ(Register(Call(name, right)), 0) << suffix;
    }
}

TEST_F(RegisterFilesTest, ConcurrentAndKilledRenewalsNeverMixVersionAndCommand) {
    const char* const script = R"(
        register() {
            ')" DUNVEY_REGISTER R"(' --force --name "$1" --version "$2" "$3" >/dev/null
        }
        bundle="Applications/$1/$1.app/Contents"
        register "$1" 8 /bin/true
        for i in 1 2 3 4 5 6 7 8 9 10; do
            register "$1" 8 /bin/true & register "$1" 9 /bin/false &
            [ $((i % 2)) = 0 ] || { sleep 0.005; kill -9 $!; } 2>/dev/null
            wait
            cat "$bundle/Info.plist" "$bundle/MacOS/$1" | grep -E '<string>[89]<|run /bin' | xargs
        done | grep -e '8<.*false' -e '9<.*true'
        register "$1" 8 /bin/true
        ls -A Applications)";
    // A process that is killed between two renames may leave the application without a script.
    EXPECT_EQ(Script(std::string("{ ") + script + "\n} >left 2>errors", {kName}), 0);
    EXPECT_EQ(folder_.Read("left"), std::string(kName) + "\n") << folder_.Read("errors");
}

TEST_F(RegisterFilesTest, ListIsSortedAndAlignedAndMarksWhatIsMissing) {
    ASSERT_EQ(Script("rmdir Applications"), 0);
    EXPECT_EQ(List(), "");
    ASSERT_EQ(Script("cp /bin/true start"), 0);
    ASSERT_EQ(Register(Call("Adobe InDesign 2021", "16")), 0);
    ASSERT_EQ(Register({"--name=Adobe InDesign CS6", "--version=8.0.1", "./start", "-x"}), 0);
    ASSERT_EQ(Script("rm start"), 0);
    const std::string start = folder_ / "start";
    EXPECT_EQ(List(), "Adobe InDesign CS6   8.0.1  " + start + " -x  (missing: " + start +
                          ")\nAdobe InDesign 2021  16     /bin/true\n");
    ASSERT_EQ(Script("rm -r Applications; echo >Applications"), 0);
    EXPECT_EQ(Register({"--list"}), 1);
    EXPECT_TRUE(Has("stderr", "Not a directory"));
}

}  // namespace
}  // namespace dunvey::test
