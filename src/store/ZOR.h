#pragma once
#include "store/Btn.h"
#include "store/PaletteButtons.h"
#include "store/PaletteView.h"

#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

// The palette dictionary of one slot. A slot is free when its alias is the no-shortcut mark.
struct PaletteDict {
    PaletteButtons a_Btn;
    qint64 i_NumRows = 0;
    qint64 i_NumColumns = 0;
    QString s_Name;
    QString s_Alias;
    QString s_WinTitle;
    QString s_Particulars;
};

// Rows or columns of a palette: 1 to 10. A count outside (a hand-edited file) opens the whole grid,
// so that no button is hidden by it.
constexpr qint64 usableGridCount(qint64 count) {
    return count < 1 || count > 10 ? 10 : count;
}

// The palette store and the working set of the active palette.
namespace ZOR {

// The module's properties, each with its value at program load. The code uses them by the names
// below; resetStore gives them all that value again.
struct Properties {
    std::vector<PaletteDict> DP;
    BtnArray aBtn = std::make_shared<std::vector<BtnRef>>();
    qint64 idxCP = -1;
    qint64 idxCurrentBtn = 0;
    qint64 numRows = 0;
    qint64 numColumns = 0;
    QString paleName;
    QString paleAlias;
    QString paleWinTitle;
    QString paleParticulars;
    bool paletteContentChange = false;
    bool paletteActiveChange = false;
    bool QuitSavePaletteChanges = false;
    QString reusablePaletteName; // written as an empty string; never read back
    QStringList aAlphabetShortcut;
    qint64 initialWinTop = 0;
    qint64 initialWinLeft = 0;
    qint64 initialWinHeight = 0;
    qint64 initialWinWidth = 0;
    // Set when PreserveState.txt exists but could not be read: the quit must then leave it alone, and
    // the start offers the backup window.
    bool dataFileUnreadable = false;
};
inline Properties properties;

// Names bound once to their place in `properties`: the compiler uses that place directly.
inline auto& DP = properties.DP;
inline auto& aBtn = properties.aBtn;
inline auto& idxCP = properties.idxCP;
inline auto& idxCurrentBtn = properties.idxCurrentBtn;
inline auto& numRows = properties.numRows;
inline auto& numColumns = properties.numColumns;
inline auto& paleName = properties.paleName;
inline auto& paleAlias = properties.paleAlias;
inline auto& paleWinTitle = properties.paleWinTitle;
inline auto& paleParticulars = properties.paleParticulars;
inline auto& paletteContentChange = properties.paletteContentChange;
inline auto& paletteActiveChange = properties.paletteActiveChange;
inline auto& QuitSavePaletteChanges = properties.QuitSavePaletteChanges;
inline auto& reusablePaletteName = properties.reusablePaletteName;
inline auto& aAlphabetShortcut = properties.aAlphabetShortcut;
inline auto& initialWinTop = properties.initialWinTop;
inline auto& initialWinLeft = properties.initialWinLeft;
inline auto& initialWinHeight = properties.initialWinHeight;
inline auto& initialWinWidth = properties.initialWinWidth;
inline auto& dataFileUnreadable = properties.dataFileUnreadable;

inline const QString kDataFileName = QStringLiteral("PreserveState");
inline const QString kEmergencyFolder = QStringLiteral("EmergencyPreserveStateBU");

// records
void MakeAlphabetShortcuts();
void DefaultValuesPalette(qint64 index);
void CreateFirstPalette();
void ActivatePalette(qint64 index);
void SavePaletteToDP();
void BreakBtnLinkToDP();
BtnArray newButtonArray(); // 100 default buttons, as a new palette has them
const QString& ButtonNumber(qint64 id); // "00" to "99", one shared copy each
void resetStore();         // every property back to its value at program load

// the life of a palette
void CreateNewPalette(const QString& alias);
void ChangeToPalette(qint64 index);
qint64 IndexFromAlias(const QString& alias);
bool IsPaletteExistant(qint64 index);
inline constexpr qint64 kMaxPalettes = 100; // P00 to P99
bool roomForNewPalette(); // a slot of P00 to P99 is free, or another can still be added
// The palette's picture folder goes whole to RemovedZOR_PaletteButtonPictures on the Desktop
// (an empty one is removed). Gives the folder it went into, empty when there was nothing to move.
QString movePalettePicturesAside(const QString& paletteName);
// Moves the active palette's pictures aside, frees its slot and activates P00. P00 itself is
// never deleted: the program falls back to it. False when nothing was deleted.
bool deleteActivePalette();

// the window that follows the store
void registerView(PaletteView* view);
PaletteView* view();
void viewFollows(PaletteView::Upto upto = PaletteView::Upto::Title); // when a window is registered

// the data file
void GetZOR_DataFromDisk();
QString JSON_CreateData();
bool JSON_ParseData(const QString& text); // false when the text could not be read
bool JSON_ParseData(std::string_view utf8);
// Palettes not yet shown keep their buttons as the data file's text; from now on that text no
// longer depends on the file on disk. Called once the first palette is on screen.
void keepDataText();
QString dataFilePath();
// The active palette's index from the head of the data file, read before the file itself; -1
// when the head cannot be told. It only lets the start begin on that palette's pictures early.
qint64 peekCurrentPalette();
// Where the data file's text really is: PreserveState.txt, or the file at the end of its links (a
// store kept in a synced folder); empty for a link that leads nowhere.
QString dataFileTarget();
// Replaces the data file's text whole, or leaves it as it was and tells why. A link stays a link:
// the file it leads to is what is replaced.
bool writeDataFile(const QString& text);
// Writes the whole store to the data file at once, as the quit does, after every completed change:
// a crash or a kill then loses at most the change in progress. Never over a data file that could
// not be read, nor over a restored one before the program has started again, nor a store without
// an active palette. True when written.
bool saveStore();
void clearUnfinishedSave(); // the scratch copy of a save cut short by a crash or a kill goes

// backups
bool PreserveStateBackUp(bool keepActive, bool toDesktop);
void RemoveFilesFromEmergencyBackup(qint64 removeCount, qint64 threshold);
QString backupFileName();    // YYMMDD_HHMMPreserveStateBU.txt for now
bool PreserveStateRestore(); // true when a chosen backup took the data file's place
// Why the file at `path` cannot be read as a palette store; empty when it loads whole. The store in
// use is left as it is.
QString whyNotAStore(const QString& path);

// export of the active palette
QString LineTabFieldName();
QString LineTabProperties(const Btn& button);
QString PaletteInfoToString();
void ButtonPicturesIntoFolder(const QString& destination);
QString paletteDataFolderName();
bool paletteDataToDesktop(); // true when it ran to its end

} // namespace ZOR
