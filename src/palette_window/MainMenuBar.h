#pragma once
#include <QMenuBar>
#include <array>

class QAction;
class QMenu;

// The program's one menu bar: the global bar on the Mac, atop the palette window elsewhere.
// Items are members named as the program knows them; what each does is bound at start-up, from
// the application's menu table.
class MainMenuBar : public QMenuBar {
    Q_OBJECT
public:
    explicit MainMenuBar(QWidget* parent = nullptr);

    QMenu* FileMenu;
    QAction* FileQuit;
    QMenu* EditMenu;
    QAction *EditUndo, *EditCut, *EditCopy, *EditPaste, *EditClear, *EditSelectAll;
    QMenu* muPalette;
    QAction* miSwitchPalette;
    std::array<QAction*, 10> miPalette{}; // miPalette00 to miPalette09
    QMenu* muConfigure;
    QAction *miConstruct, *miButPic, *miManageAS, *miMakeMacros, *miNewPalette, *miRenamePalette,
        *miDeletePalette;
    QMenu* muHelpMenu;
    QAction *miPaletteParticulars, *miProgramOverview, *miPaletteData, *miPreserveStateBU, *miHelpAbout;

signals:
    void aboutToShowAnyMenu(); // the hook before the bar's content is seen

private:
    QAction* item(QMenu* menu, const char* name, const QString& text, const QKeySequence& shortcut = {});
};
