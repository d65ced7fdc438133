#include "app/App.h"

#include "app/MenuTable.h"
#include "backup/winManageBU.h"
#include "help/ErrorHandling.h"
#include "help/GeneralMethods.h"
#include "help/Help.h"
#include "help/winAboutBox.h"
#include "palette_window/winMain.h"
#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureCache.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/Guard.h"
#include "util/RtrnDateString.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"
#include "util/ZorError.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPalette>
#include <QTimer>
#include <functional>
#include <thread>
#include <utility>

App::App(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("ZOR_Palette");
    setApplicationVersion("1.4.0");
    setOrganizationDomain("lunvale.net");
    setProperty("nonReleaseVersion", 92);
    setProperty("stage", "final");
}

namespace {
const QString kOldFolderName = QStringLiteral("ZOR_Palette");

// Both folders exist: the old one goes. An old folder that still holds files is not thrown
// away but moved into the new folder, so that no palette data of either is lost.
void retireOldFolder(const QString& support) {
    QDir supportDir(support);
    if (supportDir.rmdir(kOldFolderName)) return;
    const QString keptName = "OldZOR_PaletteFolder_" + RtrnDateString::rsAlphaDateTime(4);
    if (!QFile::rename(supportDir.filePath(kOldFolderName),
                       supportDir.filePath(AppGlobals::kAppFolderName + '/' + keptName)))
        throw IOException("The old folder ZOR_Palette could not be removed.");
}

// The current palette's pictures are decoded on worker threads while the data file is read.
void startOnCurrentPictures() {
    const qint64 current = ZOR::peekCurrentPalette();
    if (current < 0 || current > 99) return;
    const QString name = "P" + StringUtils::twoDigits(current);
    QStringList paths;
    for (const auto& file : buttonPictureFiles(palettePictureFolder(name)))
        paths << file.second;
    PictureCache::prefetchAtStart(paths);
}

// The store could not read its data file and left it as it is: the user may restore a backup now.
void offerBackupWindow() {
    Guard::run(Guard::Where::module("App", "OfferBackupWindowAtStart"), [] {
        const QString text =
            "ZOR_Palette could not read its data file, PreserveState.txt, so it shows a fresh first palette for now. "
            "The file stays exactly as it is: nothing will be saved over it when you quit.\n\nTo get your palettes "
            "back, press OK to open Manage PreserveState Backup (it is also in the Help menu) and restore a backup, "
            "for instance one from the folder EmergencyPreserveStateBU.";
        if (!RtrnBoolean::rbOKCancel(text, 1, QStringLiteral("Manage PreserveState Backup"))) return;
        if (!winManageBU::showModal()) return;
        // The palette window is not there yet; it closes, and so ends the program, once the event loop runs.
        QTimer::singleShot(0, qApp, [] { QApplication::closeAllWindows(); });
    });
}
} // namespace

QPalette App::fixedPalette() {
    // Every role of every group is set, so that nothing of the system's palette shows through:
    // in the dark appearance it would give light text on the pale colours the windows paint.
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, QColor(0xEC, 0xEC, 0xEC)},
        {QPalette::WindowText, QColor(0x00, 0x00, 0x00)},
        {QPalette::Base, QColor(0xFF, 0xFF, 0xFF)},
        {QPalette::AlternateBase, QColor(0xF5, 0xF5, 0xF5)},
        {QPalette::Text, QColor(0x00, 0x00, 0x00)},
        {QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80)},
        {QPalette::Button, QColor(0xEC, 0xEC, 0xEC)},
        {QPalette::ButtonText, QColor(0x00, 0x00, 0x00)},
        {QPalette::BrightText, QColor(0xFF, 0xFF, 0xFF)},
        {QPalette::Light, QColor(0xFF, 0xFF, 0xFF)},
        {QPalette::Midlight, QColor(0xCA, 0xCA, 0xCA)},
        {QPalette::Mid, QColor(0xB8, 0xB8, 0xB8)},
        {QPalette::Dark, QColor(0x9F, 0x9F, 0x9F)},
        {QPalette::Shadow, QColor(0x76, 0x76, 0x76)},
        {QPalette::Highlight, QColor(0xB3, 0xD7, 0xFF)},
        {QPalette::HighlightedText, QColor(0x00, 0x00, 0x00)},
        {QPalette::Link, QColor(0x00, 0x68, 0xDA)},
        {QPalette::LinkVisited, QColor(0x80, 0x00, 0x80)},
        {QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDC)},
        {QPalette::ToolTipText, QColor(0x00, 0x00, 0x00)},
    };
    QPalette colours;
    for (const auto& [role, colour] : roles) colours.setColor(role, colour);
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    colours.setColor(QPalette::Accent, QColor(0x00, 0x7A, 0xFF));
#endif
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, QColor(0x8C, 0x8C, 0x8C));
    // A field that takes no input shows it: the window's grey behind it, not a field's white.
    colours.setColor(QPalette::Disabled, QPalette::Base, QColor(0xEC, 0xEC, 0xEC));
    return colours;
}

