// The palette half of the design window: rows and columns, the shortcuts of all buttons, the
// window title and the particulars. Each change reaches the working set at once.
#include "design/ConstructParts.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "store/ZOR.h"
#include "util/Characters.h"
#include "util/StringUtils.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace ConstructParts;

namespace {
const QString kTitleRemoved = QStringLiteral(",;:.'][()");
const QColor kGreyLabel(0x91, 0x91, 0x91), kDarkLabel(0x42, 0x42, 0x42);
constexpr int kTitleCut = 35, kTitleField = 37, kParticularsCut = 3000, kParticularsField = 3100;

QString withoutTitleMarks(QString text) {
    for (QChar c : kTitleRemoved)
        text.remove(c);
    return text;
}

void openCount(ccDataIntUpDown* control, qint64& count, const QString& title) {
    count = usableGridCount(count);
    control->jump = 1;
    control->jumpShift = 2;
    control->minValue = 1;
    control->maxValue = 10;
    control->theValue = int(count);
    control->showValue();
    control->labTitle->setText(title);
}
} // namespace

void winConstruct::buildPaletteHalf() {
    labPaleSpec = plainLabel(this, "labPaleSpec", "Palette Specification", QRect(20, 12, 260, 28), 18, true);
    ccRowUpDown = make<ccDataIntUpDown>(this, "ccRowUpDown", QRect(20, 50, 155, 40));
    ccColUpDown = make<ccDataIntUpDown>(this, "ccColUpDown", QRect(20, 92, 155, 40));
    connect(ccRowUpDown, &ccDataIntUpDown::ValueChanged, this, &winConstruct::ccRowUpDown_ValueChanged);
    connect(ccColUpDown, &ccDataIntUpDown::ValueChanged, this, &winConstruct::ccColUpDown_ValueChanged);

    rectInvisible = make<QWidget>(this, "rectInvisible", QRect(20, 152, 16, 16));
    rectInvisible->setStyleSheet("background: #CDFFF2; border: 1px solid #7F7F7F;");
    rectInvisible->setAttribute(Qt::WA_StyledBackground);
    labInvisible = plainLabel(this, "labInvisible", "Invisible", QRect(42, 150, 120, 20), 13);
    for (QWidget* w : {rectInvisible, static_cast<QWidget*>(labInvisible)})
        w->setToolTip("Buttons of this color are not visible on palette");

    labKeybrdShort =
        helpLabel(this, "labKeybrdShort", "Keyboard Shortcuts", 16, kGreyLabel, QRect(215, 50, 180, 20));
    labAllShortcut = infoLabel(this, "labAllShortcut", 15, QRect(400, 49, 20, 22));
    pbAssignShortcuts =
        make<QPushButton>(this, "pbAssignShortcuts", QRect(210, 74, 210, 28), "Assign All A Shortcut");
    pbAssignNoShortcut =
        make<QPushButton>(this, "pbAssignNoShortcut", QRect(210, 106, 210, 28), "Assign All No Shortcut");
    pbAllVisibleOnButton =
        make<QPushButton>(this, "pbAllVisibleOnButton", QRect(210, 138, 210, 28), "All Visible On Button");
    connect(pbAssignShortcuts, &QPushButton::clicked, this, &winConstruct::pbAssignShortcuts_Pressed);
    connect(pbAssignNoShortcut, &QPushButton::clicked, this, &winConstruct::pbAssignNoShortcut_Pressed);
    connect(pbAllVisibleOnButton, &QPushButton::clicked, this, &winConstruct::pbAllVisibleOnButton_Pressed);

    labPalette = helpLabel(this, "labPalette", "Palette", 17, kGreyLabel, QRect(460, 14, 80, 20));
    labNameID = plainLabel(this, "labNameID", "", QRect(460, 34, 80, 26), 18, true);
    labNmAls = helpLabel(this, "labNmAls", "Name/Alias", 13, kGreyLabel, QRect(560, 14, 200, 20));
    labNameAlias = plainLabel(this, "labNameAlias", "", QRect(560, 36, 490, 22), 14, true);
    labWinTitle = helpLabel(this, "labWinTitle", "Window Title", 20, kDarkLabel, QRect(460, 66, 150, 20));
    tfWinTitle = make<QLineEdit>(this, "tfWinTitle", QRect(560, 64, 300, 24));
    Characters::limit(tfWinTitle, kTitleField);
    labPalePart =
        helpLabel(this, "labPalePart", "Palette Particulars", 12, kDarkLabel, QRect(460, 96, 200, 20));
    // It takes up to 3100 characters; the cut to 3000 comes when it is left.
    auto* particulars = make<LimitedTextArea>(this, "taParticulars", QRect(460, 118, 620, 66));
    particulars->setCharacterLimit(kParticularsField);
    taParticulars = particulars;
    connect(tfWinTitle, &QLineEdit::textEdited, this, &winConstruct::tfWinTitle_TextChanged);
    tfWinTitle->installEventFilter(this);
    taParticulars->installEventFilter(this);
}

