#pragma once
class winMain;

// The asset windows take over their items of the palette window's menus.
namespace AssetMenus {
void Install(winMain& window);
}
