#pragma once
#include <QPixmap>
#include <QWidget>

class winMain;

// One square button of the palette: a canvas with a picture backdrop. Its events go to the
// window's handlers with the canvas's index. A right-click, or a click with the Control key on any
// platform, asks for the button's menu instead of firing it; a file dropped on it is offered as its
// picture.
class cnBut : public QWidget {
    Q_OBJECT
public:
    cnBut(winMain* window, int index, QWidget* parent);
    int Index() const { return index; }
    void setBackdrop(const QPixmap& backdrop);
    const QPixmap& backdrop() const { return picture; }

protected:
    void paintEvent(QPaintEvent*) override;
    void enterEvent(QEnterEvent*) override;
    void leaveEvent(QEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void dragEnterEvent(QDragEnterEvent*) override;
    void dropEvent(QDropEvent*) override;

private:
    winMain* window;
    int index;
    QPixmap picture;
    bool pressed = false; // drawn darker while the mouse is down on it
};
