#include "util/FileTypes.h"

#include <QRegularExpression>

QStringList FileType::patterns() const {
    static const QRegularExpression separators(QStringLiteral("[;,]"));
    QStringList out;
    for (const QString& ext : extensions.split(separators, Qt::SkipEmptyParts))
        out << '*' + ext.trimmed();
    if (out.isEmpty()) out << QStringLiteral("*");
    return out;
}

QString FileType::nameFilter() const {
    return name + " (" + patterns().join(' ') + ')';
}

QString FileTypeJpgPng::All() {
    return QStringLiteral("image/jpeg;image/png");
}
QString FileTypeAppleScript::All() {
    return QStringLiteral("AppleScripts");
}

void FileTypes::build() {
    using namespace FileTypesCommon;
    TextThing = {
        "text/plain",     ".asc;.ascii;.bas;.c;.class;.cp;.cpp;.h;.hp;.hpp;.i3;.java;.m2;.m3;.mak;.text;.txt",
        "TEXT",           "????",
        "public.content", "public.text"};
    AnyThing = {"Untitled", {}, {}, {}, {}, {}};
    JpgPng = {"image", ".png,.jfif;.jpe;.jpeg;.jpg", {}, {}, {}, {}};
    list = {TextThing, AnyThing, JpgPng};

    FileTypeJpgPng::Jpeg = {"image/jpeg", ".jfif;.jpe;.jpeg;.jpg", "JPEG", {}, "public.image", "public.jpeg"};
    FileTypeJpgPng::Png = {"image/png", ".png", "PNGf", {}, "public.image", "public.png"};
    FileTypeJpgPng::list = {FileTypeJpgPng::Jpeg, FileTypeJpgPng::Png};

    FileTypeAppleScript::Script = {"AppleScripts",
                                   ".scpt;.scptd;.applescript",
                                   {},
                                   {},
                                   "public.script, public.source-code, public.data, public.plain-text, "
                                   "public.item, com.apple.applescript.script, public.content, public.text",
                                   "com.apple.applescript.script"};
    FileTypeAppleScript::list = {FileTypeAppleScript::Script};
}

QString FileTypes::nameFilter(const QString& setName) {
    if (FileTypesCommon::list.isEmpty()) build();
    if (setName == FileTypeJpgPng::All()) {
        // One filter that takes both kinds at once.
        QStringList patterns;
        for (const FileType& type : FileTypeJpgPng::list)
            patterns << type.patterns();
        return "Images (" + patterns.join(' ') + ')';
    }
    if (setName == "TextThing") return FileTypesCommon::TextThing.nameFilter();
    for (const auto* group : {&FileTypesCommon::list, &FileTypeJpgPng::list, &FileTypeAppleScript::list})
        for (const FileType& type : *group)
            if (type.name == setName) return type.nameFilter();
    return FileTypesCommon::AnyThing.nameFilter();
}
