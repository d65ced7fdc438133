#pragma once
#include <QPixmap>
#include <QWidget>

class winMain;

// One square button of the palette: a canvas with a picture backdrop. Its events go to the
// window's handlers with the canvas's index.
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

private:
    winMain* window;
    int index;
    QPixmap picture;
};
