#include "util/Clock.h"

namespace {
QDateTime fixedNow;
}

QDateTime Clock::now() { return fixedNow.isValid() ? fixedNow : QDateTime::currentDateTime(); }
void Clock::set(const QDateTime& fixed) { fixedNow = fixed; }
void Clock::reset() { fixedNow = QDateTime(); }
