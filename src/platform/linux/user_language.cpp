#include <cstdlib>

#include "platform/bundles/system.h"
#include "platform/bundles/translation_table.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// "ja_JP" of "ja_JP.UTF-8@variant".
std::string WithoutEncoding(const std::string& locale) {
    return locale.substr(0, locale.find_first_of(".@"));
}

}  // namespace

std::string UserLanguage() {
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale.empty()) locale = WithoutEncoding(Variable(name));
    }
    if (locale.empty() || locale == "C" || locale == "POSIX") return {};
    const std::string preferred = Variable("LANGUAGE");
    if (preferred.empty()) return locale;
    for (const std::string& entry : SplitB(preferred, ":")) {
        const std::string language = WithoutEncoding(entry);
        if (language.starts_with("en") || !TranslationsInto(language).empty()) return language;
    }
    return {};
}

}  // namespace dunvey
