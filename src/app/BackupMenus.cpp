#include "app/BackupMenus.h"

#include "palette_window/winMain.h"

namespace BackupMenus {
void Install(winMain&) {}
} // namespace BackupMenus
