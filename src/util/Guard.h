#pragma once
#include <QString>
#include <exception>
#include <functional>
#include <type_traits>

// The rule by which every handler and routine reports a run-time failure: it stops at the
// failing statement, reports, and gives its result's default value.
namespace Guard {

enum class Kind { ControlEvent, WindowEvent, WindowMethod, ModuleMethod, AppEvent };

struct Where {
    Kind kind = Kind::ModuleMethod;
    QString owner;   // window or module
    QString control; // only for control events
    QString name;    // event or method
    bool direct = false; // the direct form: a plain "Oops! " message box, for places the reporter may involve

    static Where controlEvent(QString window, QString control, QString event);
    static Where windowEvent(QString window, QString event);
    static Where windowMethod(QString window, QString method);
    static Where module(QString module, QString method);
    static Where appEvent(QString event); // events of the application object itself
    Where directForm() const;

    QString dottedName() const;
    QString reportLines() const; // dotted name, then the lines that name its parts
};

// The standard form hands the report here; ErrorHandling installs HandleException at start-up.
using Reporter = std::function<bool(const std::exception&, const QString& context)>;
void setReporter(Reporter reporter);

// Reports the failure in the form `where` asks for and writes the debug log line.
// Returns false when the caller must raise the exception again.
bool report(const Where& where, const std::exception& error);

template <class Body>
auto run(const Where& where, Body&& body) -> std::invoke_result_t<Body> {
    using Result = std::invoke_result_t<Body>;
    try {
        return body();
    } catch (const std::exception& error) {
        if (!report(where, error)) throw;
        if constexpr (!std::is_void_v<Result>) return Result{};
    }
}

} // namespace Guard
