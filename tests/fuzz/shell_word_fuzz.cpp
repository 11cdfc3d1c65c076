#include "fuzz/fuzz.h"
#include "platform/files/folder_item.h"
#include "platform/processes/shell.h"

namespace dunvey::fuzz {

void TryInput(std::string_view bytes) {
    std::string text(bytes);
    std::erase(text, '\0');
    const FolderItem item("/" + text);
    // The shell finds no command but its built-in ones, so that an unquoted word does no harm.
    Shell shell;
    shell.Execute("PATH=/nonexistent; set -f; printf '%s\\0' " + ShellWord(text) + " " +
                  QuotedShellWord(text) + " " + item.ShellPath());
    const std::string expected = text + '\0' + text + '\0' + item.NativePath() + '\0';
    Check(shell.Result() == expected, "each text is one shell word", text);
}

}  // namespace dunvey::fuzz
