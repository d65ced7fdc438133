#include "backup/BackupMenus.h"

#include "backup/winManageBU.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"

namespace BackupMenus {
void Install(winMain& window) {
    window.SetMenuHandler(window.mainMenuBar->miPreserveStateBU, [&window] {
        // Make Backup and a restore end the program through the palette window's closing step.
        if (winManageBU::ShowModal()) window.close();
    });
    window.SetMenuHandler(window.mainMenuBar->miPaletteData, [] { ZOR::PaletteDataToDesktop(); });
}
} // namespace BackupMenus
