#include "design/DesignMenus.h"

#include "design/winConstruct.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "util/Dialogs.h"

namespace DesignMenus {
void Install(winMain& window) {
    window.SetMenuHandler(window.mainMenuBar->miConstruct, [&window] {
        winConstruct design(&window); // built anew at each opening
        Dialogs::exec(design, {Dialogs::Kind::Window, design.windowTitle(), {}, {}, nullptr});
    });
}
} // namespace DesignMenus
