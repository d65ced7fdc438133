#include "palette_window/MainMenuBar.h"

#include "util/MenuBars.h"
#include "util/StringUtils.h"

#include <QMenu>

QAction* MainMenuBar::item(QMenu* menu, const char* name, const QString& text, const QKeySequence& shortcut) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    return action;
}

namespace {
// Qt's Ctrl is the Command key on the Mac.
QKeySequence cmd(Qt::Key key) { return QKeySequence(Qt::CTRL | key); }
} // namespace

MainMenuBar::MainMenuBar(QWidget* parent) : QMenuBar(parent) {
    setObjectName("MainMenuBar");

    FileMenu = addMenu("&File");
    FileMenu->setObjectName("FileMenu");
    FileQuit = item(FileMenu, "FileQuit", "&Quit", cmd(Qt::Key_Q));
    FileQuit->setMenuRole(QAction::QuitRole);
    FileQuit->setShortcutContext(Qt::ApplicationShortcut);
    FileMenu->menuAction()->setVisible(false);

    EditMenu = MenuBars::addEditMenu(*this);
    const auto edit = [this](const char* name) { return EditMenu->findChild<QAction*>(name); };
    EditUndo = edit("EditUndo"), EditCut = edit("EditCut"), EditCopy = edit("EditCopy");
    EditPaste = edit("EditPaste"), EditClear = edit("EditClear"), EditSelectAll = edit("EditSelectAll");

    muPalette = addMenu("Palette");
    muPalette->setObjectName("muPalette");
    miSwitchPalette = item(muPalette, "miSwitchPalette", "Switch Palette", cmd(Qt::Key_P));
    muPalette->addSeparator()->setObjectName("miSepLine");
    for (int k = 0; k < 10; ++k) {
        const QString name = "P" + StringUtils::twoDigits(k);
        miPalette[size_t(k)] = item(muPalette, qPrintable("miPalette" + name.mid(1)), name, cmd(Qt::Key(Qt::Key_0 + k)));
    }

    muConfigure = addMenu("Configure");
    muConfigure->setObjectName("muConfigure");
    miConstruct = item(muConfigure, "miConstruct", "Grid Construct");
    miButPic = item(muConfigure, "miButPic", "Button Pictures");
    miManageAS = item(muConfigure, "miManageAS", "Manage AppleScript");
    miMakeMacros = item(muConfigure, "miMakeMacros", QString::fromUtf8("Make Keyboard Maestro Macros…"));
    muConfigure->addSeparator()->setObjectName("miSepLineConfigure");
    miNewPalette = item(muConfigure, "miNewPalette", QString::fromUtf8("New Palette…"));
    miRenamePalette = item(muConfigure, "miRenamePalette", QString::fromUtf8("Rename Palette Alias…"));
    miDeletePalette = item(muConfigure, "miDeletePalette", QString::fromUtf8("Delete Palette…"));

    muHelpMenu = addMenu("Help");
    muHelpMenu->setObjectName("muHelpMenu");
    miPaletteParticulars = item(muHelpMenu, "miPaletteParticulars", "Palette Particulars");
    miProgramOverview = item(muHelpMenu, "miProgramOverview", "Program Overview");
    miPaletteData = item(muHelpMenu, "miPaletteData", "Palette Data to Desktop");
    miPreserveStateBU = item(muHelpMenu, "miPreserveStateBU", "Manage PreserveState Backup");
    miHelpAbout = item(muHelpMenu, "miHelpAbout", "About ZOR_Palette");
    miHelpAbout->setMenuRole(QAction::AboutRole);

    for (QMenu* menu : {FileMenu, EditMenu, muPalette, muConfigure, muHelpMenu})
        connect(menu, &QMenu::aboutToShow, this, &MainMenuBar::aboutToShowAnyMenu);
}
