#include "palette_window/winMain.h"

#include "actions/Launchers.h"
#include "help/GeneralMethods.h"
#include "help/HelpLabels.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/cnBut.h"
#include "pictures/ButtonPictureFiles.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/Fonts.h"
#include "util/Guard.h"
#include "util/MenuBars.h"
#include "util/StringUtils.h"
#include "util/WinScrn.h"
#include "util/ZorError.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QFontMetricsF>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QTimer>

namespace {
Guard::Where windowEvent(const char* event) { return Guard::Where::windowEvent("winMain", event); }
Guard::Where windowMethod(const char* method) { return Guard::Where::windowMethod("winMain", method); }
Guard::Where canvasEvent(const char* event) { return Guard::Where::controlEvent("winMain", "cnBut Set", event); }
Guard::Where menuHandler(const QString& item) {
    return Guard::Where::windowMethod("winMain", "_" + item + "_Action");
}

const QString kNoActionText = QStringLiteral(
    "This button is not active. To change this, edit it in Grid Construct so either Keyboard Maestro is checked or "
    "AppleScript or Shortcut or Palette Change has been specified.");

// A hand-edited data file may hold texts of any length; the windows show only what they can.
constexpr qsizetype kTipShown = 1000;   // more than the bar can ever show
constexpr qsizetype kInfoShown = 5000;  // well above the 2000 Grid Construct lets one type

// The first `count` UTF-16 units of `text`, one fewer where the last would split a character.
QString leftWhole(const QString& text, qsizetype count) {
    if (text.size() <= count) return text;
    if (count > 0 && text.at(count - 1).isHighSurrogate()) --count;
    return text.left(count);
}

// A first start: the one palette the program made ("Original"), no button of which does anything
// yet. Until one does, the bar at rest tells where to begin in place of the palette's alias.
const QString kFirstStartHint = QStringLiteral("To begin, design this palette: Configure >> Grid Construct");
bool nothingDesignedYet() {
    const auto palettes = std::count_if(ZOR::DP.begin(), ZOR::DP.end(),
                                        [](const PaletteDict& p) { return p.s_Alias != kNoShortcut; });
    if (palettes != 1 || ZOR::paleAlias != QLatin1String("Original")) return false;
    return std::none_of(ZOR::aBtn->begin(), ZOR::aBtn->end(), [](const BtnRef& b) {
        return b->KM_Active || !b->ASfile.isEmpty() || !b->SCname.isEmpty() || !b->PaletteGo.isEmpty() ||
               !b->Tip.isEmpty() || !b->Info.isEmpty();
    });
}
QString restingTip(const QString& alias) {
    return nothingDesignedYet() ? kFirstStartHint : alias;
}

const QColor kBarYellow(0xFE, 0xFF, 0x96);   // at rest, Keyboard Maestro, no action
const QColor kBarBlue(0xE1, 0xFF, 0xFF);     // Shortcut
const QColor kBarRed(0xFF, 0xB3, 0xB0);      // AppleScript
const QColor kBarPurple(0xF0, 0xDB, 0xFF);   // palette switch
const QColor kLetterShown(0xDC, 0x6E, 0x00); // the letter is painted on the button too
const QColor kLetterHidden(0x79, 0x79, 0x79);
const QColor kShortcutOrange(0xDC, 0x6E, 0x00);
constexpr int kMinWidth = 64, kMinHeight = 94, kMaxWidth = 640, kMaxHeight = 670;

template <class Label> Label* barLabel(QWidget* parent, const char* name, int left, int width) {
    auto* label = new Label(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(left, 0, width, winMain::kBarHeight);
    return label;
}
} // namespace

winMain::winMain(QWidget* parent)
    : QMainWindow(parent), numberFont(Fonts::sized("Helvetica", 24)), letterFont(Fonts::sized("Menlo", 12)) {
    setObjectName("winMain");
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinimizeButtonHint);
    setWindowTitle("ZOR_Palette");
    gridArea = new QWidget(this);
    gridArea->setObjectName("gridArea");
    setCentralWidget(gridArea);
    for (int i = 0; i < 100; ++i) cnButs[size_t(i)] = new cnBut(this, i, gridArea);

