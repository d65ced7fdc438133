#include "manage/winDeletePalette.h"

#include "help/FittedText.h"
#include "help/GeneralMethods.h"
#include "help/WindowFit.h"
#include "help/HelpButton.h"
#include "manage/ccPalettePreview.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/Guard.h"

#include <QLabel>
#include <QPushButton>

namespace {
const QString kWindow = QStringLiteral("winDeletePalette");
Guard::Where controlEvent(const char* control, const char* event) {
    return Guard::Where::controlEvent(kWindow, control, event);
}

const QString kInfo = QStringLiteral(
    "When a palette is deleted, as a precaution, a copy of its pictures is placed on the Desktop in case they might "
    "be needed in the future and in case the user has not already saved them elsewhere. The now unused Name/ID will "
    "be available to be assigned to future palettes.\n\n"
    "The macros in Keyboard Maestro are left untouched and would have to be modified or removed in that program as "
    "appropriate.");

QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    l->setGeometry(geometry);
    return l;
}
// The name, alias and title stand beside the preview, each under its caption, as wide as the
// window allows; a longer alias or title is cut with "…" and shown whole in its tooltip.
QLabel* caption(QWidget* parent, const char* name, const QString& text, int row) {
    QLabel* l = label(parent, name, text, {256, 18 + row * 48, 224, 18});
    l->setStyleSheet("color: #919191;");
    return l;
}

QLabel* value(QWidget* parent, const char* name, int row) {
    QLabel* l = label(parent, name, {}, {256, 36 + row * 48, 224, 22});
    QFont bold = l->font();
    bold.setBold(true);
    l->setFont(bold);
    return l;
}
} // namespace

const QString winDeletePalette::kConfirm = QStringLiteral(
    "Are you sure that you want to delete a palette? Understand that you may want to remove some Keyboard Maestro "
    "macro that is associated with it.");

const QString winDeletePalette::kKeepP00 = QStringLiteral(
    "P00 cannot be deleted: it is the palette that ZOR_Palette falls back to. You can give it another Name/Alias "
    "with Rename Palette Alias and redesign it with Grid Construct instead.");

winDeletePalette::winDeletePalette(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(kWindow);
    setWindowTitle("Delete Palette");
    setModal(true);
    setFixedSize(500, 400);

    preview = new ccPalettePreview(this, kWindow);
    preview->move(20, 20);

    labNmID = caption(this, "labNmID", "Name/ID", 0);
    labNameID = value(this, "labNameID", 0);
    labNmAls = caption(this, "labNmAls", "Name/Alias", 1);
    labNameAlias = value(this, "labNameAlias", 1);
    labWinTit = caption(this, "labWinTit", "Window Title", 2);
    labWindowTitle = value(this, "labWindowTitle", 2);

    labInfo = label(this, "labInfo", kInfo, {20, 184, 460, 150});
    labInfo->setWordWrap(true);
    labInfo->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    labInfo->setEnabled(false); // the disabled look: it only explains

    pbHelpDelPal = HelpButton::make(this, "pbHelpDelPal", 66, kWindow);
    pbCancel = WindowFit::pushButton(this, "pbCancel", "Cancel", {300, 350, 80, 28});
    pbDelete = WindowFit::pushButton(this, "pbDelete", "Delete", {400, 350, 80, 28});
    pbCancel->setDefault(true);

    connect(pbDelete, &QPushButton::clicked, this, &winDeletePalette::pbDelete_Pressed);
    connect(pbCancel, &QPushButton::clicked, this, &winDeletePalette::pbCancel_Pressed);

    Event_Opening();
}

void winDeletePalette::Event_Opening() {
    Guard::run(Guard::Where::windowEvent(kWindow, "Opening"), [this] {
        preview->load(ZOR::paleName);
        labNameID->setText(ZOR::paleName);
        FittedText::set(labNameAlias, ZOR::paleAlias);
        FittedText::set(labWindowTitle, ZOR::paleWinTitle);
    });
}

void winDeletePalette::pbDelete_Pressed() {
    Guard::run(controlEvent("pbDelete", "Pressed"), [this] {
        if (ZOR::idxCP == 0) {
            Dialogs::message(kKeepP00);
            return;
        }
        if (!RtrnBoolean::rbOKCancel(kConfirm, 2, "OK or Cancel")) return;
        if (ZOR::deleteActivePalette()) accept();
    });
}

void winDeletePalette::pbCancel_Pressed() {
    Guard::run(controlEvent("pbCancel", "Pressed"), [this] { reject(); });
}
