#pragma once
#include <QString>

// Date stamps of the current local time (Clock::now()), used in the names of backups and exports.
namespace RtrnDateString {
// 1 YYMMDD, 2 YYMMDD_HH, 3 YYMMDD_HHNN, 4 YYMMDD_HHNNSS, 5 YYMMDDHHNN, 6 YYYY.MM.DD,
// 7 YYMMDD_HHNNSS + a two-letter counter (Aa, Ab ... Zz, Aa), 8 MM/DD/YYYY HH:NN:SS,
// 9 YYYYMMDD_HHNNSS, 10/11/12 YYMMDD_HHNNSS_ + nanoseconds in 9/6/3 digits,
// 13 YYMMDD_ + milliseconds since midnight in six base-36 digits, 14 HHNNSS; any other as 4.
QString rsAlphaDateTime(qint64 mode);
// Starts mode 7's counter again at "Aa".
void resetCounter();
} // namespace RtrnDateString
