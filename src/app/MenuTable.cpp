#include "app/MenuTable.h"

#include "assets/winButtonPics.h"
#include "assets/winMakeMacros.h"
#include "assets/winManageAS.h"
#include "backup/winManageBU.h"
#include "design/winConstruct.h"
#include "help/Help.h"
#include "help/winAboutBox.h"
#include "manage/winChangeAlias.h"
#include "manage/winDeletePalette.h"
#include "manage/winNewPalette.h"
#include "manage/winSwitchPalette.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"

namespace {
// Each window is built afresh at every opening and shown modally, with no parent window.
template <class Window> Dialogs::Answer showModal() {
    Window window;
    return Dialogs::exec(window, {Dialogs::Kind::Window, window.windowTitle(), {}, {}, nullptr});
}

// Grid Construct, built anew at each opening, on `button` when it is one; the palette drawn anew
// after it. Done or the close box ends the design of the palette's half: a completed change.
void showGridConstruct(winMain& window, int button) {
    winConstruct design(&window);
    if (button >= 0) design.GridClicked(button);
    Dialogs::exec(design, {Dialogs::Kind::Window, design.windowTitle(), {}, {}, nullptr});
    ZOR::saveStore();
    window.follow();
}
} // namespace

void MenuTable::install(winMain& window) {
    const MainMenuBar& bar = *window.mainMenuBar;
    QList<winMain::MenuEntry> table = {
        {bar.FileQuit, [&window] { window.close(); }}, // the closing step saves
        {bar.miSwitchPalette, [] { showModal<winSwitchPalette>(); }},
        {bar.miConstruct, [&window] { showGridConstruct(window, -1); }},
        {bar.miButPic, [] { showButtonPictures(); }},
        {bar.miManageAS, [] { showManageAS(); }},
        {bar.miMakeMacros, [] { showMakeMacros(); }},
        {bar.miNewPalette, [] { showModal<winNewPalette>(); }},
        {bar.miRenamePalette, [] { showModal<winChangeAlias>(); }},
        {bar.miDeletePalette,
         [&window] {
             // Once more behind the closed window, so the palette window is whole when it comes to the front.
             if (showModal<winDeletePalette>().accepted) window.follow();
         }},
        {bar.miPaletteParticulars, [] { Help::ShowHelpTextProvided(ZOR::paleParticulars); }},
        {bar.miProgramOverview, [] { Help::ShowHelp(0); }},
        {bar.miPaletteData, [] { ZOR::paletteDataToDesktop(); }},
        {bar.miPreserveStateBU,
         [&window] {
             // Make Backup and a restore end the program through the palette window's closing step.
             if (winManageBU::showModal()) window.close();
         }},
        {bar.miHelpAbout, [] { showAboutBox(); }},
    };
    for (qint64 k = 0; k < qint64(bar.miPalette.size()); ++k) // P00 to P09, Cmd+0 to Cmd+9
        table.append({bar.miPalette[size_t(k)], [k] { ZOR::ChangeToPalette(k); }});
    window.AddMenuHandlers(table);
    // A button's own menu: Grid Construct opened on that button.
    window.editButton = [&window](int button) { showGridConstruct(window, button); };
}
