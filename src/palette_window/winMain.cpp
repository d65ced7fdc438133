#include "palette_window/winMain.h"

#include "palette_window/cnBut.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/StringUtils.h"
#include "util/WinScrn.h"
#include "util/ZorError.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QTimer>

namespace {
Guard::Where windowEvent(const char* event) { return Guard::Where::windowEvent("winMain", event); }
Guard::Where windowMethod(const char* method) { return Guard::Where::windowMethod("winMain", method); }
Guard::Where canvasEvent(const char* event) { return Guard::Where::controlEvent("winMain", "cnBut", event); }

const QColor kBarYellow(0xFE, 0xFF, 0x96);
const QColor kShortcutOrange(0xDC, 0x6E, 0x00);
constexpr int kMinWidth = 64, kMinHeight = 94, kMaxWidth = 640, kMaxHeight = 670;

QLabel* barLabel(QWidget* parent, const char* name, int left, int width) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(left, 0, width, winMain::kBarHeight);
    return label;
}
} // namespace

winMain::winMain(QWidget* parent) : QMainWindow(parent) {
    setObjectName("winMain");
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinimizeButtonHint);
    setWindowTitle("ZOR_Palette");
    palette = new QWidget(this);
    palette->setObjectName("palette");
    setCentralWidget(palette);
    for (int i = 0; i < 100; ++i) cnButs[size_t(i)] = new cnBut(this, i, palette);

    rectBackgroundTip = new QWidget(palette);
    rectBackgroundTip->setObjectName("rectBackgroundTip");
    rectBackgroundTip->setAutoFillBackground(true);
    labSeeNum = barLabel(palette, "labSeeNum", 0, 45);
    labSeeNum->setFont(QFont("Menlo", 12));
    labTip = barLabel(palette, "labTip", 44, 578);
    labSeeSC = barLabel(palette, "labSeeSC", 620, 20);
    QFont shortcutFont("Menlo", 18);
    shortcutFont.setBold(true);
    labSeeSC->setFont(shortcutFont);

    tiMinimize = new QTimer(this);
    tiMinimize->setObjectName("tiMinimize");
    tiMinimize->setSingleShot(true);
    tiMinimize->setInterval(1000);

    // Cmd+Q on the Mac, Ctrl+Q elsewhere: the quit passes through the closing step.
    auto* quit = new QAction("Quit", this);
    quit->setObjectName("miQuit");
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setShortcutContext(Qt::ApplicationShortcut);
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);

    ZOR::RegisterView(this);
}

winMain::~winMain() {
    if (ZOR::View() == this) ZOR::RegisterView(nullptr);
}

void winMain::Event_Opening() {
    Guard::run(windowEvent("Opening"), [this] {
        for (const char* folder : {"ButtonPictures", "Apple_Scripts", "EmergencyPreserveStateBU"})
            FileTools::CreateFolderInAppSupport(folder);
        RedrawGrid();
        SetPaletteTitle(ZOR::paleWinTitle);
        QPalette colours = rectBackgroundTip->palette();
        colours.setColor(QPalette::Window, kBarYellow);
        rectBackgroundTip->setPalette(colours);
        // A rectangle of no size was never saved (first start); screens without a menu bar
        // would otherwise accept it at 0, 0.
        const bool stored = ZOR::initialWinWidth > 0 && ZOR::initialWinHeight > 0;
        if (stored && WinScrn::IsWithinMainScreenTLBR(ZOR::initialWinTop, ZOR::initialWinLeft, ZOR::initialWinHeight,
                                            ZOR::initialWinWidth)) {
            SizeToGrid(int(ZOR::initialWinWidth), int(ZOR::initialWinHeight) - menuBarOffset());
            // The client area's rectangle, as it is saved: frames differ between window managers.
            setGeometry(int(ZOR::initialWinLeft), int(ZOR::initialWinTop), width(), height());
        }
        SetRestingTexts(ZOR::paleAlias, ZOR::paleName);
    });
}

int winMain::menuBarOffset() const {
    // Where the menu bar sits in the window (Linux), the grid and its bar stand below it.
    const QMenuBar* bar = findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
    return bar && !bar->isNativeMenuBar() && !bar->actions().isEmpty() ? bar->sizeHint().height() : 0;
}

void winMain::SizeToGrid(int width, int height) {
    width = std::clamp(width, kMinWidth, kMaxWidth);
    height = std::clamp(height, kMinHeight, kMaxHeight);
    palette->setFixedSize(width, height);
    setFixedSize(width, height + menuBarOffset());
}

