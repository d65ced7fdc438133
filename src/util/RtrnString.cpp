#include "util/RtrnString.h"

#include "util/Guard.h"

#include <QRegularExpression>
#include <QStringList>

QString RtrnString::rsCorrectFileName(const QString& name, int maxLength) {
    return Guard::run(Guard::Where::module("RtrnString", "rsCorrectFileName").directForm(), [&] {
        QString out = name;
        out.replace(':', '_').replace('/', '_').replace(' ', '_');
        return out.left(qMax(0, maxLength));
    });
}

QString RtrnString::rsOnlyFileName(const QString& path) {
    return Guard::run(Guard::Where::module("RtrnString", "rsOnlyFileName"),
                      [&] { return path.split('/').constLast(); });
}

QString RtrnString::rsParentFolderPath(const QString& path) {
    return Guard::run(Guard::Where::module("RtrnString", "rsParentFolderPath"), [&] {
        QStringList parts = path.split('/');
        parts.removeLast();
        QString out;
        for (const QString& part : parts)
            if (!part.isEmpty()) out += '/' + part;
        return out + '/';
    });
}

QString RtrnString::rsOnlyDigit(const QString& text) {
    return Guard::run(Guard::Where::module("RtrnString", "rsOnlyDigit"), [&] {
        QString out;
        for (const QChar c : text.trimmed())
            if (c >= '0' && c <= '9') out += c;
        return out;
    });
}

QString RtrnString::rsRawTextFromHTML(const QString& html) {
    return Guard::run(Guard::Where::module("RtrnString", "rsRawTextFromHTML"), [&] {
        QString text = html;
        const qsizetype open = text.indexOf("<body>", 0, Qt::CaseInsensitive);
        if (open >= 0) {
            const qsizetype start = open + 6;
            const qsizetype close = text.indexOf("</body>", start, Qt::CaseInsensitive);
            if (close > start) text = text.mid(start, close - start);
        }
        if (text.contains("<p>", Qt::CaseInsensitive)) {
            text.replace('\n', ' ');
            text.replace("<p>", "\n", Qt::CaseInsensitive);
        }
        // The entity's closing ";" goes with it, or it would be measured as text.
        static const QRegularExpression nbsp(QStringLiteral("&nbsp;?"),
                                             QRegularExpression::CaseInsensitiveOption);
        text.replace(nbsp, QStringLiteral(" "));
        text.replace("<br/>", "\n", Qt::CaseInsensitive);
        text.replace("</p>", "\n", Qt::CaseInsensitive);

        static const QRegularExpression tag(QStringLiteral("<[^<>]+>"));
        text.remove(tag);
        text = text.trimmed();

        static const QRegularExpression run(QStringLiteral("(\\s\\s)\\s+"));
        text.replace(run, QStringLiteral("\\1"));
        return text;
    });
}
