#pragma once
#include <QString>

// General string helpers. Letters and digits here mean plain ASCII ones.
namespace StringUtils {
// `text` without every character found in `characters`, ignoring case. A text of fewer than two
// bytes comes back as it is.
QString Remove(const QString& text, const QString& characters);
// `length` characters drawn uniformly from `alphabet`.
QString Random(int length, const QString& alphabet);
// `n` with a leading zero below ten: palette names, button numbers, the parts of a date ("07").
QString twoDigits(qint64 n);
bool IsPosInteger(const QString& text); // only 0-9; empty text is true
bool IsUppercase(const QString& text);  // not empty, only A-Z
bool IsLowercase(const QString& text);  // not empty, only a-z
// Two `character` in a row become one, until none is left.
QString ReplaceDoubledCharWithSingle(const QString& text, const QString& character);
// The first character only: a letter, or one of `extra`. Empty text is false.
bool IsCharAlphabetic(const QString& text, const QString& extra = {});
// The same, digits allowed too.
bool IsCharAlphanumeric(const QString& text, const QString& extra = {});
// Width of `text` in that font family and size. The family "System" and size 0 stand for the
// application's default font and size.
double MeasureString(const QString& text, const QString& font, double size);
// Drops words from the end, adding "…", until the text measures less than maxWidth; when only
// one word is left that word comes back alone.
QString RemoveWordToFit(const QString& text, const QString& font, double size, double maxWidth);
} // namespace StringUtils
