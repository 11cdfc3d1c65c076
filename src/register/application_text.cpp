#include "register/application_text.h"

#include <cstdint>

#include "platform/bundles/property_list.h"
#include "platform/files/folder_item.h"
#include "platform/text/text.h"
#include "register/texts.h"

namespace dunvey {
namespace {

constexpr const char* kCommandKey = "DunveyRegisterCommand";
constexpr const char* kScriptKey = "DunveyRegisterScript";
constexpr const char* kIconKey = "DunveyRegisterIcon";
constexpr const char* kVersionKey = "CFBundleShortVersionString";

/// An entry of the dictionary; nothing for an empty value.
std::string Entry(const std::string& key, const std::string& value) {
    std::string escaped;
    for (const char c : value) {
        if (c == '&' || c == '<')
            escaped += c == '&' ? "&amp;" : "&lt;";
        else
            escaped += c;
    }
    if (value.empty()) return {};
    return "\t<key>" + key + "</key>\n\t<string>" + escaped + "</string>\n";
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
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
        Entry("CFBundleExecutable", record.name) +
        Entry("CFBundleIconFile", hasIcon ? kIconName : "") + Entry("CFBundleName", record.name) +
        Entry(kVersionKey, record.version) + Entry(kCommandKey, EncodeCommand(record.command)) +
        Entry(kScriptKey, record.scriptFingerprint) + Entry(kIconKey, record.iconFingerprint) +
        "</dict>\n</plist>\n";
    if (text.size() <= kPropertyListLimit) return text;
    throw Refusal{"the command is too long. Put it into a script and register that."};
}

std::optional<ApplicationRecord> ReadRecord(const std::string& name, std::string propertyList) {
    using namespace CoreFoundationGlobalsMBS;
    const auto list = NewCFObjectMBSFromXML(NewCFBinaryDataMBSStr(std::move(propertyList)));
    if (!list) return {};
    const Command command = DecodeCommand(list->Text(kCommandKey));
    if (command.arguments.empty()) return {};
    return ApplicationRecord{name, list->Text(kVersionKey), command, list->Text(kScriptKey),
                             list->Text(kIconKey)};
}

std::string ScriptText(const std::string& name, const Command& command) {
    const bool isWine = !command.winePrefix.empty();
    return "#!/bin/sh\n# Written by dunvey-register, which can also remove it.\nname=" +
           ShellWord(name) + "\nwine=" + (isWine ? ShellWord(command.arguments[0]) : "") + "\n" +
           (isWine ? "export WINEPREFIX=" + ShellWord(command.winePrefix) + "\n" : "") +
           "find_missing() {\n    for file in " + ShellWords(RequiredFiles(command)) +
           "; do\n        [ -e \"$file\" ] || return\n    done\n    file=\n}\nstart() {\n    run " +
           ShellWords(command.arguments) + "\"$@\"\n}\n\n" + kScriptBody;
}

}  // namespace dunvey
