#include "palette_window/MainMenuBar.h"

#include "util/StringUtils.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
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

// The Edit items act on whichever text control has the focus, in any window.
void sendToFocus(const char* slot) {
    if (QWidget* focus = QApplication::focusWidget()) QMetaObject::invokeMethod(focus, slot);
}

// Delete takes away the selection only, as on the Mac; the text controls' own clear() empties them.
void deleteSelection() {
    QWidget* focus = QApplication::focusWidget();
    if (auto* line = qobject_cast<QLineEdit*>(focus)) {
        if (line->hasSelectedText()) line->del();
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(focus)) {
        plain->textCursor().removeSelectedText();
    } else if (auto* rich = qobject_cast<QTextEdit*>(focus)) {
        rich->textCursor().removeSelectedText();
    }
}
} // namespace

MainMenuBar::MainMenuBar(QWidget* parent) : QMenuBar(parent) {
    setObjectName("MainMenuBar");

    FileMenu = addMenu("&File");
    FileMenu->setObjectName("FileMenu");
    FileQuit = item(FileMenu, "FileQuit", "&Quit", cmd(Qt::Key_Q));
    FileQuit->setMenuRole(QAction::QuitRole);
    FileQuit->setShortcutContext(Qt::ApplicationShortcut);
    FileMenu->menuAction()->setVisible(false);

    EditMenu = addMenu("&Edit");
    EditMenu->setObjectName("EditMenu");
    EditUndo = item(EditMenu, "EditUndo", "&Undo", cmd(Qt::Key_Z));
    EditMenu->addSeparator()->setObjectName("EditSeparator1");
    EditCut = item(EditMenu, "EditCut", "Cu&t", cmd(Qt::Key_X));
    EditCopy = item(EditMenu, "EditCopy", "&Copy", cmd(Qt::Key_C));
    EditPaste = item(EditMenu, "EditPaste", "&Paste", cmd(Qt::Key_V));
    EditClear = item(EditMenu, "EditClear", "&Delete");
    EditMenu->addSeparator()->setObjectName("EditSeparator2");
    EditSelectAll = item(EditMenu, "EditSelectAll", "Select &All", cmd(Qt::Key_A));
    const std::pair<QAction*, const char*> editing[] = {{EditUndo, "undo"},   {EditCut, "cut"},
                                                         {EditCopy, "copy"},   {EditPaste, "paste"},
                                                         {EditSelectAll, "selectAll"}};
    for (const auto& [action, slot] : editing) connect(action, &QAction::triggered, this, [s = slot] { sendToFocus(s); });
    connect(EditClear, &QAction::triggered, this, deleteSelection);

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
