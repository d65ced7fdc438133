#pragma once
#include <QMap>
#include <QString>

// All help of the program: a table of records kept as one text (resources/help/HELP_TEXT.txt),
// checked and read into a dictionary once, and shown by id.
//
// Record format: fields separated by one tab -- id, title, content, width, height -- and records
// by "<#CR>" plus a line feed; the last record ends in "<#CR>". A record may be written short
// (id and content; id, title, content; or without height); the cleaning fills it up. Width and
// height 0 let the window size itself to the text.
namespace Help {

// The table as compiled into the program.
const QString& HELP_TEXT();

// Help id to "title<TAB>content<TAB>width<TAB>height".
extern QMap<int, QString> helpDict;
// The table after CleanHelpText; empty when the table was refused.
extern QString cleanedHelpText;

// Checks and normalises the table into cleanedHelpText. A bad record stops it with a message
// and writes the untouched table to the Desktop as BadOriginal; a table that needed changes is
// written there as Cleaned and Original, so that its author sees what was changed.
void CleanHelpText();
void CleanHelpText(const QString& table);

// Cleans the table and fills helpDict from it.
void FillDictionaryFromHELP_TEXT();
void FillDictionaryFromHELP_TEXT(const QString& table);
// The same, unless it was done already: once the palette is on screen, or at the first help asked
// for before that, whichever comes first.
void fillDictionaryWhenNeeded();

// Shows the record of `id` modally, in the HTML window or the plain one as its text asks.
void ShowHelp(int id);

// True when the text holds any of the tags that the table's HTML records use. Any "<h" counts,
// so a plain text that merely contains those two characters is taken for HTML.
bool IsHTML(const QString& text);

// Shows a text that comes from no record (the palette's particulars) in the plain window.
void ShowHelpTextProvided(const QString& text);

} // namespace Help
