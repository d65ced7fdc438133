#pragma once
#include "pictures/PictureCache.h"
#include "store/PaletteView.h"

#include <QList>
#include <QSet>
#include <QMainWindow>
#include <QPixmap>
#include <array>
#include <functional>
#include <memory>

class MainMenuBar;
class QAction;
class cnBut;
class labZor;
class labZorVisible;
class QLabel;
class QMenu;
class QTimer;

// The palette window: the grid of 100 canvases and the information bar at its foot. It is the
// one window that stays open; closing it saves the store and ends the program.
class winMain : public QMainWindow, public PaletteView {
    Q_OBJECT
public:
    static constexpr int kCell = 64;
    static constexpr int kBarHeight = 30;

    explicit winMain(QWidget* parent = nullptr);
    ~winMain() override;

    void Event_Opening();
    bool Event_Closing(); // true when the store was written

    // PaletteView
    void EraseAllPictures() override;
    void RedrawGrid() override;
    void setPaletteTitle(const QString& title) override;
    void setRestingTexts(const QString& alias, const QString& name) override;
    QRect windowRect() const override;

    // canvas events, by the canvas's index
    void cnBut_Paint(cnBut& canvas, QPainter& g);
    void cnBut_MouseEnter(int index);
    void cnBut_MouseExit(int index);
    bool cnBut_MouseDown(int index);
    void cnBut_MouseUp(int index, Qt::KeyboardModifiers modifiers);
    // A right-click or Control-click: the button's menu, "Edit Button…" and "Choose Picture…".
    void cnBut_Menu(int index, const QPoint& where);
    // A file dropped on a button, or chosen from its menu: a copy becomes the button's picture.
    void cnBut_TakePicture(int index, const QString& file);
    // "Edit Button…": Grid Construct opened on that button; the application binds it at start-up.
    std::function<void(int)> editButton;
    void tiMinimize_Action();
    void tiWarmAhead_Action();
    QString LabTipText(int index);
    // The palettes whose pictures are decoded ahead, nearest first: Cmd+0 to Cmd+9, then those the
    // shown palette's buttons switch to, then the rest.
    QList<qint64> palettesToWarm() const;
    void labSeeNum_MouseUp();

    bool Event_KeyDown(const QString& key);
    void Event_MenuBarSelected();
    // A menu item and what it does. The table of them is the application's, bound at start-up:
    // until then an item does nothing.
    struct MenuEntry {
        QAction* item;
        std::function<void()> handler;
    };
    void AddMenuHandlers(const QList<MenuEntry>& table);

    QList<int> hasPicture;
    const QPixmap BlankPic; // never assigned: stands for no picture

    std::array<cnBut*, 100> cnButs{};
    QWidget* rectBackgroundTip = nullptr;
    labZor* labTip = nullptr;
    labZorVisible* labSeeSC = nullptr;
    QLabel* labSeeNum = nullptr;
    QTimer* tiMinimize = nullptr;
    QTimer* tiWarmAhead = nullptr; // a moment after a redraw: the pictures of the other palettes
    MainMenuBar* mainMenuBar = nullptr;
    QMenu* buttonMenu = nullptr; // a button's menu; menuButton is the button it was opened on
    int menuButton = -1;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void sizeToGrid(int width, int height);
    QSize gridAreaSize() const; // the grid and its bar for the active palette
    QSize shownArea;            // gridAreaSize() when the grid was last drawn
    void fireChain(int index);
    void fillBar(const QColor& colour);
    void setTipFontSize(int points); // 0: the system's default size
    void showButtonInformation(int index);
    void reportPicturesNotShown(const QStringList& lines); // one message, "name: why." a line
    int menuBarOffset() const;
    const QFont numberFont, letterFont;         // of the canvases' numbers and shortcut letters
    QRectF numberBox;                           // where a canvas's number stands, measured at the first paint
    std::unique_ptr<MainMenuBar> globalMenuBar; // the Mac's bar, which no window owns
    PictureCache pictures;
    QSet<QString> badPictures; // files named like pictures that cannot be shown, reported once per run
    QWidget* gridArea = nullptr;
    bool closing = false;
};
