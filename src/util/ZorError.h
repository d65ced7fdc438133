#pragma once
#include <QString>
#include <stdexcept>

// Run-time failures that handlers catch and report. The error number is shown in reports.
class RuntimeException : public std::runtime_error {
public:
    explicit RuntimeException(const QString& message, int errorNumber = 0)
        : std::runtime_error(message.toStdString()), number(errorNumber) {}
    int errorNumber() const { return number; }

private:
    int number;
};

class IOException : public RuntimeException {
    using RuntimeException::RuntimeException;
};
class JSONException : public RuntimeException {
    using RuntimeException::RuntimeException;
};
class OutOfBoundsException : public RuntimeException {
    using RuntimeException::RuntimeException;
};
class NilObjectException : public RuntimeException {
    using RuntimeException::RuntimeException;
};

namespace RuntimeExceptionExtension {
// The demangled name of the exception's dynamic type; empty when unknown.
QString Type(const std::exception& error);
int errorNumber(const std::exception& error);
} // namespace RuntimeExceptionExtension
