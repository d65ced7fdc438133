#pragma once
#include <QPixmap>
#include <QWidget>
#include <array>

class MessageCanvas;
class QPainter;

// The six cells that show the first pictures of the active palette (buttons 00, 01, 02, 10, 11,
// 12), fading away from the first, so that the user sees which palette a window acts on.
// The cells only show: they take no clicks.
class ccPalettePreview : public QWidget {
    Q_OBJECT

public:
    static constexpr std::array<int, 6> kButtons{0, 1, 2, 10, 11, 12};
    static constexpr std::array<int, 6> kTransparency{0, 50, 75, 50, 75, 90}; // 100: nothing to see

    // `owner` names the window in failure reports.
    ccPalettePreview(QWidget* parent, const QString& owner);

    // Reads the pictures of the palette `paletteName` from its folder of button pictures.
    void load(const QString& paletteName);

    std::array<MessageCanvas*, 6> cnBut{}; // cnBut00, cnBut01, cnBut02, cnBut10, cnBut11, cnBut12
    std::array<QPixmap, 6> myPict;         // myPict00 ... myPict12; null where there is none

    void cnBut_Paint(int cell, QPainter& g);

private:
    QString owner;
};
