#pragma once
#include <QString>

// The fields of the application object that every layer may read: the channel through which
// modal windows take their parameters and give their answers, and the program's folders.
// They live here, at the bottom, so that windows of any layer can use them; App owns their
// setting at start-up.
namespace AppGlobals {
inline bool fGlobalBoolean = false;
inline qint64 iGlobalInteger = 0;
inline QString sGlobalMessage;
inline QString sGlobalWindowTitle;
inline QString appSupportFolder; // absolute path; empty while not set
inline QString folderPathAS;
inline QString folderPathButFolder;

inline const QString kAppFolderName = QStringLiteral("net.lunvale.ZOR-Palette");
// The Desktop folder where pictures taken off their buttons go; nothing is deleted.
inline const QString kRemovedPicturesFolder = QStringLiteral("RemovedZOR_PaletteButtonPictures");
} // namespace AppGlobals
