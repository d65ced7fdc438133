#pragma once
#include <QString>

// Copies of files and whole folders, for what the program puts on the Desktop.
namespace ItemCopy {
// Copies a file, or a folder with everything in it (hidden items too), into `folder` under its own
// name. A file of that name already there is replaced, a folder of that name is merged into.
// Throws IOException when something could not be copied.
void copyInto(const QString& item, const QString& folder);
} // namespace ItemCopy
