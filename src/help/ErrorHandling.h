#pragma once
#include <QString>
#include <exception>

namespace ErrorHandling {

// Shows the report of an unexpected failure in a window of its own and lets the program go on.
// Always true: the failure has been reported.
bool HandleException(const std::exception& error, const QString& context);

// Makes HandleException the reporter of every handler's failures.
void install();

} // namespace ErrorHandling
