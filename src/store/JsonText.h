#pragma once
#include <QString>
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
    bool nextKey(std::string& key); // false at the closing brace

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
    void parseString(std::string& out);
    void skipNumber();

    std::string_view text;
    size_t pos = 0;
    bool firstInContainer = false;
    std::string scratch;
};

class Writer {
public:
    explicit Writer(size_t expectedSize = 0) { out.reserve(expectedSize); }
    void beginArray() { open('['); }
    void endArray() { out += ']'; }
    void beginObject() { open('{'); }
    void endObject() { out += '}'; }
    void key(std::string_view name);
    void value(const QString& text);
    void value(qint64 number);
    void value(bool flag);
    void value(int number) { value(qint64(number)); }
    template <class V> void member(std::string_view name, const V& v) { key(name), value(v); }
    const std::string& text() const { return out; }

private:
    void open(char c);
    void separate();
    void escaped(std::string_view utf8);
    std::string out;
    bool needComma = false;
};

} // namespace JsonText
