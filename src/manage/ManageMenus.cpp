#include "manage/ManageMenus.h"

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
} // namespace

namespace ManageMenus {
void Install(winMain& window) {
    MainMenuBar* bar = window.mainMenuBar;
    window.SetMenuHandler(bar->miSwitchPalette, [] { showModal<winSwitchPalette>(); });
    window.SetMenuHandler(bar->miNewPalette, [] { showModal<winNewPalette>(); });
    window.SetMenuHandler(bar->miRenamePalette, [] { showModal<winChangeAlias>(); });
    window.SetMenuHandler(bar->miDeletePalette, [&window] {
        // Once more behind the closed window, so the palette window is whole when it comes to the front.
        if (showModal<winDeletePalette>().accepted) {
            window.RedrawGrid();
            window.SetPaletteTitle(ZOR::paleWinTitle);
        }
    });
}
} // namespace ManageMenus
