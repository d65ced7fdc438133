#pragma once
#include "store/Btn.h"
#include "store/ZOR.h"

#include <QString>
#include <string_view>

// The keys of the data file's button and palette objects, in the order of writing, each with the
// field of the record it holds. The writer and both readers (the quick one for objects as this
// program writes them, and the one that takes the keys in any order) work from these tables
// alone: a new field is one more line here.
namespace DataFileKeys {

enum class Kind { Text, Flag, Integer, ButtonNumber };

// A key that older files lack. The first object without it tells the user once, by `told`. It
// then reads as empty, 0 or false, unless `rule` gives its value from the values read.
template <class Record> struct Optional {
    const char* told;
    void (*rule)(Record&) = nullptr;
};

template <class R> struct Key {
    using Record = R;
    constexpr Key(std::string_view name, QString Record::*field, Kind kind = Kind::Text)
        : name(name), kind(kind), text(field) {}
    constexpr Key(std::string_view name, bool Record::*field) : name(name), kind(Kind::Flag), flag(field) {}
    constexpr Key(std::string_view name, qint64 Record::*field)
        : name(name), kind(Kind::Integer), integer(field) {}
    template <class Field>
    constexpr Key(std::string_view name, Field Record::*field, Optional<Record> optional) : Key(name, field) {
        told = optional.told;
        rule = optional.rule;
    }
    constexpr bool obligatory() const { return told == nullptr; }

    std::string_view name;
    Kind kind;
    QString Record::*text = nullptr;
    bool Record::*flag = nullptr;
    qint64 Record::*integer = nullptr;
    const char* told = nullptr;
    void (*rule)(Record&) = nullptr;
};

// A button of an older file that fired nothing else was a macro button.
inline void macroUnlessAnotherAction(Btn& b) {
    b.KM_Active = b.SCname.isEmpty() && b.PaletteGo.isEmpty() && b.ASfile.isEmpty();
}

inline constexpr Key<Btn> kButtonKeys[] = {
    {"sID", &Btn::sID, Kind::ButtonNumber}, // ID, Row and Col are rebuilt from it
    {"Shortcut", &Btn::Shortcut},
    {"Tip", &Btn::Tip},
    {"Info", &Btn::Info},
    {"ShortcutShow", &Btn::ShortcutShow},
    {"Vis", &Btn::Vis},
    {"ASfile", &Btn::ASfile, {.told = "ASfile"}},
    {"SCname", &Btn::SCname, {.told = "SCname"}},
    {"AutoMin", &Btn::AutoMin, {.told = "AutoMin"}},
    {"Clipbrd", &Btn::Clipbrd, {.told = "Clipbrd"}},
    {"PaletteGo", &Btn::PaletteGo, {.told = "PaletteGo"}},
    {"KM_Active", &Btn::KM_Active, {.told = "KM_Active", .rule = macroUnlessAnotherAction}},
};

inline constexpr Key<PaletteDict> kPaletteKeys[] = {
    {"numRows", &PaletteDict::i_NumRows},
    {"numColumns", &PaletteDict::i_NumColumns},
    {"paleName", &PaletteDict::s_Name},
    {"paleAlias", &PaletteDict::s_Alias},
    {"paleWinTitle", &PaletteDict::s_WinTitle},
    {"paleParticulars", &PaletteDict::s_Particulars, {.told = "Particulars"}},
};

} // namespace DataFileKeys
