#include "design/winConstruct.h"

#include "design/ConstructParts.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "help/FittedText.h"
#include "help/GeneralMethods.h"
#include "help/Help.h"
#include "help/HelpButton.h"
#include "pictures/ButtonPictureFiles.h"
#include "store/ZOR.h"
#include "util/StringUtils.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

using namespace ConstructParts;

winConstruct::winConstruct(QWidget* parent) : QDialog(parent) {
    setObjectName("winConstruct");
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinimizeButtonHint);
    setWindowTitle("Grid Construct");
    setFixedSize(1100, 770);
    setAutoFillBackground(true);
    buildFrame();
    buildPaletteHalf();
    buildButtonHalf();
    ccRowUpDown_Open_Instance();
    ccColUpDown_Open_Instance();
    ccShortcutUpDown_Open_Instance();
    Event_Opening();
}

winConstruct::~winConstruct() {
    // Focus moves while the controls are taken down; their handlers must not run then.
    opened = false;
}

void winConstruct::buildFrame() {
    pbHelpGridCon = HelpButton::round(this, "pbHelpGridCon", QRect(1060, 12, 24, 24));
    connect(pbHelpGridCon, &QPushButton::clicked, this, &winConstruct::pbHelpGridCon_Pressed);
    pbDone = make<QPushButton>(this, "pbDone", QRect(985, 728, 95, 30), "Done");
    connect(pbDone, &QPushButton::clicked, this, &winConstruct::pbDone_Pressed);

    // An etched frame round the button half: a light, a dark and a grey line side by side.
    const auto etched = [this](const char* name, const QRect& place, bool across) {
        auto* line = make<QWidget>(this, name, place);
        line->setStyleSheet(
            QString("background: qlineargradient(%1, stop:0 #FFFFFF, stop:0.33 #FFFFFF, "
                    "stop:0.34 #333333, stop:0.66 #333333, stop:0.67 #CFCFCF, stop:1 #CFCFCF);")
                .arg(across ? "x1:0, y1:0, x2:0, y2:1" : "x1:0, y1:0, x2:1, y2:0"));
        line->setAttribute(Qt::WA_StyledBackground);
        return line;
    };
    cnvTop = etched("cnvTop", QRect(592, 196, 492, 3), true);
    cnvBottom = etched("cnvBottom", QRect(592, 716, 492, 3), true);
    cnvLeft = etched("cnvLeft", QRect(592, 196, 3, 523), false);
}

void winConstruct::Event_Opening() {
    Guard::run(Guard::Where::windowEvent("winConstruct", "Opening"), [this] {
        bool allShown = true;
        for (const BtnRef& b : *ZOR::aBtn)
            allShown = allShown && b->ShortcutShow;
        const int status = ShortcutStatus();
        if (status == 0) pbAssignNoShortcut->setEnabled(false);
        if (status == 2) pbAssignShortcuts->setEnabled(false);
        tfWinTitle->setText(ZOR::paleWinTitle);
        taParticulars->setPlainText(ZOR::paleParticulars);
        shownAtLoad[tfWinTitle] = tfWinTitle->text();
        shownAtLoad[taParticulars] = taParticulars->toPlainText();
        setWindowTitle("Grid Construct: " + ZOR::paleWinTitle + " (" + ZOR::paleName + ")");
        labNameID->setText(ZOR::paleName);
        FittedText::set(labNameAlias, ZOR::paleAlias);
        if (allShown) {
            pbAllVisibleOnButton->setText("All Invisible on Button");
            pbAllVisibleOnButton->setToolTip("If button has a shortcut, make invisible on button.");
            visibleOnButton = true;
        } else {
            pbAllVisibleOnButton->setToolTip("If button has a shortcut, make visible on button.");
        }

        QStringList hidden;
        for (const auto& [n, path] :
             buttonPictureFiles(palettePictureFolder(ZOR::paleName), LeadingDigits::AsNumber))
            if (size_t(n) < ZOR::aBtn->size() && !(*ZOR::aBtn)[size_t(n)]->Vis) hidden << QString::number(n);
        if (!hidden.isEmpty()) {
            const QString message =
                hidden.size() > 1
                    ? "The following buttons have pictures assigned to them but are currently set as "
                      "invisible: "
                    : "The following button has a picture assigned to it but is currently set as invisible: ";
            GeneralMethods::MesDlg(message + hidden.join(", "),
                                   "This is legal but make sure this is your intent.", "OK", false, "");
        }

        if (ZOR::numRows < 10) SetEntireRowVisibilty(int(ZOR::numRows), false);
        DefaultOutsideUsedGrid();
        for (int i = 0; i < 100; ++i) {
            auto* cell = new ccGC(this);
            cell->setObjectName("ccGC" + StringUtils::twoDigits(i));
            cell->move(i % 10 * ccGC::kSize + 20, i / 10 * ccGC::kSize + 200);
            cell->butID = StringUtils::twoDigits(i);
            connect(cell, &ccGC::MouseUp, this, &winConstruct::GridClicked);
            connect(cell, &ccGC::PictureDropped, this, &winConstruct::pictureDropped);
            accGC.append(cell);
        }
        ZOR::idxCurrentBtn = -1;
        const int os = GeneralMethods::VersionOS_Major();
        // Shortcuts can't be chosen before macOS 12; 0, a system that can't tell, is not an old Mac.
        if (os > 0 && os < 12)
            for (QWidget* w : std::initializer_list<QWidget*>{tfSC, labMacShortcuts, cnvSC})
                w->hide();
        opened = true;
        BlankOutEditButton();
        cbKM->setChecked(false);
        for (QWidget* w : std::initializer_list<QWidget*>{cbKM, tfAS, tfPaletteGo, tfSC, tfTip, pbOK})
            w->setEnabled(false);
        pbDone->setEnabled(true);
    });
}

