#include "util/RtrnBoolean.h"

#include "util/Guard.h"

bool RtrnBoolean::rbDoesStringEndWith(const QString& text, const QString& ending) {
    return Guard::run(Guard::Where::module("RtrnBoolean", "rbDoesStringEndWith"),
                      [&] { return text.endsWith(ending, Qt::CaseSensitive); });
}

bool RtrnBoolean::rbDoesStringStartWith(const QString& text, const QString& beginning) {
    return Guard::run(Guard::Where::module("RtrnBoolean", "rbDoesStringStartWith"),
                      [&] { return text.startsWith(beginning, Qt::CaseSensitive); });
}

bool RtrnBoolean::rbValidYYMMDD_HHSS(const QString& text) {
    return Guard::run(Guard::Where::module("RtrnBoolean", "rbValidYYMMDD_HHSS"), [&] {
        if (text.size() != 11) return false;
        // Allowed characters per position; "_" stands for itself.
        static const char* const kAllowed[11] = {"0123456789", "0123456789", "01",        "0123456789",
                                                 "0123",       "0123456789", "_",         "012",
                                                 "0123456789", "012345",     "0123456789"};
        for (int i = 0; i < 11; ++i)
            if (!QString::fromLatin1(kAllowed[i]).contains(text[i])) return false;

        const int month = text.mid(2, 2).toInt();
        const int day = text.mid(4, 2).toInt();
        const int hour = text.mid(7, 2).toInt();
        if (month < 1 || month > 12 || day < 1 || day > 31 || hour > 23) return false;
        if ((month == 4 || month == 6 || month == 9 || month == 11) && day > 30) return false;
        if (month == 2 && day > 29) return false;
        return true;
    });
}
