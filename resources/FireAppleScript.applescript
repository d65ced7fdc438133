-- Runs one of the user's compiled scripts from ZOR_Palette's Apple_Scripts folder.
-- ZOR_Palette passes the file name alone, for example "Mail.scpt".

on run argv
	if (count of argv) < 1 then
		display dialog "FireAppleScript needs the name of a script file." buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
		return
	end if
	set scriptName to item 1 of argv
	set folderPath to (POSIX path of (path to application support from user domain)) & "net.lunvale.ZOR-Palette/Apple_Scripts/"
	try
		set scriptFile to (POSIX file (folderPath & scriptName)) as alias
	on error
		display dialog "The AppleScript \"" & scriptName & "\" is not in the folder" & return & return & folderPath & return & return & "Put the compiled script there, or correct the button's AppleScript name in Grid Construct." buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
		return
	end try
	try
		run script scriptFile
	on error errText number errNum
		-- -128 is the user pressing Cancel inside the script: not a failure.
		if errNum is -128 then return
		display dialog "The AppleScript \"" & scriptName & "\" stopped with an error:" & return & return & errText & " (" & errNum & ")" buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
	end try
end run
