-- Runs the Keyboard Maestro macro of one palette button.
-- ZOR_Palette passes the palette name (P00 to P99) and the button number (00 to 99).
-- The macro must be named "ZOR <palette> <button>", for example "ZOR P02 07".
-- It receives "<palette> <button>" as its %TriggerValue%.
--
-- Keyboard Maestro Engine is named only by its bundle identifier, so that this script compiles on a
-- Mac without Keyboard Maestro. Its command "do script" is Keyboard Maestro's own term: it is
-- compiled when it runs, by "run script", once the engine is known to run, and AppleScript never
-- has to ask where Keyboard Maestro Engine is.

on run argv
	if (count of argv) < 2 then
		display dialog "FirePalette needs a palette name and a button number." buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
		return
	end if
	set paletteName to item 1 of argv
	set buttonID to item 2 of argv
	set macroName to "ZOR " & paletteName & " " & buttonID
	set engineID to missing value
	repeat with candidate in {"com.stairways.keyboardmaestro.engine", "com.stairways.keyboardmaestro.editor.engine"}
		if application id (contents of candidate) is running then
			set engineID to contents of candidate
			exit repeat
		end if
	end repeat
	if engineID is missing value then
		display dialog "Is Keyboard Maestro Engine running?. I cannot see that it is." buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
		return
	end if
	set handOver to "on run {macroName, triggerValue}" & return & ¬
		"tell application id \"" & engineID & "\" to do script macroName with parameter triggerValue" & return & ¬
		"end run"
	try
		run script handOver with parameters {macroName, paletteName & " " & buttonID}
	on error errText number errNum
		-- A long macro outlasts the Apple event's timeout; it is still running, nothing failed.
		if errNum is -1712 then return
		display dialog "Keyboard Maestro could not run the macro \"" & macroName & "\" for button " & buttonID & " of palette " & paletteName & "." & return & return & "Make sure a macro with exactly that name exists, is enabled, and sits in an enabled macro group." & return & return & "(" & errText & ")" buttons {"OK"} default button 1 with title "ZOR_Palette" with icon caution
	end try
end run
