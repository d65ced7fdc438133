#pragma once
#include <QString>
#include <QStringList>

// The names by which buttons reach Keyboard Maestro, and the bridge to MakeMacros.scpt in the
// bundle's Resources folder, which lists and makes macros in the Keyboard Maestro editor. Names
// reach the script as osascript's arguments, never as script text.
namespace KeyboardMaestroMacros {

// "ZOR P02 07": the macro a button runs, as FirePalette.scpt builds it from the same two strings.
QString macroName(const QString& paletteName, const QString& buttonID);
// "ZOR P02 Writing": the macro group the program makes a palette's macros in.
QString groupName(const QString& paletteName, const QString& alias);

enum class Outcome { Done, NotInstalled, NotPermitted, Failed };

struct Answer {
    Outcome outcome = Outcome::Failed;
    QStringList names; // listing: the name of every macro
    int made = 0;      // making: how many were made
    QString reason;    // Failed: what went wrong, as osascript or the editor put it
};

// The name of every macro in the editor, in any group.
Answer listNames();
// Makes an empty macro for each of `names` that no macro carries yet, in the group `group`
// (made when there is none), and leaves the editor showing the group.
Answer makeMacros(const QString& group, const QStringList& names);
// What the user is told of an answer that is not Done.
QString failureMessage(const Answer& answer);

} // namespace KeyboardMaestroMacros
