-- Puts the two document icons into the bundle with the administrator's rights. The four arguments:
-- source and destination of the document icon, source and destination of the book icon, each an
-- absolute path written as one word of a shell. Gives back nothing on success, else why not.
-- Compile it with: osacompile -o copyFile.scpt copyFile.applescript
on run argv
	if (count of argv) is not 4 then return "Four paths are needed."
	set documentSource to item 1 of argv
	set documentDestination to item 2 of argv
	set bookSource to item 3 of argv
	set bookDestination to item 4 of argv
	-- Each icon is written beside its place first, so that it appears whole or not at all.
	set documentCopy to documentDestination & ".new"
	set bookCopy to bookDestination & ".new"
	set copyDocument to "/bin/cp -f " & documentSource & " " & documentCopy
	set copyBook to "/bin/cp -f " & bookSource & " " & bookCopy
	set moveDocument to "/bin/mv -f " & documentCopy & " " & documentDestination
	set moveBook to "/bin/mv -f " & bookCopy & " " & bookDestination
	set copyBoth to copyDocument & " && " & copyBook
	set moveBoth to moveDocument & " && " & moveBook
	try
		do shell script copyBoth & " && " & moveBoth with administrator privileges
	on error message number code
		if message is "" then set message to "The copy failed with " & code & "."
		return message
	end try
	return ""
end run
