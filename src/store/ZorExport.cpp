#include "store/ZOR.h"

#include "help/ExplanationHTML.h"
#include "store/ItemCopy.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/RtrnDateString.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBoundaryFinder>

namespace {
Guard::Where where(const char* method) {
    return Guard::Where::module("ZOR", method);
}

QString yesNo(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// A line of the export without its first column.
QString withoutFirstColumn(const QString& line) {
    return line.mid(line.indexOf('\t') + 1);
}
} // namespace

QString ZOR::LineTabFieldName() {
    return QStringLiteral(
        "ID\tsID\tRow\tCol\tVis\tShortcutShow\tShortcut\tASFile\tSCname\tKM_Active\tPaletteGo\t"
        "Clipbrd\tAutoMin\tTip\tInfo");
}

QString ZOR::LineTabProperties(const Btn& b) {
    QStringList values{QString::number(b.ID), b.sID, QString::number(b.Row), QString::number(b.Col)};
    values << yesNo(b.Vis) << yesNo(b.ShortcutShow) << b.Shortcut << b.ASfile << b.SCname
           << yesNo(b.KM_Active);
    values << b.PaletteGo << QString::number(b.Clipbrd) << QString::number(b.AutoMin) << b.Tip;
    values << QString(b.Info).replace('\n', "<r>");
    return values.join('\t');
}

QString ZOR::PaletteInfoToString() {
    return Guard::run(where("PaletteInfoToString"), []() -> QString {
        QString text = "Rows\tCols\tTitle\tP_Name\tAlias\n";
        text += QStringList{QString::number(numRows), QString::number(numColumns), paleWinTitle, paleName,
                            paleAlias}
                    .join('\t') +
                '\n';
        text += withoutFirstColumn(LineTabFieldName()) + '\n';
        // A hand-edited file may claim more rows or columns than a palette has.
        const qint64 rows = std::clamp<qint64>(numRows, 0, 10);
        const qint64 columns = std::clamp<qint64>(numColumns, 0, 10);
        for (qint64 r = 0; r < rows; ++r)
            for (qint64 c = 0; c < columns; ++c)
                if (size_t(r * 10 + c) < aBtn->size())
                    text += withoutFirstColumn(LineTabProperties(*aBtn->at(size_t(r * 10 + c)))) + '\n';
        return text;
    });
}

void ZOR::ButtonPicturesIntoFolder(const QString& destination) {
    Guard::run(where("ButtonPicturesIntoFolder"), [&] {
        const QString folder =
            FileTools::childPath(AppGlobals::appSupportFolder + "/ButtonPictures", paleName);
        const QDir source(folder);
        if (folder.isEmpty() || !source.exists()) return;
        const QStringList items = source.entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        if (items.isEmpty()) return;
        QDir().mkpath(destination);
        for (const QString& item : items)
            ItemCopy::copyInto(source.filePath(item), destination);
    });
}

namespace {
// The longest start of `text` whose UTF-8 takes at most `bytes`, cut between characters as the user
// sees them (an accent stays on its letter, a flag stays whole).
QString cutToBytes(const QString& text, qsizetype bytes) {
    if (text.toUtf8().size() <= bytes) return text;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    qsizetype kept = 0;
    for (qsizetype end = characters.toNextBoundary(); end > 0; end = characters.toNextBoundary()) {
        if (QStringView(text).left(end).toUtf8().size() > bytes) break;
        kept = end;
    }
    return text.left(kept);
}
} // namespace

QString ZOR::paletteDataFolderName() {
    // An alias is one name on the Desktop, even a hand-edited one with a slash.
    const QString alias = StringUtils::Remove(paleAlias, " ").replace('/', '_');
    const QString start = RtrnDateString::rsAlphaDateTime(4);
    const QString end = "_" + paleName + "Data";
    // A file system takes names of 255 bytes at most: a long alias gives up its end.
    constexpr qsizetype kLongestName = 255;
    return start + cutToBytes(alias, kLongestName - start.toUtf8().size() - end.toUtf8().size()) + end;
}

bool ZOR::paletteDataToDesktop() {
    const QString name = paletteDataFolderName();
    if (FileTools::childPath(StdFolders::desktop(), name).isEmpty())
        throw IOException("The folder name " + name +
                          " is not one name on the Desktop, so nothing was exported.");
    const QString pictures = FileTools::CreateFolderKnownStart("Desktop", name + "/ButtonPictures");
    if (pictures.isEmpty()) return false;
    if (!FileTools::StringToFileItem(PaletteInfoToString(), "TextData", QFileInfo(pictures).path()))
        return false;
    ButtonPicturesIntoFolder(pictures);
    GeneralMethods::ShowExplanationHTML(
        "<p>A folder</p><p> <i>" + name.toHtmlEscaped() + "</i></p>" +
            "<p>has been created on the Desktop which contains information about the current palette. " +
            "This can be useful when trying to modify, copy or archive an existing palette.</p>" +
            "<p>If any buttons on the palette have associated pictures, a copy of these has been put in the "
            "folder.</p>",
        "Explanation", 500, 270);
    return true;
}
