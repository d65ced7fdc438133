#pragma once
#include "assets/ButtonPictureAudit.h"

#include <QDialog>
#include <QPixmap>
#include <memory>

class QLabel;
class AllButtonModel;
class QPushButton;
class QTreeView;
class QTreeWidget;
class cnPicture;
class labInfo;
class labZor;
class PaletteView;

// The pictures on the buttons: an audit of ButtonPictures at every opening, then review,
// removal and adding of the current palette's pictures.
class winButtonPics : public QDialog {
    Q_OBJECT
public:
    explicit winButtonPics(QWidget* parent = nullptr);
    ~winButtonPics() override;

    void Event_Opening();

    // The audit
    void PrepareWindow();
    void RemoveFilesInButtonFolder();
    void GetFoldersInButFolder();
    static bool IsNameOfButtonOK(const QString& name);
    void FillButtonGraphicListbox();

    // Editing
    void lbButPic_CellPressed(int row);
    void pbToDesktop_Pressed();
    void pbSelectPicToAdd_Pressed();
    void pbAdd_Pressed();
    void pbCancelAdd_Pressed();
    void pbDone_Pressed();
    void pbHelpButGraphics_Pressed(Qt::KeyboardModifiers modifiers);
    void CleanUpAddingPicture();

    std::unique_ptr<ButtonPictureAudit> audit; // asButFolders, asRemoved, diFile
    const QPixmap BlankPic;
    QString fiPictureToAdd;
    bool asSquareCopy = false; // the user chose a 64 x 64 copy of a picture of another size
    QString fiFolderPictureForPalette;
    QStringList removedByUser; // names Remove took out, listed after the audit's

    QLabel* labCurrentName;
    QLabel* labCurrentAlias;
    QTreeWidget* lbButPic;
    QLabel* labID;
    QLabel* labSelect;
    cnPicture* cnShow;
    QLabel *labRevHt, *labRevWth, *labRevHtValue, *labRevWthValue;
    QPushButton* pbToDesktop;
    QPushButton* pbSelectPicToAdd;
    labInfo* labRSelectPic;
    QLabel* labID_Add;
    QLabel* labPicToAdd;
    cnPicture* cnShowPicAdd;
    QLabel *labAddHt, *labAddWth, *labAddHtValue, *labAddWthValue;
    QPushButton* pbAdd;
    QPushButton* pbCancelAdd;
    QPushButton* pbDone;
    QPushButton* pbHelpButGraphics;
    labZor* labAllButton;
    QTreeView* lbAllButton;
    AllButtonModel* allButtonRows;
    labInfo* labRemove;
    QTreeWidget* lbRemoved;
    labZor* labPathButFolder;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void clearReview();
    void showRemovedRows();
};

// Opens the window modally from the palette window's menu.
void showButtonPictures();
