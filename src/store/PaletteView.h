#pragma once
#include <QRect>
#include <QString>

// What the store needs of the palette window. winMain implements it and registers at start-up,
// so the store can make the window follow a palette switch without knowing any window class.
class PaletteView {
public:
    virtual ~PaletteView() = default;
    virtual void EraseAllPictures() = 0;
    virtual void RedrawGrid() = 0;
    virtual void setPaletteTitle(const QString& title) = 0;
    virtual void setRestingTexts(const QString& alias, const QString& name) = 0; // the bar at rest
    virtual QRect windowRect() const = 0; // left, top, width, height as saved in the data file

    // How far the window follows: its pictures and grid only, the title too, or after a change of
    // the active palette also the resting texts of its bar.
    enum class Upto { Pictures, Title, RestingTexts };
    // The window shows the active palette anew, always in this order: every picture erased, the
    // grid redrawn (a redraw alone would leave an old picture on a button that has none now),
    // the title, the resting texts.
    void follow(Upto upto = Upto::Title);
};
