// The button half of the design window: the fields of the one button being edited. They are a
// scratch copy of the button until OK; a click on another cell or Cancel drops them.
#include "actions/Launchers.h"
#include "design/ConstructParts.h"
#include "design/UpDownArrows.h"
#include "design/ccDataStrUpDown.h"
#include "design/winConstruct.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/RtrnString.h"
#include "util/Sharp.h"
#include "util/StringUtils.h"

#include "util/Characters.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QToolButton>

using namespace ConstructParts;

namespace {
const QColor kLetterShown(0xDC, 0x6E, 0x00), kLetterLoadedHidden(0xA9, 0xA9, 0xA9),
    kLetterHidden(0x79, 0x79, 0x79);
const QColor kDarkLabel(0x42, 0x42, 0x42), kGreyLabel(0x91, 0x91, 0x91), kWarning(0xFF, 0x26, 0x00);
constexpr int kAutoMinSeconds[] = {0, 2, 10, 50};
constexpr int kTipCut = 80, kInfoCut = 2000;

QLabel* kindIcon(QWidget* parent, const char* name, const QString& picture, int top) {
    auto* icon = make<QLabel>(parent, name, QRect(612, top, 24, 24));
    icon->setPixmap(Sharp::pixmap(":/design/" + picture + ".png", QSize(24, 24))); // 48 px: sharp at 2x
    return icon;
}

// Replaces the field's text by `kept` when they differ, keeping the cursor where it was.
void keepOnly(QLineEdit* field, const QString& kept) {
    const QString text = field->text();
    if (kept == text) return;
    const int cursor = field->cursorPosition() - int(text.size() - kept.size());
    field->setText(kept);
    field->setCursorPosition(std::clamp(cursor, 0, int(kept.size())));
}

QString withoutBlanks(QString text) {
    return text.remove(' ');
}
} // namespace

