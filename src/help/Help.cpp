#include "help/Help.h"

#include "help/winHelp.h"
#include "help/winHelpSimple.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/Guard.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

using Guard::Where;

QMap<int, QString> Help::helpDict;
QString Help::cleanedHelpText;

namespace {
bool dictionaryFilled = false;
const QString kRecordEnd = QStringLiteral("<#CR>");
const QString kRecordSeparator = QStringLiteral("<#CR>\n");

bool allDigits(const QString& field) {
    static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
    return digits.match(field).hasMatch();
}

// The untouched table goes to the Desktop so that its author can find the fault.
void refuse(const QString& message, const QString& table) {
    Dialogs::message(message);
    FileTools::TextToFile(table, QStringLiteral("BadOriginal"), QStringLiteral("Desktop"), 4);
}

QString chopTrailingMarkers(QString text) {
    while (text.endsWith(kRecordEnd))
        text.chop(kRecordEnd.size());
    return text;
}
} // namespace

const QString& Help::HELP_TEXT() {
    static const QString table = [] {
        QFile file(QStringLiteral(":/help/HELP_TEXT.txt"));
        if (!file.open(QIODevice::ReadOnly)) return QString();
        QString text = QString::fromUtf8(file.readAll());
        // A text file ends in a line feed; the table itself ends in its marker.
        while (text.endsWith('\n'))
            text.chop(1);
        return text;
    }();
    return table;
}

void Help::CleanHelpText() {
    CleanHelpText(HELP_TEXT());
}

void Help::CleanHelpText(const QString& table) {
    Guard::run(Where::module("Help", "CleanHelpText"), [&] {
        cleanedHelpText.clear();
        QString text = table.trimmed();
        if (text.endsWith(kRecordEnd)) text.chop(kRecordEnd.size());

        QStringList records;
        for (const QString& raw : text.split(kRecordSeparator)) {
            QStringList fields = raw.trimmed().split('\t');
            if (fields.size() < 2 || fields.size() > 5) {
                refuse(QStringLiteral("HELP_TEXT is incorrectly formatted. Some entries not correctly broken "
                                      "up by unit separators."),
                       table);
                return;
            }
            if (fields.size() == 2) fields = {fields[0], QString(), fields[1]};
            while (fields.size() < 5)
                fields << QStringLiteral("0");
            if (fields[2].isEmpty() && !fields[1].isEmpty()) fields.swapItemsAt(1, 2);

            if (!allDigits(fields[0]) || !allDigits(fields[3]) || !allDigits(fields[4])) {
                refuse(QStringLiteral(
                           "HELP_TEXT is incorrectly formatted. Does not have digits in right place."),
                       table);
                return;
            }
            if (fields[2].isEmpty() || allDigits(fields[2])) {
                refuse(QStringLiteral("HELP_TEXT is incorrectly formatted. No appropriate data for content."),
                       table);
                return;
            }

            bool okWidth = false, okHeight = false;
            qint64 width = fields[3].toLongLong(&okWidth);
            qint64 height = fields[4].toLongLong(&okHeight);
            if (!okWidth || !okHeight) { // more digits than any window has pixels
                refuse(QStringLiteral(
                           "HELP_TEXT is incorrectly formatted. Does not have digits in right place."),
                       table);
                return;
            }
            if ((width == 0) != (height == 0)) {
                if (width == 0) width = 100;
                if (height == 0) height = 100;
            }
            // A window is never asked for less than 100 pixels.
            if (width > 0 && width < 100) width = 100;
            if (height > 0 && height < 100) height = 100;
            fields[3] = QString::number(width);
            fields[4] = QString::number(height);
            records << fields.join('\t').trimmed();
        }

        QString cleaned;
        for (const QString& record : records)
            cleaned += record + kRecordSeparator;
        cleanedHelpText = cleaned.trimmed();

        if (cleanedHelpText != table) {
            FileTools::TextToFile(cleanedHelpText, QStringLiteral("Cleaned"), QStringLiteral("Desktop"), 4);
            FileTools::TextToFile(table, QStringLiteral("Original"), QStringLiteral("Desktop"), 4);
        }
    });
}

void Help::FillDictionaryFromHELP_TEXT() {
    FillDictionaryFromHELP_TEXT(HELP_TEXT());
}

void Help::FillDictionaryFromHELP_TEXT(const QString& table) {
    Guard::run(Where::module("Help", "FillDictionaryFromHELP_TEXT"), [&] {
        dictionaryFilled = true;
        CleanHelpText(table);
        helpDict.clear();
        for (const QString& raw : chopTrailingMarkers(cleanedHelpText).split(kRecordSeparator)) {
            const QString record = raw.trimmed();
            const qsizetype tab = record.indexOf('\t');
            if (tab < 0) continue; // only the empty rest of a refused table
            QString value = record.mid(tab + 1);
            while (!value.isEmpty() && value.back().isSpace())
                value.chop(1);
            helpDict.insert(record.left(tab).toInt(), value); // a repeated id: the later one wins
        }
    });
}

void Help::fillDictionaryWhenNeeded() {
    if (!dictionaryFilled) FillDictionaryFromHELP_TEXT();
}

void Help::ShowHelp(int id) {
    Guard::run(Where::module("Help", "ShowHelp"), [&] {
        fillDictionaryWhenNeeded();
        const auto found = helpDict.constFind(id);
        if (found == helpDict.constEnd()) {
            Dialogs::message(QStringLiteral("No Dictionary Entry for Key ") + QString::number(id));
            return;
        }
        const QStringList fields = found.value().split('\t');
        QString title = fields.value(0).trimmed();
        if (title.isEmpty()) title = QStringLiteral("Help");
        const QString content = fields.value(1).trimmed();
        const int width = fields.value(2).toInt();
        const int height = fields.value(3).toInt();
        if (IsHTML(content)) {
            winHelp window;
            window.PrepareAndShowWindow(content, title, width, height, id);
        } else {
            winHelpSimple window;
            window.PrepareAndShowWindow(content, title, width, height, id);
        }
    });
}

bool Help::IsHTML(const QString& text) {
    return Guard::run(Where::module("Help", "IsHTML"), [&] {
        static const QStringList tags{"<p>", "<i>", "<b>", "<em>", "<body>", "<span>", "<style=", "<h"};
        for (const QString& tag : tags)
            if (text.contains(tag, Qt::CaseInsensitive)) return true;
        return false;
    });
}

void Help::ShowHelpTextProvided(const QString& text) {
    Guard::run(Where::module("Help", "ShowHelpTextProvided"), [&] {
        if (text.trimmed().isEmpty()) {
            Dialogs::message(QStringLiteral("You have not provided any particulars for this palette. Use "
                                            "Configure >> Grid Contruct to enter this information."));
            return;
        }
        winHelpSimple window;
        window.PrepareAndShowWindow(text, QStringLiteral("Palette Particulars"), 0, 0, -1);
    });
}
