#pragma once
class winMain;

// What each item of the palette window's menus does: one table of item and handler, bound at
// start-up. Which items are enabled, and the palette items' texts, winMain decides each time the
// menus open (Event_MenuBarSelected).
namespace MenuTable {
void install(winMain& window);
}
