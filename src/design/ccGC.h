#pragma once
#include <QFont>
#include <QString>
#include <QWidget>

// One cell of the design grid: a small map of one button. It paints from the active palette's
// buttons each time, keeping no copy, and tells its owner of a click, or of a file dropped on it,
// by the button's index.
class ccGC : public QWidget {
    Q_OBJECT
public:
    static constexpr int kSize = 55;
    explicit ccGC(QWidget* parent = nullptr);

    enum class Look { Used, Outside, Selected };
    Look currentLook() const;

    QString butID;    // "00" .. "99"
    int tipInfo = 0;  // kept for the data's sake; nothing reads it
    int shortcut = 0; // the same

    // "SF Pro" where it is installed, else a sans-serif of like width.
    static QFont gridFont(int pixels);

signals:
    void MouseUp(int index);
    void PictureDropped(int index, const QString& file); // a file dropped on the cell

protected:
    void paintEvent(QPaintEvent*) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void cnvGC_Paint(QPainter& g);
};
