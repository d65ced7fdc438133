#include "manage/winSwitchPalette.h"

#include "help/HelpButton.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QApplication>
#include <QEventLoop>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

namespace {
const QString kWindow = QStringLiteral("winSwitchPalette");
Guard::Where windowEvent(const char* event) {
    return Guard::Where::windowEvent(kWindow, event);
}
Guard::Where controlEvent(const char* control, const char* event) {
    return Guard::Where::controlEvent(kWindow, control, event);
}

QLabel* label(QWidget* parent, const char* name, const QString& text, const QRect& geometry) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(name);
    l->setGeometry(geometry);
    return l;
}

// A user's text where the label has room for it, else cut at its end with "…" and shown whole in
// the label's tooltip.
void showFitted(QLabel* label, const QString& text) {
    const QString shown = label->fontMetrics().elidedText(text, Qt::ElideRight, label->width());
    label->setText(shown);
    label->setToolTip(shown == text ? QString() : text);
}

// What reaches the program's other windows while this one is open: taken as this window's keys, or
// refused as Qt refuses input behind a modal window.
bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

// The menus stay shut while this window is open, as behind any modal window (on the Mac, the bar at
// the top of the screen would otherwise stay live).
class MenusShut {
public:
    MenusShut() {
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* bar = qobject_cast<QMenuBar*>(widget))
                for (QAction* menu : bar->actions())
                    if (menu->isEnabled()) {
                        menu->setEnabled(false);
                        shut.append(menu);
                    }
    }
    ~MenusShut() {
        for (const QPointer<QAction>& menu : shut)
            if (menu) menu->setEnabled(true);
    }
    MenusShut(const MenusShut&) = delete;
    MenusShut& operator=(const MenusShut&) = delete;

private:
    QList<QPointer<QAction>> shut;
};

bool isModifierOnly(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return true;
    default:
        return false;
    }
}
} // namespace

winSwitchPalette::winSwitchPalette(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName(kWindow);
    resize(280, 500);
    setMinimumSize(280, 500);
    setMaximumSize(280, 800);

    QFont bold = font();
    bold.setBold(true);

    labCurrentAlias = label(this, "labCurrentAlias", "Untitled", {20, 12, 220, 24});
    labCurrentAlias->setAlignment(Qt::AlignCenter);
    QFont aliasFont = Fonts::sized("System", 16);
    aliasFont.setBold(true);
    labCurrentAlias->setFont(aliasFont);
    labCurrentAlias->setStyleSheet("color: #7980FF;");

    lbPalette = new QTreeWidget(this);
    lbPalette->setObjectName("lbPalette");
    lbPalette->setGeometry(20, 44, 240, 290);
    lbPalette->setColumnCount(2);
    lbPalette->setColumnWidth(0, 40);
    lbPalette->setHeaderHidden(true);
    lbPalette->setRootIsDecorated(false);
    lbPalette->setUniformRowHeights(true);
    lbPalette->setSelectionMode(QAbstractItemView::SingleSelection);
    lbPalette->header()->setStretchLastSection(true);

    labChoiceTitle = label(this, "labChoiceTitle", "Window Title", {20, 344, 240, 20});
    labChoiceTitle->setAlignment(Qt::AlignCenter);
    labChoiceName = label(this, "labChoiceName", "P_Name", {20, 370, 50, 20});
    labChoiceName->setFont(bold);
    labChoiceAlias = label(this, "labChoiceAlias", "Choice", {74, 370, 186, 20});
    labChoiceAlias->setFont(bold);

    labType = label(this, "labType", "XX", {20, 462, 40, 16});
    labType->setFont(Fonts::sized("System", 10));
    labType->setStyleSheet("color: #A9A9A9;");

    pbCancel = WindowFit::pushButton(this, "pbCancel", "Cancel", {110, 456, 70, 28});
    pbOK = WindowFit::pushButton(this, "pbOK", "OK", {190, 456, 70, 28});
    pbOK->setEnabled(false);
    // Return is a key like any other here: it clears a pending digit. Escape closes the window.
    pbOK->setAutoDefault(false);
    pbCancel->setAutoDefault(false);
    pbHelpSwiPal = HelpButton::make(this, "pbHelpSwiPal", 4, kWindow);

    tiBothDigits = new QTimer(this);
    tiBothDigits->setObjectName("tiBothDigits");
    tiBothDigits->setSingleShot(true);
    tiBothDigits->setInterval(2000);

    anchors.toAllSides(lbPalette);
    for (QWidget* w : std::initializer_list<QWidget*>{labChoiceTitle, labChoiceName, labChoiceAlias, labType,
                                                      pbCancel, pbOK})
        anchors.toLowerRight(w);

    connect(lbPalette, &QTreeWidget::itemPressed, this, [this](QTreeWidgetItem* item, int column) {
        lbPalette_CellPressed(lbPalette->indexOfTopLevelItem(item), column);
    });
    connect(pbOK, &QPushButton::clicked, this, &winSwitchPalette::pbOK_Pressed);
    connect(pbCancel, &QPushButton::clicked, this, &winSwitchPalette::pbCancel_Pressed);
    connect(tiBothDigits, &QTimer::timeout, this, &winSwitchPalette::tiBothDigits_Action);
    qApp->installEventFilter(this);

    Event_Opening();
}