void winConstruct::ccRowUpDown_Open_Instance() {
    openCount(ccRowUpDown, ZOR::numRows, "Rows");
}
void winConstruct::ccColUpDown_Open_Instance() {
    openCount(ccColUpDown, ZOR::numColumns, "Columns");
}

void winConstruct::ccRowUpDown_ValueChanged() {
    Guard::run(controlEvent("ccRowUpDown", "ValueChanged"), [this] {
        ZOR::numRows = ccRowUpDown->theValue;
        ZOR::paletteContentChange = true;
        BlankOutEditButton();
        RefreshAllCells();
    });
}

void winConstruct::ccColUpDown_ValueChanged() {
    Guard::run(controlEvent("ccColUpDown", "ValueChanged"), [this] {
        ZOR::numColumns = ccColUpDown->theValue;
        ZOR::paletteContentChange = true;
        BlankOutEditButton();
        RefreshAllCells();
    });
}

void winConstruct::SetEntireRowVisibilty(int row, bool vis) {
    for (int i = row * 10; i < row * 10 + 10; ++i)
        if (i >= 0 && size_t(i) < ZOR::aBtn->size()) (*ZOR::aBtn)[size_t(i)]->Vis = vis;
}

void winConstruct::DefaultOutsideUsedGrid() {
    Guard::run(windowMethod("DefaultOutsideUsedGrid"), [] {
        for (size_t i = 0; i < ZOR::aBtn->size() && i < 100; ++i) {
            if (qint64(i % 10) < ZOR::numColumns && qint64(i / 10) < ZOR::numRows) continue;
            Btn& b = *(*ZOR::aBtn)[i];
            b.ASfile.clear();
            b.Info.clear();
            b.Tip.clear();
            b.ShortcutShow = true;
            b.Vis = true;
        }
    });
}

void winConstruct::AssignShortcut() {
    Guard::run(windowMethod("AssignShortcut"), [this] {
        for (const BtnRef& b : *ZOR::aBtn)
            b->Shortcut = kNoShortcut;
        int next = 0;
        for (size_t i = 0; i < ZOR::aBtn->size() && next < ZOR::aAlphabetShortcut.size(); ++i)
            if (qint64(i % 10) < ZOR::numColumns && qint64(i / 10) < ZOR::numRows)
                (*ZOR::aBtn)[i]->Shortcut = ZOR::aAlphabetShortcut[next++];
        RefreshAllCells();
    });
}

void winConstruct::AssignNoShortcut() {
    Guard::run(windowMethod("AssignNoShortcut"), [this] {
        for (const BtnRef& b : *ZOR::aBtn)
            b->Shortcut = kNoShortcut;
        RefreshAllCells();
    });
}

int winConstruct::ShortcutStatus() const {
    return Guard::run(windowMethod("ShortcutStatus"), [] {
        int examined = 0, assigned = 0;
        for (size_t i = 0; i < ZOR::aBtn->size() && examined < 52; ++i) {
            if (qint64(i % 10) >= ZOR::numColumns || qint64(i / 10) >= ZOR::numRows) continue;
            ++examined;
            if ((*ZOR::aBtn)[i]->Shortcut != kNoShortcut) ++assigned;
        }
        return assigned == examined ? 2 : assigned > 0 ? 1 : 0;
    });
}

