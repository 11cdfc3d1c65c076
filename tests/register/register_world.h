#pragma once

#include <string>
#include <vector>

#include "road/real_world.h"

namespace dunvey::test {

using Words = std::vector<std::string>;

/// A home folder in which dunvey-register runs as for a user.
class RegisterWorld : public RealWorld {
 protected:
    static constexpr const char* kName = "Adobe InDesign CS6";

    /// Runs a shell script with the words as its arguments; returns its exit code.
    int Script(const std::string& script, const Words& words = {}) {
        const std::string program = std::exchange(program_, "/bin/sh");
        Words all = {"-c", "cd \"$HOME\"; " + script, "script"};
        all.insert(all.end(), words.begin(), words.end());
        const int code = Dunvey(all);
        program_ = program;
        return code;
    }

    /// Runs dunvey-register after a shell command. Its output is in the files "stdout" and
    /// "stderr".
    int Register(const Words& words, const std::string& preparation = {}) {
        return Script(preparation + " exec '" DUNVEY_REGISTER "' \"$@\" >stdout", words);
    }

    int RegisterCommand(const std::string& name, const std::string& version, const Words& command,
                        const Words& options = {}) {
        Words words = {"--name", name, "--version", version};
        words.insert(words.end(), options.begin(), options.end());
        words.emplace_back("--");
        words.insert(words.end(), command.begin(), command.end());
        return Register(words);
    }

    std::string List() {
        EXPECT_EQ(Register({"--list"}), 0);
        return folder_.Read("stdout");
    }

    /// The entries of the applications folder and the checksums of its files, one on each line.
    std::string Tree() {
        EXPECT_EQ(Script("find Applications -type f -exec cksum {} + -o -print | sort >tree"), 0);
        return folder_.Read("tree");
    }

    /// Whether the file, in the home folder, contains the text.
    bool Has(const std::string& file, const std::string& text) const {
        return folder_.Read(file).find(text) != std::string::npos;
    }

    /// Waits up to a minute for the condition; returns whether it holds.
    template <typename Condition>
    static bool Await(Condition condition) {
        for (int i = 0; i < 6000 && !condition(); ++i)
            usleep(10'000);
        return condition();
    }

    /// The path of an application's bundle in the home folder, and of its script.
    static std::string BundleOf(const std::string& name) {
        return "Applications/" + name + "/" + name + ".app";
    }
    static std::string ScriptOf(const std::string& name) {
        return BundleOf(name) + "/Contents/MacOS/" + name;
    }
};

}  // namespace dunvey::test
