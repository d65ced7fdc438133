#include "json/JsonText.h"

#include "util/StringUtils.h"
#include "util/ZorError.h"

#include <QByteArrayView>

#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>
#include <cstring>
#include <limits>

namespace JsonText {

namespace {
// Eight bytes at a time, as one word (the machines we build for are little-endian).
static_assert(std::endian::native == std::endian::little);
constexpr uint64_t kOnes = 0x0101010101010101ull, kHighs = 0x8080808080808080ull;
uint64_t load8(const char* p) {
    uint64_t v;
    std::memcpy(&v, p, 8);
    return v;
}
// The high bit of each of the eight bytes that ends a plain run inside a string: the quote, the
// backslash, control characters, and bytes of characters beyond ASCII, to be checked. A byte above a flagged one may be flagged wrongly, never one
// below it: the lowest flag is exact.
uint64_t runEnds(uint64_t v) {
    const uint64_t quote = v ^ (kOnes * '"'), backslash = v ^ (kOnes * '\\');
    const uint64_t control = (v - kOnes * 0x20) & ~v;
    return (control | ((quote - kOnes) & ~quote) | ((backslash - kOnes) & ~backslash) | v) & kHighs;
}

// Sixteen bytes at a time where the compiler has vectors of them (SSE2, NEON): each lane that ends
// a run becomes 0xFF, and the lowest such lane is found in the two halves.
using Bytes16 = uint8_t __attribute__((vector_size(16)));

size_t plainRunEnd(std::string_view text, size_t from) {
    for (; from + 16 <= text.size(); from += 16) {
        Bytes16 v;
        std::memcpy(&v, text.data() + from, 16);
        const auto ends = (v == uint8_t('"')) | (v == uint8_t('\\')) | (v < uint8_t(0x20)) | (v >= uint8_t(0x80));
        uint64_t half[2];
        std::memcpy(half, &ends, 16);
        if (half[0]) return from + size_t(std::countr_zero(half[0])) / 8;
        if (half[1]) return from + 8 + size_t(std::countr_zero(half[1])) / 8;
    }
    for (; from + 8 <= text.size(); from += 8)
        if (const uint64_t ends = runEnds(load8(text.data() + from))) return from + size_t(std::countr_zero(ends)) / 8;
    // The last few bytes, padded with zeros: a control character, so the end of the text ends the run.
    uint64_t last = 0;
    if (from < text.size()) std::memcpy(&last, text.data() + from, text.size() - from);
    return std::min(text.size(), from + size_t(std::countr_zero(runEnds(last))) / 8);
}

// The length of the UTF-8 sequence that starts at `i` when it is well-formed (no overlong form,
// no surrogate, nothing above U+10FFFF), or 0.
size_t utf8SequenceAt(std::string_view text, size_t i) {
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const uint8_t c = bytes[i];
    size_t length = 0;
    uint8_t low = 0x80, high = 0xBF; // the range of the second byte
    if (c >= 0xC2 && c <= 0xDF) length = 2;
    else if (c == 0xE0) length = 3, low = 0xA0;
    else if (c == 0xED) length = 3, high = 0x9F;
    else if (c >= 0xE1 && c <= 0xEF) length = 3;
    else if (c == 0xF0) length = 4, low = 0x90;
    else if (c == 0xF4) length = 4, high = 0x8F;
    else if (c >= 0xF1 && c <= 0xF3) length = 4;
    else return 0;
    if (i + length > text.size() || bytes[i + 1] < low || bytes[i + 1] > high) return 0;
    for (size_t k = 2; k < length; ++k)
        if ((bytes[i + k] & 0xC0) != 0x80) return 0;
    return length;
}
} // namespace

Reader::Reader(std::string_view utf8) : text(utf8) {
    if (text.size() >= 3 && text.substr(0, 3) == "\xEF\xBB\xBF") pos = 3; // tolerate a byte-order mark
}

size_t Reader::runEnd(size_t from) {
    for (;;) {
        from = plainRunEnd(text, from);
        if (from >= text.size() || uint8_t(text[from]) < 0x80) return from;
        // Only strings may hold characters beyond ASCII; anywhere else the grammar refuses them.
        // Altered text would be saved over the file at the quit: refuse it whole instead.
        const size_t length = utf8SequenceAt(text, from);
        if (length == 0) {
            pos = from;
            fail("the text is not UTF-8");
        }
        from += length;
    }
}

void Reader::fail(const char* what) const {
    throw JSONException(QStringLiteral("Invalid JSON at character %1: %2").arg(pos).arg(QString::fromUtf8(what)));
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
        firstInContainer = false; // the container that holds this one goes on with a comma
        return false;
    }
    if (!firstInContainer) {
        if (c != ',') fail("expected , or ]");
        ++pos;
    }
    firstInContainer = false;
    return true;
}

