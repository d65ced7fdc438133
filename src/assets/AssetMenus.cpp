#include "assets/AssetMenus.h"

#include "palette_window/winMain.h"

namespace AssetMenus {
void Install(winMain&) {}
} // namespace AssetMenus
