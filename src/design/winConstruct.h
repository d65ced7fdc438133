#pragma once
#include <QDialog>
#include <QList>
#include <map>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;
class ccDataIntUpDown;
class ccDataStrUpDown;
class ccGC;
class labInfo;
class labZor;

// The design window of the active palette. Its upper left half shapes the palette as a whole;
// its lower right half edits one button at a time, in fields that are only a scratch copy until
// OK. Only one half is live at a time. It works on the store's working set and writes no file
// of its own, but a button's picture, chosen, dropped on its cell or removed, changes at once.
class winConstruct : public QDialog {
    Q_OBJECT
public:
    explicit winConstruct(QWidget* parent = nullptr);
    ~winConstruct() override;

    void Event_Opening();

    // palette half
    void SetEntireRowVisibilty(int row, bool vis);
    void DefaultOutsideUsedGrid();
    void AssignShortcut();
    void AssignNoShortcut();
    int ShortcutStatus() const; // 0 none, 1 some, 2 all of the used grid (at most its first 52)
    void PaletteGlobalActive(bool active);
    void RefreshCell(int index);
    void RefreshAllCells();
    void ccRowUpDown_Open_Instance();
    void ccColUpDown_Open_Instance();
    void ccRowUpDown_ValueChanged();
    void ccColUpDown_ValueChanged();
    void tfWinTitle_TextChanged();
    void tfWinTitle_FocusLost();
    void taParticulars_FocusLost();
    void pbAssignShortcuts_Pressed();
    void pbAssignNoShortcut_Pressed();
    void pbAllVisibleOnButton_Pressed();
    void pbHelpGridCon_Pressed();
    void pbDone_Pressed();

    // button half
    void GridClicked(int index);
    void EditButton(int index);
    void BlankOutEditButton();
    void InputEnabling();
    void ButtonSpecificationLabel();
    static QString AS_HasCorrectCharacters(const QString& text);
    static QString PaletteGoMakeAcceptable(const QString& text);
    static bool IsAppleScriptNameExist(const QString& name);
    static QString cleanWindowTitle(const QString& text, const QString& paletteName);
    static const QString kScriptOutsideFolder;
    void tfAS_TextChanged();
    void tfAS_FocusLost();
    void tfSC_FocusLost();
    void tfPaletteGo_TextChanged();
    void tfPaletteGo_FocusLost();
    void cbKM_ValueChanged();
    void cbVisOnBtn_ValueChanged();
    void ccShortcutUpDown_Open_Instance();
    void ccShortcutUpDown_ValueChanged();
    void fieldChanged(); // the change rule of the fields that are not an action
    void pbOK_Pressed();
    void pbCancel_Pressed();
    void pbChooseAS_Pressed();
    void fillPaletteList();        // as the list of pbPaletteList opens
    void paletteChosen(int index); // from that list
    void pbCopyMacro_Pressed();
    // The button's picture: shown in the button half, chosen, dropped on a cell, removed.
    void showButtonPicture();
    void pbChoosePicture_Pressed();
    void pbRemovePicture_Pressed();
    void pictureDropped(int index, const QString& file);

    bool visibleOnButton = false;
    QList<ccGC*> accGC;
    bool editingGridButton = false;

    // palette half and frame
    QLabel* labPaleSpec;
    ccDataIntUpDown* ccRowUpDown;
    ccDataIntUpDown* ccColUpDown;
    labZor* labKeybrdShort;
    QPushButton* pbAssignShortcuts;
    QPushButton* pbAssignNoShortcut;
    QPushButton* pbAllVisibleOnButton;
    labInfo* labAllShortcut;
    QWidget* rectInvisible;
    QLabel* labInvisible;
    labZor* labPalette;
    QLabel* labNameID;
    labZor* labNmAls;
    QLabel* labNameAlias; // elided to its width, whole in its tooltip
    labZor* labWinTitle;
    QLineEdit* tfWinTitle;
    labZor* labPalePart;
    QPlainTextEdit* taParticulars;
    QPushButton* pbHelpGridCon;
    QPushButton* pbDone;
    QWidget *cnvTop, *cnvBottom, *cnvLeft;

    // button half
    QLabel* labButtSpec;
    labZor* mabButton;
    QLabel* labID;
    QCheckBox* cbVisibleBtn;
    labInfo* labKB_ShortcutInfo;
    ccDataStrUpDown* ccShortcutUpDown;
    QLabel* labShortcut;
    QCheckBox* cbVisOnBtn;
    labZor* labTip;
    QLineEdit* tfTip;
    labZor* labInformation;
    QPlainTextEdit* taInfo;
    labZor* labPicture;
    QLabel* cnvPicture; // the button's picture, at most 64 x 64
    QLabel* labPictureFile;
    QPushButton* pbChoosePicture;
    QPushButton* pbRemovePicture;
    QLabel* cnvKM;
    labZor* labKM;
    QCheckBox* cbKM;
    QLabel* labMacroName; // the Keyboard Maestro macro a button runs: "ZOR P00 05"
    QPushButton* pbCopyMacro;
    QLabel* cnvAS;
    labZor* labAppleScript;
    QLineEdit* tfAS;
    QPushButton* pbChooseAS;
    labZor* labZorAS_NotExist;
    QLabel* cnvSC;
    labZor* labMacShortcuts;
    QLineEdit* tfSC;
    labZor* labZorSC_NotExist;
    labZor* labZorPaletteSwitch;
    QLineEdit* tfPaletteGo;
    QToolButton* pbPaletteList; // the palettes in use, by number and alias
    labZor* labZorPaletteNum_NotExist;
    labZor* labAutoMin;
    QComboBox* pumAutoMin;
    labInfo* labButtonVis;
    QCheckBox* cbUseClip;
    QPushButton* pbCancel;
    QPushButton* pbOK;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildPaletteHalf();
    void buildButtonHalf();
    void buildFrame();
    void okOn(bool on); // OK on and Done off, or the reverse
    void setShortcutColour(const QColor& colour);
    void endEdit(); // what OK and Cancel share once the button is dealt with
    // A press on a button takes no focus on the Mac: the field being typed in is left first.
    void fieldLeft(QObject* field);
    // The stored value of the loaded button's field, as `field` was loaded from it.
    QString loaded(const QWidget* field) const;
    // Offers the names of the user's Shortcuts in tfSC, asked of the Mac once per opening.
    void offerShortcutNames();
    void takePicture(int index, const QString& file);
    void buildPictureRow();
    bool opened = false;
    bool shortcutNamesOffered = false;
    std::map<const QWidget*, QString> shownAtLoad; // what each field showed once loaded
};
