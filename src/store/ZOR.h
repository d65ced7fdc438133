#pragma once
#include "store/Btn.h"
#include "store/PaletteView.h"

#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

// The palette dictionary of one slot. A slot is free when its alias is the no-shortcut mark.
struct PaletteDict {
    BtnArray a_Btn;
    qint64 i_NumRows = 0;
    qint64 i_NumColumns = 0;
    QString s_Name;
    QString s_Alias;
    QString s_WinTitle;
    QString s_Particulars;
};

// The palette store and the working set of the active palette.
namespace ZOR {

inline std::vector<PaletteDict> DP;
inline BtnArray aBtn = std::make_shared<std::vector<BtnRef>>();
inline qint64 idxCP = -1;
inline qint64 idxCurrentBtn = 0;
inline qint64 numRows = 0;
inline qint64 numColumns = 0;
inline QString paleName;
inline QString paleAlias;
inline QString paleWinTitle;
inline QString paleParticulars;
inline bool paletteContentChange = false;
inline bool paletteActiveChange = false;
inline bool QuitSavePaletteChanges = false;
inline QString reusablePaletteName; // written as an empty string; never read back
inline QStringList aAlphabetShortcut;
inline qint64 initialWinTop = 0;
inline qint64 initialWinLeft = 0;
inline qint64 initialWinHeight = 0;
inline qint64 initialWinWidth = 0;
// Set when PreserveState.txt exists but could not be read: the quit must then leave it alone.
inline bool dataFileUnreadable = false;

inline const QString kDataFileName = QStringLiteral("PreserveState");
inline const QString kEmergencyFolder = QStringLiteral("EmergencyPreserveStateBU");

// records
void MakeAlphabetShortcuts();
void DefaultValuesPalette(qint64 index);
void CreateFirstPalette();
void ActivatePalette(qint64 index);
void SavePaletteToDP();
void BreakBtnLinkToDP();
BtnArray NewButtonArray(); // 100 default buttons, as a new palette has them
void ResetStore();         // every property back to its value at program load

// the life of a palette
void CreateNewPalette(const QString& alias);
void ChangeToPalette(qint64 index);
qint64 IndexFromAlias(const QString& alias);
bool IsPaletteExistant(qint64 index);

// the window that follows the store
void RegisterView(PaletteView* view);
PaletteView* View();

// the data file
void GetZOR_DataFromDisk();
QString JSON_CreateData();
bool JSON_ParseData(const QString& text); // false when the text could not be read
bool JSON_ParseData(std::string_view utf8);
QString DataFilePath();
bool WriteDataFile(const QString& text); // replaces PreserveState.txt whole, or leaves it as it was

// backups
bool PreserveStateBackUp(bool keepActive, bool toDesktop);
void RemoveFilesFromEmergencyBackup(qint64 removeCount, qint64 threshold);

} // namespace ZOR
