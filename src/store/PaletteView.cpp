#include "store/PaletteView.h"

#include "store/ZOR.h"

void PaletteView::follow(Upto upto) {
    EraseAllPictures();
    RedrawGrid();
    if (upto == Upto::Pictures) return;
    setPaletteTitle(ZOR::paleWinTitle);
    if (upto == Upto::RestingTexts) setRestingTexts(ZOR::paleAlias, ZOR::paleName);
}
