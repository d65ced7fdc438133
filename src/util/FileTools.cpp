#include "util/FileTools.h"

#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTypes.h"
#include "util/Guard.h"
#include "util/PlatformTools.h"
#include "util/RtrnDateString.h"
#include "util/RtrnString.h"
#include "util/StdFolders.h"
#include "util/ZorError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using Guard::Where;

Where where(const char* method) {
    return Where::module(QStringLiteral("FileTools"), QString::fromLatin1(method));
}

// A name that can stand as one child of a folder.
bool isChildName(const QString& name) {
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains(QChar(0));
}

// Whether `path` is `root` or lies below it, by whole components: /home/ann is not below /home/an.
bool isUnder(const QString& path, const QString& root) {
    if (root == "/") return path.startsWith('/');
    return path == root || path.startsWith(root + '/');
}

// The path taken below the home folder, as the text tools take every path they are given.
QString underHome(const QString& path) {
    const QString home = StdFolders::home();
    if (isUnder(path, home)) return path;
    const QString base = home == "/" ? QString() : home;
    return path.startsWith('/') ? base + path : base + '/' + path;
}

// Why `path` cannot be read as a file, in the user's words.
QString notARegularFile(const QString& path) {
    struct stat st {};
    const bool there = ::stat(QFile::encodeName(path).constData(), &st) == 0;
    const int error = errno;
    const QFileInfo info(path);
    if (!there && error == ELOOP) return QStringLiteral("it is a link that leads round in a circle");
    if (!there && info.isSymLink()) return "it is a link to " + info.symLinkTarget() + ", which is not there";
    if (!there && error == ENOENT) return QStringLiteral("it is not there");
    if (!there) return QString::fromLocal8Bit(std::strerror(error));
    if (S_ISDIR(st.st_mode)) return QStringLiteral("it is a folder, not a file");
    if (S_ISFIFO(st.st_mode)) return QStringLiteral("it is a FIFO (a named pipe), not a file");
    if (S_ISSOCK(st.st_mode)) return QStringLiteral("it is a socket, not a file");
    if (S_ISCHR(st.st_mode) || S_ISBLK(st.st_mode)) return QStringLiteral("it is a device, not a file");
    return QStringLiteral("it could not be opened");
}

bool exists(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink(); // a dangling link still takes its name
}

// The one place that replaces a file. QSaveFile writes beside the file and renames over it,
// so a full disk or a crash leaves the former content whole.
bool writeWhole(const QString& filePath, const QString& text) {
    const QString name = QFileInfo(filePath).fileName();
    const bool hadFile = QFileInfo::exists(filePath);
    QSaveFile file(filePath);
    const QByteArray bytes = text.toUtf8();
    bool ok = file.open(QIODevice::WriteOnly);
    if (ok) ok = file.write(bytes) == bytes.size();
    // commit() closes without noticing a failed last flush and would publish a cut file.
    if (ok) ok = file.flush();
    if (ok) ok = file.commit();
    if (ok) return true;
    const QString why = file.errorString();
    file.cancelWriting(); // the temporary file goes with the QSaveFile
    Dialogs::message("Could not save " + name + ": " + why + '.' +
                     (hadFile ? QStringLiteral(" The file that was there before is unchanged.") : QString()));
    return false;
}

QString childFolder(const QString& parent, const QString& name, const QString& problem) {
    if (parent.isEmpty() || !isChildName(name)) {
        Dialogs::message(problem);
        return {};
    }
    const QString path = QDir(parent).filePath(name);
    const QFileInfo info(path);
    if (info.isDir()) return path;
    if (exists(path)) throw IOException("A file named " + name + " stands where the folder should be.");
    if (!QDir().mkpath(path)) throw IOException("Could not create the folder " + path + '.');
    return path;
}

// The folders that CreateFolderKnownStart knows by name; empty where this system has none.
QString specialFolder(const QString& name) {
    auto is = [&](const char* known) { return name.compare(QLatin1String(known), Qt::CaseInsensitive) == 0; };
    auto location = [](QStandardPaths::StandardLocation which) {
        return QDir::cleanPath(QStandardPaths::writableLocation(which));
    };
    if (is("ApplicationData")) return StdFolders::applicationSupport();
    if (is("Applications")) return StdFolders::applications();
    if (is("Caches")) return location(QStandardPaths::GenericCacheLocation);
    if (is("Desktop")) return StdFolders::desktop();
    if (is("Documents")) return StdFolders::documents();
    if (is("Movies")) return location(QStandardPaths::MoviesLocation);
    if (is("Pictures")) return location(QStandardPaths::PicturesLocation);
    if (is("Resources")) return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../Resources");
#ifdef Q_OS_MACOS
    if (is("Cookies")) return StdFolders::home() + "/Library/Cookies";
    if (is("Favorites")) return StdFolders::home() + "/Library/Favorites";
    if (is("SharedApplicationData")) return QStringLiteral("/Library/Application Support");
#else
    if (is("SharedApplicationData")) {
        const QStringList shared = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
        return shared.size() > 1 ? QDir::cleanPath(shared.last()) : QString();
    }
#endif
    return {};
}

