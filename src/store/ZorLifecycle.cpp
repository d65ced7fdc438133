#include "store/ZOR.h"

#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/StringUtils.h"

#include <algorithm>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }
} // namespace

void ZOR::CreateNewPalette(const QString& alias) {
    Guard::run(where("CreateNewPalette"), [&] {
        BreakBtnLinkToDP();
        // The lowest free slot is used first; its name Pnn comes back into use.
        auto freeSlot = std::find_if(DP.begin(), DP.end(), [](const PaletteDict& p) { return p.s_Alias == kNoShortcut; });
        if (freeSlot != DP.end()) {
            idxCP = freeSlot - DP.begin();
        } else {
            DP.emplace_back();
            idxCP = qint64(DP.size()) - 1;
            DefaultValuesPalette(idxCP);
        }
        PaletteDict& slot = DP[size_t(idxCP)];
        slot.s_Alias = alias;
        numRows = slot.i_NumRows;
        numColumns = slot.i_NumColumns;
        paleName = slot.s_Name;
        paleAlias = slot.s_Alias;
        paleWinTitle = slot.s_WinTitle;
        paleParticulars = slot.s_Particulars;
        paletteContentChange = true;
    });
}

void ZOR::ChangeToPalette(qint64 index) {
    Guard::run(where("ChangeToPalette"), [index] {
        if (index == idxCP) {
            Dialogs::message("You have asked  to change to the currently active palette. There is nothing to do.");
            return;
        }
        if (!IsPaletteExistant(index)) {
            Dialogs::message("You have asked  to change to a palette, P" + StringUtils::twoDigits(index) +
                             ", that does not exist. There is nothing to do.");
            return;
        }
        SavePaletteToDP();
        ActivatePalette(index);
        paletteActiveChange = true;
        saveStore(); // before the window follows: a switch the user sees is on the disk
        viewFollows(PaletteView::Upto::RestingTexts);
    });
}

qint64 ZOR::IndexFromAlias(const QString& alias) {
    return Guard::run(where("IndexFromAlias"), [&]() -> qint64 {
        for (size_t i = 0; i < DP.size(); ++i)
            if (DP[i].s_Alias.compare(alias, Qt::CaseInsensitive) == 0) return qint64(i);
        Dialogs::message("IndexFromAlias method called and no dictionary in ZOR.DicPalette found with the alias: " +
                         alias);
        return -1;
    });
}

bool ZOR::IsPaletteExistant(qint64 index) {
    return Guard::run(where("IsPaletteExistant"), [index] {
        if (index < 0 || index > 99 || index >= qint64(DP.size())) return false;
        return DP[size_t(index)].s_Alias != kNoShortcut;
    });
}

bool ZOR::roomForNewPalette() {
    const auto inRange = DP.begin() + std::min<qint64>(qint64(DP.size()), kMaxPalettes);
    return qint64(DP.size()) < kMaxPalettes ||
           std::any_of(DP.begin(), inRange, [](const PaletteDict& p) { return p.s_Alias == kNoShortcut; });
}
