#pragma once
class winMain;

// The design window takes over its item of the palette window's menus.
namespace DesignMenus {
void Install(winMain& window);
}
