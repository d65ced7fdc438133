#include "store/JsonText.h"

#include "util/ZorError.h"

#include <charconv>

namespace JsonText {

Reader::Reader(std::string_view utf8) : text(utf8) {
    if (text.size() >= 3 && text.substr(0, 3) == "\xEF\xBB\xBF") pos = 3; // tolerate a byte-order mark
}

void Reader::fail(const char* what) const {
    throw JSONException(QStringLiteral("Invalid JSON at character %1: %2").arg(pos).arg(QString::fromUtf8(what)));
}

void Reader::skipSpace() {
    while (pos < text.size()) {
        const char c = text[pos];
        if (c != ' ' && c != '\n' && c != '\r' && c != '\t') return;
        ++pos;
    }
}

char Reader::peek() {
    skipSpace();
    if (pos >= text.size()) fail("unexpected end of the text");
    return text[pos];
}

void Reader::expect(char c) {
    if (peek() != c) fail(c == '[' ? "expected an array" : c == '{' ? "expected an object" : "unexpected character");
    ++pos;
}

void Reader::beginArray() {
    expect('[');
    firstInContainer = true;
}

void Reader::beginObject() {
    expect('{');
    firstInContainer = true;
}

bool Reader::nextElement() {
    const char c = peek();
    if (c == ']') {
        ++pos;
        return false;
    }
    if (!firstInContainer) {
        if (c != ',') fail("expected , or ]");
        ++pos;
    }
    firstInContainer = false;
    return true;
}

bool Reader::nextKey(std::string& key) {
    char c = peek();
    if (c == '}') {
        ++pos;
        return false;
    }
    if (!firstInContainer) {
        if (c != ',') fail("expected , or }");
        ++pos;
        c = peek();
    }
    firstInContainer = false;
    if (c != '"') fail("expected a key");
    parseString(key);
    expect(':');
    return true;
}

namespace {
int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}
} // namespace

void Reader::parseString(std::string& out) {
    out.clear();
    ++pos; // opening quote
    for (;;) {
        const size_t start = pos;
        while (pos < text.size() && text[pos] != '"' && text[pos] != '\\' && uint8_t(text[pos]) >= 0x20) ++pos;
        out.append(text.substr(start, pos - start));
        if (pos >= text.size()) fail("unterminated string");
        const char c = text[pos++];
        if (c == '"') return;
        if (c != '\\') fail("control character in a string");
        if (pos >= text.size()) fail("unterminated string");
        switch (text[pos++]) {
        case '"': out += '"'; break;
        case '\\': out += '\\'; break;
        case '/': out += '/'; break;
        case 'b': out += '\b'; break;
        case 'f': out += '\f'; break;
        case 'n': out += '\n'; break;
        case 'r': out += '\r'; break;
        case 't': out += '\t'; break;
        case 'u': {
            auto readHex = [this]() -> char32_t {
                if (pos + 4 > text.size()) fail("short \\u escape");
                char32_t v = 0;
                for (int i = 0; i < 4; ++i) {
                    const int h = hexValue(text[pos++]);
                    if (h < 0) fail("bad \\u escape");
                    v = v * 16 + char32_t(h);
                }
                return v;
            };
            char32_t cp = readHex();
            if (cp >= 0xD800 && cp <= 0xDBFF) {
                if (pos + 2 > text.size() || text[pos] != '\\' || text[pos + 1] != 'u') fail("lone surrogate");
                pos += 2;
                const char32_t low = readHex();
                if (low < 0xDC00 || low > 0xDFFF) fail("bad surrogate pair");
                cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
            } else if (cp >= 0xDC00 && cp <= 0xDFFF) {
                fail("lone surrogate");
            }
            appendUtf8(out, cp);
            break;
        }
        default:
            fail("bad escape");
        }
    }
}

QString Reader::readString() {
    if (peek() != '"') fail("expected a string");
    parseString(scratch);
    return QString::fromUtf8(scratch.data(), qsizetype(scratch.size()));
}

void Reader::skipNumber() {
    if (pos < text.size() && text[pos] == '-') ++pos;
    auto digits = [this] {
        const size_t from = pos;
        while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9') ++pos;
        return pos > from;
    };
    if (!digits()) fail("expected a value");
    if (pos < text.size() && text[pos] == '.') {
        ++pos;
        if (!digits()) fail("bad number");
    }
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        ++pos;
        if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) ++pos;
        if (!digits()) fail("bad number");
    }
}

qint64 Reader::readInteger() {
    const char c = peek();
    if (c != '-' && (c < '0' || c > '9')) fail("expected a number");
    const size_t start = pos;
    skipNumber();
    const std::string_view number = text.substr(start, pos - start);
    qint64 value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc() && end == number.data() + number.size()) return value;
    double real = 0;
    const auto [rend, rerror] = std::from_chars(number.data(), number.data() + number.size(), real);
    if (rerror != std::errc() || rend != number.data() + number.size()) fail("number out of range");
    return qint64(real);
}

bool Reader::readBool() {
    peek();
    if (text.substr(pos, 4) == "true") {
        pos += 4;
        return true;
    }
    if (text.substr(pos, 5) == "false") {
        pos += 5;
        return false;
    }
    fail("expected true or false");
}

void Reader::skipValue() {
    const char c = peek();
    if (c == '"') {
        parseString(scratch);
    } else if (c == '{') {
        beginObject();
        std::string key;
        while (nextKey(key)) skipValue();
    } else if (c == '[') {
        beginArray();
        while (nextElement()) skipValue();
    } else if (c == 't' || c == 'f') {
        readBool();
    } else if (text.substr(pos, 4) == "null") {
        pos += 4;
    } else {
        skipNumber();
    }
}

void Reader::expectEnd() {
    skipSpace();
    if (pos != text.size()) fail("text after the end of the data");
}

void Writer::open(char c) {
    separate();
    out += c;
    needComma = false;
}

void Writer::separate() {
    if (needComma) out += ',';
    needComma = true;
}

void Writer::key(std::string_view name) {
    separate();
    out += '"';
    out.append(name);
    out += "\":";
    needComma = false;
}

void Writer::escaped(std::string_view utf8) {
    static const char* hex = "0123456789abcdef";
    out += '"';
    size_t run = 0;
    for (size_t i = 0; i < utf8.size(); ++i) {
        const auto c = uint8_t(utf8[i]);
        if (c >= 0x20 && c != '"' && c != '\\') continue;
        out.append(utf8.substr(run, i - run));
        run = i + 1;
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        case '\b': out += "\\b"; break;
        case '\f': out += "\\f"; break;
        default:
            out += "\\u00";
            out += hex[c >> 4];
            out += hex[c & 0xF];
        }
    }
    out.append(utf8.substr(run));
    out += '"';
}

void Writer::value(const QString& text) {
    separate();
    const QByteArray utf8 = text.toUtf8();
    escaped(std::string_view(utf8.constData(), size_t(utf8.size())));
}

void Writer::value(qint64 number) {
    separate();
    char buffer[24];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    (void)error;
    out.append(buffer, end);
}

void Writer::value(bool flag) {
    separate();
    out += flag ? "true" : "false";
}

} // namespace JsonText
