#include "manage/winChangeAlias.h"

#include "help/WindowFit.h"
#include "manage/AliasRules.h"
#include "help/HelpButton.h"
#include "manage/ccPalettePreview.h"
#include "store/ZOR.h"
#include "util/Characters.h"
#include "util/Guard.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QString kWindow = QStringLiteral("winChangeAlias");
Guard::Where controlEvent(const char* control, const char* event) {
    return Guard::Where::controlEvent(kWindow, control, event);
}
constexpr int kAliasLength = 23;
constexpr int kTitleLength = 25;
constexpr int kFieldLength = 30; // what the fields take while typing

QString renameRule(const QString& text, int length) {
    return Characters::left(AliasRules::cleaned(text, AliasRules::kRenameRemoved), length);
}

QLabel* caption(QWidget* parent, const char* name, const QString& text, int top) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    l->setGeometry(20, top, 110, 24);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setStyleSheet("color: #919191;");
    return l;
}
} // namespace

winChangeAlias::winChangeAlias(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(kWindow);
    setWindowTitle("Change Name/Alias");
    setModal(true);
    setFixedSize(500, 400);

    preview = new ccPalettePreview(this, kWindow);
    preview->move(20, 20);

    labInfo = new QLabel("The Name/Alias is the human friendly name for a palette. This can be changed here if "
                         "desired. The name cannot be too long and it has to be unique.",
                         this);
    labInfo->setObjectName("labInfo");
    labInfo->setGeometry(260, 44, 220, 116);
    labInfo->setWordWrap(true);
    labInfo->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    labNmID = caption(this, "labNmID", "Name/ID", 200);
    labNameID = new QLabel(this);
    labNameID->setObjectName("labNameID");
    labNameID->setGeometry(140, 200, 300, 24);
    QFont bold = labNameID->font();
    bold.setBold(true);
    labNameID->setFont(bold);

    labNmAls = caption(this, "labNmAls", "Name/Alias", 240);
    tfAlias = new QLineEdit(this);
    tfAlias->setObjectName("tfAlias");
    tfAlias->setGeometry(140, 240, 300, 24);
    Characters::limit(tfAlias, kFieldLength);

    labWinTit = caption(this, "labWinTit", "Window Title", 280);
    tfWinTitle = new QLineEdit(this);
    tfWinTitle->setObjectName("tfWinTitle");
    tfWinTitle->setGeometry(140, 280, 300, 24);
    Characters::limit(tfWinTitle, kFieldLength);
    tfWinTitle->setFrame(false);
    tfWinTitle->installEventFilter(this);

    pbHelpChgAlias = HelpButton::make(this, "pbHelpChgAlias", 64, kWindow);
    pbCancel = WindowFit::pushButton(this, "pbCancel", "Cancel", {260, 350, 90, 28});
    pbMakeChange = WindowFit::pushButton(this, "pbMakeChange", "Accept Change", {360, 350, 120, 28});
    pbMakeChange->setDefault(true);

    connect(pbMakeChange, &QPushButton::clicked, this, &winChangeAlias::pbMakeChange_Pressed);
    connect(pbCancel, &QPushButton::clicked, this, &winChangeAlias::pbCancel_Pressed);

    Event_Opening();
}

void winChangeAlias::Event_Opening() {
    Guard::run(Guard::Where::windowEvent(kWindow, "Opening"), [this] {
        preview->load(ZOR::paleName);
        labNameID->setText(ZOR::paleName);
        tfAlias->setText(ZOR::paleAlias);
        tfWinTitle->setText(ZOR::paleWinTitle);
    });
}

bool winChangeAlias::eventFilter(QObject* watched, QEvent* event) {
    if (watched == tfWinTitle && event->type() == QEvent::FocusOut) tfWinTitle_FocusLost();
    return QDialog::eventFilter(watched, event);
}

void winChangeAlias::tfWinTitle_FocusLost() {
    Guard::run(controlEvent("tfWinTitle", "FocusLost"), [this] {
        if (tfWinTitle->text() == ZOR::paleWinTitle) return; // a title as stored stays as it is
        const QString title = renameRule(tfWinTitle->text(), kTitleLength);
        if (title != tfWinTitle->text()) tfWinTitle->setText(title);
    });
}

void winChangeAlias::pbMakeChange_Pressed() {
    Guard::run(controlEvent("pbMakeChange", "Pressed"), [this] {
        // The field may never have lost the focus. Its rule leaves a clean title as it is.
        tfWinTitle_FocusLost();
        const QString title = tfWinTitle->text();
        // An alias as stored stays whole, even when it is longer than a rename would make it.
        QString alias =
            tfAlias->text() == ZOR::paleAlias ? ZOR::paleAlias : renameRule(tfAlias->text(), kAliasLength);
        PaletteView* view = ZOR::view();
        const bool sameAlias = ZOR::DP[size_t(ZOR::idxCP)].s_Alias.compare(alias, Qt::CaseInsensitive) == 0;
        if (sameAlias) {
            if (title.compare(ZOR::paleWinTitle, Qt::CaseInsensitive) != 0) {
                ZOR::paleWinTitle = title;
                ZOR::paletteContentChange = true;
                ZOR::saveStore();
                if (view) view->setPaletteTitle(title);
            }
            accept();
            return;
        }
        // The cut is not repeated: a suffix may carry the alias past 23 characters.
        alias = AliasRules::madeUnique(alias);
        ZOR::paleAlias = alias;
        ZOR::paleWinTitle = title;
        if (view) {
            view->setRestingTexts(alias, ZOR::paleName);
            view->setPaletteTitle(title);
        }
        ZOR::paletteContentChange = true;
        ZOR::saveStore();
        accept();
    });
}

void winChangeAlias::pbCancel_Pressed() {
    Guard::run(controlEvent("pbCancel", "Pressed"), [this] { reject(); });
}
