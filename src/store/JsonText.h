#pragma once
#include <QString>
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// A small pull reader and a writer for the data file. The file is one array of flat objects;
// reading it straight into the records, with no document tree in between, keeps the load of a
// full store of 10,101 objects to a few milliseconds. Any valid JSON is read, values the store
// does not know are skipped, and malformed text raises JSONException.
namespace JsonText {

class Reader {
public:
    explicit Reader(std::string_view utf8);

    void beginArray();
    bool nextElement(); // true when another element follows; consumes the closing bracket
    void beginObject();
    bool nextKey(std::string_view& key); // false at the closing brace; valid until the next read

    QString readString();
    qint64 readInteger(); // a number; fractions are cut
    bool readBool();
    void skipValue();
    void expectEnd();

private:
    [[noreturn]] void fail(const char* what) const;
    char peek();
    void skipSpace();
    void expect(char c);
    char32_t readHex4();
    void parseString(std::string& out);
    std::string_view stringView(); // the string's bytes, unescaped only where it must be
    void skipNumber();
    void skipScalar();

    std::string_view text;
    size_t pos = 0;
    bool firstInContainer = false;
    std::string scratch;
    std::string keyScratch;
    // Most strings of the store are a letter or two digits (shortcuts, button numbers): shared
    // copies spare ten thousands of small allocations.
    std::array<QString, 128> letters;
    std::array<QString, 100> digitPairs;
};

// Writes UTF-16 text straight into a QString: the caller wants a string, and the values are
// QStrings already, so runs of plain characters are copied whole. The string is written through a
// cursor into room made ahead, not appended to piece by piece: a full store writes 10,000 objects.
class Writer {
public:
    explicit Writer(qsizetype expectedSize = 0) { grow(std::max<qsizetype>(expectedSize, 64)); }
    void beginArray() { open(u'['); }
    void endArray() { put(u']'); }
    void beginObject() { open(u'{'); }
    void endObject() { put(u'}'); }
    void key(QLatin1StringView name);
    void value(const QString& text);
    void value(qint64 number);
    void value(bool flag);
    void value(int number) { value(qint64(number)); }
    template <class V> void member(const char* name, const V& v) { key(QLatin1StringView(name)), value(v); }
    QString take();

private:
    void open(char16_t c);
    void separate();
    void escaped(char16_t c); // a quote, backslash or control character
    void room(qsizetype n) {
        if (end - cursor < n) grow(n);
    }
    void grow(qsizetype n);
    void put(char16_t c) {
        room(1);
        *cursor++ = c;
    }
    void putLatin1(QLatin1StringView text);
    QString out;
    char16_t* cursor = nullptr;
    char16_t* end = nullptr;
    bool needComma = false;
};

} // namespace JsonText
