#pragma once
#include <QList>
#include <QString>
#include <QStringList>

// The file-type tables of the open-file dialogs. FileTypes::build() fills them at start-up.
struct FileType {
    QString name;       // name or MIME type
    QString extensions; // as listed, separated by ";" (JpgPng has a "," after ".png")
    QString macType;
    QString macCreator;
    QString conformsTo;
    QString identifier; // uniform type identifier

    QStringList patterns() const; // "*.txt", ...; "*" when the entry has no extensions
    QString nameFilter() const;   // "name (*.a *.b)" for QFileDialog
};

namespace FileTypesCommon {
inline FileType TextThing;
inline FileType AnyThing;
inline FileType JpgPng;
inline QList<FileType> list;
} // namespace FileTypesCommon

namespace FileTypeJpgPng {
inline FileType Jpeg;
inline FileType Png;
inline QList<FileType> list;
QString All(); // "image/jpeg;image/png"
} // namespace FileTypeJpgPng

namespace FileTypeAppleScript {
inline FileType Script;
inline QList<FileType> list;
QString All(); // "AppleScripts"
} // namespace FileTypeAppleScript

namespace FileTypes {
// Builds FileTypesCommon, FileTypeJpgPng and FileTypeAppleScript, in that order. Running it
// again changes nothing.
void build();
// The QFileDialog filter for a set name: "TextThing", "AnyThing", FileTypeJpgPng::All(),
// FileTypeAppleScript::All() or an entry's name; anything else allows every file.
QString nameFilter(const QString& setName);
} // namespace FileTypes
