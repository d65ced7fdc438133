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

// The program's start and quit as main() runs them, on a store reset to its state at load.
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

// A PreserveState.txt of default palettes in the current home's program folder; returns its path.
QString writeStoreFile(int palettes, int rows = 10, int columns = 10, QRect window = {});

// A fresh home, fake Mac tools, scripted dialogs and a program for each test function.
class ProgramFixture {
protected:
    void setUpProgram();
    void tearDownProgram();
    winMain& startWith(int palettes, int rows = 10, int columns = 10);
    static Btn& button(int index); // of the active palette

    std::unique_ptr<TempHome> home;
    std::unique_ptr<FakeTools> tools;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<Program> program;
};

class WindowTest : public QObject, protected ProgramFixture {
    Q_OBJECT
protected slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }
};