bool isSpecialFolderName(const QString& name) {
    static const QStringList known{"ApplicationData",
                                   "Applications",
                                   "Caches",
                                   "Cookies",
                                   "Desktop",
                                   "Documents",
                                   "Favorites",
                                   "Movies",
                                   "Pictures",
                                   "Resources",
                                   "SharedApplicationData"};
    return known.contains(name, Qt::CaseInsensitive);
}
} // namespace

std::unique_ptr<QFile> FileTools::openRegularFile(const QString& path, QString* why) {
    const QByteArray native = QFile::encodeName(path);
    struct stat st {};
    // Looked at before it is opened, and opened without blocking all the same: what stands there
    // may change between the two.
    int fd = ::stat(native.constData(), &st) == 0 && S_ISREG(st.st_mode)
                 ? ::open(native.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)
                 : -1;
    if (fd >= 0 && (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))) {
        ::close(fd);
        fd = -1;
    }
    if (fd < 0) {
        if (why) *why = notARegularFile(path);
        return nullptr;
    }
    auto file = std::make_unique<QFile>(path);
    if (!file->open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        if (why) *why = file->errorString();
        return nullptr;
    }
    return file;
}

QString FileTools::rsStringFile(const QString& path) {
    return Guard::run(where("rsStringFile"), [&]() -> QString {
        if (path.isEmpty() || !QFileInfo(path).isFile()) return {};
        QString why;
        const std::unique_ptr<QFile> file = openRegularFile(path, &why);
        if (!file) throw IOException("Could not read " + path + ": " + why);
        QString text = QString::fromUtf8(file->readAll());
        if (text.startsWith(QChar(0xFEFF))) text.remove(0, 1); // a byte-order mark is no content
        return text;
    });
}

bool FileTools::StringToFileItem(const QString& text, const QString& fileName, const QString& folderPath) {
    return Guard::run(where("StringToFileItem"), [&] {
        const QString name = rbHasExtension(fileName) ? fileName : fileName + ".txt";
        if (folderPath.isEmpty() || !QFileInfo(folderPath).isDir() || !isChildName(name)) {
            Dialogs::beep();
            Dialogs::message("Somehow unable to create the " + name + " file. Method: StringToFileItem");
            return false;
        }
        return writeWhole(QDir(folderPath).filePath(name), text);
    });
}

QString FileTools::TextToFile(const QString& text, const QString& fileName, const QString& path,
                              qint64 stampMode) {
    return Guard::run(where("TextToFile").directForm(), [&]() -> QString {
        const QString prefix =
            stampMode >= 1 && stampMode <= 9 ? RtrnDateString::rsAlphaDateTime(stampMode) : QString();
        QString folder = path;
        QString baseName = fileName;
        if (baseName.isEmpty()) {
            const QString viable = rsViablePath(folder);
            if (viable.endsWith(".txt", Qt::CaseInsensitive)) {
                folder = RtrnString::rsParentFolderPath(viable);
                baseName = RtrnString::rsOnlyFileName(viable);
            } else {
                folder = QStringLiteral("Desktop");
                baseName = QStringLiteral("SavedFile");
            }
        }

        // "Desktop/..." and "Documents/..." one level deep start in those folders.
        const QString body = folder.endsWith('/') ? folder.chopped(1) : folder;
        if (folder.contains('/') && body.count('/') <= 1) {
            if (folder.startsWith("Desktop/", Qt::CaseInsensitive))
                folder = PathFolderEndSlash(StdFolders::desktop()) + folder.mid(8);
            else if (folder.startsWith("Documents/", Qt::CaseInsensitive))
                folder = PathFolderEndSlash(StdFolders::documents()) + folder.mid(10);
        }
        if (folder.compare("Desktop", Qt::CaseInsensitive) == 0) folder = StdFolders::desktop();
        if (folder.compare("Documents", Qt::CaseInsensitive) == 0) folder = StdFolders::documents();

        // Cleaned as if from the root before the test for home, so that ".." cannot climb out of it.
        folder = QDir::cleanPath(folder.startsWith('/') ? folder : '/' + folder);
        while (folder == "/.." || folder.startsWith("/../"))
            folder = folder.mid(3); // no parent above the root
        if (folder.isEmpty()) folder = "/";
        folder = PathFolderEndSlash(underHome(folder));
        const bool made =
            isUnder(QDir::cleanPath(folder), StdFolders::home()) && CreateAllFoldersInPath(folder);
        folder = QDir::cleanPath(folder);

        QString name = prefix + baseName;
        if (!rbHasExtension(name)) name += ".txt";
        name = RtrnString::rsCorrectFileName(name, 50);

        if (!made || !QFileInfo(folder).isDir() || !isChildName(name)) {
            Dialogs::beep();
            Dialogs::message("Somehow unable to create the " + name + " file. Method: TextToFile");
            return {};
        }
        const QString filePath = QDir(folder).filePath(name);
        return writeWhole(filePath, text) ? filePath : QString();
    });
}

