#pragma once
#include "util/Dialogs.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtGlobal>
#include <cstdlib>

// What every harness needs once: a quiet program in a home of its own, so that the files the
// code under test writes (the help table's Desktop copies, the data file) go nowhere that matters.
// Its windows are built offscreen: a message the start shows is a window, answered by the script.
namespace FuzzSupport {

struct Silent : Dialogs::Script {
    Dialogs::Answer answer(const Dialogs::Request&) override { return {}; }
};

inline void setUp() {
    static QTemporaryDir home(QStringLiteral("/dev/shm/zor_fuzz_XXXXXX"));
    const QByteArray path = home.isValid() ? home.path().toUtf8() : QByteArray("/tmp");
    qputenv("HOME", path);
    qputenv("XDG_CONFIG_HOME", path + "/.config");
    qputenv("XDG_DATA_HOME", path + "/.local/share");
    static int argc = 1;
    static char name[] = "zor_fuzz";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    static Silent silent;
    Dialogs::installScript(&silent);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg) {
            fprintf(stderr, "%s\n", qPrintable(text));
            std::abort();
        }
    });
}

} // namespace FuzzSupport