void winConstruct::buildButtonHalf() {
    // Set like the palette half's heading: the two halves are peers.
    labButtSpec = plainLabel(this, "labButtSpec", "Button Specification", QRect(612, 210, 300, 28), 18, true);
    mabButton = helpLabel(this, "mabButton", "Button", 22, kGreyLabel, QRect(935, 216, 60, 20));
    labID = plainLabel(this, "labID", "ID", QRect(1000, 210, 60, 28), 18, true);

    cbVisibleBtn = make<QCheckBox>(this, "cbVisibleBtn", QRect(612, 246, 150, 22), "Button Visible");
    cbVisibleBtn->setToolTip("The entire button will or will not be invisible");
    labButtonVis = infoLabel(this, "labButtonVis", 36, QRect(765, 246, 20, 22));
    ccShortcutUpDown = make<ccDataStrUpDown>(this, "ccShortcutUpDown", QRect(612, 274, 200, 40));
    labKB_ShortcutInfo = infoLabel(this, "labKB_ShortcutInfo", 24, QRect(815, 283, 20, 22));
    labShortcut = make<QLabel>(this, "labShortcut", QRect(845, 274, 50, 40));
    QFont letter = Fonts::sized("Menlo", 26);
    letter.setBold(true);
    labShortcut->setFont(letter);
    labShortcut->setAlignment(Qt::AlignCenter);
    cbVisOnBtn = make<QCheckBox>(this, "cbVisOnBtn", QRect(905, 283, 170, 22), "Visible On Button");
    cbVisOnBtn->setToolTip("The shortcut will be visible on the corner of the button");

    labTip = helpLabel(this, "labTip", "Tip", 26, kDarkLabel, QRect(612, 326, 60, 20));
    tfTip = make<QLineEdit>(this, "tfTip", QRect(690, 323, 380, 24));
    Characters::limit(tfTip, 42);
    labInformation = helpLabel(this, "labInformation", "Info", 28, kDarkLabel, QRect(612, 356, 60, 20));
    taInfo = make<QPlainTextEdit>(this, "taInfo", QRect(690, 354, 380, 62));
    taInfo->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    taInfo->setToolTip("When using program, Option-Click to see this information");

    buildPictureRow(); // 424 to 490

    cnvKM = kindIcon(this, "cnvKM", "KeyMaestro", 500);
    labKM = helpLabel(this, "labKM", "KM", 31, Qt::black, QRect(644, 502, 110, 20));
    cbKM = make<QCheckBox>(this, "cbKM", QRect(760, 501, 145, 22), "Keyboard Maestro");
    labMacroName = make<QLabel>(this, "labMacroName", QRect(908, 502, 92, 20));
    labMacroName->setTextInteractionFlags(Qt::TextSelectableByMouse);
    labMacroName->setToolTip("The name of the Keyboard Maestro macro that this button runs");
    pbCopyMacro = make<QPushButton>(this, "pbCopyMacro", QRect(1004, 499, 66, 26), "Copy");
    pbCopyMacro->setToolTip(
        "Copy the macro's name, to paste it as the name of a new macro in Keyboard Maestro");

    cnvAS = kindIcon(this, "cnvAS", "AppleScript", 536);
    labAppleScript = helpLabel(this, "labAppleScript", "AppleScript", 30, QColor(0xFF, 0x7E, 0x79),
                               QRect(644, 538, 110, 20));
    tfAS = make<QLineEdit>(this, "tfAS", QRect(760, 535, 200, 24));
    Characters::limit(tfAS, 32);
    tfAS->setToolTip("The file name of the AppleScript that this button is to invoke.");
    pbChooseAS = make<QPushButton>(this, "pbChooseAS", QRect(966, 534, 104, 26), "Choose…");
    pbChooseAS->setToolTip("Choose a script of the Apple_Scripts folder");
    labZorAS_NotExist = helpLabel(this, "labZorAS_NotExist", "Does not exist currently", 34, kWarning,
                                  QRect(762, 560, 250, 16), 11);

    cnvSC = kindIcon(this, "cnvSC", "Shortcuts", 580);
    labMacShortcuts = helpLabel(this, "labMacShortcuts", "Shortcuts", 32, QColor(0x00, 0x91, 0x93),
                                QRect(644, 582, 110, 20));
    tfSC = make<QLineEdit>(this, "tfSC", QRect(760, 579, 310, 24));
    Characters::limit(tfSC, 32);
    tfSC->setToolTip("Shortcuts is an app on the computer and there are many individual shortcuts can be "
                     "invoked by name.");
    labZorSC_NotExist = helpLabel(this, "labZorSC_NotExist", "Does not exist currently", 37, kWarning,
                                  QRect(762, 604, 250, 16), 11);

    labZorPaletteSwitch = helpLabel(this, "labZorPaletteSwitch", "Palette Switch", 35,
                                    QColor(0x94, 0x37, 0xFF), QRect(644, 626, 110, 20));
    tfPaletteGo = make<QLineEdit>(this, "tfPaletteGo", QRect(760, 623, 40, 24));
    tfPaletteGo->setValidator(
        new QRegularExpressionValidator(QRegularExpression("[0-9 ]{0,2}"), tfPaletteGo));
    tfPaletteGo->setToolTip("A button can be assigned the task of switching to another palette");
    pbPaletteList = make<QToolButton>(this, "pbPaletteList", QRect(804, 622, 28, 26));
    pbPaletteList->setText("▾");
    pbPaletteList->setToolTip("Choose one of the palettes in use");
    pbPaletteList->setPopupMode(QToolButton::InstantPopup);
    pbPaletteList->setMenu(new QMenu(pbPaletteList));
    connect(pbPaletteList->menu(), &QMenu::aboutToShow, this, &winConstruct::fillPaletteList);
    labZorPaletteNum_NotExist =
        helpLabel(this, "labZorPaletteNum_NotExist", "This palette does not exist currently", 38, kWarning,
                  QRect(838, 627, 232, 16), 11);

    labAutoMin = helpLabel(this, "labAutoMin", "Auto Minimize", 0, kGreyLabel, QRect(612, 668, 100, 20));
    pumAutoMin = make<QComboBox>(this, "pumAutoMin", QRect(716, 664, 140, 26));
    pumAutoMin->addItems({"Never", "2 seconds", "10 seconds", "50 seconds"});
    pumAutoMin->setToolTip(
        "After the button is clicked, the palette will minimize to the dock with this time interval");
    cbUseClip = make<QCheckBox>(this, "cbUseClip", QRect(612, 692, 140, 22), "Use Clipboard");
    cbUseClip->hide();

    pbCancel = make<QPushButton>(this, "pbCancel", QRect(880, 676, 90, 30), "Cancel");
    pbOK = make<QPushButton>(this, "pbOK", QRect(980, 676, 90, 30), "OK");
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false); // Return never closes the window

    // A value loaded from the button passes these filters untouched: only typing is filtered.
    connect(tfAS, &QLineEdit::textEdited, this, &winConstruct::tfAS_TextChanged);
    connect(tfPaletteGo, &QLineEdit::textEdited, this, &winConstruct::tfPaletteGo_TextChanged);
    for (QLineEdit* field : {tfAS, tfSC, tfPaletteGo})
        connect(field, &QLineEdit::textChanged, this, &winConstruct::InputEnabling);
    connect(cbKM, &QCheckBox::toggled, this, &winConstruct::cbKM_ValueChanged);
    connect(cbVisOnBtn, &QCheckBox::toggled, this, &winConstruct::cbVisOnBtn_ValueChanged);
    connect(ccShortcutUpDown, &ccDataStrUpDown::ValueChanged, this,
            &winConstruct::ccShortcutUpDown_ValueChanged);
    connect(tfTip, &QLineEdit::textChanged, this, &winConstruct::fieldChanged);
    connect(taInfo, &QPlainTextEdit::textChanged, this, &winConstruct::fieldChanged);
    connect(pumAutoMin, &QComboBox::currentIndexChanged, this, &winConstruct::fieldChanged);
    connect(cbVisibleBtn, &QCheckBox::toggled, this, &winConstruct::fieldChanged);
    connect(cbUseClip, &QCheckBox::toggled, this, &winConstruct::fieldChanged);
    connect(pbOK, &QPushButton::clicked, this, &winConstruct::pbOK_Pressed);
    connect(pbCancel, &QPushButton::clicked, this, &winConstruct::pbCancel_Pressed);
    connect(pbChooseAS, &QPushButton::clicked, this, &winConstruct::pbChooseAS_Pressed);
    connect(pbCopyMacro, &QPushButton::clicked, this, &winConstruct::pbCopyMacro_Pressed);
    for (QWidget* field : std::initializer_list<QWidget*>{tfAS, tfSC, tfPaletteGo})
        field->installEventFilter(this);
}