bool FileTools::rbHasExtension(const QString& name) {
    return Guard::run(where("rbHasExtension").directForm(), [&] {
        if (name.size() > 255) {
            Dialogs::message("rbHasExtension passed a proposed file name that is too long");
            return false;
        }
        if (name.contains('/') || name.contains('\n')) {
            Dialogs::message("rbHasExtension passed a proposed file name that is not appropriate");
            return false;
        }
        static const QRegularExpression extension(QStringLiteral("\\..{2,4}$"));
        return extension.match(name).hasMatch();
    });
}

QString FileTools::PathFolderEndSlash(const QString& path) {
    return Guard::run(where("PathFolderEndSlash").directForm(),
                      [&] { return path.endsWith('/') ? path : path + '/'; });
}

QString FileTools::rsViablePath(const QString& path) {
    return Guard::run(where("rsViablePath").directForm(), [&]() -> QString {
        QString out = path;
        out.replace("//", "/").replace("/.", "/_").replace(":", "_");
        if (out.compare("Desktop", Qt::CaseInsensitive) == 0) return StdFolders::desktop();
        if (out.compare("Documents", Qt::CaseInsensitive) == 0) return StdFolders::documents();
        if (!path.startsWith('/')) out.prepend('/');
        const QString home = StdFolders::home();
        if (!isUnder(out, home)) out.prepend(home == "/" ? QString() : home);
        return out;
    });
}

QString FileTools::childPath(const QString& folder, const QString& name) {
    if (folder.isEmpty() || !isChildName(name)) return {};
    return QDir(folder).filePath(name);
}

QString FileTools::CreateFolderInAppSupport(const QString& name) {
    return Guard::run(where("CreateFolderInAppSupport"), [&] {
        return childFolder(AppGlobals::appSupportFolder, name,
                           QStringLiteral("Problem with FileTools CreateFolderInAppSupport"));
    });
}

QString FileTools::CreateFolderOnDesktop(const QString& name) {
    return Guard::run(where("CreateFolderOnDesktop"), [&] {
        return childFolder(StdFolders::desktop(), name,
                           QStringLiteral("Problem with FileTools CreateFolderOnDesktop"));
    });
}

bool FileTools::CreateAllFoldersInPath(const QString& path) {
    return Guard::run(where("CreateAllFoldersInPath").directForm(), [&] {
        // The walk starts at home, whatever its depth, and never climbs out of it.
        const QString home = StdFolders::home();
        const QString full = QDir::cleanPath(underHome(path));
        if (!isUnder(full, home)) throw IOException("The path " + path + " leads out of the home folder.");
        QString at = home;
        for (const QString& part : full.mid(home == "/" ? 0 : home.size()).split('/', Qt::SkipEmptyParts)) {
            at = QDir(at).filePath(part);
            const QFileInfo info(at);
            if (info.isDir()) continue;
            if (exists(at)) throw IOException("A file named " + part + " stands where a folder should be.");
            if (!QDir().mkdir(at)) throw IOException("Could not create the folder " + at + '.');
        }
        return true;
    });
}

QString FileTools::CreateFolderKnownStart(const QString& pathKnown, const QString& path) {
    return Guard::run(where("CreateFolderKnownStart"), [&]() -> QString {
        const QString problem =
            QStringLiteral("CreateFolderKnownStart passed incorrect pathKnown parameter. ");
        QString start = pathKnown;
        if (!pathKnown.contains('/')) {
            if (!isSpecialFolderName(pathKnown)) {
                Dialogs::message(problem + "Not a SpecialFolder.");
                return {};
            }
            start = specialFolder(pathKnown);
        }
        if (start.isEmpty() || !exists(start)) {
            Dialogs::message(problem + "Does not exist.");
            return {};
        }
        if (!QFileInfo(start).isDir()) {
            Dialogs::message(problem + "Not a folder.");
            return {};
        }
        QString at = QDir::cleanPath(start);
        for (const QString& part : path.split('/', Qt::SkipEmptyParts)) {
            at = QDir(at).filePath(part);
            if (QFileInfo(at).isDir()) continue;
            if (exists(at)) throw IOException("A file named " + part + " stands where a folder should be.");
            if (!QDir().mkdir(at)) throw IOException("Could not create the folder " + at + '.');
        }
        return at;
    });
}

