#pragma once
#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "store/Btn.h"

#include <QObject>
#include <QRect>
#include <QString>
#include <memory>

class winMain;

// The program's start and quit as main() runs them, inside a test: the store is reset to its
// state at program load, the application's opening step and the palette window's opening run,
// and quit() closes the window through its closing step.
class Program {
public:
    Program();
    ~Program();
    winMain& start();
    void quit();
    winMain* window() const { return win.get(); }

private:
    std::unique_ptr<winMain> win;
};

// A store of `palettes` default palettes (slot 0 the first palette) written as PreserveState.txt
// into the program folder under the current home; returns the file's path.
QString writeStoreFile(int palettes, int rows = 10, int columns = 10, QRect window = {});

// A fresh home, fake Mac tools, scripted dialogs and a program for each test function of a
// window test: call setUpProgram() in init() and tearDownProgram() in cleanup(), which also puts
// the clock back.
class ProgramFixture {
protected:
    void setUpProgram();
    void tearDownProgram();
    // Starts the program on a store of default palettes of that size.
    winMain& startWith(int palettes, int rows = 10, int columns = 10);
    static Btn& button(int index); // of the active palette

    std::unique_ptr<TempHome> home;
    std::unique_ptr<FakeTools> tools;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<Program> program;
};

// A window test: each test function in a fresh home, with fake tools, scripted dialogs and a
// program not yet started; a test class may add to either step with a slot of its own.
class WindowTest : public QObject, protected ProgramFixture {
    Q_OBJECT
protected slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }
};