void winConstruct::ccShortcutUpDown_Open_Instance() {
    ccShortcutUpDown->aStrChoices = QStringList{kNoShortcut} + ZOR::aAlphabetShortcut;
    ccShortcutUpDown->jump = 1;
    ccShortcutUpDown->jumpShift = 8;
    ccShortcutUpDown->minIndex = 0;
    ccShortcutUpDown->maxIndex = int(ccShortcutUpDown->aStrChoices.size()) - 1;
    ccShortcutUpDown->theValue = kNoShortcut;
    ccShortcutUpDown->theValueIndex = 0;
    ccShortcutUpDown->labTitle->setText("Keyboard Shortcut");
    ccShortcutUpDown->labValue->setText(kNoShortcut);
}

void winConstruct::okOn(bool on) {
    pbOK->setEnabled(on);
    pbDone->setEnabled(!on);
}

void winConstruct::setShortcutColour(const QColor& colour) {
    setTextColour(labShortcut, colour);
}

void winConstruct::GridClicked(int index) {
    Guard::run(windowMethod("GridClicked"), [&] {
        if (index / 10 >= ZOR::numRows || index % 10 >= ZOR::numColumns) {
            Dialogs::beep();
            return;
        }
        const int old = int(ZOR::idxCurrentBtn);
        ZOR::idxCurrentBtn = index;
        if (old != -1) RefreshCell(old);
        RefreshCell(index);
        EditButton(index);
    });
}