bool FileTools::RenameFolder(const QString& parentPath, const QString& nowName, const QString& futureName,
                             bool showMessages) {
    return Guard::run(where("RenameFolder"), [&] {
        auto refuse = [&](const QString& text) {
            if (showMessages) Dialogs::message("RenameFolder: " + text);
            return false;
        };
        if (parentPath.isEmpty() || !QFileInfo(parentPath).isDir())
            return refuse(QStringLiteral("The parent folder does not exist."));
        const QDir parent(parentPath);
        if (!isChildName(nowName) || !QFileInfo(parent.filePath(nowName)).isDir())
            return refuse(QStringLiteral("The now folder does not exist."));
        if (!isChildName(futureName)) return refuse("The futureName, " + futureName + ", is faulty.");
        if (exists(parent.filePath(futureName)))
            return refuse("The futureName, " + futureName + ", is already taken.");
        if (QDir(parentPath).rename(nowName, futureName)) return true;
        // Quiet callers (the start-up migration) go on with both names as they were.
        if (showMessages)
            throw IOException("Could not rename the folder " + nowName + " to " + futureName + '.');
        return false;
    });
}

void FileTools::FolderFilesToArray(const QString& folderPath, QStringList& names) {
    Guard::run(where("FolderFilesToArray"), [&] {
        if (folderPath.isEmpty() || !QFileInfo(folderPath).isDir()) return;
        const QDir folder(folderPath);
        for (const QString& name :
             folder.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted))
            if (!name.startsWith('.')) names << name;
    });
}

void FileTools::FolderFolderToArray(const QString& folderPath, QStringList& names) {
    Guard::run(where("FolderFolderToArray"), [&] {
        if (folderPath.isEmpty() || !QFileInfo(folderPath).isDir()) return;
        names << QDir(folderPath).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Unsorted);
        names.sort(Qt::CaseInsensitive);
    });
}

QString FileTools::FolderItemSelect(const QString& prompt, const QString& filterName,
                                    const QString& startFolder) {
    return Guard::run(where("FolderItemSelect").directForm(), [&] {
        const QString start =
            !startFolder.isEmpty() && QFileInfo(startFolder).isDir() ? startFolder : StdFolders::documents();
        return Dialogs::openFile(prompt, FileTypes::nameFilter(filterName), start);
    });
}

QString FileTools::ChooseFileAndMoveToSuppliedDestination(const QString& destination, const QString& prompt,
                                                          const QString& filterName,
                                                          const QString& startName) {
    return Guard::run(where("ChooseFileAndMoveToSuppliedDestination"), [&]() -> QString {
        if (destination.isEmpty() || !QFileInfo(destination).isDir()) return {};
        auto is = [&](const char* name) {
            return startName.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
        };
        QString start = StdFolders::desktop();
        if (is("Documents"))
            start = StdFolders::documents();
        else if (is("Applications"))
            start = StdFolders::applications();
        else if (is("Home") || is("UserHome"))
            start = StdFolders::home();
        const QString chosen = FolderItemSelect(prompt, filterName, start);
        if (chosen.isEmpty()) return {};
        return MoveRenameIfNecessary(chosen, destination);
    });
}

QString FileTools::MoveRenameIfNecessary(const QString& filePath, const QString& destinationFolder) {
    return Guard::run(where("MoveRenameIfNecessary"), [&]() -> QString {
        QString why;
        const QString moved = moveRenaming(filePath, destinationFolder, &why);
        if (moved.isEmpty() && !why.isEmpty())
            throw IOException("Could not move " + QFileInfo(filePath).fileName() + " to " +
                              destinationFolder + ": " + why + '.');
        return moved;
    });
}

bool FileTools::ApplicationIsRunning(const QString& bundleIdentifier) {
    return Guard::run(where("ApplicationIsRunning"), [&] {
        QString id = bundleIdentifier;
        id.replace('\\', "\\\\").replace('"', "\\\""); // it stands inside an AppleScript string
        const PlatformTools::Result result = PlatformTools::run(
            QStringLiteral("osascript"), {"-e", "application id \"" + id + "\" is running"});
        return result.started && result.exitCode == 0 && result.out == "true";
    });
}
