#pragma once
#include "store/DataFileKeys.h"
#include "util/Dialogs.h"
#include "util/ZorError.h"
#include "json/JsonText.h"

#include <array>
#include <iterator>
#include <type_traits>
#include <utility>

// Writing and reading one object of the data file by its key table.
namespace DataFileKeys {

template <const auto& keys> using RecordOf = typename std::remove_cvref_t<decltype(keys[0])>::Record;
template <const auto& keys> using KeyIndices = std::make_index_sequence<std::size(keys)>;

template <const auto& keys, size_t I> void writeMember(JsonText::Writer& w, const RecordOf<keys>& record) {
    constexpr const auto& key = keys[I];
    if constexpr (key.kind == Kind::Flag)
        w.member(key.name, record.*key.flag);
    else if constexpr (key.kind == Kind::Integer)
        w.member(key.name, record.*key.integer);
    else
        w.member(key.name, record.*key.text);
}

template <const auto& keys, size_t... I>
void writeMembers(JsonText::Writer& w, const RecordOf<keys>& record, std::index_sequence<I...>) {
    (writeMember<keys, I>(w, record), ...);
}

template <const auto& keys> void writeObject(JsonText::Writer& w, const RecordOf<keys>& record) {
    w.beginObject();
    writeMembers<keys>(w, record, KeyIndices<keys>{});
    w.endObject();
}

// What stands before a key's value when this program writes it: `{"sID":` for the first key,
// `,"Shortcut":` for the next. Made once, when the program is built.
template <const auto& keys, size_t I>
inline constexpr auto kLead = [] {
    constexpr std::string_view name = keys[I].name;
    std::array<char, name.size() + 4> lead{};
    lead[0] = I == 0 ? '{' : ',';
    lead[1] = '"';
    for (size_t c = 0; c < name.size(); ++c)
        lead[c + 2] = name[c];
    lead[name.size() + 2] = '"';
    lead[name.size() + 3] = ':';
    return lead;
}();

inline QString transitionMessage(const char* told) {
    return QStringLiteral("Transitioning to new format of stored JSON data: ") + QLatin1String(told);
}

[[noreturn]] inline void missingKey(std::string_view key) {
    throw JSONException(QStringLiteral("The key %1 is missing from the data.")
                            .arg(QLatin1String(key.data(), qsizetype(key.size()))));
}

// The value of a key of kind ButtonNumber: the number while it is two digits, else its text.
struct ButtonNumber {
    int id = -1;
    QString badSID;
};

// The reading functions take the reader as an argument rather than keep it in an object whose
// address escapes: the compiler then keeps the reader at hand across the calls into it, where it
// would load it again after each. That is a fifth of a load of the full store.

// Takes the value of key I. With `keep` false it is only checked, as reading it would check it.
template <const auto& keys, size_t I, bool keep>
void take(JsonText::Reader& r, RecordOf<keys>& record, ButtonNumber& number) {
    constexpr const auto& k = keys[I];
    if constexpr (k.kind == Kind::ButtonNumber) {
        // Other scripts' digits are no button number.
        const std::string_view bytes = r.readStringBytes();
        auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        const bool digits = bytes.size() == 2 && isDigit(bytes[0]) && isDigit(bytes[1]);
        number.id = digits ? (bytes[0] - '0') * 10 + (bytes[1] - '0') : -1;
        number.badSID = digits ? QString() : QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    } else if constexpr (k.kind == Kind::Text) {
        if constexpr (keep)
            record.*k.text = r.readString();
        else
            r.skipString();
    } else if constexpr (k.kind == Kind::Flag) {
        const bool value = r.readBool();
        if constexpr (keep) record.*k.flag = value;
    } else {
        const qint64 value = r.readInteger();
        if constexpr (keep) record.*k.integer = value;
    }
}

template <class Record> void takeAbsent(const Key<Record>& k, Record& record) {
    if (k.rule)
        k.rule(record);
    else if (k.text)
        (record.*k.text).clear();
    else if (k.flag)
        record.*k.flag = false;
    else if (k.integer)
        record.*k.integer = 0;
}

// Every key in the table's order, nothing between: the object as this program writes it. False,
// with the text where it was, when it is written otherwise (by hand, by another tool).
template <const auto& keys, bool keep, size_t... I>
bool readAsWritten(JsonText::Reader& r, RecordOf<keys>& record, ButtonNumber& number,
                   std::index_sequence<I...>) {
    const size_t start = r.position();
    const bool whole = ((r.skipLiteral({kLead<keys, I>.data(), kLead<keys, I>.size()}) &&
                         (take<keys, I, keep>(r, record, number), true)) &&
                        ...) &&
                       r.skipLiteral("}");
    // Read again from its start: each value taken so far is taken again.
    if (!whole) r.rewind(start);
    return whole;
}

// The keys in any order, others among them; gives a bit for each key of the table it found.
template <const auto& keys, bool keep, size_t... I>
unsigned readAnyOrder(JsonText::Reader& r, RecordOf<keys>& record, ButtonNumber& number,
                      std::string_view& key, std::index_sequence<I...>) {
    static_assert(sizeof...(I) <= 32, "one bit per key");
    unsigned seen = 0;
    r.beginObject();
    while (r.nextKey(key))
        if (!((key == keys[I].name && (take<keys, I, keep>(r, record, number), seen |= 1u << I, true)) ||
              ...))
            r.skipValue();
    return seen;
}

// Reads one object into `record`. An obligatory key that it lacks fails the reading; an optional
// one is told when `tellAbsentKeys`, and takes its value for an absent key. With `keep` false the
// values are only checked, and the record stays as it was.
template <const auto& keys, bool keep>
void readObject(JsonText::Reader& r, RecordOf<keys>& record, ButtonNumber& number, std::string_view& key,
                bool tellAbsentKeys) {
    if (readAsWritten<keys, keep>(r, record, number, KeyIndices<keys>{})) return;
    const unsigned seen = readAnyOrder<keys, keep>(r, record, number, key, KeyIndices<keys>{});
    const auto absent = [seen](size_t i) { return !(seen & (1u << i)); };
    for (size_t i = 0; i < std::size(keys); ++i)
        if (keys[i].obligatory() && absent(i)) missingKey(keys[i].name);
    if (tellAbsentKeys)
        for (size_t i = 0; i < std::size(keys); ++i)
            if (absent(i)) Dialogs::message(transitionMessage(keys[i].told));
    if constexpr (keep)
        for (size_t i = 0; i < std::size(keys); ++i)
            if (absent(i)) takeAbsent(keys[i], record);
}

} // namespace DataFileKeys
