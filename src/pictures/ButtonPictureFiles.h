#pragma once
#include <QList>
#include <QString>
#include <QStringView>

#include <utility>

// Which file is a button's picture. Each palette Pnn has a folder of that name in ButtonPictures;
// in it, a file whose name starts with two digits nn is the picture of button nn ("07 anything.png"
// is button 7's), and any other name belongs to no button. Of two files for one button the later
// by name is shown.

// The button that a file of this name is the picture of, or -1.
int buttonOfPicture(QStringView fileName);
// "P" and two digits, in either case: the name of a palette's folder.
bool isPaletteFolderName(QStringView name);
// The folder of the palette's pictures, its name in either case ("p02" is P02's, as on the Mac's
// disks); empty for a name that is not one plain name.
QString palettePictureFolder(const QString& paletteName);

// Whether `folder` holds something named `name` in any case: on the Mac's disks "07 Cat.png" and
// "07 cat.png" are one file.
bool nameTakenIn(const QString& folder, const QString& name);

// How the first two characters of a name are read. The design window's warning about pictures on
// invisible buttons reads them as a number, so that " 5", "5 ", "+5" and a name of one digit count
// there too, though they show on no button; it keeps that reading.
enum class LeadingDigits { Two, AsNumber };
// The picture files of a palette's folder, sorted by name, each with its button number. Names
// starting with "." are hidden files, never pictures. Safe on any thread: it asks only QDir.
QList<std::pair<int, QString>> buttonPictureFiles(const QString& folder,
                                                  LeadingDigits reading = LeadingDigits::Two);
