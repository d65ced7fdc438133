#pragma once
// The store the benchmarks measure: 100 palettes of 10 x 10, every button with a tip and notes.
#include "store/ZOR.h"

inline void BuildFullStore(qint64 current) {
    ZOR::ResetStore();
    ZOR::MakeAlphabetShortcuts();
    ZOR::CreateFirstPalette();
    for (int p = 1; p < 100; ++p) {
        ZOR::DP.emplace_back();
        ZOR::DefaultValuesPalette(p);
    }
    for (auto& slot : ZOR::DP) {
        slot.i_NumRows = slot.i_NumColumns = 10;
        for (auto& b : *slot.a_Btn) {
            b->Tip = QStringLiteral("Opens the project folder %1 in the Finder").arg(b->ID);
            b->Info = QStringLiteral("Runs the macro for button %1.\nSecond line of notes — “quoted”.").arg(b->sID);
            b->KM_Active = true;
            b->Vis = true;
        }
    }
    ZOR::idxCP = current;
}