void winConstruct::EditButton(int index) {
    Guard::run(windowMethod("EditButton"), [&] {
        const Btn& b = *(*ZOR::aBtn)[size_t(index)];
        editingGridButton = true;
        labID->setText(StringUtils::twoDigits(index));
        ccShortcutUpDown->setValueColour(Qt::black);
        ccShortcutUpDown->labValue->setText(kNoShortcut);
        ccShortcutUpDown->udChangeVal->setEnabled(true);
        labShortcut->setText(b.Shortcut);
        labShortcut->show();
        setShortcutColour(b.ShortcutShow ? kLetterShown : kLetterLoadedHidden);
        tfAS->setText(b.ASfile);
        tfSC->setText(b.SCname);
        tfPaletteGo->setText(b.PaletteGo);
        ButtonSpecificationLabel();
        labZorAS_NotExist->setVisible(!IsAppleScriptNameExist(tfAS->text()));
        labZorSC_NotExist->setVisible(!tfSC->isHidden() && !tfSC->text().isEmpty() &&
                                      !ZOR::IsShortcutExistant(tfSC->text()));
        labZorPaletteNum_NotExist->setVisible(!tfPaletteGo->text().isEmpty() &&
                                              !ZOR::IsPaletteExistant(tfPaletteGo->text().toInt()));
        tfTip->setText(b.Tip);
        taInfo->setPlainText(b.Info);
        for (QLineEdit* field : {tfAS, tfSC, tfPaletteGo, tfTip})
            shownAtLoad[field] = field->text();
        shownAtLoad[taInfo] = taInfo->toPlainText();
        labMacroName->setText("ZOR " + ZOR::paleName + ' ' + StringUtils::twoDigits(index));
        labMacroName->show();
        pbCopyMacro->show();
        showButtonPicture();
        offerShortcutNames();
        const int row = int(std::find(std::begin(kAutoMinSeconds), std::end(kAutoMinSeconds), b.AutoMin) -
                            std::begin(kAutoMinSeconds));
        pumAutoMin->setCurrentIndex(row < 4 ? row : 0); // any other stored delay shows as Never
        tfAS->setEnabled(b.SCname.isEmpty() && b.PaletteGo.isEmpty());
        tfSC->setEnabled(b.ASfile.isEmpty() && b.PaletteGo.isEmpty());
        tfPaletteGo->setEnabled(b.ASfile.isEmpty() && b.SCname.isEmpty());
        for (QWidget* w : std::initializer_list<QWidget*>{ccShortcutUpDown, tfTip, taInfo, pumAutoMin})
            w->setEnabled(true);
        cbKM->setChecked(b.KM_Active);
        cbVisibleBtn->setChecked(b.Vis);
        cbVisOnBtn->setChecked(b.ShortcutShow);
        cbUseClip->setChecked(b.Clipbrd > 0);
        for (QWidget* w : std::initializer_list<QWidget*>{cbVisibleBtn, cbVisOnBtn, cbUseClip, pbCancel})
            w->setEnabled(true);
        // Setting a field to the text it already holds runs no change handler: the rule of the
        // kinds is applied once more so that it always answers for the loaded button.
        InputEnabling();
        // The assignments above ran the change handlers; a fresh load is unchanged all the same.
        setShortcutColour(b.ShortcutShow ? kLetterShown : kLetterLoadedHidden);
        okOn(false);
        PaletteGlobalActive(false);
    });
}

void winConstruct::BlankOutEditButton() {
    Guard::run(windowMethod("BlankOutEditButton"), [this] {
        cbVisibleBtn->setChecked(true);
        for (QCheckBox* box : {cbVisOnBtn, cbUseClip, cbKM})
            box->setChecked(false);
        for (QLineEdit* field : {tfAS, tfSC, tfPaletteGo, tfTip})
            field->clear();
        taInfo->clear();
        pumAutoMin->setCurrentIndex(-1);
        for (QWidget* w :
             std::initializer_list<QWidget*>{cbVisibleBtn, cbVisOnBtn, cbUseClip, cbKM, tfAS, tfSC,
                                             tfPaletteGo, tfTip, taInfo, pumAutoMin, ccShortcutUpDown})
            w->setEnabled(false);
        for (QWidget* w : std::initializer_list<QWidget*>{labShortcut, labZorAS_NotExist, labZorSC_NotExist,
                                                          labZorPaletteNum_NotExist})
            w->hide();
        labID->setText("ID");
        labMacroName->hide();
        pbCopyMacro->hide();
        showButtonPicture(); // none, with both of its buttons off
        ccShortcutUpDown->setValueColour(QColor(0xCF, 0xCF, 0xCF));
        ccShortcutUpDown->theValueIndex = 0;
        ccShortcutUpDown->theValue = kNoShortcut;
        ccShortcutUpDown->labValue->setText(kNoShortcut);
        ccShortcutUpDown->udChangeVal->setEnabled(false);
        pbCancel->setEnabled(false);
        okOn(false);
    });
}

