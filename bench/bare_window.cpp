// The reference of the cold-start benchmark: an empty main window of the palette window's size
// with a menu bar, built with the same toolchain and Qt. It does nothing else.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle("bare");
    for (const char* title : {"File", "Palette", "Design", "Help"}) {
        QMenu* menu = window.menuBar()->addMenu(title);
        for (int i = 0; i < 8; ++i) menu->addAction(QStringLiteral("Item %1").arg(i));
    }
    window.setCentralWidget(new QWidget);
    window.centralWidget()->setFixedSize(640, 670);
    window.show();
    return app.exec();
}
