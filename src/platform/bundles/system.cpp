#include "platform/bundles/system.h"

#include "platform/bundles/translation_table.h"

namespace dunvey::System {

std::string _GetLocalizedString(std::string_view key, std::string_view text,
                                const std::string& language) {
    const TranslationTable& table = TranslationsInto(language.empty() ? UserLanguage() : language);
    const auto translation = table.find(std::string(key));
    return translation == table.end() ? std::string(text) : translation->second;
}

}  // namespace dunvey::System