bool Reader::nextKey(std::string_view& key) {
    char c = peek();
    if (c == '}') {
        ++pos;
        firstInContainer = false;
        return false;
    }
    if (!firstInContainer) {
        if (c != ',') fail("expected , or }");
        ++pos;
        c = peek();
    }
    firstInContainer = false;
    if (c != '"') fail("expected a key");
    key = stringView();
    if (key.data() == scratch.data()) key = keyScratch = scratch; // keep it apart from the value's
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

char32_t Reader::readHex4() {
    if (pos + 4 > text.size()) fail("short \\u escape");
    char32_t v = 0;
    for (int i = 0; i < 4; ++i) {
        const int h = hexValue(text[pos++]);
        if (h < 0) fail("bad \\u escape");
        v = v * 16 + char32_t(h);
    }
    return v;
}

void Reader::parseString(std::string* out, size_t firstRunEnd) {
    // The opening quote and the plain run after it are behind: reading goes on from the run's end.
    if (out) out->assign(text.substr(pos + 1, firstRunEnd - pos - 1));
    pos = firstRunEnd;
    for (;;) {
        if (pos >= text.size()) fail("unterminated string");
        const char c = text[pos++];
        if (c == '"') return;
        if (c != '\\') fail("control character in a string");
        if (pos >= text.size()) fail("unterminated string");
        static constexpr std::string_view kSimple = "\"\\/bfnrt", kMeaning = "\"\\/\b\f\n\r\t";
        const char escape = text[pos++];
        if (const size_t k = kSimple.find(escape); k != std::string_view::npos) {
            if (out) *out += kMeaning[k];
        } else {
            if (escape != 'u') fail("bad escape");
            char32_t cp = readHex4();
            // A pair makes one character. A lone half is valid JSON but no character: it reads as
            // the replacement character, as UTF-8 cannot hold it.
            if (cp >= 0xD800 && cp <= 0xDBFF && text.substr(pos, 2) == "\\u") {
                const size_t back = pos;
                pos += 2;
                const char32_t low = readHex4();
                if (low >= 0xDC00 && low <= 0xDFFF) cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
                else pos = back;
            }
            if (cp >= 0xD800 && cp <= 0xDFFF) cp = 0xFFFD;
            if (out) appendUtf8(*out, cp);
        }
        const size_t start = pos;
        pos = runEnd(pos);
        if (out) out->append(text.substr(start, pos - start));
    }
}

std::string_view Reader::stringView() {
    // Most strings hold no escape: their bytes are used where they stand.
    const size_t start = pos + 1;
    const size_t end = runEnd(start);
    if (end < text.size() && text[end] == '"') {
        pos = end + 1;
        return text.substr(start, end - start);
    }
    parseString(&scratch, end);
    return scratch;
}

std::string_view Reader::readStringBytes() {
    if (peek() != '"') fail("expected a string");
    return stringView();
}

void Reader::skipString() {
    if (peek() != '"') fail("expected a string");
    const size_t end = runEnd(pos + 1);
    if (end < text.size() && text[end] == '"') pos = end + 1;
    else parseString(nullptr, end);
}

namespace {
// Most strings of the store are a letter or two digits (shortcuts, button numbers): shared
// copies spare ten thousands of small allocations.
const QString* sharedShortString(std::string_view bytes) {
    static const auto letters = [] {
        std::array<QString, 128> all;
        for (size_t c = 0; c < all.size(); ++c) all[c] = QString(QChar(char16_t(c)));
        return all;
    }();
    static const auto digitPairs = [] {
        std::array<QString, 100> all;
        for (size_t n = 0; n < all.size(); ++n)
            all[n] = StringUtils::twoDigits(qint64(n));
        return all;
    }();
    const auto c0 = uint8_t(bytes[0]);
    if (bytes.size() == 1 && c0 < 0x80) return &letters[c0];
    if (bytes.size() == 2 && isdigit(c0) && isdigit(uint8_t(bytes[1])))
        return &digitPairs[size_t((c0 - '0') * 10 + (bytes[1] - '0'))];
    return nullptr;
}
} // namespace

QString Reader::readString() {
    const std::string_view bytes = readStringBytes();
    if (bytes.empty()) return {};
    if (const QString* shared = sharedShortString(bytes)) return *shared;
    return QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
}

void Reader::skipNumber() {
    if (pos < text.size() && text[pos] == '-') ++pos;
    const size_t start = pos;
    auto digits = [this] {
        const size_t from = pos;
        while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9') ++pos;
        return pos > from;
    };
    const bool leadingZero = pos < text.size() && text[pos] == '0';
    if (!digits()) fail("expected a value");
    if (leadingZero && pos - start > 1) fail("bad number");
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

namespace {
// The power of ten just above a number's size: 1 for 0.5, 3 for 123, 309 for 1e308. A valid
// JSON number's digits alone tell it, however far beyond any binary range it lies.
qint64 decimalMagnitude(std::string_view number) {
    if (!number.empty() && number[0] == '-') number.remove_prefix(1);
    const size_t e = number.find_first_of("eE");
    qint64 exponent = 0;
    if (e != std::string_view::npos) {
        std::string_view digits = number.substr(e + 1);
        const bool negative = !digits.empty() && digits[0] == '-';
        if (!digits.empty() && (digits[0] == '-' || digits[0] == '+')) digits.remove_prefix(1);
        for (char d : digits) exponent = std::min<qint64>(exponent * 10 + (d - '0'), 1'000'000'000);
        if (negative) exponent = -exponent;
        number = number.substr(0, e);
    }
    const size_t dot = number.find('.');
    const std::string_view whole = number.substr(0, dot);
    const std::string_view fraction = dot == std::string_view::npos ? std::string_view() : number.substr(dot + 1);
    const size_t firstWhole = whole.find_first_not_of('0');
    if (firstWhole != std::string_view::npos) return qint64(whole.size() - firstWhole) + exponent;
    const size_t firstFraction = fraction.find_first_not_of('0');
    if (firstFraction == std::string_view::npos) return std::numeric_limits<qint64>::min(); // zero
    return -qint64(firstFraction) + exponent;
}
} // namespace

qint64 Reader::readInteger() {
    const char c = peek();
    if (c != '-' && (c < '0' || c > '9')) fail("expected a number");
    // Most numbers of the store are one digit.
    const char next = pos + 1 < text.size() ? text[pos + 1] : '\0';
    if (c != '-' && !(next >= '0' && next <= '9') && next != '.' && next != 'e' && next != 'E') {
        ++pos;
        return c - '0';
    }
    const size_t start = pos;
    skipNumber();
    const std::string_view number = text.substr(start, pos - start);
    qint64 value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc() && end == number.data() + number.size()) return value;
    // Fractions are cut; beyond the integer range a number keeps to its end of that range.
    const qint64 magnitude = decimalMagnitude(number);
    if (magnitude <= 0) return 0;
    const bool negative = number[0] == '-';
    if (magnitude > 19) return negative ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    // Not std::from_chars: the Mac's standard library has no floating-point form of it.
    bool ok = false;
    const double real = QByteArrayView(number.data(), qsizetype(number.size())).toDouble(&ok);
    if (!ok) fail("number out of range");
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (real >= kTwoTo63) return std::numeric_limits<qint64>::max();
    if (real < -kTwoTo63) return std::numeric_limits<qint64>::min();
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

void Reader::skipScalar() {
    const char c = peek();
    if (c == '"') {
        parseString(nullptr, runEnd(pos + 1));
    } else if (c == 't' || c == 'f') {
        readBool();
    } else if (text.substr(pos, 4) == "null") {
        pos += 4;
    } else {
        skipNumber();
    }
}

void Reader::skipValue() {
    // Without recursion: a value nested a million deep must not end the program.
    std::string closers; // of the containers still open, innermost last
    for (;;) {
        const char c = peek();
        if (c == '{' || c == '[') {
            ++pos;
            closers += c == '{' ? '}' : ']';
            firstInContainer = true;
        } else {
            skipScalar();
        }
        for (;;) {
            if (closers.empty()) return;
            std::string_view key;
            const bool more = closers.back() == '}' ? nextKey(key) : nextElement();
            if (more) break;
            closers.pop_back();
        }
    }
}

void Reader::expectEnd() {
    skipSpace();
    if (pos != text.size()) fail("text after the end of the data");
}

namespace {
using Chars8 = uint16_t __attribute__((vector_size(16)));

// The first character from `from` on that must be escaped, or `last`: eight at a time while none
// of them is one.
const char16_t* toEscape(const char16_t* from, const char16_t* last) {
    for (; last - from >= 8; from += 8) {
        Chars8 v;
        std::memcpy(&v, from, 16);
        const auto escape = (v < uint16_t(0x20)) | (v == uint16_t(u'"')) | (v == uint16_t(u'\\'));
        uint64_t half[2];
        std::memcpy(half, &escape, 16);
        if (half[0]) return from + std::countr_zero(half[0]) / 16;
        if (half[1]) return from + 4 + std::countr_zero(half[1]) / 16;
    }
    for (; from < last; ++from)
        if (*from < 0x20 || *from == u'"' || *from == u'\\') return from;
    return last;
}
} // namespace

void Writer::grow(qsizetype n) {
    const qsizetype used = cursor ? cursor - reinterpret_cast<char16_t*>(out.data()) : 0;
    out.resize(std::max(used + n, out.size() * 2)); // the new characters are written before they are read
    cursor = reinterpret_cast<char16_t*>(out.data()) + used;
    end = reinterpret_cast<char16_t*>(out.data()) + out.size();
}

QString Writer::take() {
    out.truncate(cursor - reinterpret_cast<char16_t*>(out.data()));
    cursor = end = nullptr;
    return std::move(out);
}

void Writer::escaped(char16_t c) {
    static const char* hex = "0123456789abcdef";
    switch (c) {
    case '"': putAscii("\\\""); break;
    case '\\': putAscii("\\\\"); break;
    case '\n': putAscii("\\n"); break;
    case '\r': putAscii("\\r"); break;
    case '\t': putAscii("\\t"); break;
    case '\b': putAscii("\\b"); break;
    case '\f': putAscii("\\f"); break;
    default:
        putAscii("\\u00");
        put(char16_t(hex[(c >> 4) & 0xF]));
        put(char16_t(hex[c & 0xF]));
    }
}

void Writer::value(const QString& text) {
    separate();
    // The text itself and both quotes; an escape makes its own room.
    room(text.size() + 2);
    *cursor++ = u'"';
    const char16_t* run = reinterpret_cast<const char16_t*>(text.constData());
    const char16_t* const last = run + text.size();
    for (const char16_t* c = toEscape(run, last); c < last; c = toEscape(run, last)) {
        std::copy(run, c, cursor);
        cursor += c - run;
        escaped(*c);
        room(last - c + 1);
        run = c + 1;
    }
    std::copy(run, last, cursor);
    cursor += last - run;
    *cursor++ = u'"';
}

void Writer::value(qint64 number) {
    separate();
    char buffer[24];
    const auto [digitsEnd, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    (void)error;
    putAscii(std::string_view(buffer, size_t(digitsEnd - buffer)));
}

} // namespace JsonText
