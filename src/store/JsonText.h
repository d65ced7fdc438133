#pragma once
#include <QString>
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
// QStrings already, so runs of plain characters are copied whole.
class Writer {
public:
    explicit Writer(qsizetype expectedSize = 0) { out.reserve(expectedSize); }
    void beginArray() { open('['); }
    void endArray() { out += QLatin1Char(']'); }
    void beginObject() { open('{'); }
    void endObject() { out += QLatin1Char('}'); }
    void key(QLatin1StringView name);
    void value(const QString& text);
    void value(qint64 number);
    void value(bool flag);
    void value(int number) { value(qint64(number)); }
    template <class V> void member(const char* name, const V& v) { key(QLatin1StringView(name)), value(v); }
    QString take() { return std::move(out); }

private:
    void open(char c);
    void separate();
    void escaped(char16_t c); // a quote, backslash or control character
    QString out;
    bool needComma = false;
};

} // namespace JsonText
