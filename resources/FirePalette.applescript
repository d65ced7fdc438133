-- Runs the Keyboard Maestro macro of one palette button.
-- ZOR_Palette passes the palette name (P00 to P99) and the button number (00 to 99).
-- The macro must be named "ZOR <palette> <button>", for example "ZOR P02 07".
-- It receives "<palette> <button>" as its %TriggerValue%.

on run argv
	if (count of argv) < 2 then
		display dialog "FirePalette needs a palette name and a button number." buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
		return
	end if
	set paletteName to item 1 of argv
	set buttonID to item 2 of argv
	set macroName to "ZOR " & paletteName & " " & buttonID
	try
		tell application "Keyboard Maestro Engine" to do script macroName with parameter (paletteName & " " & buttonID)
	on error errText number errNum
		-- A long macro outlasts the Apple event's timeout; it is still running, nothing failed.
		if errNum is -1712 then return
		display dialog "Keyboard Maestro could not run the macro \"" & macroName & "\" for button " & buttonID & " of palette " & paletteName & "." & return & return & "Make sure a macro with exactly that name exists, is enabled, and sits in an enabled macro group." & return & return & "(" & errText & ")" buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
	end try
end run
