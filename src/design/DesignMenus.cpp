#include "design/DesignMenus.h"

#include "palette_window/winMain.h"

namespace DesignMenus {
void Install(winMain&) {}
} // namespace DesignMenus
