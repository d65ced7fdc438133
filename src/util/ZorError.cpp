#include "util/ZorError.h"

#include <cstdlib>
#include <memory>
#include <typeinfo>
#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#define ZOR_HAVE_CXXABI 1
#endif

QString RuntimeExceptionExtension::Type(const std::exception& error) {
    const char* raw = typeid(error).name();
    if (!raw) return {};
#ifdef ZOR_HAVE_CXXABI
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(raw, nullptr, nullptr, &status),
                                                    std::free);
    if (status == 0 && readable) return QString::fromUtf8(readable.get());
#endif
    return QString::fromUtf8(raw);
}

int RuntimeExceptionExtension::errorNumber(const std::exception& error) {
    if (auto* ours = dynamic_cast<const RuntimeException*>(&error)) return ours->errorNumber();
    return 0;
}
