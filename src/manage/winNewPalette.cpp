#include "manage/winNewPalette.h"

#include "help/WindowFit.h"
#include "manage/AliasRules.h"
#include "help/HelpButton.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/StringUtils.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace {
const QString kWindow = QStringLiteral("winNewPalette");

const QString kInfo = QStringLiteral(
    "When a new palette is created, you are only asked to provide the Name/Alias. This is the human-friendly name "
    "of the palette that is displayed in many locations and makes the palette recognizable in text.\n"
    "Once the new palette has been accepted, it is then expected that the user will proceed to use Grid Construct "
    "under the Configure menu to create the basic design of the new palette by providing its various properties.");
} // namespace

const QString winNewPalette::kAllInUse = QStringLiteral(
    "All 100 palettes, P00 to P99, are in use, so there is no room for a new palette. Delete a palette first; its "
    "Name/ID will then go to the new one.");

winNewPalette::winNewPalette(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowMinimizeButtonHint) {
    setObjectName(kWindow);
    setWindowTitle("New Palette");
    setModal(true);
    setFixedSize(500, 400);

    labInfo = new QLabel(kInfo, this);
    labInfo->setObjectName("labInfo");
    labInfo->setGeometry(20, 44, 460, 170);
    labInfo->setWordWrap(true);
    labInfo->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    labInfo->setStyleSheet("color: #935100;");

    labNmAls = new QLabel("Name/Alias", this);
    labNmAls->setObjectName("labNmAls");
    labNmAls->setGeometry(20, 240, 100, 24);
    labNmAls->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    labNmAls->setStyleSheet("color: #919191;");

    tfAlias = new QLineEdit(this);
    tfAlias->setObjectName("tfAlias");
    tfAlias->setGeometry(130, 240, 330, 24);
    tfAlias->setStyleSheet("QLineEdit { background: #FFFFFF; color: #000000; }");

    pbHelpNewPal = HelpButton::make(this, "pbHelpNewPal", 60, kWindow);
    pbCancel = WindowFit::pushButton(this, "pbCancel", "Cancel", {300, 350, 80, 28});
    pbOK = WindowFit::pushButton(this, "pbOK", "OK", {400, 350, 80, 28});
    pbOK->setDefault(true);

    connect(pbOK, &QPushButton::clicked, this, &winNewPalette::pbOK_Pressed);
    connect(pbCancel, &QPushButton::clicked, this, &winNewPalette::pbCancel_Pressed);

    Event_Opening();
}

void winNewPalette::Event_Opening() {
    Guard::run(Guard::Where::windowEvent(kWindow, "Opening"), [this] {
        // A proposal, so that OK can be pressed at once; the user types over it. It names the
        // palette by the number it will take: the lowest free one.
        const auto free = std::find_if(ZOR::DP.begin(), ZOR::DP.end(),
                                       [](const PaletteDict& p) { return p.s_Alias == kNoShortcut; });
        tfAlias->setText("Palette " + StringUtils::twoDigits(free - ZOR::DP.begin()));
        tfAlias->selectAll();
        tfAlias->setFocus();
    });
}

void winNewPalette::pbOK_Pressed() {
    Guard::run(Guard::Where::controlEvent(kWindow, "pbOK", "Pressed"), [this] {
        // Only P00 to P99 can be reached by the menus and by two typed digits.
        if (!ZOR::roomForNewPalette()) {
            Dialogs::message(kAllInUse);
            return;
        }
        const QString alias =
            AliasRules::madeUnique(AliasRules::cleaned(tfAlias->text(), AliasRules::kNewPaletteRemoved));
        // The outgoing palette's size, title and particulars live only in the working set until saved.
        ZOR::SavePaletteToDP();
        ZOR::CreateNewPalette(alias);
        ZOR::aBtn = ZOR::DP[size_t(ZOR::idxCP)].a_Btn;
        ZOR::viewFollows(PaletteView::Upto::RestingTexts);
        ZOR::saveStore();
        accept();
    });
}

void winNewPalette::pbCancel_Pressed() {
    Guard::run(Guard::Where::controlEvent(kWindow, "pbCancel", "Pressed"), [this] { reject(); });
}
