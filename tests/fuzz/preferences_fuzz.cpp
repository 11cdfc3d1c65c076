#include <cstdlib>
#include <tuple>

#include "fuzz/fuzz.h"
#include "persistence/preferences.h"
#include "platform/loop/application.h"
#include "support/temporary_folder.h"

namespace dunvey::fuzz {
namespace {

using namespace Preferences;

/// The values after a start. None of them is left from the start before.
auto Started() {
    gAllowOpenHigherVersion = gAllowQuitButtonActiveted = true;
    pNonReleaseVersion = -7;
    pIconVersion = "left over";
    Raed();
    return std::tuple(gAllowOpenHigherVersion, gAllowQuitButtonActiveted, pNonReleaseVersion,
                      pIconVersion);
}

}  // namespace

/// The input is the preferences file.
void TryInput(std::string_view bytes) {
    static const test::TemporaryFolder home;
    static const std::string name = Application::ExecutableFile()->Name();
    static const std::string file = name + "/" + name + ".pref";
    setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    home.MakeFolder(name);
    home.Write(file, std::string(bytes));
    auto values = Started();
    Save();
    std::get<2>(values) = Application::NonReleaseVersion();
    const std::string saved = home.Read(file);
    Check(Started() == values, "what was saved reads as the same", saved);
    Save();
    Check(home.Read(file) == saved, "saved again it is the same file", saved);
}

}  // namespace dunvey::fuzz
