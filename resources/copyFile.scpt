#!/bin/sh
# Copies the two document icons into this bundle with the rights of root, which pkexec asks the user for.
# Arguments: source and destination of the document icon, source and destination of the book icon, each an
# absolute path written as one shell word, such as /opt/two\ words. The destinations are the two icons of
# this bundle. Prints nothing on success, else the reason.
#
# The sources are opened here, with the user's rights; root gets their bytes only (Helpers/write-icons).
set -u
LC_ALL=C
export LC_ALL

fail() {
    printf '%s\n' "$1"
    exit 1
}

[ $# -eq 4 ] || fail "Four paths are needed."
command -v pkexec >/dev/null || fail "There is no pkexec, which asks for the administrator's rights."

# Prints the path that a shell word stands for, and an x, since $() drops a line feed at the end. The word is
# parsed, never run: a backslash and a byte, a line feed in single quotes, or a byte without special meaning.
path_of() {
    awk 'BEGIN {
        line_feed = "\047\n\047"
        plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+:,@%"
        word = ARGV[1]
        path = ""
        while (word != "") {
            first = substr(word, 1, 1)
            taken = 1
            if (substr(word, 1, 3) == line_feed) {
                first = "\n"
                taken = 3
            } else if (first == "\\") {
                first = substr(word, 2, 1)
                taken = 2
                if (first == "" || first == "\n") exit 1
            } else if (index(plain, first) == 0 && first <= "\177") {
                exit 1
            }
            path = path first
            word = substr(word, taken + 1)
        }
        if (substr(path, 1, 1) != "/") exit 1
        printf "%s", path
    }' "$1" && printf x
}

document_source=$(path_of "$1") || fail "Not a path: $1"
document_destination=$(path_of "$2") || fail "Not a path: $2"
book_source=$(path_of "$3") || fail "Not a path: $3"
book_destination=$(path_of "$4") || fail "Not a path: $4"

resources=$(dirname "$0" && printf x)
resources=${resources%??}
for icon in "$document_destination|ID_Document_Icon" "$book_destination|ID_Book_Icon"; do
    [ "${icon%|*}" = "$resources/${icon##*|}.icnsx" ] || fail "Not an icon of this bundle: ${icon%x|*}"
done
for source in "${document_source%x}" "${book_source%x}"; do
    [ -f "$source" ] || fail "Not a file: $source"
    [ -r "$source" ] || fail "Not readable: $source"
done
exec 3<"${document_source%x}" 4<"${book_source%x}"
document_size=$(stat -Lc %s /dev/fd/3)
book_size=$(stat -Lc %s /dev/fd/4)

# Without its own agent pkexec never asks on a terminal, where nobody may see the question.
message=$({
    printf '%s %s\n' "$document_size" "$book_size"
    head -c "$document_size" <&3
    head -c "$book_size" <&4
} 2>/dev/null | pkexec --disable-internal-agent "${resources%/*}/Helpers/write-icons" 2>&1) && exit 0
fail "${message:-pkexec ended with $?.}"