    rectBackgroundTip = new QWidget(gridArea);
    rectBackgroundTip->setObjectName("rectBackgroundTip");
    rectBackgroundTip->setAutoFillBackground(true);
    labSeeNum = barLabel<QLabel>(gridArea, "labSeeNum", 0, 45);
    labSeeNum->setFont(Fonts::sized("Menlo", 12));
    labTip = barLabel<labZor>(gridArea, "labTip", 44, 578);
    labTip->setID(5);
    labTip->setEnterColor(QColor(0x94, 0x11, 0x00));
    labTip->setExitColor(QColor(0x94, 0x52, 0x00));
    labTip->setRequireShift(true);
    labSeeSC = barLabel<labZorVisible>(gridArea, "labSeeSC", 620, 20);
    labSeeSC->setID(3);
    labSeeSC->setEnterColor(QColor(0x00, 0x96, 0xFF));
    labSeeSC->setExitColor(QColor(0xFF, 0x93, 0x00));
    labSeeSC->invisibleDefaultText = "*";
    QFont shortcutFont = Fonts::sized("Menlo", 18);
    shortcutFont.setBold(true);
    labSeeSC->setFont(shortcutFont);

    tiMinimize = new QTimer(this);
    tiMinimize->setObjectName("tiMinimize");
    tiMinimize->setSingleShot(true);
    tiMinimize->setInterval(1000);

    connect(tiMinimize, &QTimer::timeout, this, &winMain::tiMinimize_Action);
    tiWarmAhead = new QTimer(this);
    tiWarmAhead->setObjectName("tiWarmAhead");
    tiWarmAhead->setSingleShot(true);
    tiWarmAhead->setInterval(500);
    connect(tiWarmAhead, &QTimer::timeout, this, &winMain::tiWarmAhead_Action);
    labSeeNum->installEventFilter(this);

    if (MenuBars::global()) {
        // The application's bar at the top of the screen, owned by no window.
        globalMenuBar = std::make_unique<MainMenuBar>(nullptr);
        mainMenuBar = globalMenuBar.get();
    } else {
        mainMenuBar = new MainMenuBar(this);
        setMenuBar(mainMenuBar);
    }
    // The File menu is hidden; its Quit (Cmd+Q, Ctrl+Q elsewhere) still answers from the window.
    addAction(mainMenuBar->FileQuit);
    connect(mainMenuBar, &MainMenuBar::aboutToShowAnyMenu, this, &winMain::Event_MenuBarSelected);

    ZOR::registerView(this);
}

winMain::~winMain() {
    if (ZOR::view() == this) ZOR::registerView(nullptr);
}

void winMain::Event_Opening() {
    Guard::run(windowEvent("Opening"), [this] {
        for (const char* folder : {"ButtonPictures", "Apple_Scripts", "EmergencyPreserveStateBU"})
            FileTools::CreateFolderInAppSupport(folder);
        RedrawGrid();
        setPaletteTitle(ZOR::paleWinTitle);
        // A rectangle of no size was never saved (first start); screens without a menu bar
        // would otherwise accept it at 0, 0.
        const bool stored = ZOR::initialWinWidth > 0 && ZOR::initialWinHeight > 0;
        if (stored && WinScrn::IsWithinMainScreenTLBR(ZOR::initialWinTop, ZOR::initialWinLeft, ZOR::initialWinHeight,
                                            ZOR::initialWinWidth)) {
            sizeToGrid(int(ZOR::initialWinWidth), int(ZOR::initialWinHeight) - menuBarOffset());
            // The client area's rectangle, as it is saved: frames differ between window managers.
            setGeometry(int(ZOR::initialWinLeft), int(ZOR::initialWinTop), width(), height());
        }
        setRestingTexts(ZOR::paleAlias, ZOR::paleName);
    });
}

int winMain::menuBarOffset() const {
    // Where the menu bar sits in the window (Linux), the grid and its bar stand below it.
    return mainMenuBar && !mainMenuBar->isNativeMenuBar() ? mainMenuBar->sizeHint().height() : 0;
}

void winMain::sizeToGrid(int width, int height) {
    width = std::clamp(width, kMinWidth, kMaxWidth);
    height = std::clamp(height, kMinHeight, kMaxHeight);
    gridArea->setFixedSize(width, height);
    setFixedSize(width, height + menuBarOffset());
}