void App::Event_Opening() {
    // Before any window is made: each takes its colours from the application's at creation.
    QApplication::setPalette(fixedPalette());
    Guard::run(Guard::Where::appEvent("Opening").directForm(), [] {
        const QString support = StdFolders::applicationSupport();
        const QDir supportDir(support);
        const bool oldExists = QFileInfo(supportDir.filePath(kOldFolderName)).isDir();
        const bool newExists = QFileInfo(supportDir.filePath(AppGlobals::kAppFolderName)).isDir();
        if (oldExists && newExists) retireOldFolder(support);
        if (oldExists && !newExists) FileTools::RenameFolder(support, kOldFolderName, AppGlobals::kAppFolderName, false);
        if (AppGlobals::appSupportFolder.isEmpty())
            AppGlobals::appSupportFolder = supportDir.filePath(AppGlobals::kAppFolderName);
        AppGlobals::folderPathAS = QDir::toNativeSeparators(AppGlobals::appSupportFolder + "/Apple_Scripts");
        AppGlobals::folderPathButFolder = QDir::toNativeSeparators(AppGlobals::appSupportFolder + "/ButtonPictures");
        QFile::remove(AppGlobals::appSupportFolder + "/Help_ZOR_Palette.sqlite");
        QApplication::setQuitOnLastWindowClosed(true);
        ZOR::paletteContentChange = false;
        ZOR::paletteActiveChange = false;
        ZOR::MakeAlphabetShortcuts();
        startOnCurrentPictures();
        ZOR::GetZOR_DataFromDisk();
        if (ZOR::dataFileUnreadable) offerBackupWindow();
        ZOR::ActivatePalette(ZOR::idxCP);
        ZOR::QuitSavePaletteChanges = true;
    });
}

namespace {
// Runs `work` once the window's first frame is drawn: what the first frame does not need waits.
class AfterFirstFrame : public QObject {
public:
    AfterFirstFrame(QWidget& window, std::function<void()> work) : QObject(&window), work(std::move(work)) {
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            // Posted: the rest of the window paints and reaches the screen first.
            QTimer::singleShot(0, this, [this] {
                work();
                deleteLater();
            });
        }
        return false;
    }

private:
    std::function<void()> work;
};

// The menu bar's first size asks the font database, and filling it is a third of a start's work.
// A second core fills it while this one reads the data file; the database locks itself, so the
// menu bar only waits for what is not done yet.
class FontsFilledAside {
public:
    FontsFilledAside() : filler([] { QFontDatabase::families(); }) {}
    ~FontsFilledAside() { filler.join(); }
    FontsFilledAside(const FontsFilledAside&) = delete;
    FontsFilledAside& operator=(const FontsFilledAside&) = delete;

private:
    std::thread filler;
};

// Shows the palette window; what its first frame does not need follows once it is drawn.
void showPaletteWindow(winMain& window) {
    new AfterFirstFrame(window, [] {
        ZOR::keepDataText();
        Help::fillDictionaryWhenNeeded();
#ifndef Q_OS_MACOS
        // The Mac shows the bundle's own icon. Elsewhere the window takes the small one.
        QApplication::setWindowIcon(applicationIcon());
#endif
    });
    window.show();
}
} // namespace

std::unique_ptr<winMain> App::startPaletteWindow() {
    ErrorHandling::install();
    Event_Opening();
    auto window = std::make_unique<winMain>();
    MenuTable::install(*window);
    window->Event_Opening();
    showPaletteWindow(*window);
    return window;
}

int App::run(int argc, char* argv[]) {
    FileTypes::build();
    App app(argc, argv);
    const FontsFilledAside fonts;
    const std::unique_ptr<winMain> window = startPaletteWindow();
    return app.exec();
}
