#pragma once
#include <QApplication>

class winMain;

// The application object: the start-up order around the palette store. Its fields for modal
// windows and folders are in AppGlobals, where every layer can reach them.
class App : public QApplication {
    Q_OBJECT
public:
    App(int& argc, char** argv);

    static void Event_Opening();
    // The program's own light colours, whatever the system's appearance.
    static QPalette FixedPalette();
    static void Event_Closing() {}
    // The windows behind the menus take over their items of the palette window.
    static void InstallMenus(winMain& window);
    // Shows the palette window; what its first frame does not need follows once it is drawn.
    static void ShowPaletteWindow(winMain& window);

    // Process entry: the order from start to the first palette on screen, then the event loop.
    static int Main(int argc, char* argv[]);
};