QSize winMain::gridAreaSize() const {
    // A hand-edited file may hold any count; the window's size keeps to the grid's.
    const int rows = int(std::clamp<qint64>(ZOR::numRows, 0, 10));
    const int columns = int(std::clamp<qint64>(ZOR::numColumns, 0, 10));
    return {std::clamp(columns * kCell, kMinWidth, kMaxWidth),
            std::clamp(rows * kCell + kBarHeight, kMinHeight, kMaxHeight)};
}

void winMain::RedrawGrid() {
    Guard::run(windowMethod("RedrawGrid"), [this] {
        const auto files = buttonPictureFiles(palettePictureFolder(ZOR::paleName));
        QStringList paths;
        for (const auto& file : files)
            paths << file.second;
        pictures.prefetch(paths);
        hasPicture.clear();
        QStringList cannotShow;
        for (const auto& [n, path] : files) {
            QString why;
            const QPixmap picture = pictures.load(path, &why);
            if (!picture.isNull()) {
                cnButs[size_t(n)]->setBackdrop(picture);
                hasPicture.append(n);
            } else if (!badPictures.contains(path)) {
                // One bad file must not leave the window half drawn: its button shows its number,
                // and it is told once per run, with the others of this redraw in one message.
                badPictures.insert(path);
                cannotShow << QFileInfo(path).fileName() + ": " + why + '.';
            }
        }
        if (!cannotShow.isEmpty()) reportPicturesNotShown(cannotShow);
        const int rows = int(std::clamp<qint64>(ZOR::numRows, 0, 10));
        shownArea = gridAreaSize();
        sizeToGrid(shownArea.width(), shownArea.height());
        const int barTop = std::clamp(rows * kCell, 0, gridArea->height() - kBarHeight);
        for (QWidget* w : {static_cast<QWidget*>(labSeeNum), static_cast<QWidget*>(labSeeSC),
                           static_cast<QWidget*>(labTip), rectBackgroundTip})
            w->move(w->x(), barTop);
        rectBackgroundTip->resize(gridArea->width(), kBarHeight);
        labTip->resize(std::max(0, gridArea->width() - 62), kBarHeight);
        labSeeSC->move(gridArea->width() - 20, barTop);
        // The bar stands over the canvases of the row below the grid, which the window's edge cuts.
        rectBackgroundTip->raise();
        for (QWidget* label : std::initializer_list<QWidget*>{labSeeNum, labTip, labSeeSC})
            label->raise();
        for (size_t i = 0; i < 100; ++i)
            cnButs[i]->setVisible(i < ZOR::aBtn->size() ? (*ZOR::aBtn)[i]->Vis : false);
        // Cmd+0 to Cmd+9 answer without the menu being opened: keep their state with the palette.
        Event_MenuBarSelected();
        tiWarmAhead->start();
    });
}

void winMain::reportPicturesNotShown(const QStringList& lines) {
    constexpr qsizetype kListed = 20;
    QString text = lines.size() == 1
                       ? "A picture of palette " + ZOR::paleName +
                             " cannot be shown, so its button shows its number:\n\n"
                       : QString::number(lines.size()) + " pictures of palette " + ZOR::paleName +
                             " cannot be shown, so their buttons show their numbers:\n\n";
    text += lines.mid(0, kListed).join('\n');
    if (lines.size() > kListed) text += "\n… and " + QString::number(lines.size() - kListed) + " more.";
    text += "\n\nButton Pictures, in the Configure menu, moves such files to " +
            AppGlobals::kRemovedPicturesFolder + " on the Desktop.";
    // Once the event loop runs: at a start the palette is on screen first, with those numbers.
    QTimer::singleShot(0, this, [text] { Dialogs::message(text); });
}

QList<qint64> winMain::palettesToWarm() const {
    QList<qint64> order;
    const auto add = [&](qint64 index) {
        if (index != ZOR::idxCP && !order.contains(index) && ZOR::IsPaletteExistant(index)) order << index;
    };
    for (qint64 k = 0; k <= 9; ++k) add(k); // Cmd+0 to Cmd+9
    for (const BtnRef& b : *ZOR::aBtn) {
        bool ok = false;
        const qint64 target = b->PaletteGo.trimmed().toLongLong(&ok);
        if (ok) add(target);
    }
    // Then every other palette, so that after a while of idling no first visit waits for its pictures.
    for (qint64 index = 0; index < qint64(ZOR::DP.size()); ++index) add(index);
    return order;
}

