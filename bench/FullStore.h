#pragma once
// The store the benchmarks measure: 100 palettes of 10 x 10, every button with a tip and notes.
#include "store/ZOR.h"

#include <QColor>
#include <QImage>

inline void buildFullStore(qint64 current) {
    ZOR::resetStore();
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

// A button picture of 64 x 64 with a little detail, so that it decodes like a real icon rather
// than a flat fill.
inline void saveButtonPicture(const QString& path, int seed) {
    QImage picture(64, 64, QImage::Format_ARGB32);
    const QColor base = QColor::fromHsv((seed * 37) % 360, 160, 220);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const int d = ((x - 32) * (x - 32) + (y - 32) * (y - 32)) / 16;
            picture.setPixel(x, y, qRgba(base.red() ^ (d & 31), base.green(), (base.blue() + x * y) & 255, d > 60 ? 0 : 255));
        }
    picture.save(path);
}