void winConstruct::InputEnabling() {
    Guard::run(windowMethod("InputEnabling"), [this] {
        const bool km = cbKM->isChecked();
        const bool as = !tfAS->text().isEmpty(), sc = !tfSC->text().isEmpty(),
                   ps = !tfPaletteGo->text().isEmpty();
        const QSignalBlocker quiet(cbKM); // unchecking here is the rule's own doing, not the user's
        if (km) {
            for (QWidget* w : {tfAS, tfSC, tfPaletteGo})
                w->setEnabled(false);
            cbKM->setEnabled(true);
        }
        const auto only = [this](QLineEdit* kept) {
            cbKM->setChecked(false);
            cbKM->setEnabled(false);
            for (QLineEdit* w : {tfAS, tfSC, tfPaletteGo})
                if (w != kept) w->setEnabled(false);
        };
        if (as) only(tfAS);
        if (sc) only(tfSC);
        if (ps) only(tfPaletteGo);
        if (!km && !as && !sc && !ps) {
            for (QWidget* w : std::initializer_list<QWidget*>{cbKM, tfAS, tfSC, tfPaletteGo})
                w->setEnabled(true);
            okOn(false);
        } else {
            okOn(true);
        }
    });
}

void winConstruct::ButtonSpecificationLabel() {
    if (!tfAS->text().isEmpty())
        labButtSpec->setText("AppleScript");
    else if (!tfSC->text().isEmpty())
        labButtSpec->setText("Shortcut");
    else if (!tfPaletteGo->text().isEmpty())
        labButtSpec->setText("Palette Switcher");
    else
        labButtSpec->setText("Keyboard Maestro");
}

