#pragma once
#include <QApplication>

#include <memory>

class winMain;

// The application object: the start-up order around the palette store. Its fields for modal
// windows and folders are in AppGlobals, where every layer can reach them.
class App : public QApplication {
    Q_OBJECT
public:
    App(int& argc, char** argv);

    static void Event_Opening();
    // The program's own light colours, whatever the system's appearance.
    static QPalette fixedPalette();
    static void Event_Closing() {}
    // The order from the application's opening to the palette window on screen, once a
    // QApplication exists; what the first frame does not need follows once it is drawn. The
    // program and its tests start alike through it.
    static std::unique_ptr<winMain> startPaletteWindow();

    // Process entry: the start, then the event loop.
    static int run(int argc, char* argv[]);
};
