#include "assets/AssetMenus.h"

#include "assets/winButtonPics.h"
#include "assets/winManageAS.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"

namespace AssetMenus {
void Install(winMain& window) {
    window.SetMenuHandler(window.mainMenuBar->miButPic, [] { ShowButtonPictures(); });
    window.SetMenuHandler(window.mainMenuBar->miManageAS, [] { ShowManageAS(); });
}
} // namespace AssetMenus
