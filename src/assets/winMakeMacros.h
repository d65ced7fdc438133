#pragma once
#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class QTreeWidget;

// The Keyboard Maestro macros of the active palette: for each button marked Keyboard Maestro, the
// name of the macro it runs and whether Keyboard Maestro has that macro ("exists"), has none
// ("missing") or has several that it cannot tell apart ("more than one"). Make Missing Macros
// has the editor make the missing ones, empty, in the palette's macro group; nothing that exists
// in Keyboard Maestro is changed.
class winMakeMacros : public QDialog {
    Q_OBJECT
public:
    // `macroNames`: the name of every macro Keyboard Maestro has, as the editor gave them.
    explicit winMakeMacros(const QStringList& macroNames, QWidget* parent = nullptr);

    static const QString kExists;
    static const QString kMissing;
    static const QString kMoreThanOne;

    // Lists the palette's buttons against the editor's macro names.
    void ListMacros(const QStringList& macroNames);
    QStringList missingNames() const;
    void pbMake_Pressed();
    void pbDone_Pressed();

    QLabel* labPalette;
    QLabel* labGroup;
    QTreeWidget* lbMacros; // button number, macro name, state
    QLabel* labSummary;
    QLabel* labNote;
    QPushButton* pbHelpMakeMacros;
    QPushButton* pbMake;
    QPushButton* pbDone;
};

// From the Configure menu: asks the editor for its macros, then opens the window modally. When
// the editor cannot be asked, the user is told why and no window opens.
void showMakeMacros();