QString winConstruct::AS_HasCorrectCharacters(const QString& text) {
    // Blanks stay, as script files are often named with them ("Morning Mail"); a blank at the end
    // may be the one before the next word, so the ends are trimmed only when the field is left.
    const auto asciiLetter = [](QChar c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    qsizetype start = 0;
    while (start < text.size() && !asciiLetter(text[start]))
        ++start;
    QString name;
    for (qsizetype i = start; i < text.size(); ++i) {
        const QChar c = text[i];
        if (asciiLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == ' ') name += c;
    }
    return name;
}

QString winConstruct::PaletteGoMakeAcceptable(const QString& text) {
    const QString digits = RtrnString::rsOnlyDigit(text.trimmed());
    if (digits.isEmpty()) return {};
    bool ok = false;
    const int n = digits.toInt(&ok);
    if (!ok || n < 0 || n > 99) return {};
    return StringUtils::twoDigits(n);
}

bool winConstruct::IsAppleScriptNameExist(const QString& name) {
    return name.isEmpty() || !ZOR::rsScriptName(name).isEmpty();
}

void winConstruct::tfAS_TextChanged() {
    Guard::run(controlEvent("tfAS", "TextChanged"),
               [this] { keepOnly(tfAS, AS_HasCorrectCharacters(tfAS->text())); });
}

void winConstruct::tfAS_FocusLost() {
    Guard::run(controlEvent("tfAS", "FocusLost"), [this] {
        if (tfAS->text() == loaded(tfAS)) return; // a name as stored stays as it is
        if (const QString trimmed = tfAS->text().trimmed(); trimmed != tfAS->text()) tfAS->setText(trimmed);
        if (tfAS->text().isEmpty()) return;
        const QString name = ZOR::rsScriptName(tfAS->text());
        if (name.isEmpty()) {
            labZorAS_NotExist->show();
        } else {
            tfAS->setText(ZOR::rsWithWithoutScpt(name, false));
            labZorAS_NotExist->hide();
        }
        ButtonSpecificationLabel();
        if (tfTip->text().isEmpty()) tfTip->setText("Run AS " + tfAS->text());
    });
}

void winConstruct::tfSC_FocusLost() {
    Guard::run(controlEvent("tfSC", "FocusLost"), [this] {
        if (tfSC->text() == loaded(tfSC)) return; // a name as stored stays as it is
        const QString text = tfSC->text().trimmed();
        if (text != tfSC->text()) tfSC->setText(text);
        if (text.isEmpty()) return;
        labZorSC_NotExist->setVisible(!ZOR::IsShortcutExistant(text));
        ButtonSpecificationLabel();
        if (tfTip->text().isEmpty()) tfTip->setText("Run Shortcut " + text);
    });
}

void winConstruct::tfPaletteGo_TextChanged() {
    Guard::run(controlEvent("tfPaletteGo", "TextChanged"),
               [this] { keepOnly(tfPaletteGo, withoutBlanks(tfPaletteGo->text())); });
}

void winConstruct::tfPaletteGo_FocusLost() {
    Guard::run(controlEvent("tfPaletteGo", "FocusLost"), [this] {
        if (tfPaletteGo->text() == loaded(tfPaletteGo)) return;
        const QString text = PaletteGoMakeAcceptable(tfPaletteGo->text());
        if (text != tfPaletteGo->text()) tfPaletteGo->setText(text);
        if (text.isEmpty()) {
            if (editingGridButton) {
                tfAS->setEnabled(true);
                tfSC->setEnabled(true);
            }
            return;
        }
        ButtonSpecificationLabel();
        const bool exists = ZOR::IsPaletteExistant(text.toInt());
        if (tfTip->text().isEmpty())
            tfTip->setText(exists ? "Go to " + ZOR::DP[size_t(text.toInt())].s_Alias
                                  : "Change palette to " + text);
        labZorPaletteNum_NotExist->setVisible(!exists);
    });
}

void winConstruct::cbKM_ValueChanged() {
    Guard::run(controlEvent("cbKM", "ValueChanged"), [this] {
        InputEnabling();
        okOn(true);
    });
}

void winConstruct::cbVisOnBtn_ValueChanged() {
    Guard::run(controlEvent("cbVisOnBtn", "ValueChanged"), [this] {
        setShortcutColour(cbVisOnBtn->isChecked() ? kLetterShown : kLetterHidden);
        okOn(true);
    });
}

void winConstruct::ccShortcutUpDown_ValueChanged() {
    Guard::run(controlEvent("ccShortcutUpDown", "ValueChanged"), [this] {
        labShortcut->setText(ccShortcutUpDown->theValue);
        okOn(true);
    });
}

void winConstruct::fieldChanged() {
    Guard::run(windowMethod("fieldChanged"), [this] { okOn(true); });
}

void winConstruct::pbOK_Pressed() {
    Guard::run(controlEvent("pbOK", "Pressed"), [this] {
        fieldLeft(focusWidget());
        if (ZOR::idxCurrentBtn < 0 || size_t(ZOR::idxCurrentBtn) >= ZOR::aBtn->size()) return;
        Btn& b = *(*ZOR::aBtn)[size_t(ZOR::idxCurrentBtn)];
        editingGridButton = false;
        // A stored value stays as it stands unless the user changed what its field showed at load.
        const auto keep = [this](QString& stored, const QString& shown, QWidget* field,
                                 const QString& edited) {
            if (shown != loaded(field)) stored = edited;
        };
        keep(b.Tip, tfTip->text(), tfTip, Characters::left(tfTip->text().trimmed(), kTipCut));
        const QString info = taInfo->toPlainText();
        keep(b.Info, info, taInfo, Characters::left(info.trimmed(), kInfoCut));
        const int row = pumAutoMin->currentIndex();
        b.AutoMin = row >= 1 && row <= 3 ? kAutoMinSeconds[row] : 0;
        keep(b.ASfile, tfAS->text(), tfAS, tfAS->text().trimmed());
        keep(b.SCname, tfSC->text(), tfSC, tfSC->text().trimmed());
        keep(b.PaletteGo, tfPaletteGo->text(), tfPaletteGo, tfPaletteGo->text());
        b.Clipbrd = cbUseClip->isChecked() ? 1 : 0;
        b.KM_Active = cbKM->isChecked();
        const QString letter = labShortcut->text();
        if (letter != b.Shortcut) { // case matters: "a" and "A" are two shortcuts
            if (letter != kNoShortcut)
                for (size_t i = 0; i < ZOR::aBtn->size(); ++i)
                    if ((*ZOR::aBtn)[i]->Shortcut == letter) {
                        (*ZOR::aBtn)[i]->Shortcut = kNoShortcut;
                        RefreshCell(int(i));
                    }
            b.Shortcut = letter;
        }
        b.Vis = cbVisibleBtn->isChecked();
        b.ShortcutShow = cbVisOnBtn->isChecked();
        endEdit();
        ZOR::paletteContentChange = true;
        ZOR::saveStore();
        ZOR::viewFollows(PaletteView::Upto::RestingTexts); // the palette shows the button as designed
    });
}

void winConstruct::pbCancel_Pressed() {
    Guard::run(controlEvent("pbCancel", "Pressed"), [this] {
        editingGridButton = false;
        endEdit();
    });
}

void winConstruct::endEdit() {
    BlankOutEditButton();
    const int old = int(ZOR::idxCurrentBtn);
    ZOR::idxCurrentBtn = -1;
    RefreshCell(old);
    PaletteGlobalActive(true);
    labButtSpec->setText("Button Specification");
}
