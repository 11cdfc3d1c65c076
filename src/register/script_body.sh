# The constant part of an application's script. The lines before it define:
#   name           the application's name
#   wine           the path of Wine, empty if the command isn't a Windows program
#   find_missing   sets `file` to the first missing file of the command, else to nothing
#   start          calls `run` with the command and its own arguments

case $0 in
    /*) DUNVEY_APPLICATION=${0%/Contents/MacOS/*} ;;
    *) DUNVEY_APPLICATION=$(cd "${0%/*}/../.." && pwd) ;;
esac
export DUNVEY_APPLICATION

# Shows a message on standard error and in a desktop notification, else in a dialog.
show_message() {
    printf '%s: %s\n' "$name" "$1" >&2
    markup=$(printf '%s' "$1" | sed 's/&/\&amp;/g; s/</\&lt;/g')
    timeout 5 notify-send -u critical -a "$name" -- "$name" "$markup" >/dev/null 2>&1 && return
    [ -n "$DISPLAY$WAYLAND_DISPLAY" ] || return
    for dialog in zenity kdialog xmessage; do
        command -v $dialog >/dev/null && break
    done
    (
        unset DUNVEY_APPLICATION
        case $dialog in
            zenity) exec zenity --error --no-markup --title="$name" --text="$1" ;;
            kdialog) exec kdialog --title "$name" --error "$1" ;;
            *) exec xmessage -center "$name: $1" ;;
        esac
    ) >/dev/null 2>&1 &
}

refuse() {
    refused="$refused
$1"
}

# Calls `start` with the Windows paths of the documents. Refuses those that Wine can't see.
start_in_wine() {
    refused=
    for document; do
        shift
        case $document in
            *[[:cntrl:]\\:*?\"\<\>\|]* | *[.\ ]/* | *[.\ ]) refuse "$document" ;;
            *) set -- "$@" "$document" ;;
        esac
    done
    if [ $# -gt 0 ]; then
        count=$#
        IFS='
'
        set -f
        # shellcheck disable=SC2046 # One argument for each line.
        set -- $("$wine" winepath.exe -w "$@" 2>/dev/null | tr -d '\r')
        [ $# = "$count" ] || show_message 'Wine did not translate the paths of all documents.'
        invalid=$(printf '\357\277\275') # winepath writes this for what isn't UTF-8
        for document; do
            shift
            case $document in
                '\\?\'* | *"$invalid"*) refuse "$document" ;;
                *) set -- "$@" "$document" ;;
            esac
        done
    fi
    [ -z "$refused" ] || show_message "Wine can't see these documents. Their paths must lie on a drive of\
 the Wine prefix, be UTF-8, and have no name with one of \\ : * ? \" < > | or with a dot or blank\
 at its end.$refused"
    start "$@"
}

# Runs the command until it ends.
run() {
    # The shell starts a background command with SIGINT and SIGQUIT ignored. Only env can undo that.
    if env --default-signal=INT,QUIT true 2>/dev/null; then
        set -- env --default-signal=INT,QUIT /bin/sh -c 'exec "$@"' sh "$@"
    fi
    program=
    asked=
    trap 'asked=yes; waits=yes; [ -z "$program" ] || kill "$program" 2>/dev/null' TERM
    started=$(date +%s)
    "$@" &
    program=$!
    [ -z "$asked" ] || kill "$program"
    waits=yes
    while [ -n "$waits" ]; do
        waits=
        wait "$program"
        code=$?
    done
    [ "$code" = 0 ] || [ -n "$asked" ] || [ $(($(date +%s) - started)) -gt 1 ] ||
        show_message "The command ended at once with exit code $code. To see its messages, run this in a\
 terminal: \"$0\""
    exit "$code"
}

find_missing
if [ -n "$file" ]; then
    show_message "\"$file\" is missing. Install it again, or register another command with dunvey-register."
    exit 127
fi
[ -z "$wine" ] || start_in_wine "$@"
start "$@"
