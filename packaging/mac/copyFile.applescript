-- Copies the two document icons into the bundle with the administrator's rights. The four arguments:
-- source and destination of the document icon, source and destination of the book icon, each an
-- absolute path written as one shell word. Returns empty text on success, else the reason.
on run argv
	if (count of argv) is not 4 then return "Four paths are needed."
	set documentSource to item 1 of argv
	set documentDestination to item 2 of argv
	set bookSource to item 3 of argv
	set bookDestination to item 4 of argv
	try
		-- Root opens the destinations only. The sources are read with the user's rights, so that a link
		-- can't turn the import into a copy of a file that the user may not read.
		set readAsUser to "/usr/bin/sudo -n -u '#" & (do shell script "/usr/bin/id -u") & "' /bin/cat "
		-- Both icons are complete before one of them is replaced.
		set command to "set -eu; umask 022; document=; book=" & linefeed
		set command to command & "trap '/bin/rm -f \"$document\" \"$book\"' EXIT" & linefeed
		set command to command & "[ ! -d " & documentDestination & " ]; [ ! -d " & bookDestination & " ]" & linefeed
		set command to command & "document=$(/usr/bin/mktemp " & documentDestination & ".XXXXXX)" & linefeed
		set command to command & "book=$(/usr/bin/mktemp " & bookDestination & ".XXXXXX)" & linefeed
		set command to command & readAsUser & documentSource & " >\"$document\"" & linefeed
		set command to command & readAsUser & bookSource & " >\"$book\"" & linefeed
		set command to command & "/bin/chmod 644 \"$document\" \"$book\"" & linefeed
		set command to command & "/bin/mv -f \"$document\" " & documentDestination & linefeed
		set command to command & "/bin/mv -f \"$book\" " & bookDestination & linefeed
		do shell script command with administrator privileges
	on error message number code
		if message is "" then set message to "The copy failed with " & code & "."
		return message
	end try
	return ""
end run
