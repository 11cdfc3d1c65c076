#!/bin/sh
# Puts the two document icons into the bundle with the administrator's rights, which pkexec asks the
# user for. The words: source and destination of the document icon, source and destination of the
# book icon, each an absolute path written as one word of a shell, such as /opt/two\ words.
# Prints nothing if both icons are in their places, else why not.
set -u
LC_ALL=C
export LC_ALL

fail() {
    printf '%s\n' "$1"
    exit 1
}

[ $# -eq 4 ] || fail "Four paths are needed."
command -v pkexec >/dev/null || fail "There is no pkexec, which asks for the administrator's rights."

# The path that a shell word stands for, and an x, since a line feed at the end would get lost. The
# word is read, never run: a backslash and the byte it stands for, a line feed in quotes, or a byte
# that means itself; anything else isn't such a word.
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

# What the administrator runs. Both icons are written beside their places first, so that each of
# them appears whole or not at all.
administrator=$(cat <<'END'
set -eu
umask 022
document=
book=
trap 'rm -f -- "$document" "$book"' EXIT
trap 'exit 1' HUP INT TERM
for source in "$1" "$3"; do
    [ -f "$source" ] || { printf '%s\n' "No such file: $source"; exit 1; }
done
for destination in "$2" "$4"; do
    [ ! -d "$destination" ] || { printf '%s\n' "A folder: $destination"; exit 1; }
done
document=$(mktemp "$2.XXXXXX")
book=$(mktemp "$4.XXXXXX")
cat <"$1" >"$document"
cat <"$3" >"$book"
chmod 644 "$document" "$book"
mv -f "$document" "$2"
mv -f "$book" "$4"
END
)

document_source=$(path_of "$1") || fail "Not a path: $1"
document_destination=$(path_of "$2") || fail "Not a path: $2"
book_source=$(path_of "$3") || fail "Not a path: $3"
book_destination=$(path_of "$4") || fail "Not a path: $4"

# The administrator may read everything. A link mustn't turn that into a copy of someone's secrets.
for source in "${document_source%x}" "${book_source%x}"; do
    if [ -L "$source" ] && [ ! -r "$source" ]; then
        fail "A link to what you may not read: $source"
    fi
done

# Without a window to ask in, the question mustn't wait unseen on some terminal.
message=$(pkexec --disable-internal-agent /bin/sh -c "$administrator" copyFile \
    "${document_source%x}" "${document_destination%x}" \
    "${book_source%x}" "${book_destination%x}" 2>&1) && exit 0
fail "${message:-pkexec ended with $?.}"
