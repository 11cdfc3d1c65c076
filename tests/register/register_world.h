#pragma once

#include <string>

#include "road/real_world.h"

namespace dunvey::test {

/// A home folder in which dunvey-register runs as for a user.
class RegisterWorld : public RealWorld {
 protected:
    static constexpr const char* kName = "Adobe InDesign CS6";

    /// Runs dunvey-register after a shell command. Its output is in the files "stdout" and
    /// "stderr".
    int Register(const Words& words, const std::string& preparation = {}) {
        return Script(preparation + " exec '" DUNVEY_REGISTER "' \"$@\" >stdout", words);
    }

    /// The arguments that register a command.
    static Words Call(const std::string& name, const std::string& version,
                      const Words& options = {}, const Words& command = {"/bin/true"}) {
        Words words = {"--name", name, "--version", version};
        words.insert(words.end(), options.begin(), options.end());
        words.emplace_back("--");
        words.insert(words.end(), command.begin(), command.end());
        return words;
    }
    int RegisterCommand(const std::string& name, const std::string& version, const Words& command) {
        return Register(Call(name, version, {}, command));
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

    /// The path of an application's bundle in the home folder, and of its script.
    static std::string BundleOf(const std::string& name) {
        return "Applications/" + name + "/" + name + ".app";
    }
    static std::string ScriptOf(const std::string& name) {
        return BundleOf(name) + "/Contents/MacOS/" + name;
    }
};

}  // namespace dunvey::test
