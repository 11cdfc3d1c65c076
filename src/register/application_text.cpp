#include "register/application_text.h"

#include "platform/files/folder_item.h"
#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"

namespace dunvey {
namespace {

std::string Joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        line += ShellWord(word);
        line += ' ';
    }
    return line;
}

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

std::string Entry(const std::string& key, const std::string& value) {
    return "\t<key>" + key + "</key>\n\t<string>" + Escaped(value) + "</string>\n";
}

}  // namespace

std::string ShownCommand(const std::vector<std::string>& command) {
    std::string line = OneLine(Joined(command));
    line.pop_back();
    // There and back again, bytes that are no text become a character that says so.
    const EncodedText wide = ConvertEncoding({line, Encodings::UTF8}, Encodings::UTF16);
    return ConvertEncoding(wide, Encodings::UTF8).Bytes;
}

std::string PropertyListText(const std::string& name, const std::string& version,
                             const std::vector<std::string>& command, bool hasIcon) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n" +
           Entry("CFBundleExecutable", name) +
           (hasIcon ? Entry("CFBundleIconFile", kIconName) : std::string()) +
           Entry("CFBundleName", name) + Entry("CFBundleShortVersionString", version) +
           Entry(kMadeByKey, ShownCommand(command)) + "</dict>\n</plist>\n";
}

std::string WrapperText(const std::vector<std::string>& command) {
    return "#!/bin/sh\n"
           "# Made by dunvey-register, which can also remove it. It passes the request to end on "
           "to\n"
           "# the command, and then waits for it again.\n"
           "program=\n"
           "waits=yes\n"
           "trap 'waits=yes; [ -z \"$program\" ] || kill \"$program\" 2>/dev/null' TERM\n" +
           Joined(command) +
           "\"$@\" &\n"
           "program=$!\n"
           "while [ -n \"$waits\" ]; do\n"
           "    waits=\n"
           "    wait \"$program\"\n"
           "    code=$?\n"
           "done\n"
           "exit \"$code\"\n";
}

}  // namespace dunvey
