#pragma once
#include <QString>
#include <QStringList>

// What a palette button starts: a Keyboard Maestro macro, an AppleScript file or an Apple
// Shortcut. Palette switches belong to the store. Failures are told in a plain message box;
// none of these gives an error code.
namespace ZOR {

// Hands palette name and two-digit button number to FirePalette.scpt.
void FireKM(const QString& paletteName, const QString& buttonID);
// Hands a script's file name (with ".scpt", no folder) to FireAppleScript.scpt; an empty name, or
// one that is not a plain file name of Apple_Scripts, is told to the user and runs nothing.
void FireAS(const QString& scriptFileName);
// Runs the Shortcut of that name when `shortcuts list` knows it.
void FireSC(const QString& shortcutName);

// "Mail.scpt", "Mail" and "Mail.txt" all give "Mail" (+ ".scpt" when withScpt); empty for a
// name with nothing before its first full stop.
QString rsWithWithoutScpt(const QString& name, bool withScpt);
// The name of the script on disk in Apple_Scripts, or empty when there is none.
QString rsScriptName(const QString& name);
bool IsShortcutExistant(const QString& name);
// The names of the user's Shortcuts, as `shortcuts list` gives them; none when it fails.
QStringList shortcutNames();

// The sID of the first button whose Shortcut is `key` (case-sensitive), or empty.
QString sID_FromShortcut(const QString& key);

// Whether the Keyboard Maestro Engine runs, on its own or as the editor's engine.
bool keyboardMaestroEngineRuns();

} // namespace ZOR

// The bridges to the compiled scripts in the bundle's Resources folder. They start osascript
// and return at once: a launcher must not freeze the palette while a macro or script runs.
// What goes wrong inside the script is the script's to tell.
void FirePalette(const QStringList& arguments);
void FireAppleScript(const QStringList& arguments);

// The Resources folder beside the executable's folder, where the compiled scripts stand.
QString bundleResources();
