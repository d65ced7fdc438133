#include "app/App.h"
#include <QApplication>
int App::Main(int argc, char* argv[]) { QApplication a(argc, argv); return 0; }
