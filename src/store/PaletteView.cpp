#include "store/PaletteView.h"

#include "store/ZOR.h"

void PaletteView::Follow(Upto upto) {
    EraseAllPictures();
    RedrawGrid();
    if (upto == Upto::Pictures) return;
    SetPaletteTitle(ZOR::paleWinTitle);
    if (upto == Upto::RestingTexts) SetRestingTexts(ZOR::paleAlias, ZOR::paleName);
}
