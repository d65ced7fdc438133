#include "store/ZOR.h"

#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/StringUtils.h"
#include "util/ZorError.h"

#include <array>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }
PaletteView* registeredView = nullptr;
} // namespace

void ZOR::registerView(PaletteView* v) { registeredView = v; }
PaletteView* ZOR::view() { return registeredView; }
void ZOR::viewFollows(PaletteView::Upto upto) {
    if (registeredView) registeredView->follow(upto);
}

void ZOR::MakeAlphabetShortcuts() {
    Guard::run(where("MakeAlphabetShortcuts"), [] {
        aAlphabetShortcut.clear();
        for (QChar c : QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ")) aAlphabetShortcut << c;
    });
}

BtnArray ZOR::newButtonArray() {
    auto buttons = std::make_shared<std::vector<BtnRef>>();
    buttons->reserve(kButtonsPerPalette);
    for (int i = 0; i < kButtonsPerPalette; ++i) {
        auto b = std::make_shared<Btn>();
        b->ID = i;
        b->sID = ButtonNumber(i);
        b->Row = i / 10;
        b->Col = i % 10;
        b->Shortcut = i < 52 && i < aAlphabetShortcut.size() ? aAlphabetShortcut[i] : kNoShortcut;
        buttons->push_back(std::move(b));
    }
    return buttons;
}

const QString& ZOR::ButtonNumber(qint64 id) {
    static const auto numbers = [] {
        std::array<QString, kButtonsPerPalette> all;
        for (size_t n = 0; n < all.size(); ++n)
            all[n] = StringUtils::twoDigits(qint64(n));
        return all;
    }();
    return numbers.at(size_t(id));
}

void ZOR::DefaultValuesPalette(qint64 index) {
    Guard::run(where("DefaultValuesPalette"), [index] {
        if (index < 0 || index >= qint64(DP.size())) {
            Dialogs::message("Inappropriate index value passed for DefaultValuesPalette method.");
            return;
        }
        PaletteDict& slot = DP[size_t(index)];
        slot.i_NumRows = 10;
        slot.i_NumColumns = 10;
        slot.s_Name = "P" + StringUtils::twoDigits(index);
        slot.s_Alias = StringUtils::Random(5, "abcdefghijklmnopqrstuvwxyz");
        slot.s_WinTitle = "ZOR P" + StringUtils::twoDigits(index);
        slot.s_Particulars.clear();
        slot.a_Btn = newButtonArray();
    });
}

namespace {
void loadWorkingProperties(const PaletteDict& slot) {
    ZOR::numRows = slot.i_NumRows;
    ZOR::numColumns = slot.i_NumColumns;
    ZOR::paleName = slot.s_Name;
    ZOR::paleAlias = slot.s_Alias;
    ZOR::paleWinTitle = slot.s_WinTitle;
    ZOR::paleParticulars = slot.s_Particulars;
}
} // namespace

void ZOR::CreateFirstPalette() {
    Guard::run(where("CreateFirstPalette"), [] {
        DP.emplace_back();
        idxCP = 0;
        PaletteDict& slot = DP[0];
        slot.i_NumRows = 10;
        slot.i_NumColumns = 10;
        slot.s_Name = "P00";
        slot.s_Alias = "Original";
        slot.s_WinTitle = "ZOR Palette";
        slot.s_Particulars = "No Content";
        slot.a_Btn = newButtonArray();
        loadWorkingProperties(slot);
        paletteContentChange = true;
    });
}

void ZOR::ActivatePalette(qint64 index) {
    Guard::run(where("ActivatePalette"), [index] {
        if (idxCP > -1) BreakBtnLinkToDP();
        idxCP = index;
        if (index < 0 || index >= qint64(DP.size()))
            throw OutOfBoundsException(QStringLiteral("There is no palette with the index %1.").arg(index));
        const PaletteDict& slot = DP[size_t(index)];
        aBtn = slot.a_Btn;
        loadWorkingProperties(slot);
    });
}

void ZOR::SavePaletteToDP() {
    Guard::run(where("SavePaletteToDP"), [] {
        paletteActiveChange = true;
        if (!paletteContentChange) return;
        if (idxCP < 0 || idxCP >= qint64(DP.size()))
            throw OutOfBoundsException(QStringLiteral("There is no palette with the index %1.").arg(idxCP));
        PaletteDict& slot = DP[size_t(idxCP)];
        slot.i_NumRows = numRows;
        slot.i_NumColumns = numColumns;
        slot.s_Name = paleName;
        slot.s_Alias = paleAlias;
        slot.s_WinTitle = paleWinTitle;
        slot.s_Particulars = paleParticulars;
    });
}

void ZOR::BreakBtnLinkToDP() { aBtn = std::make_shared<std::vector<BtnRef>>(); }

void ZOR::resetStore() { properties = Properties(); }
