#pragma once
class winMain;

// The backup window and the palette export take over their items of the palette window's menus.
namespace BackupMenus {
void Install(winMain& window);
}
