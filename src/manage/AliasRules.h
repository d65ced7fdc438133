#pragma once
#include <QString>

// How a palette's alias and window title are cleaned and made unique. Nothing is refused: bad
// characters go, an empty text is replaced, a taken alias is extended.
namespace AliasRules {

inline const QString kNewPaletteRemoved = QStringLiteral(",;:.'][()");
inline const QString kRenameRemoved = QStringLiteral(",;:.'][()&*");

// Trimmed, without the removed characters, single blanks, never empty, beginning with a letter.
QString cleaned(const QString& text, const QString& removed);
// Extended by two digits until no palette uses it, ignoring case: Work, Work01, Work0102 ...
QString madeUnique(const QString& alias);
bool isInUse(const QString& alias);

} // namespace AliasRules
