#include "assets/winMakeMacros.h"

#include "actions/KeyboardMaestroMacros.h"
#include "assets/AssetControls.h"
#include "help/HelpButton.h"
#include "help/WindowFit.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/Guard.h"

#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QTreeWidget>
#include <algorithm>

namespace KM = KeyboardMaestroMacros;

const QString winMakeMacros::kExists = QStringLiteral("exists");
const QString winMakeMacros::kMissing = QStringLiteral("missing");
const QString winMakeMacros::kMoreThanOne = QStringLiteral("more than one");

namespace {
const QString kWindow = QStringLiteral("winMakeMacros");
constexpr int kHelpID = 67;

Guard::Where pressed(const char* control) {
    return Guard::Where::controlEvent(kWindow, QString::fromLatin1(control), QStringLiteral("Pressed"));
}

struct Row {
    QString buttonID;
    QString macro;
};

// The buttons of the palette's grid that are marked Keyboard Maestro, in the order of their numbers.
QList<Row> keyboardMaestroButtons() {
    QList<Row> rows;
    if (!ZOR::aBtn) return rows;
    for (const BtnRef& b : *ZOR::aBtn)
        if (b && b->KM_Active && b->ID / 10 < ZOR::numRows && b->ID % 10 < ZOR::numColumns)
            rows << Row{b->sID, KM::macroName(ZOR::paleName, b->sID)};
    return rows;
}

// Keyboard Maestro finds a macro by its name whatever its case.
qsizetype carriers(const QStringList& macroNames, const QString& name) {
    return std::count_if(macroNames.cbegin(), macroNames.cend(),
                         [&](const QString& n) { return n.compare(name, Qt::CaseInsensitive) == 0; });
}

QColor stateColour(const QString& state) {
    if (state == winMakeMacros::kExists) return QColor(0x4F8F00);
    return state == winMakeMacros::kMissing ? QColor(0xFF2600) : QColor(0xFF9300);
}

QString macros(int count) {
    return QString::number(count) + (count == 1 ? " macro" : " macros");
}
} // namespace

winMakeMacros::winMakeMacros(const QStringList& macroNames, QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
    using AssetControls::Label;
    setObjectName(kWindow);
    setWindowTitle("Make Keyboard Maestro Macros");
    setFixedSize(560, 470);

    labPalette = Label(this, "labPalette", {}, {20, 14, 480, 22});
    QFont bold = labPalette->font();
    bold.setBold(true);
    labPalette->setFont(bold);
    labGroup = Label(this, "labGroup", {}, {20, 38, 520, 22});
    pbHelpMakeMacros = HelpButton::make(this, "pbHelpMakeMacros", kHelpID, kWindow);

    lbMacros =
        AssetControls::listBox(this, "lbMacros", {"Button", "Macro Name", "State"}, {20, 68, 520, 270});
    lbMacros->setColumnWidth(0, 60);
    lbMacros->setColumnWidth(1, 300);
    lbMacros->setSelectionMode(QAbstractItemView::NoSelection);
    lbMacros->setFocusPolicy(Qt::NoFocus);

    labSummary = Label(this, "labSummary", {}, {20, 344, 520, 22});
    labNote = Label(this, "labNote", {}, {20, 368, 520, 44});
    labNote->setWordWrap(true);
    labNote->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    labNote->setStyleSheet("color: #945200;");

    pbMake = WindowFit::pushButton(this, "pbMake", "Make Missing Macros", {250, 424, 180, 30});
    pbMake->setToolTip(
        "Has Keyboard Maestro make an empty macro for each missing name, in the palette's macro group");
    pbDone = WindowFit::pushButton(this, "pbDone", "Done", {440, 424, 100, 30});
    pbDone->setDefault(true);
    connect(pbMake, &QPushButton::clicked, this, [this] { pbMake_Pressed(); });
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });

    ListMacros(macroNames);
}

void winMakeMacros::ListMacros(const QStringList& macroNames) {
    Guard::run(Guard::Where::windowMethod(kWindow, QStringLiteral("ListMacros")), [&] {
        labPalette->setText("Palette " + ZOR::paleName + "  " + ZOR::paleAlias);
        labGroup->setText(QString::fromUtf8("Missing macros are made in the macro group “") +
                          KM::groupName(ZOR::paleName, ZOR::paleAlias) + QString::fromUtf8("”."));
        lbMacros->clear();
        QMap<QString, int> counts;
        QList<QTreeWidgetItem*> items;
        for (const Row& row : keyboardMaestroButtons()) {
            const qsizetype n = carriers(macroNames, row.macro);
            const QString state = n == 0 ? kMissing : n == 1 ? kExists : kMoreThanOne;
            auto* item = new QTreeWidgetItem(QStringList{row.buttonID, row.macro, state});
            item->setForeground(2, stateColour(state));
            items << item;
            ++counts[state];
        }
        lbMacros->addTopLevelItems(items);
        labSummary->setText(items.isEmpty() ? "No button of this palette is marked Keyboard Maestro. Mark "
                                              "buttons in Grid Construct first."
                                            : QString("%1 exists, %2 missing, %3 more than one.")
                                                  .arg(counts[kExists])
                                                  .arg(counts[kMissing])
                                                  .arg(counts[kMoreThanOne]));
        labNote->setText(
            counts[kMoreThanOne] == 0
                ? QString()
                : "Keyboard Maestro cannot tell apart macros that carry the same name. In its "
                  "editor, rename or delete all but one of each; Make Missing Macros leaves them "
                  "alone.");
        pbMake->setEnabled(counts[kMissing] > 0);
    });
}

QStringList winMakeMacros::missingNames() const {
    QStringList names;
    for (int r = 0; r < lbMacros->topLevelItemCount(); ++r)
        if (lbMacros->topLevelItem(r)->text(2) == kMissing) names << lbMacros->topLevelItem(r)->text(1);
    return names;
}

void winMakeMacros::pbMake_Pressed() {
    Guard::run(pressed("pbMake"), [&] {
        const QStringList missing = missingNames();
        if (missing.isEmpty()) return;
        const QString group = KM::groupName(ZOR::paleName, ZOR::paleAlias);
        const KM::Answer made = KM::makeMacros(group, missing);
        if (made.outcome != KM::Outcome::Done) {
            Dialogs::message(KM::failureMessage(made));
            return;
        }
        const KM::Answer listed = KM::listNames();
        if (listed.outcome == KM::Outcome::Done) ListMacros(listed.names);
        Dialogs::message(
            "Made " + macros(made.made) + QString::fromUtf8(" in the macro group “") + group +
            QString::fromUtf8("”. The Keyboard Maestro editor shows the group: give each new macro "
                              "its actions there."));
        if (listed.outcome != KM::Outcome::Done) Dialogs::message(KM::failureMessage(listed));
    });
}

void winMakeMacros::pbDone_Pressed() {
    Guard::run(pressed("pbDone"), [&] { accept(); });
}

void showMakeMacros() {
    Guard::run(Guard::Where::windowMethod(kWindow, QStringLiteral("showMakeMacros")), [] {
        // A palette without Keyboard Maestro buttons needs nothing of the editor.
        QStringList names;
        if (!keyboardMaestroButtons().isEmpty()) {
            const KM::Answer listed = KM::listNames();
            if (listed.outcome != KM::Outcome::Done) {
                Dialogs::message(KM::failureMessage(listed));
                return;
            }
            names = listed.names;
        }
        winMakeMacros window(names);
        Dialogs::exec(window, {Dialogs::Kind::Window, window.windowTitle(), {}, {}, nullptr});
    });
}
