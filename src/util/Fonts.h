#pragma once
#include <QFont>
#include <QString>

// Font sizes in this program are the Mac's points, where one point is one pixel. Linux counts
// 96 to the inch, which would make every text a third larger than it is designed; sizes are
// therefore given in pixels, the same on both.
namespace Fonts {
// `family` "System" is the platform's user-interface font; `size` 0 keeps its default size.
QFont sized(const QString& family, double size);
} // namespace Fonts