winSwitchPalette::~winSwitchPalette() {
    qApp->removeEventFilter(this);
}

void winSwitchPalette::Event_Opening() {
    Guard::run(windowEvent("Opening"), [this] {
        labChoiceTitle->clear();
        labChoiceName->clear();
        labChoiceAlias->clear();
        lbPalette->clear();
        for (size_t i = 0; i < ZOR::DP.size(); ++i) {
            const PaletteDict& slot = ZOR::DP[i];
            if (slot.s_Alias == kNoShortcut) continue;
            auto* row = new QTreeWidgetItem(lbPalette, {slot.s_Name, slot.s_Alias});
            row->setData(0, Qt::UserRole, qint64(i));
            row->setToolTip(1, slot.s_Alias); // the list cuts a long alias with "…"
        }
        setWindowTitle("Switch Palette");
        firstTyped.clear();
        labType->clear();
        showFitted(labCurrentAlias, ZOR::paleAlias);
    });
}

int winSwitchPalette::exec() {
    // Keyboard Maestro types Cmd+P and the digits at once; the system hands them to the palette window
    // until this window has the focus, and Qt drops the keys of a window that a modal one blocks. So
    // this window is shown without Qt's modality, takes every key the program receives in the order
    // they come, and refuses the other windows' input itself.
    setWindowModality(Qt::NonModal);
    const MenusShut menus;
    show();
    raise();
    activateWindow();
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    if (isVisible()) loop.exec(QEventLoop::DialogExec);
    return result();
}

bool winSwitchPalette::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !isVisible() || !isInput(event->type())) return false;
    const bool ours = widget == this || isAncestorOf(widget);
    // A message this window shows is modal over it, and its input is its own.
    if (!ours && (QApplication::activeModalWidget() || QApplication::activePopupWidget())) return false;
    if (event->type() == QEvent::ShortcutOverride) {
        // No menu item answers its keys behind this window: each key comes here as a key press.
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return !ours;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (isModifierOnly(key->key())) return !ours;
    if (key->key() == Qt::Key_Escape) {
        pbCancel_Pressed();
        return true;
    }
    const bool commanded = key->modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier);
    return Event_KeyDown(commanded ? QString() : key->text());
}

bool winSwitchPalette::Event_KeyDown(const QString& key) {
    return Guard::run(windowEvent("KeyDown"), [&] {
        if (key.size() != 1 || key[0] < u'0' || key[0] > u'9') {
            firstTyped.clear();
            labType->clear();
            return true;
        }
        if (firstTyped.isEmpty()) {
            firstTyped = key;
            labType->setText(key);
            tiBothDigits->start();
            return true;
        }
        const QString text = firstTyped + key;
        labType->setText(text);
        const qint64 number = text.toLongLong();
        firstTyped.clear();
        labType->clear();
        if (!ZOR::IsPaletteExistant(number)) {
            Dialogs::message("The palette requested, P" + text + ", does not exist");
            return true;
        }
        // Typing the active palette's own number is answered by the switch itself.
        switchTo(number);
        return true;
    });
}

void winSwitchPalette::lbPalette_CellPressed(int row, int) {
    Guard::run(controlEvent("lbPalette", "CellPressed"), [&] {
        const QTreeWidgetItem* item = lbPalette->topLevelItem(row);
        if (!item) return;
        // The row knows its slot: aliases of a hand-edited file may repeat.
        choice = item->data(0, Qt::UserRole).toLongLong();
        const PaletteDict& slot = ZOR::DP[size_t(choice)];
        showFitted(labChoiceAlias, slot.s_Alias);
        labChoiceName->setText(slot.s_Name);
        showFitted(labChoiceTitle, slot.s_WinTitle);
        if (choice != ZOR::idxCP) {
            pbOK->setEnabled(true);
        } else {
            pbOK->setEnabled(false);
            Dialogs::message("This is the already chosen palette.");
        }
    });
}

void winSwitchPalette::pbOK_Pressed() {
    Guard::run(controlEvent("pbOK", "Pressed"), [this] { switchTo(choice); });
}

void winSwitchPalette::pbCancel_Pressed() {
    Guard::run(controlEvent("pbCancel", "Pressed"), [this] { reject(); });
}

void winSwitchPalette::tiBothDigits_Action() {
    Guard::run(controlEvent("tiBothDigits", "Action"), [this] {
        firstTyped.clear();
        labType->clear();
    });
}

void winSwitchPalette::switchTo(qint64 index) {
    ZOR::ChangeToPalette(index);
    accept();
}

void winSwitchPalette::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
