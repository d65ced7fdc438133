#pragma once
#include <QDialog>

class ccPalettePreview;
class QLabel;
class QLineEdit;
class QPushButton;

// Changes the active palette's alias and window title; its official name Pnn never changes.
// Unlike the design window it saves into the store at once.
class winChangeAlias : public QDialog {
    Q_OBJECT

public:
    explicit winChangeAlias(QWidget* parent = nullptr);

    ccPalettePreview* preview; // cnBut00 ... cnBut12 and their pictures myPict00 ... myPict12
    QLabel* labInfo;
    QLabel* labNmID;
    QLabel* labNameID;
    QLabel* labNmAls;
    QLineEdit* tfAlias;
    QLabel* labWinTit;
    QLineEdit* tfWinTitle;
    QPushButton* pbHelpChgAlias;
    QPushButton* pbCancel;
    QPushButton* pbMakeChange;

    void Event_Opening();
    void tfWinTitle_FocusLost();
    void pbMakeChange_Pressed();
    void pbCancel_Pressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