void winMain::tiWarmAhead_Action() {
    Guard::run(Guard::Where::controlEvent("winMain", "tiWarmAhead", "Action"), [this] {
        QStringList folders;
        for (qint64 index : palettesToWarm())
            folders << palettePictureFolder(ZOR::DP[size_t(index)].s_Name);
        pictures.warmAhead(folders);
    });
}

void winMain::EraseAllPictures() {
    Guard::run(windowMethod("EraseAllPictures"), [this] {
        // Each canvas is marked for repainting; the redraw that follows paints them in one pass.
        for (cnBut* canvas : cnButs) canvas->setBackdrop(BlankPic);
    });
}

void winMain::setPaletteTitle(const QString& title) {
    setWindowTitle(QString(title).replace(QChar(0), kNoShortcut)); // a NUL would end the title: shown as ␀
}

// The bar at rest, as no button under the pointer colours it: also after a switch made by a
// button, which leaves the pointer where it was.
void winMain::setRestingTexts(const QString& alias, const QString& name) {
    setTipFontSize(ZOR::numColumns < 4 ? 10 : 0);
    labTip->setText(restingTip(alias));
    QPalette black = labSeeNum->palette();
    black.setColor(QPalette::WindowText, Qt::black);
    labSeeNum->setPalette(black);
    labSeeNum->setText(name);
    labSeeSC->setText(QString());
    fillBar(kBarYellow);
}

// A switch or a new grid is saved before the window follows it: the size saved is then the one the
// window is about to take, so that the next start opens at it.
QRect winMain::windowRect() const {
    const QSize area = gridAreaSize();
    if (area == shownArea) return geometry();
    return {geometry().topLeft(), QSize(area.width(), area.height() + menuBarOffset())};
}

void winMain::cnBut_Paint(cnBut& canvas, QPainter& g) {
    Guard::run(canvasEvent("Paint"), [&] {
        // The same for every canvas: measured once, not at each of a hundred paints.
        if (numberBox.isNull()) {
            const QFontMetricsF metrics(numberFont);
            const qreal w = metrics.horizontalAdvance("01");
            const qreal h = metrics.boundingRect(QRectF(0, 0, kCell, 1000), Qt::TextWordWrap, "01").height();
            numberBox = QRectF((kCell - w) / 2, (kCell - h) / 2, w, h - metrics.descent());
        }
        const int index = canvas.Index();
        if (!hasPicture.contains(index)) {
            g.setFont(numberFont);
            g.drawText(numberBox.bottomLeft(), StringUtils::twoDigits(index));
        }
        if (size_t(index) >= ZOR::aBtn->size()) return;
        const Btn& b = *(*ZOR::aBtn)[size_t(index)];
        if (b.ShortcutShow && b.Shortcut != kNoShortcut) {
            g.setFont(letterFont);
            g.fillRect(QRect(canvas.width() - 13, canvas.height() - 13, 13, 13), QColor(255, 255, 255, 255 - 75));
            g.setPen(kShortcutOrange);
            g.drawText(QPointF(canvas.width() - 10, canvas.height() - 3), b.Shortcut);
        }
    });
}

void winMain::fillBar(const QColor& colour) {
    QPalette colours = rectBackgroundTip->palette();
    colours.setColor(QPalette::Window, colour);
    rectBackgroundTip->setPalette(colours);
}

void winMain::setTipFontSize(int points) {
    labTip->setFont(Fonts::sized("System", points));
}

void winMain::cnBut_MouseEnter(int index) {
    Guard::run(canvasEvent("MouseEnter"), [&] {
        if (size_t(index) >= ZOR::aBtn->size()) return;
        const Btn& b = *(*ZOR::aBtn)[size_t(index)];
        if (b.Vis) {
            // Later tests win: the order differs from the click chain on purpose.
            QColor colour = kBarYellow;
            if (!b.SCname.isEmpty()) colour = kBarBlue;
            if (!b.ASfile.isEmpty()) colour = kBarRed;
            if (!b.PaletteGo.isEmpty()) colour = kBarPurple;
            fillBar(colour);
        }
        labSeeNum->setText(ZOR::paleName + ' ' + StringUtils::twoDigits(index));
        labTip->setText(LabTipText(index));
        labSeeSC->setTextColour(b.ShortcutShow ? kLetterShown : kLetterHidden);
        labSeeSC->setText(b.Shortcut);
    });
}

