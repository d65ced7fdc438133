#pragma once
#include <QString>

// The user's standard folders. On macOS application support is ~/Library/Application Support;
// on Linux it is $XDG_DATA_HOME (default ~/.local/share). Tests move them by moving HOME and XDG_*.
namespace StdFolders {
QString applicationSupport();
QString desktop();
QString documents();
QString home();
QString applications();
// The user's cache folder, which the system may empty at any time.
QString caches();
// Tests: every folder above lies in `home` (empty: the user's own again).
void setHomeForTests(const QString& home);
} // namespace StdFolders
