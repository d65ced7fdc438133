#pragma once
#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class QTreeWidget;
class labZor;

// Keeps Apple_Scripts in order: what is in it, what is in the Desktop's AppleScriptWorkshop,
// and which buttons link to which script. Orange: a file no button links to; purple: a link
// with no file behind it.
class winManageAS : public QDialog {
    Q_OBJECT
public:
    explicit winManageAS(QWidget* parent = nullptr);

    static const QString kWorkshop;
    static const QString kTangerine;
    static const QString kLavender;
    // What stands behind the first "."; the whole name when there is no dot.
    static QString rsExtension(const QString& name);
    static bool isScript(const QString& name);

    void Event_Opening();
    void GetFilesAS_Fol();
    void BadFileExtension();
    void LB_LinkedAppleScript();
    void ColorDiscrepancies(int whichList);
    void ListboxRefresh();
    void GetFilesWorkshop();
    void AllListboxUnselect();

    // Each says whether it claimed the press.
    bool lbAppleScript_CellPressed(int row);
    bool lbWorkshop_CellPressed(int row);
    bool lbActiveAppleScripts_CellPressed(int row);
    void pbAddToDF_Pressed();
    void pbMoveToWorkshop_Pressed();
    void pbMoveToAppleScript_Pressed();
    void pbDone_Pressed();
    void pbHelpManageAS_Pressed();

    QStringList asAS_Fol;
    QStringList asNameAS;
    QStringList asWorkshop;

    QPushButton* pbAddToDF;
    labZor* labDF;
    QLabel* labAppleScript;
    QTreeWidget* lbAppleScript;
    QPushButton* pbMoveToWorkshop;
    QTreeWidget* lbWorkshop;
    QPushButton* pbMoveToAppleScript;
    QTreeWidget* lbRemoved;
    labZor* labLinked;
    QTreeWidget* lbActiveAppleScripts;
    QPushButton* pbDone;
    QPushButton* pbHelpManageAS;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString folderAS() const;
    QString folderWorkshop() const; // where it is or would be
};

// Opens the window modally from the palette window's menu.
void showManageAS();
