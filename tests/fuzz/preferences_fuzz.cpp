#include <cstdlib>
#include <nlohmann/json.hpp>
#include <tuple>

#include "fuzz/fuzz.h"
#include "persistence/json_exception.h"
#include "persistence/preferences.h"
#include "platform/loop/application.h"
#include "support/temporary_folder.h"

namespace dunvey::fuzz {
namespace {

using namespace Preferences;

using Values = std::tuple<bool, bool, int64_t, std::string>;
constexpr const char* kNames[] = {"AllowOpenHigherVersion", "AllowQuitButtonActiveted",
                                  "NonReleaseVersion", "IconVersion"};
const Values kDefaults{false, false, 0, ""};

Values Now() {
    return {gAllowOpenHigherVersion, gAllowQuitButtonActiveted, pNonReleaseVersion, pIconVersion};
}

/// The values after a start; none of them is left from the one before.
Values Started() {
    gAllowOpenHigherVersion = gAllowQuitButtonActiveted = true;
    pNonReleaseVersion = -7;
    pIconVersion = "left over";
    Raed();
    return Now();
}

/// What the two readers take differently: half characters, an exponent of 0 with a capital letter,
/// and a mark ahead.
bool IsReadDifferently(std::string_view text) {
    for (const char* part : {"\\ud", "\\uD", "0E", "\xEF\xBB\xBF"}) {
        if (text.find(part) != text.npos) return true;
    }
    return false;
}

/// What a sound document says: the defaults if a value is missing. False for another text, and
/// where a value is of another type than it should be.
bool ReadPlainly(const std::string& text, Values& values) {
    const nlohmann::json document = nlohmann::json::parse(text, nullptr, false);
    values = kDefaults;
    if (!document.is_structured()) return false;
    for (const char* name : kNames) {
        if (!document.is_object() || !document.contains(name)) return true;
    }
    const nlohmann::json& higher = document[kNames[0]];
    const nlohmann::json& quit = document[kNames[1]];
    const nlohmann::json& build = document[kNames[2]];
    const nlohmann::json& icons = document[kNames[3]];
    if (!higher.is_boolean() || !quit.is_boolean() || !icons.is_string()) return false;
    if (!build.is_number_integer() || std::abs(build.get<double>()) > 9007199254740992.0) {
        return false;
    }
    values = {higher.get<bool>(), quit.get<bool>(), build.get<int64_t>(), icons.get<std::string>()};
    return true;
}

/// The members that the program doesn't know, as text; none if the text is no document.
std::string Foreign(const std::string& text) {
    JSONItem document;
    try {
        document.Load(text);
    } catch (const JSONException&) {
        return "{}";
    }
    if (document.IsArray()) return "{}";
    for (const char* name : kNames) {
        if (document.HasName(name)) document.Remove(name);
    }
    return document.ToString();
}

class Home {
 public:
    Home() : name_(Application::ExecutableFile()->Name()), file_(name_ + "/" + name_ + ".pref") {
        folder_.MakeFolder(name_);
        setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
    }
    void Write(const std::string& text) const { folder_.Write(file_, text); }
    std::string Read() const { return folder_.Read(file_); }

 private:
    test::TemporaryFolder folder_;
    std::string name_;
    std::string file_;
};

}  // namespace

void TryInput(std::string_view bytes) {
    static const Home home;
    const std::string text(bytes);
    home.Write(text);
    Values values = Started();
    Values plain;
    if (!IsReadDifferently(bytes) && ReadPlainly(text, plain)) {
        Check(values == plain, "the values are those of the file");
    }

    Save();
    std::get<2>(values) = Application::NonReleaseVersion();
    const std::string saved = home.Read();
    Check(Started() == values, "what was saved reads as the same", saved);
    Check(ReadPlainly(saved, plain) ? values == plain : !nlohmann::json::accept(saved),
          "what was saved has the right form", saved);
    Check(Foreign(saved) == Foreign(text), "what is unknown stays", saved);
    Save();
    Check(home.Read() == saved, "saved again it is the same file", saved);
}

}  // namespace dunvey::fuzz
