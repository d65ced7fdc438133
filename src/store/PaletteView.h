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
    virtual void SetPaletteTitle(const QString& title) = 0;
    virtual void SetRestingTexts(const QString& alias, const QString& name) = 0; // labTip, labSeeNum
    virtual QRect WindowRect() const = 0; // left, top, width, height as saved in the data file
};
