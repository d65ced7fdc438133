#include "actions/Launchers.h"

#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/PlatformTools.h"
#include "util/StdFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace {
using Guard::Where;

Where zor(const char* method) {
    return Where::module(QStringLiteral("ZOR"), QString::fromLatin1(method));
}

void runBundledScript(const char* method, const QString& scriptFile, const QStringList& arguments) {
    Guard::run(Where::module(QStringLiteral("Launchers"), QString::fromLatin1(method)), [&] {
        // Detached: osascript lives as long as the macro or script does, and the palette
        // must answer the next click meanwhile.
        const QString script = bundleResources() + '/' + scriptFile;
        if (!PlatformTools::startDetached(QStringLiteral("osascript"), QStringList{script} + arguments))
            Dialogs::message("Cannot run " + scriptFile + ": osascript could not be started.");
    });
}

// The program's folder, also before start-up has set it.
QString programFolder() {
    if (!AppGlobals::appSupportFolder.isEmpty()) return AppGlobals::appSupportFolder;
    return StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
}
} // namespace

// <bundle>/Contents/MacOS/ZOR_Palette -> <bundle>/Contents/Resources; <build>/bin -> <build>/Resources.
QString bundleResources() {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../Resources");
}

void FirePalette(const QStringList& arguments) {
    runBundledScript("FirePalette", QStringLiteral("FirePalette.scpt"), arguments);
}

void FireAppleScript(const QStringList& arguments) {
    runBundledScript("FireAppleScript", QStringLiteral("FireAppleScript.scpt"), arguments);
}

void ZOR::FireKM(const QString& paletteName, const QString& buttonID) {
    Guard::run(zor("FireKM"), [&] { FirePalette({paletteName, buttonID}); });
}

void ZOR::FireAS(const QString& scriptFileName) {
    Guard::run(zor("FireAS"), [&] {
        // A name that cleans down to nothing, or names anything but a file of Apple_Scripts, runs nothing.
        if (scriptFileName.isEmpty()) {
            Dialogs::message(
                "This button names no AppleScript file, so nothing was run. To change this, edit it in "
                "Grid Construct.");
            return;
        }
        if (FileTools::childPath(programFolder() + "/Apple_Scripts", scriptFileName).isEmpty()) {
            Dialogs::message(
                "The AppleScript name " + scriptFileName +
                " is not the name of a file in the folder Apple_Scripts, so nothing was run. To change "
                "this, edit the button in Grid Construct.");
            return;
        }
        FireAppleScript({scriptFileName});
    });
}

void ZOR::FireSC(const QString& shortcutName) {
    Guard::run(zor("FireSC"), [&] {
        if (!IsShortcutExistant(shortcutName)) {
            Dialogs::message("The Shortcut, " + shortcutName + " does not exist on this computer.");
            return;
        }
        // One argument to open: the name is data, never part of a command line.
        const QString url =
            "shortcuts://run-shortcut?name=" + QString::fromLatin1(QUrl::toPercentEncoding(shortcutName));
        const PlatformTools::Result result = PlatformTools::run(QStringLiteral("open"), {url});
        if (result.exitCode != 0) Dialogs::message("Error Code: " + QString::number(result.exitCode));
    });
}

QStringList ZOR::shortcutNames() {
    return Guard::run(zor("shortcutNames"), [] {
        // The exit code does not matter: a failed listing is an empty one, and in an empty
        // listing not even an empty name is found.
        const PlatformTools::Result result = PlatformTools::run(QStringLiteral("shortcuts"), {"list"});
        return result.out.trimmed().split('\n', Qt::SkipEmptyParts);
    });
}

bool ZOR::IsShortcutExistant(const QString& name) {
    return Guard::run(zor("IsShortcutExistant"), [&] { return shortcutNames().contains(name); });
}

QString ZOR::rsWithWithoutScpt(const QString& name, bool withScpt) {
    return Guard::run(zor("rsWithWithoutScpt"), [&]() -> QString {
        // Only the first full stop survives, kept as "$" while the others go; a "$" typed ahead
        // of it then takes the full stop's place and ends the name there.
        QString s = name.trimmed();
        if (const auto dot = s.indexOf('.'); dot >= 0) s[dot] = '$';
        s.remove('.');
        if (const auto dollar = s.indexOf('$'); dollar >= 0) s[dollar] = '.';
        const QString stem = s.section('.', 0, 0);
        if (stem.isEmpty()) return {}; // "", "." and ".scpt" are no names
        return withScpt ? stem + ".scpt" : stem;
    });
}

QString ZOR::rsScriptName(const QString& name) {
    return Guard::run(zor("rsScriptName"), [&]() -> QString {
        if (name.isEmpty()) return {};
        const QString file = rsWithWithoutScpt(name, true);
        if (file.isEmpty()) return {};
        // The Mac's file system ignores case; give the name as it stands on disk.
        const QStringList entries = QDir(programFolder() + "/Apple_Scripts")
                                        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        if (entries.contains(file)) return file;
        for (const QString& entry : entries)
            if (entry.compare(file, Qt::CaseInsensitive) == 0) return entry;
        return {};
    });
}

QString ZOR::sID_FromShortcut(const QString& key) {
    return Guard::run(zor("sID_FromShortcut"), [&]() -> QString {
        if (!aBtn) return {};
        for (const BtnRef& btn : *aBtn)
            if (btn && btn->Shortcut == key) return btn->sID;
        return {};
    });
}

bool ZOR::keyboardMaestroEngineRuns() {
    return Guard::run(zor("keyboardMaestroEngineRuns"), [] {
        return FileTools::ApplicationIsRunning(QStringLiteral("com.stairways.keyboardmaestro.engine")) ||
               FileTools::ApplicationIsRunning(QStringLiteral("com.stairways.keyboardmaestro.editor.engine"));
    });
}