void winMain::cnBut_MouseExit(int) {
    Guard::run(canvasEvent("MouseExit"), [&] { setRestingTexts(ZOR::paleAlias, ZOR::paleName); });
}

QString winMain::LabTipText(int index) {
    return Guard::run(windowMethod("LabTipText"), [&]() -> QString {
        if (ZOR::numColumns == 1) return {}; // no room for a tip
        bool narrow = ZOR::numColumns < 4;
        const int top = gridArea->height() - kBarHeight;
        labTip->move(labTip->x(), top);
        const QString tip = leftWhole((*ZOR::aBtn)[size_t(index)]->Tip, kTipShown);
        if (tip.isEmpty()) {
            setTipFontSize(0);
            return narrow ? "no tip" : "no tip for this button";
        }
        const double room = labTip->width();
        if (!narrow && StringUtils::MeasureString(tip, "System", 0) + 20 > room) narrow = true;
        if (narrow) {
            labTip->move(labTip->x(), top + 1);
            setTipFontSize(10);
            if (StringUtils::MeasureString(tip, "System", 0) + 10 > room)
                return StringUtils::RemoveWordToFit(tip, "System", 10, room - 10);
            return tip;
        }
        setTipFontSize(0);
        return tip;
    });
}

// Claiming the press is what brings the release to this canvas, wherever it happens.
bool winMain::cnBut_MouseDown(int) { return true; }

void winMain::cnBut_MouseUp(int index, Qt::KeyboardModifiers modifiers) {
    Guard::run(canvasEvent("MouseUp"), [&] {
        if (size_t(index) >= ZOR::aBtn->size()) return;
        if (modifiers & Qt::AltModifier) { // the Option key
            showButtonInformation(index);
            return;
        }
        const Btn& b = *(*ZOR::aBtn)[size_t(index)];
        if (b.ASfile.isEmpty() && b.SCname.isEmpty() && b.PaletteGo.isEmpty() && !b.KM_Active) {
            GeneralMethods::ShowTimed(kNoActionText, "No Action for Button", true, 12);
            return;
        }
        fireChain(index);
        // Read after the action: a palette switch takes the delay from the new palette's button.
        const qint64 delay = size_t(index) < ZOR::aBtn->size() ? (*ZOR::aBtn)[size_t(index)]->AutoMin * 1000 : 0;
        if (delay != 0) {
            tiMinimize->setInterval(int(delay));
            tiMinimize->start();
        }
    });
}

void winMain::fireChain(int index) {
    const Btn b = *(*ZOR::aBtn)[size_t(index)]; // a copy: a palette switch replaces the array
    if (!b.ASfile.isEmpty()) {
        ZOR::FireAS(ZOR::rsWithWithoutScpt(b.ASfile, true));
    } else if (!b.SCname.isEmpty()) {
        if (GeneralMethods::VersionOS_Major() < 12)
            Dialogs::message("You need a more recent operating system to deal with Shortcuts");
        else
            ZOR::FireSC(b.SCname);
    } else if (!b.PaletteGo.isEmpty()) {
        bool ok = false;
        const qint64 target = b.PaletteGo.trimmed().toLongLong(&ok);
        ZOR::ChangeToPalette(ok ? target : -1);
    } else if (ZOR::keyboardMaestroEngineRuns()) {
        ZOR::FireKM(ZOR::paleName, StringUtils::twoDigits(index));
    } else {
        Dialogs::message("Is Keyboard Maestro Engine running?. I cannot see that it is.");
    }
}

void winMain::showButtonInformation(int index) {
    const Btn& b = *(*ZOR::aBtn)[size_t(index)];
    QString text;
    for (const QString* candidate : {&b.Info, &b.Tip, &b.SCname, &b.ASfile})
        if (!candidate->isEmpty()) {
            text = *candidate;
            break;
        }
    if (text.isEmpty()) {
        Dialogs::message("No Additional Information about this button.");
        return;
    }
    if (text.size() > kInfoShown)
        text = leftWhole(text, kInfoShown) +
               "…\n\n(This text is too long to show whole: only its beginning is shown here.)";
    ZOR::idxCurrentBtn = index;
    AppGlobals::sGlobalMessage = text;
    GeneralMethods::ShowText(text, "Button Information");
}

void winMain::tiMinimize_Action() {
    Guard::run(Guard::Where::controlEvent("winMain", "tiMinimize", "Action"), [this] { showMinimized(); });
}

