#include "manage/ManageMenus.h"

#include "palette_window/winMain.h"

namespace ManageMenus {
void Install(winMain&) {}
} // namespace ManageMenus
