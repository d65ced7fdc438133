-- Lists and makes the macros that ZOR_Palette's buttons call, in the Keyboard Maestro editor
-- (Keyboard Maestro 8 or later, whose editor is scriptable). ZOR_Palette passes everything as
-- arguments, never as script text:
--   names                           gives the name of every macro, one a line
--   make <group> <macro name> ...   makes an empty macro for each name that no macro carries yet,
--                                   in the macro group of that name (made when there is none),
--                                   shows the group in the editor, and gives the number made
-- It never changes, renames, moves or deletes a macro or group that exists. Errors are left to
-- osascript, which reports each with its number; ZOR_Palette tells the user what it means.

on run argv
	set theCommand to item 1 of argv
	if theCommand is "names" then return macroNames()
	if theCommand is "make" then return makeMacros(item 2 of argv, rest of rest of argv)
	error "MakeMacros knows no command " & theCommand & "."
end run

on macroNames()
	tell application "Keyboard Maestro" to set theNames to name of every macro
	set savedDelimiters to AppleScript's text item delimiters
	set AppleScript's text item delimiters to linefeed
	set theText to theNames as text
	set AppleScript's text item delimiters to savedDelimiters
	return theText
end macroNames

on makeMacros(groupName, wantedNames)
	set madeCount to 0
	tell application "Keyboard Maestro"
		if not (exists macro group groupName) then make new macro group with properties {name:groupName}
		set theGroup to macro group groupName
		repeat with wantedName in wantedNames
			set theName to contents of wantedName
			-- Asked again here: a macro made meanwhile by hand is not made twice.
			if not (exists macro theName) then
				tell theGroup to make new macro with properties {name:theName}
				set madeCount to madeCount + 1
			end if
		end repeat
		-- The macros are made; showing the group is a courtesy that must not turn that into a failure.
		try
			set selection to theGroup
			activate
		end try
	end tell
	return madeCount
end makeMacros