// labSeeNum: a click reloads the pictures, to pick up files placed in the folder from outside.
bool winMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == labSeeNum && event->type() == QEvent::MouseButtonPress) return true;
    if (watched == labSeeNum && event->type() == QEvent::MouseButtonRelease) {
        labSeeNum_MouseUp();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void winMain::labSeeNum_MouseUp() {
    Guard::run(Guard::Where::controlEvent("winMain", "labSeeNum", "MouseUp"),
               [this] { follow(Upto::Pictures); });
}

void winMain::keyPressEvent(QKeyEvent* event) {
    // Keys with Command (or Control) belong to the menus.
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier));
    if (plain && !event->text().isEmpty() && Event_KeyDown(event->text())) return;
    QMainWindow::keyPressEvent(event);
}

bool winMain::Event_KeyDown(const QString& key) {
    return Guard::run(windowEvent("KeyDown"), [&] {
        if (!ZOR::aAlphabetShortcut.contains(key)) {
            Dialogs::beep();
            return true;
        }
        const QString sID = ZOR::sID_FromShortcut(key);
        if (sID.size() != 2) {
            Dialogs::beep();
            return true;
        }
        const int row = sID[0].digitValue(), column = sID[1].digitValue();
        const int index = sID.toInt();
        // Nothing is handed to an engine that is not there to take it: the script would ask.
        if (row > ZOR::numRows - 1 || column > ZOR::numColumns - 1 || !cnButs[size_t(index)]->isVisible() ||
            !ZOR::keyboardMaestroEngineRuns()) {
            Dialogs::beep();
            return true;
        }
        FirePalette({ZOR::paleName, sID});
        return true;
    });
}

void winMain::AddMenuHandlers(const QList<MenuEntry>& table) {
    // Each handler runs through the common failure report, named after its item.
    for (const MenuEntry& entry : table)
        connect(entry.item, &QAction::triggered, this,
                [item = entry.item, action = entry.handler] { Guard::run(menuHandler(item->objectName()), action); });
}

void winMain::Event_MenuBarSelected() {
    Guard::run(windowEvent("MenuBarSelected"), [this] {
        const qint64 last = qint64(ZOR::DP.size()) - 1;
        auto& items = mainMenuBar->miPalette;
        items[0]->setEnabled(true);
        for (qint64 k = 1; k <= 9; ++k) items[size_t(k)]->setEnabled(k <= last);
        const qint64 top = std::min<qint64>(last, 9);
        for (qint64 k = 1; k <= top; ++k)
            if (ZOR::DP[size_t(k)].s_Alias == kNoShortcut) items[size_t(k)]->setEnabled(false);
        if (ZOR::idxCP >= 0 && ZOR::idxCP <= 9) items[size_t(ZOR::idxCP)]->setEnabled(false);
        for (qint64 k = 0; k <= top; ++k) {
            const PaletteDict& slot = ZOR::DP[size_t(k)];
            if (slot.s_Alias != kNoShortcut) items[size_t(k)]->setText(slot.s_Name + "     " + slot.s_Alias);
        }
        const bool particulars = ZOR::idxCP >= 0 && size_t(ZOR::idxCP) < ZOR::DP.size() &&
                                 !ZOR::DP[size_t(ZOR::idxCP)].s_Particulars.isEmpty();
        mainMenuBar->miPaletteParticulars->setEnabled(particulars);
    });
}

bool winMain::Event_Closing() {
    return Guard::run(windowEvent("Closing"), [this] {
        const QRect now = windowRect();
        const bool geometryChanged = now.top() != ZOR::initialWinTop || now.left() != ZOR::initialWinLeft ||
                                     now.height() != ZOR::initialWinHeight || now.width() != ZOR::initialWinWidth;
        const bool changed = ZOR::paletteContentChange || ZOR::paletteActiveChange || geometryChanged;
        if (!changed || !ZOR::saveStore()) return false;
        ZOR::PreserveStateBackUp(true, false);
        ZOR::RemoveFilesFromEmergencyBackup(2, 10);
        return true;
    });
}

void winMain::closeEvent(QCloseEvent* event) {
    if (!closing) {
        closing = true;
        Event_Closing();
        // Every other window goes too: closing the palette window is the end of the program.
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w != this && w->isVisible()) w->close();
    }
    event->accept();
}