bool winConstruct::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && opened) fieldLeft(watched);
    // A field's chooser is on exactly when the field is.
    if (event->type() == QEvent::EnabledChange) {
        if (watched == tfAS) pbChooseAS->setEnabled(tfAS->isEnabled());
        if (watched == tfPaletteGo) pbPaletteList->setEnabled(tfPaletteGo->isEnabled());
    }
    return QDialog::eventFilter(watched, event);
}

QString winConstruct::loaded(const QWidget* field) const {
    const auto found = shownAtLoad.find(field);
    return found == shownAtLoad.end() ? QString() : found->second;
}

void winConstruct::fieldLeft(QObject* field) {
    if (field == tfWinTitle)
        tfWinTitle_FocusLost();
    else if (field == taParticulars)
        taParticulars_FocusLost();
    else if (field == tfAS)
        tfAS_FocusLost();
    else if (field == tfSC)
        tfSC_FocusLost();
    else if (field == tfPaletteGo)
        tfPaletteGo_FocusLost();
}

void winConstruct::closeEvent(QCloseEvent* event) {
    // The close box keeps what was confirmed and shows it on the palette, as Done does.
    if (opened) Guard::run(Guard::Where::windowEvent("winConstruct", "Closing"), [] { ZOR::viewFollows(PaletteView::Upto::RestingTexts); });
    opened = false;
    QDialog::closeEvent(event);
}

void winConstruct::keyPressEvent(QKeyEvent* event) {
    // Escape would close the window past Done; the close box is there for that.
    if (event->key() == Qt::Key_Escape) return;
    QDialog::keyPressEvent(event);
}

void winConstruct::pbHelpGridCon_Pressed() {
    Guard::run(controlEvent("pbHelpGridCon", "Pressed"), [] { Help::ShowHelp(10); });
}

void winConstruct::pbDone_Pressed() {
    Guard::run(controlEvent("pbDone", "Pressed"), [this] {
        fieldLeft(focusWidget());
        if (ZOR::numRows < 10) SetEntireRowVisibilty(int(ZOR::numRows), false);
        ZOR::viewFollows(PaletteView::Upto::RestingTexts); // the bar too: a first start's hint goes
        opened = false;
        accept();
    });
}

void winConstruct::RefreshCell(int index) {
    if (index >= 0 && index < accGC.size()) accGC[index]->update();
}

void winConstruct::RefreshAllCells() {
    for (ccGC* cell : accGC)
        cell->update();
}
