#pragma once
#include <QString>
#include <QStringList>
#include <memory>

class QFile;

// Routines over files and folders. A file-system item is an absolute path; an empty string
// stands for none. Failures show a plain message or are reported by the usual rule, and the
// caller sees an empty or false result.
namespace FileTools {

// Reading and writing text (UTF-8).
// Opens `path` for reading when it is a regular file (a link is followed), never waiting on it: a
// FIFO, a device or a folder where a file is expected is refused, not opened. Gives the open file,
// or none with `why` in the program's words ("it is a FIFO").
std::unique_ptr<QFile> openRegularFile(const QString& path, QString* why);
QString rsStringFile(const QString& path); // whole content; empty for a missing file
// Replaces folderPath/fileName (".txt" added when the name has no extension) atomically: on any
// failure the file that was there stays whole. True when written.
bool StringToFileItem(const QString& text, const QString& fileName, const QString& folderPath);
// Writes text to a file named by an optional date stamp (stampMode 1 to 9) and fileName, in the
// folder `path`: "Desktop", "Documents", "Desktop/<sub>", or a path taken below the home folder.
// Gives the path of the file written, empty on failure.
QString TextToFile(const QString& text, const QString& fileName, const QString& path, qint64 stampMode);

// Names and paths.
bool rbHasExtension(const QString& name); // a dot and 2 to 4 further characters at the end
QString PathFolderEndSlash(const QString& path);
QString rsViablePath(const QString& path); // an absolute path below the home folder
// `name` in `folder` when it is one plain name, which keeps the path inside the folder (not empty,
// "." or "..", no "/" or NUL); empty otherwise. Every path made from a value of the data file goes
// through here: a hand-edited or restored file must not choose where the program reads or writes.
QString childPath(const QString& folder, const QString& name);

// Folders. Each gives the folder's path, empty when it could not be had.
QString CreateFolderInAppSupport(const QString& name);
QString CreateFolderOnDesktop(const QString& name);
// Makes every missing folder of `path` below the home folder (a relative path is taken from home).
bool CreateAllFoldersInPath(const QString& path);
// Makes the folders of `path` below a start: a system folder's name ("Desktop", "Documents", ...)
// or an existing folder's absolute path.
QString CreateFolderKnownStart(const QString& pathKnown, const QString& path);
// True when the folder nowName of parentPath now has the name futureName.
bool RenameFolder(const QString& parentPath, const QString& nowName, const QString& futureName,
                  bool showMessages);
void FolderFilesToArray(const QString& folderPath, QStringList& names);  // plain, not hidden files
void FolderFolderToArray(const QString& folderPath, QStringList& names); // folders; sorts names

// Selecting and moving.
// The open-file dialog; empty when cancelled. filterName is a FileTypes set name.
QString FolderItemSelect(const QString& prompt, const QString& filterName, const QString& startFolder);
// Asks for a file, starting in "Desktop", "Documents", "Applications", "Home" or "UserHome", and
// moves it into destination. Gives the file's new path, empty when nothing was moved.
QString ChooseFileAndMoveToSuppliedDestination(const QString& destination, const QString& prompt,
                                               const QString& filterName, const QString& startName);
// Moves a file into destinationFolder without ever overwriting: on a clash it takes the name
// "1_" + name, "2_" + name, ... free in both folders. Gives the new path, empty on failure.
QString MoveRenameIfNecessary(const QString& filePath, const QString& destinationFolder);

// MoveRenameIfNecessary's move itself, which reports nothing: the new path, or empty with `why`
// (the system's words; empty too when there was no file to move, or no folder to move it to).
QString moveRenaming(const QString& filePath, const QString& destinationFolder, QString* why);
// MoveRenameIfNecessary for files the user placed: when a folder cannot be changed the move is
// not tried, and the file stays where it was. Links move as links. Gives the new path, empty when
// the file did not move, with `why` in the program's words ("the folder P00 cannot be changed").
QString moveRenameOrWhy(const QString& filePath, const QString& destinationFolder, QString* why);
// The same, and a plain message tells why a file did not move.
QString moveRenameOrSay(const QString& filePath, const QString& destinationFolder);
// The folder `name` on the Desktop, made when missing; empty, with `why`, when it cannot be had.
// It reports nothing itself.
QString desktopFolderOrWhy(const QString& name, QString* why);

// Whether an application with this bundle identifier is running.
bool ApplicationIsRunning(const QString& bundleIdentifier);

} // namespace FileTools
