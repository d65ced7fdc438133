#pragma once
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
