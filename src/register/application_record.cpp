#include "register/application_record.h"

#include <cstdint>

#include "platform/bundles/property_list.h"
#include "platform/text/text.h"
#include "register/refusal.h"

namespace dunvey {
namespace {

constexpr const char* kCommandKey = "DunveyRegisterCommand";
constexpr const char* kScriptKey = "DunveyRegisterScript";
constexpr const char* kIconKey = "DunveyRegisterIcon";
constexpr const char* kVersionKey = "CFBundleShortVersionString";

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else
            escaped += c;
    }
    return escaped;
}

/// An entry of the dictionary; nothing for an empty value.
std::string Entry(const std::string& key, const std::string& value) {
    if (value.empty()) return {};
    return "\t<key>" + key + "</key>\n\t<string>" + Escaped(value) + "</string>\n";
}

}  // namespace

std::string Fingerprint(std::string_view bytes) {
    // FNV-1a, 64 bits: http://www.isthe.com/chongo/tech/comp/fnv/
    uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return EncodeHex({reinterpret_cast<const char*>(&hash), sizeof hash});
}

std::string PropertyListText(const ApplicationRecord& record, bool hasIcon) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n";
    text += Entry("CFBundleExecutable", record.name);
    text += Entry("CFBundleIconFile", hasIcon ? kIconName : "");
    text += Entry("CFBundleName", record.name);
    text += Entry(kVersionKey, record.version);
    text += Entry(kCommandKey, EncodeCommand(record.command));
    text += Entry(kScriptKey, record.scriptFingerprint);
    text += Entry(kIconKey, record.iconFingerprint);
    text += "</dict>\n</plist>\n";
    if (text.size() > kPropertyListLimit)
        throw Refusal{"the command is too long. Put it into a script and register that."};
    return text;
}

std::optional<ApplicationRecord> ReadRecord(const std::string& name, std::string propertyList) {
    using namespace CoreFoundationGlobalsMBS;
    const auto list = NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(std::move(propertyList)));
    if (!list) return {};
    const auto text = [&list](const char* key) {
        const Ref<CFStringMBS> value = list->Lookup(*NewCFStringMBS(key));
        return value ? value->Text() : std::string();
    };
    Command command = DecodeCommand(text(kCommandKey));
    if (command.words.empty()) return {};
    return ApplicationRecord{name, text(kVersionKey), std::move(command), text(kScriptKey),
                             text(kIconKey)};
}

}  // namespace dunvey
