#include "manage/AliasRules.h"

#include "store/ZOR.h"
#include "util/StringUtils.h"

#include <algorithm>

QString AliasRules::cleaned(const QString& text, const QString& removed) {
    QString out = StringUtils::Remove(text.trimmed(), removed);
    out = StringUtils::ReplaceDoubledCharWithSingle(out, " ").replace("  ", " ");
    if (out.isEmpty()) out = StringUtils::Random(2, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const QString first = out.left(1);
    if (!StringUtils::IsLowercase(first) && !StringUtils::IsUppercase(first)) out.prepend('A');
    return out;
}

bool AliasRules::isInUse(const QString& alias) {
    return std::any_of(ZOR::DP.begin(), ZOR::DP.end(), [&](const PaletteDict& p) {
        return p.s_Alias.compare(alias, Qt::CaseInsensitive) == 0;
    });
}

QString AliasRules::madeUnique(const QString& alias) {
    // The suffix is added to the text as it stands: a third try for Work is Work0102.
    QString out = alias;
    for (int n = 1; isInUse(out); ++n)
        out += StringUtils::twoDigits(n);
    return out;
}
