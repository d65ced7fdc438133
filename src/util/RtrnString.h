#pragma once
#include <QString>

// String helpers for file names and paths, and a plain-text view of simple HTML.
namespace RtrnString {
// Every ":", "/" and " " becomes "_"; then the first maxLength characters.
QString rsCorrectFileName(const QString& name, int maxLength);
// The last component after splitting at "/" (empty when the path ends with "/").
QString rsOnlyFileName(const QString& path);
// All components but the last, empty ones dropped, as "/a/b/".
QString rsParentFolderPath(const QString& path);
// The digits of the trimmed text.
QString rsOnlyDigit(const QString& text);
// The text of simple HTML, for measuring: body only, paragraphs and breaks as line feeds, tags
// removed, runs of white space shortened to two characters.
QString rsRawTextFromHTML(const QString& html);
} // namespace RtrnString
