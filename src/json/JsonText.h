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
    std::string_view readStringBytes(); // unescaped UTF-8; valid until the next read
    void skipString();                  // checked as readString checks it, but not converted
    qint64 readInteger(); // a number; fractions are cut
    bool readBool();
    void skipValue();
    void expectEnd();
    void expect(char c);
    // Steps over `bytes` when the text goes on with exactly them; the text stays put otherwise.
    bool skipLiteral(std::string_view bytes) {
        if (text.substr(pos, bytes.size()) != bytes) return false;
        pos += bytes.size();
        return true;
    }
    size_t position() const { return pos; }
    void rewind(size_t to) { pos = to; }

private:
    [[noreturn]] void fail(const char* what) const;
    void skipSpace() {
        while (pos < text.size() && (text[pos] == ' ' || text[pos] == '\n' || text[pos] == '\r' || text[pos] == '\t')) ++pos;
    }
    char peek() {
        skipSpace();
        if (pos >= text.size()) fail("unexpected end of the text");
        return text[pos];
    }
    char32_t readHex4();
    // From the end of the string's first plain run on; only checks the string when `out` is null.
    void parseString(std::string* out, size_t firstRunEnd);
    size_t runEnd(size_t from);         // where a run of plain characters ends; checks their encoding
    std::string_view stringView(); // the string's bytes, unescaped only where it must be
    void skipNumber();
    void skipScalar();

    std::string_view text;
    size_t pos = 0;
    bool firstInContainer = false;
    std::string scratch;
    std::string keyScratch;
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
    // A key is a name of the program's own, in ASCII: its characters are stored as they stand.
    void key(std::string_view name) {
        separate();
        room(qsizetype(name.size()) + 3);
        *cursor++ = u'"';
        for (const char c : name) *cursor++ = char16_t(uint8_t(c));
        *cursor++ = u'"';
        *cursor++ = u':';
        needComma = false;
    }
    void value(const QString& text);
    void value(qint64 number);
    void value(bool flag) {
        separate();
        flag ? putAscii("true") : putAscii("false");
    }
    void value(int number) { value(qint64(number)); }
    template <class V> void member(std::string_view name, const V& v) { key(name), value(v); }
    QString take();

private:
    void open(char16_t c) {
        separate();
        put(c);
        needComma = false;
    }
    void separate() {
        if (needComma) put(u',');
        needComma = true;
    }
    void escaped(char16_t c); // a quote, backslash or control character
    void room(qsizetype n) {
        if (end - cursor < n) grow(n);
    }
    void grow(qsizetype n);
    void put(char16_t c) {
        room(1);
        *cursor++ = c;
    }
    void putAscii(std::string_view text) {
        room(qsizetype(text.size()));
        for (const char c : text) *cursor++ = char16_t(uint8_t(c));
    }
    QString out;
    char16_t* cursor = nullptr;
    char16_t* end = nullptr;
    bool needComma = false;
};

} // namespace JsonText
