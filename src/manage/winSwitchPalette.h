#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTimer;
class QTreeWidget;

// Chooses another palette from the list of palettes in use, or by two typed digits: the way
// Keyboard Maestro switches palettes (Cmd+P, then the digits), so the typed path needs no click.
class winSwitchPalette : public QDialog {
    Q_OBJECT

public:
    explicit winSwitchPalette(QWidget* parent = nullptr);
    ~winSwitchPalette() override;

    QString firstTyped; // the first digit typed; empty when none is pending

    QLabel* labCurrentAlias;
    QTreeWidget* lbPalette;
    QLabel* labChoiceTitle;
    QLabel* labChoiceName;
    QLabel* labChoiceAlias;
    QPushButton* pbCancel;
    QPushButton* pbOK;
    QLabel* labType;
    QPushButton* pbHelpSwiPal;
    QTimer* tiBothDigits;

    // Runs the window until it closes, as a modal window does; see the definition for why it is not one.
    int exec() override;

    void Event_Opening();
    bool Event_KeyDown(const QString& key); // true: the key was consumed
    void lbPalette_CellPressed(int row, int column);
    void pbOK_Pressed();
    void pbCancel_Pressed();
    void tiBothDigits_Action();

protected:
    // Keys are heard here whatever control or window has the focus, before that control sees them.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void switchTo(qint64 index);
    qint64 choice = -1; // the slot of the row last pressed
    WindowFit::Anchors anchors{{280, 500}};
};
