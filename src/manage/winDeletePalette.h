#pragma once
#include <QDialog>

class ccPalettePreview;
class QLabel;
class QPushButton;

// Deletes the active palette after a second confirmation. Its pictures are kept on the Desktop,
// its slot becomes free for the next new palette, and P00 becomes the active palette.
class winDeletePalette : public QDialog {
    Q_OBJECT

public:
    explicit winDeletePalette(QWidget* parent = nullptr);

    ccPalettePreview* preview; // cnBut00 ... cnBut12 and their pictures myPict00 ... myPict12
    QLabel* labInfo;
    QLabel* labNmID;
    QLabel* labNameID;
    QLabel* labNmAls;
    QLabel* labNameAlias;
    QLabel* labWinTit;
    QLabel* labWindowTitle;
    QPushButton* pbHelpDelPal;
    QPushButton* pbCancel;
    QPushButton* pbDelete;

    void Event_Opening();
    void pbDelete_Pressed();
    void pbCancel_Pressed();

    static const QString kConfirm;
    static const QString kKeepP00;
};
