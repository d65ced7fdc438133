#pragma once
#include <QString>
#include <memory>
#include <vector>

// One button of a palette. All 100 records of a palette always exist, whatever its grid size.
struct Btn {
    qint64 ID = 0;
    qint64 Row = 0;
    QString Tip;
    QString Info; // may hold line ends
    bool Vis = true;
    QString Shortcut; // one letter, or the no-shortcut mark
    QString sID;      // ID as two digits
    qint64 Col = 0;
    bool ShortcutShow = false;
    QString ASfile;
    qint64 AutoMin = 0;
    QString SCname;
    qint64 Clipbrd = 0;
    QString PaletteGo;
    bool KM_Active = false;

    void CopyFrom(const Btn& source) { *this = source; }
    friend bool operator==(const Btn&, const Btn&) = default;
};

// Arrays and their elements are shared: the active palette's array is the very array of its slot.
using BtnRef = std::shared_ptr<Btn>;
using BtnArray = std::shared_ptr<std::vector<BtnRef>>;

inline constexpr int kButtonsPerPalette = 100;
inline const QString kNoShortcut = QStringLiteral("\u2400"); // "␀": no shortcut, or a free slot's alias
