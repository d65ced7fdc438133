#pragma once
#include <QMap>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>

// The rules of the button picture folders and the audit that takes out what breaks them: a
// picture's name as the palette window reads it, with more checks of its own. A link counts as
// what it leads to: a link to a folder is a folder, a link to a picture a picture.
// Nothing is deleted: every offender moves to the Desktop folder RemovedZOR_PaletteButtonPictures,
// links as links. A message that says a file is moved comes only once it has moved; what could
// not move stays where it was and is told once, at the end of the audit.
class ButtonPictureAudit {
public:
    // butFolder is ButtonPictures; paletteFolder is the current palette's folder inside it.
    ButtonPictureAudit(QString butFolder, QString paletteFolder);

    // Two leading digits, and from the first "." on exactly ".png", ".jpeg" or ".jpg".
    static bool IsNameOfButtonOK(const QString& name);
    static bool isSideOK(int pixels) { return pixels > 50 && pixels < 70; }
    // Width and height from the file's header, never decoding the picture; invalid when the file
    // is no picture or no regular file.
    static QSize pictureSize(const QString& path);

    // The steps of one audit, in their order.
    void checkCurrentPalette();       // names, size and content (decoded whole), with a message for each
    void RemoveFilesInButtonFolder(); // files among the palette folders, silently
    void GetFoldersInButFolder();     // asButFolders anew
    void removeBadFolderNames();      // folders not named P00 to P99, or a second in other case, silently
    // Every picture of every palette, "Pnn*name" sorted; moves names that break the rule.
    QStringList listAllPictures();
    bool fillDictionary(); // diFile; a second picture for a button moves; true when one did
    QStringList currentPalettePictures() const; // sorted names
    // One message for what this audit could not move out, if anything: it stays where it was.
    void tellWhatStays();

    // What moved in this audit and every earlier one of the same window, by display name.
    QStringList asRemoved;
    QStringList asButFolders;
    QMap<QString, QString> diFile; // button id to the picture's path

    QString butFolder;
    QString paletteFolder;

private:
    bool moveOut(const QString& path); // to the Desktop folder; true when it moved
    QString removedFolder;
    QString noFolder;    // why the Desktop folder could not be had, in this audit
    QStringList stays;   // "name: why" of what did not move in this audit
    QSet<QString> stuck; // files that would not move: told once, then left alone
};
