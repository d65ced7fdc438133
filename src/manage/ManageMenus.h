#pragma once
class winMain;

// The palette management windows take over their items of the palette window's menus.
namespace ManageMenus {
void Install(winMain& window);
}
