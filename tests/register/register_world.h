#pragma once

#include <string>
#include <vector>

#include "road/real_world.h"

namespace dunvey::test {

using Words = std::vector<std::string>;

/// A home in which the program is run as a user does.
class RegisterWorld : public RealWorld {
 protected:
    /// Runs a shell script with the words as its arguments; returns its exit code.
    int Script(const std::string& script, const Words& words = {}) {
        const std::string program = std::exchange(program_, "/bin/sh");
        Words all = {"-c", "cd \"$HOME\"; " + script, "script"};
        all.insert(all.end(), words.begin(), words.end());
        const int code = Dunvey(all);
        program_ = program;
        return code;
    }

    /// Runs the program. What it prints is in the files "stdout" and "stderr".
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

    /// All that is in the applications folder with its contents, one line for each file.
    std::string Tree() {
        EXPECT_EQ(Script("find Applications -type f -exec cksum {} + -o -print | sort >tree"), 0);
        return folder_.Read("tree");
    }

    /// The bundle of an application, in the home.
    static std::string BundleOf(const std::string& name) {
        return "Applications/" + name + "/" + name + ".app";
    }
};

}  // namespace dunvey::test