void winConstruct::pbAssignShortcuts_Pressed() {
    Guard::run(controlEvent("pbAssignShortcuts", "Pressed"), [this] {
        AssignShortcut();
        BlankOutEditButton();
        ZOR::paletteContentChange = true;
        pbAssignShortcuts->setEnabled(false);
        pbAssignNoShortcut->setEnabled(true);
    });
}

void winConstruct::pbAssignNoShortcut_Pressed() {
    Guard::run(controlEvent("pbAssignNoShortcut", "Pressed"), [this] {
        AssignNoShortcut();
        BlankOutEditButton();
        ZOR::paletteContentChange = true;
        pbAssignNoShortcut->setEnabled(false);
        pbAssignShortcuts->setEnabled(true);
    });
}

void winConstruct::pbAllVisibleOnButton_Pressed() {
    Guard::run(controlEvent("pbAllVisibleOnButton", "Pressed"), [this] {
        for (const BtnRef& b : *ZOR::aBtn)
            b->ShortcutShow = !visibleOnButton;
        visibleOnButton = !visibleOnButton;
        pbAllVisibleOnButton->setText(visibleOnButton ? "All Invisible on Button" : "All Visible on Button");
        pbAllVisibleOnButton->setToolTip(visibleOnButton
                                             ? "If button has a shortcut, make invisible on button."
                                             : "If button has a shortcut, make visible on button.");
        ZOR::paletteContentChange = true;
        RefreshAllCells();
    });
}

void winConstruct::PaletteGlobalActive(bool active) {
    Guard::run(windowMethod("PaletteGlobalActive"), [&] {
        for (QWidget* w : std::initializer_list<QWidget*>{pbAllVisibleOnButton, taParticulars, tfWinTitle,
                                                          ccColUpDown, ccRowUpDown})
            w->setEnabled(active);
        const int status = ShortcutStatus();
        pbAssignNoShortcut->setEnabled(active && status != 0);
        pbAssignShortcuts->setEnabled(active && status != 2);
    });
}

void winConstruct::tfWinTitle_TextChanged() {
    Guard::run(controlEvent("tfWinTitle", "TextChanged"), [this] {
        const QString text = tfWinTitle->text();
        const QString kept = withoutTitleMarks(text);
        if (kept == text) return;
        const int cursor = tfWinTitle->cursorPosition() - int(text.size() - kept.size());
        tfWinTitle->setText(kept);
        tfWinTitle->setCursorPosition(std::max(0, cursor));
    });
}

QString winConstruct::cleanWindowTitle(const QString& text, const QString& paletteName) {
    QString title = withoutTitleMarks(text.trimmed());
    title = StringUtils::ReplaceDoubledCharWithSingle(title, " ");
    while (title.contains("  "))
        title.replace("  ", " ");
    if (title.isEmpty()) title = paletteName;
    const QString first = title.left(1);
    if (!StringUtils::IsLowercase(first) && !StringUtils::IsUppercase(first)) title.prepend('A');
    return Characters::left(title, kTitleCut);
}

void winConstruct::tfWinTitle_FocusLost() {
    Guard::run(controlEvent("tfWinTitle", "FocusLost"), [this] {
        if (tfWinTitle->text() == loaded(tfWinTitle)) return; // a title as stored stays as it is
        const QString title = cleanWindowTitle(tfWinTitle->text(), ZOR::paleName);
        tfWinTitle->setText(title);
        if (PaletteView* view = ZOR::view()) view->setPaletteTitle(title);
        ZOR::paleWinTitle = title;
        shownAtLoad[tfWinTitle] = title;
        ZOR::paletteContentChange = true;
    });
}

void winConstruct::taParticulars_FocusLost() {
    Guard::run(controlEvent("taParticulars", "FocusLost"), [this] {
        if (taParticulars->toPlainText() == loaded(taParticulars)) return;
        const QString text = Characters::left(taParticulars->toPlainText().trimmed(), kParticularsCut);
        if (text != taParticulars->toPlainText()) taParticulars->setPlainText(text);
        ZOR::paleParticulars = text;
        shownAtLoad[taParticulars] = text;
        ZOR::paletteContentChange = true;
    });
}
