#pragma once
#include <QString>

// Small yes/no tests. (rbOKCancel, the confirmation window, lives with the message windows.)
namespace RtrnBoolean {
bool rbDoesStringEndWith(const QString& text, const QString& ending);      // case-sensitive
bool rbDoesStringStartWith(const QString& text, const QString& beginning); // case-sensitive
// A stamp of the form YYMMDD_HHNN (rsAlphaDateTime mode 3) with a possible date and time.
// February allows 29 days whatever the year.
bool rbValidYYMMDD_HHSS(const QString& text);
} // namespace RtrnBoolean
