#include "util/StringUtils.h"

#include "util/Fonts.h"
#include "util/Guard.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QStringList>

namespace {
bool isUpper(QChar c) {
    return c >= 'A' && c <= 'Z';
}
bool isLower(QChar c) {
    return c >= 'a' && c <= 'z';
}
bool isDigit(QChar c) {
    return c >= '0' && c <= '9';
}

template <class Test> bool allOf(const QString& text, Test test) {
    for (const QChar c : text)
        if (!test(c)) return false;
    return true;
}

QFont fontFor(const QString& family, double size) { return Fonts::sized(family, size); }
} // namespace

QString StringUtils::Remove(const QString& text, const QString& characters) {
    return Guard::run(Guard::Where::module("StringUtils", "Remove"), [&] {
        if (text.toUtf8().size() < 2) return text;
        QString out;
        for (const QChar c : text)
            if (!characters.contains(c, Qt::CaseInsensitive)) out += c;
        return out;
    });
}

QString StringUtils::Random(int length, const QString& alphabet) {
    return Guard::run(Guard::Where::module("StringUtils", "Random"), [&] {
        QString out;
        if (alphabet.isEmpty()) return out;
        for (int i = 0; i < length; ++i)
            out += alphabet[QRandomGenerator::global()->bounded(int(alphabet.size()))];
        return out;
    });
}

QString StringUtils::twoDigits(qint64 n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

bool StringUtils::IsPosInteger(const QString& text) {
    return Guard::run(Guard::Where::module("StringUtils", "IsPosInteger"),
                      [&] { return allOf(text, isDigit); });
}

bool StringUtils::IsUppercase(const QString& text) {
    return Guard::run(Guard::Where::module("StringUtils", "IsUppercase"),
                      [&] { return !text.isEmpty() && allOf(text, isUpper); });
}

bool StringUtils::IsLowercase(const QString& text) {
    return Guard::run(Guard::Where::module("StringUtils", "IsLowercase"),
                      [&] { return !text.isEmpty() && allOf(text, isLower); });
}

QString StringUtils::ReplaceDoubledCharWithSingle(const QString& text, const QString& character) {
    return Guard::run(Guard::Where::module("StringUtils", "ReplaceDoubledCharWithSingle"), [&] {
        QString out = text;
        if (character.isEmpty()) return out; // nothing to shrink, and the loop would not end
        const QString doubled = character + character;
        while (out.contains(doubled, Qt::CaseInsensitive))
            out.replace(doubled, character, Qt::CaseInsensitive);
        return out;
    });
}

bool StringUtils::IsCharAlphabetic(const QString& text, const QString& extra) {
    return Guard::run(Guard::Where::module("StringUtils", "IsCharAlphabetic"), [&] {
        if (text.isEmpty()) return false;
        const QChar c = text.front();
        return isUpper(c) || isLower(c) || extra.contains(c, Qt::CaseInsensitive);
    });
}

bool StringUtils::IsCharAlphanumeric(const QString& text, const QString& extra) {
    return Guard::run(Guard::Where::module("StringUtils", "IsCharAlphanumeric"), [&] {
        if (text.isEmpty()) return false;
        const QChar c = text.front();
        return isUpper(c) || isLower(c) || isDigit(c) || extra.contains(c, Qt::CaseInsensitive);
    });
}

double StringUtils::MeasureString(const QString& text, const QString& font, double size) {
    return Guard::run(Guard::Where::module("StringUtils", "MeasureString"), [&] {
        // Screen metrics, so that the width is the one the text takes when a window shows it.
        return QFontMetricsF(fontFor(font, size)).horizontalAdvance(text);
    });
}

QString StringUtils::RemoveWordToFit(const QString& text, const QString& font, double size, double maxWidth) {
    return Guard::run(Guard::Where::module("StringUtils", "RemoveWordToFit"), [&]() -> QString {
        if (text.size() < 5) return text;
        const QString cut = text.left(2000);
        const QFontMetricsF metrics(fontFor(font, size));
        if (metrics.horizontalAdvance(cut) < maxWidth) return cut;

        QString flat = cut;
        flat.replace("\r\n", " ").replace('\r', ' ').replace('\n', ' ');
        flat.replace("  ", " ").replace("  ", " ");
        QStringList words = flat.trimmed().split(' ', Qt::SkipEmptyParts);

        if (words.isEmpty()) return QString(); // white space only: nothing to show
        // At least one word always goes. Down to one word, that word alone stands; a single long
        // word leaves only the ellipsis.
        while (words.size() > 1) {
            words.removeLast();
            if (words.size() == 1) return words.first();
            const QString joined = words.join(' ') + QChar(0x2026);
            if (metrics.horizontalAdvance(joined) < maxWidth) return joined;
        }
        return QString(QChar(0x2026));
    });
}
