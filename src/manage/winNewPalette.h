#pragma once
#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// Asks for the one thing a new palette needs, its alias; everything else takes the defaults and
// is designed afterwards in Grid Construct. The new palette is shown at once.
class winNewPalette : public QDialog {
    Q_OBJECT

public:
    explicit winNewPalette(QWidget* parent = nullptr);

    QLabel* labInfo;
    QLabel* labNmAls;
    QLineEdit* tfAlias;
    QPushButton* pbHelpNewPal;
    QPushButton* pbCancel;
    QPushButton* pbOK;

    void Event_Opening();
    void pbOK_Pressed();
    void pbCancel_Pressed();

    static const QString kAllInUse;
};
