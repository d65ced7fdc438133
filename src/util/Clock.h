#pragma once
#include <QDateTime>

// Every date stamp of the program comes from here, so that tests can fix the time.
namespace Clock {
QDateTime now();
void set(const QDateTime& fixed); // tests: freeze the clock at this moment
void reset();                     // back to the system clock
} // namespace Clock
