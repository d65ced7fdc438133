#include "util/RtrnDateString.h"

#include "util/Clock.h"
#include "util/Guard.h"
#include "util/StringUtils.h"

using StringUtils::twoDigits;

namespace {
// Mode 7's counter lives for the whole run, so two stamps in the same second still differ.
int counterUpper = 0;
int counterLower = 0;

QString nextCounter() {
    const QString pair = QString(QChar('A' + counterUpper)) + QChar('a' + counterLower);
    if (++counterLower > 25) {
        counterLower = 0;
        if (++counterUpper > 25) counterUpper = 0;
    }
    return pair;
}

QString base36(qint64 value, int digits) {
    static const QString kDigits = QStringLiteral("0123456789abcdefghijklmnopqrstuvwxyz");
    QString out(digits, '0');
    for (int i = digits - 1; i >= 0 && value > 0; --i) {
        out[i] = kDigits[int(value % 36)];
        value /= 36;
    }
    return out;
}
} // namespace

void RtrnDateString::resetCounter() {
    counterUpper = 0;
    counterLower = 0;
}

QString RtrnDateString::rsAlphaDateTime(qint64 mode) {
    return Guard::run(Guard::Where::module("RtrnDateString", "rsAlphaDateTime"), [&]() -> QString {
        const QDateTime now = Clock::now();
        const QDate d = now.date();
        const QTime t = now.time();
        const QString yyyy = QString::number(d.year()).rightJustified(4, '0');
        const QString yy = yyyy.right(2);
        const QString ymd = yy + twoDigits(d.month()) + twoDigits(d.day());
        const QString hns = twoDigits(t.hour()) + twoDigits(t.minute()) + twoDigits(t.second());
        // The clock resolves milliseconds; the finer digits are zeros.
        const qint64 nanos = qint64(t.msec()) * 1000000;

        switch (mode) {
        case 1:
            return ymd;
        case 2:
            return ymd + '_' + twoDigits(t.hour());
        case 3:
            return ymd + '_' + twoDigits(t.hour()) + twoDigits(t.minute());
        case 5:
            return ymd + twoDigits(t.hour()) + twoDigits(t.minute());
        case 6:
            return yyyy + '.' + twoDigits(d.month()) + '.' + twoDigits(d.day());
        case 7:
            return ymd + '_' + hns + nextCounter();
        case 8:
            return twoDigits(d.month()) + '/' + twoDigits(d.day()) + '/' + yyyy + ' ' + twoDigits(t.hour()) +
                   ':' + twoDigits(t.minute()) + ':' + twoDigits(t.second());
        case 9:
            return yyyy + twoDigits(d.month()) + twoDigits(d.day()) + '_' + hns;
        case 10:
            return ymd + '_' + hns + '_' + QString::number(nanos).rightJustified(9, '0');
        case 11:
            return ymd + '_' + hns + '_' + QString::number(qRound64(nanos / 1000.0)).rightJustified(6, '0');
        case 12:
            return ymd + '_' + hns + '_' +
                   QString::number(qRound64(nanos / 1000000.0)).rightJustified(3, '0');
        case 13: {
            const qint64 ms =
                t.hour() * 3600000LL + t.minute() * 60000LL + t.second() * 1000LL + nanos / 1000000;
            return ymd + '_' + base36(ms % 2176782336LL, 6);
        }
        case 14:
            return hns;
        default:
            return ymd + '_' + hns;
        }
    });
}