void winMain::RedrawGrid() {
    Guard::run(windowMethod("RedrawGrid"), [this] {
        const QString folder = AppGlobals::folderPathButFolder + '/' + ZOR::paleName;
        QStringList names;
        if (!ZOR::paleName.isEmpty()) FileTools::FolderFilesToArray(folder, names);
        names.sort();
        hasPicture.clear();
        for (const QString& name : names) {
            const QString digits = name.left(2);
            if (digits.size() < 2 || !StringUtils::IsPosInteger(digits)) continue;
            const int n = digits.toInt();
            hasPicture.append(n);
            QImageReader reader(folder + '/' + name);
            const QImage picture = reader.read();
            if (picture.isNull())
                throw IOException("The picture " + name + " could not be opened: " + reader.errorString());
            cnButs[size_t(n)]->SetBackdrop(QPixmap::fromImage(picture));
        }
        const int rows = int(ZOR::numRows), columns = int(ZOR::numColumns);
        SizeToGrid(columns * kCell, rows * kCell + kBarHeight);
        const int barTop = std::clamp(rows * kCell, 0, palette->height() - kBarHeight);
        for (QWidget* w : {static_cast<QWidget*>(labSeeNum), static_cast<QWidget*>(labSeeSC),
                           static_cast<QWidget*>(labTip), rectBackgroundTip})
            w->move(w->x(), barTop);
        rectBackgroundTip->resize(palette->width(), kBarHeight);
        labTip->resize(std::max(0, palette->width() - 62), kBarHeight);
        labSeeSC->move(palette->width() - 20, barTop);
        rectBackgroundTip->lower();
        for (size_t i = 0; i < 100; ++i)
            cnButs[i]->setVisible(i < ZOR::aBtn->size() ? (*ZOR::aBtn)[i]->Vis : false);
    });
}

void winMain::EraseAllPictures() {
    Guard::run(windowMethod("EraseAllPictures"), [this] {
        for (cnBut* canvas : cnButs) {
            canvas->SetBackdrop(BlankPic);
            canvas->repaint();
        }
    });
}

void winMain::SetPaletteTitle(const QString& title) { setWindowTitle(title); }

void winMain::SetRestingTexts(const QString& alias, const QString& name) {
    labTip->setText(alias);
    labSeeNum->setText(name);
}

QRect winMain::WindowRect() const { return geometry(); }

void winMain::cnBut_Paint(cnBut& canvas, QPainter& g) {
    Guard::run(canvasEvent("Paint"), [&] {
        QFont numberFont("Helvetica", 24);
        g.setFont(numberFont);
        const QFontMetricsF metrics(numberFont);
        const qreal w = metrics.horizontalAdvance("01");
        const qreal h = metrics.boundingRect(QRectF(0, 0, canvas.width(), 1000), Qt::TextWordWrap, "01").height();
        const qreal x = (canvas.width() - w) / 2, y = (canvas.height() - h) / 2;
        const int index = canvas.Index();
        if (!hasPicture.contains(index))
            g.drawText(QPointF(x, y + h - metrics.descent()), QStringLiteral("%1").arg(index, 2, 10, QLatin1Char('0')));
        g.setFont(QFont("Menlo", 12));
        if (size_t(index) >= ZOR::aBtn->size()) return;
        const Btn& b = *(*ZOR::aBtn)[size_t(index)];
        if (b.ShortcutShow && b.Shortcut != kNoShortcut) {
            g.fillRect(QRect(canvas.width() - 13, canvas.height() - 13, 13, 13), QColor(255, 255, 255, 255 - 75));
            g.setPen(kShortcutOrange);
            g.drawText(QPointF(canvas.width() - 10, canvas.height() - 3), b.Shortcut);
        }
    });
}

void winMain::cnBut_MouseEnter(int) {}
void winMain::cnBut_MouseExit(int) {}
void winMain::cnBut_MouseDown(int) {}
void winMain::cnBut_MouseUp(int) {}

bool winMain::Event_Closing() {
    return Guard::run(windowEvent("Closing"), [this] {
        const QRect now = WindowRect();
        const bool geometryChanged = now.top() != ZOR::initialWinTop || now.left() != ZOR::initialWinLeft ||
                                     now.height() != ZOR::initialWinHeight || now.width() != ZOR::initialWinWidth;
        const bool changed = ZOR::paletteContentChange || ZOR::paletteActiveChange || geometryChanged;
        if (!changed || !ZOR::QuitSavePaletteChanges || ZOR::dataFileUnreadable) return false;
        ZOR::SavePaletteToDP();
        const QString text = ZOR::JSON_CreateData();
        if (!FileTools::StringToFileItem(text, ZOR::kDataFileName, AppGlobals::appSupportFolder)) return false;
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
