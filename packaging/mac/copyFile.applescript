-- Copies the two document icons into the bundle with the rights of an administrator. Arguments: source and
-- destination of the document icon, source and destination of the book icon, each an absolute path written
-- as one shell word. Returns "" on success, else the reason.
-- Compile it with: osacompile -o copyFile.scpt copyFile.applescript
on run argv
	if (count of argv) is not 4 then return "Four paths are needed."
	-- Root writes the destinations only. The sources are read as the user, whose links can't lead to more
	-- than he may read.
	set readAsUser to "/usr/bin/sudo -n -u '#" & (do shell script "/usr/bin/id -u") & "' /bin/cat "
	set copies to ""
	set moves to ""
	repeat with position in {1, 3}
		set source to item position of argv
		set destination to item (position + 1) of argv
		-- Both icons are complete before one of them is replaced.
		set copies to copies & readAsUser & source & " > " & destination & ".new && "
		set moves to moves & " && /bin/mv -f " & destination & ".new " & destination
	end repeat
	try
		do shell script copies & "true" & moves with administrator privileges
	on error message number code
		if message is "" then set message to "The copy failed with " & code & "."
		return message
	end try
	return ""
end run
