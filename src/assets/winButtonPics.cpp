#include "assets/winButtonPics.h"

#include "assets/AllButtonModel.h"
#include "assets/AssetControls.h"
#include "help/GeneralMethods.h"
#include "help/Help.h"
#include "help/HelpButton.h"
#include "help/HelpLabels.h"
#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureCache.h"
#include "pictures/PictureImport.h"
#include "pictures/PictureRead.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/Fonts.h"
#include "util/Guard.h"
#include "util/MenuBars.h"
#include "util/StdFolders.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QResizeEvent>
#include <QTreeWidget>

namespace {
const QString kWindow = QStringLiteral("winButtonPics");
const QString kReviewPicture = QStringLiteral("Review Picture");
const QString kMakeCopy = QStringLiteral("Make a 64 x 64 copy");
const QString kNameEnding =
    QStringLiteral("A button's picture must have a name that ends in .png, .jpeg or .jpg and holds no other dot, "
                   "such as 05 Mail.png. Rename the file in the Finder and choose it again.");

Guard::Where pressed(const char* control) {
    return Guard::Where::controlEvent(kWindow, QString::fromLatin1(control), QStringLiteral("Pressed"));
}

Guard::Where method(const char* name) {
    return Guard::Where::windowMethod(kWindow, QString::fromLatin1(name));
}

// The picture as its button would show it; a picture of any size decodes no larger than that.
QPixmap preview(const QString& path) {
    QString why;
    return QPixmap::fromImage(PictureRead::forButton(path, PictureCache::buttonSide(), &why));
}

void fill(QTreeWidget* list, const QStringList& rows) {
    list->clear();
    QList<QTreeWidgetItem*> items;
    for (const QString& row : rows)
        items << new QTreeWidgetItem(QStringList{row});
    list->addTopLevelItems(items);
}
} // namespace

winButtonPics::winButtonPics(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowMinimizeButtonHint) {
    using namespace AssetControls;
    setObjectName(kWindow);
    setMinimumSize(580, 620);
    setMaximumSize(600, 1200);
    resize(580, 620);

    labCurrentName = Label(this, "labCurrentName", {}, {12, 8, 200, 28});
    labCurrentName->setFont(Fonts::sized("System", 18));
    labCurrentAlias = Label(this, "labCurrentAlias", {}, {12, 36, 330, 20});

    lbButPic = listBox(this, "lbButPic", {}, {12, 62, 170, 226});
    connect(lbButPic, &QTreeWidget::itemPressed, this,
            [this](QTreeWidgetItem* item) { lbButPic_CellPressed(lbButPic->indexOfTopLevelItem(item)); });

    labID = Label(this, "labID", {}, {196, 62, 24, 20});
    QFont bold = labID->font();
    bold.setBold(true);
    labID->setFont(bold);
    labSelect = Label(this, "labSelect", kReviewPicture, {222, 62, 140, 20});
    cnShow = new cnPicture(this);
    cnShow->setObjectName("cnShow");
    cnShow->move(196, 88);
    labRevHt = Label(this, "labRevHt", "Ht", {268, 96, 30, 18});
    labRevHtValue = Label(this, "labRevHtValue", {}, {300, 96, 50, 18});
    labRevWth = Label(this, "labRevWth", "Wth", {268, 118, 30, 18});
    labRevWthValue = Label(this, "labRevWthValue", {}, {300, 118, 50, 18});
    labRevHt->hide();
    labRevWth->hide();
    pbToDesktop = new QPushButton("Remove", this);
    pbToDesktop->setObjectName("pbToDesktop");
    pbToDesktop->setGeometry(194, 162, 100, 28);
    pbToDesktop->setToolTip("The picture will be moved to the Desktop for potential future use.");
    pbToDesktop->setEnabled(false);

    pbSelectPicToAdd = new QPushButton("Select Picture To Add", this);
    pbSelectPicToAdd->setObjectName("pbSelectPicToAdd");
    pbSelectPicToAdd->setGeometry(372, 58, 170, 28);
    labRSelectPic = new labInfo(this);
    labRSelectPic->setObjectName("labRSelectPic");
    labRSelectPic->setText(QStringLiteral("ⓘ"));
    labRSelectPic->setGeometry(548, 62, 20, 20);
    labRSelectPic->setID(42);
    labID_Add = Label(this, "labID_Add", {}, {374, 92, 24, 20});
    labID_Add->setFont(bold);
    labPicToAdd = Label(this, "labPicToAdd", {}, {400, 92, 168, 20});
    cnShowPicAdd = new cnPicture(this);
    cnShowPicAdd->setObjectName("cnShowPicAdd");
    cnShowPicAdd->move(374, 118);
    labAddHt = Label(this, "labAddHt", "Ht", {446, 126, 30, 18});
    labAddHtValue = Label(this, "labAddHtValue", {}, {478, 126, 60, 18});
    labAddWth = Label(this, "labAddWth", "Wth", {446, 148, 30, 18});
    labAddWthValue = Label(this, "labAddWthValue", {}, {478, 148, 60, 18});
    labAddHt->hide();
    labAddWth->hide();
    pbAdd = new QPushButton("Add", this);
    pbAdd->setObjectName("pbAdd");
    pbAdd->setGeometry(372, 192, 80, 28);
    pbAdd->setEnabled(false);
    pbCancelAdd = new QPushButton("Cancel", this);
    pbCancelAdd->setObjectName("pbCancelAdd");
    pbCancelAdd->setGeometry(462, 192, 80, 28);
    pbCancelAdd->setEnabled(false);

    pbHelpButGraphics = HelpButton::round(this, "pbHelpButGraphics", {372, 254, 26, 26});
    pbDone = new QPushButton("Done", this);
    pbDone->setObjectName("pbDone");
    pbDone->setGeometry(462, 252, 80, 30);
    pbDone->setDefault(true);

    labAllButton = new labZor(this);
    labAllButton->setObjectName("labAllButton");
    labAllButton->setText("All Button Pictures");
    labAllButton->setGeometry(12, 298, 200, 20);
    labAllButton->setID(44);
    allButtonRows = new AllButtonModel(this);
    lbAllButton = listView(this, "lbAllButton", allButtonRows, {12, 320, 330, 250});
    lbAllButton->setToolTip("List of ALL the buttons");
    lbAllButton->setColumnWidth(0, 330 * 14 / 100);
    lbAllButton->setColumnWidth(1, 330 * 11 / 100);
    labRemove = new labInfo(this);
    labRemove->setObjectName("labRemove");
    labRemove->setText(QStringLiteral("ⓘ"));
    labRemove->setGeometry(352, 298, 20, 20);
    labRemove->setID(46);
    lbRemoved = listBox(this, "lbRemoved", {"Removed From Button Pictures"}, {352, 320, 216, 250});
    labPathButFolder = new labZor(this);
    labPathButFolder->setObjectName("labPathButFolder");
    labPathButFolder->setGeometry(12, 578, 556, 34);
    labPathButFolder->setWordWrap(true);
    labPathButFolder->setTextFormat(Qt::PlainText);
    labPathButFolder->setToolTip("Path to the folder that contains the Button pictures.");
    labPathButFolder->setID(47);

    connect(pbToDesktop, &QPushButton::clicked, this, [this] { pbToDesktop_Pressed(); });
    connect(pbSelectPicToAdd, &QPushButton::clicked, this, [this] { pbSelectPicToAdd_Pressed(); });
    connect(pbAdd, &QPushButton::clicked, this, [this] { pbAdd_Pressed(); });
    connect(pbCancelAdd, &QPushButton::clicked, this, [this] { pbCancelAdd_Pressed(); });
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });
    connect(pbHelpButGraphics, &QPushButton::clicked, this,
            [this] { pbHelpButGraphics_Pressed(QGuiApplication::keyboardModifiers()); });
}

winButtonPics::~winButtonPics() = default;

void winButtonPics::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const int listHeight = height() - 370; // the lists take what the window grows
    lbAllButton->resize(lbAllButton->width(), listHeight);
    lbRemoved->resize(lbRemoved->width(), listHeight);
    labPathButFolder->move(labPathButFolder->x(), height() - 42);
}

void winButtonPics::Event_Opening() {
    Guard::run(Guard::Where::windowEvent(kWindow, QStringLiteral("Opening")), [&] {
        const QString butFolder = FileTools::CreateFolderInAppSupport(QStringLiteral("ButtonPictures"));
        if (butFolder.isEmpty()) throw IOException("The folder ButtonPictures could not be made.");
        labPathButFolder->setText(QDir::toNativeSeparators(butFolder));
        QDir().mkpath(palettePictureFolder(QStringLiteral("P00")));
        labCurrentName->setText(ZOR::paleName);
        labCurrentAlias->setText(ZOR::paleAlias);
        fiFolderPictureForPalette = palettePictureFolder(ZOR::paleName);
        QDir().mkpath(fiFolderPictureForPalette);
        audit = std::make_unique<ButtonPictureAudit>(butFolder, fiFolderPictureForPalette);
        labPicToAdd->clear();
        labID_Add->clear();
        setWindowTitle("Button Pictures: " + ZOR::paleWinTitle);
        PrepareWindow();
    });
}

void winButtonPics::PrepareWindow() {
    Guard::run(method("PrepareWindow"), [&] {
        audit->checkCurrentPalette();
        RemoveFilesInButtonFolder();
        GetFoldersInButFolder();
        audit->removeBadFolderNames();
        FillButtonGraphicListbox();
        if (audit->fillDictionary()) FillButtonGraphicListbox(); // no row for a picture that just left
        fill(lbButPic, audit->currentPalettePictures());
        showRemovedRows();
        audit->tellWhatStays();
    });
}

void winButtonPics::RemoveFilesInButtonFolder() {
    Guard::run(method("RemoveFilesInButtonFolder"), [&] { audit->RemoveFilesInButtonFolder(); });
}

void winButtonPics::GetFoldersInButFolder() {
    Guard::run(method("GetFoldersInButFolder"), [&] { audit->GetFoldersInButFolder(); });
}

bool winButtonPics::IsNameOfButtonOK(const QString& name) {
    return ButtonPictureAudit::IsNameOfButtonOK(name);
}

void winButtonPics::FillButtonGraphicListbox() {
    Guard::run(method("FillButtonGraphicListbox"), [&] { allButtonRows->setRows(audit->listAllPictures()); });
}

void winButtonPics::showRemovedRows() {
    QStringList rows = audit->asRemoved;
    rows.sort();
    fill(lbRemoved, rows + removedByUser);
}

void winButtonPics::clearReview() {
    lbButPic->clearSelection(); // no row stays marked while nothing is under review
    pbToDesktop->setEnabled(false);
    labID->clear();
    labSelect->clear();
    labRevHtValue->clear();
    labRevWthValue->clear();
    cnShow->setBackdrop(BlankPic);
    labRevHt->hide();
    labRevWth->hide();
}

void winButtonPics::lbButPic_CellPressed(int row) {
    Guard::run(Guard::Where::controlEvent(kWindow, "lbButPic", "CellPressed"), [&] {
        if (pbCancelAdd->isEnabled() || row < 0 || row >= lbButPic->topLevelItemCount()) return;
        const QString name = lbButPic->topLevelItem(row)->text(0);
        labSelect->setText(name);
        labID->setText(name.left(2));
        const QString path = audit->diFile.value(labID->text());
        const QSize size = ButtonPictureAudit::pictureSize(path);
        labRevHt->show();
        labRevWth->show();
        labRevHtValue->setText(size.isValid() ? QString::number(size.height()) : QString());
        labRevWthValue->setText(size.isValid() ? QString::number(size.width()) : QString());
        cnShow->setBackdrop(preview(path));
        pbToDesktop->setEnabled(true);
    });
}

void winButtonPics::pbToDesktop_Pressed() {
    Guard::run(pressed("pbToDesktop"), [&] {
        const QString id = labID->text();
        const QString path = audit->diFile.value(id);
        const QString name = QFileInfo(path).fileName();
        if (!path.isEmpty()) {
            // Said once, and only what happened: the picture stays when it cannot go.
            QString why;
            const QString target =
                FileTools::desktopFolderOrWhy(FileTools::childPath(AppGlobals::kRemovedPicturesFolder, ZOR::paleName), &why);
            if (target.isEmpty() || FileTools::moveRenameOrWhy(path, target, &why).isEmpty()) {
                if (!why.isEmpty())
                    Dialogs::message("Could not move " + name + " to " + AppGlobals::kRemovedPicturesFolder +
                                     " on the Desktop: " + why + ". " + name + " stays where it was.");
                return; // it stays listed
            }
        }
        audit->diFile.remove(id);
        if (QTreeWidgetItem* selected = lbButPic->currentItem(); selected && selected->isSelected())
            delete selected;
        clearReview();
        labSelect->clear();
        if (!name.isEmpty()) {
            removedByUser << name;
            showRemovedRows();
        }
        FillButtonGraphicListbox();
        ZOR::saveStore();
    });
}

void winButtonPics::pbSelectPicToAdd_Pressed() {
    Guard::run(pressed("pbSelectPicToAdd"), [&] {
        clearReview();
        const QString chosen = FileTools::FolderItemSelect("Select Picture To Add", FileTypeJpgPng::All(),
                                                           StdFolders::desktop());
        if (chosen.isEmpty()) return;
        const QString name = QFileInfo(chosen).fileName();
        // The user chose this file: a link is followed to the picture it stands for.
        const QString real = QFileInfo(chosen).canonicalFilePath();
        const QSize size = ButtonPictureAudit::pictureSize(real);
        const QPixmap picture = size.isValid() ? preview(real) : QPixmap();
        bool bad = false;
        asSquareCopy = false;
        if (picture.isNull()) {
            Dialogs::message("The chosen file is supposed to be a picture.");
            labPicToAdd->setText(name);
            labSelect->setText(kReviewPicture);
            bad = true;
        } else {
            cnShowPicAdd->setBackdrop(picture);
            labAddHtValue->setText(QString::number(size.height()));
            labAddWthValue->setText(QString::number(size.width()));
            labAddHt->show();
            labAddWth->show();
            labPicToAdd->setText(name);
        }
        const QString id = name.left(2);
        if (buttonOfPicture(name) >= 0) {
            labID_Add->setText(id);
            if (audit->diFile.contains(id)) {
                Dialogs::message("There is already a picture for the button " + id);
                bad = true;
            }
        } else {
            Dialogs::message("The selected picture must have a name starting with two digits.");
            bad = true;
        }
        const QString sizeText = "The file is supposed to be an ~ 64 pixel picture. File: " + name;
        QString tooBig;
        if (!bad && !ButtonPictureAudit::isSideOK(size.width())) tooBig = sizeText + " is too wide.";
        if (!bad && tooBig.isEmpty() && !ButtonPictureAudit::isSideOK(size.height()))
            tooBig = sizeText + "is too tall.";
        // A picture of another size is not refused outright: a copy of the button's size can take
        // its place, and the chosen file stays as it is.
        if (!tooBig.isEmpty()) {
            asSquareCopy =
                GeneralMethods::MesDlg(tooBig,
                                       "A copy of it can be made instead: 64 x 64 pixels, smoothly scaled "
                                       "with its proportions kept and centred on a transparent square, "
                                       "saved as a PNG picture of button " +
                                           id + ". The file you chose stays as it is.",
                                       kMakeCopy, true, {}) == 1;
            bad = !asSquareCopy;
        }
        // Kept under its own name, it would break the folder's rules and be taken out at once.
        if (!bad && !asSquareCopy && !IsNameOfButtonOK(name)) {
            Dialogs::message(kNameEnding);
            bad = true;
        }
        pbCancelAdd->setEnabled(true);
        pbAdd->setEnabled(!bad);
        fiPictureToAdd = chosen;
        pbSelectPicToAdd->setEnabled(false);
        pbDone->setEnabled(false);
        lbButPic->setEnabled(false);
    });
}

void winButtonPics::pbAdd_Pressed() {
    Guard::run(pressed("pbAdd"), [&] {
        const QString name = QFileInfo(fiPictureToAdd).fileName();
        if (asSquareCopy) {
            const PictureImport::Result made =
                PictureImport::writeSquareCopy(QFileInfo(fiPictureToAdd).canonicalFilePath(),
                                               fiFolderPictureForPalette, buttonOfPicture(name));
            if (!made.error.isEmpty()) {
                Dialogs::message(made.error);
                return;
            }
        } else {
            const QString target = QDir(fiFolderPictureForPalette).filePath(name);
            if (nameTakenIn(fiFolderPictureForPalette, name)) {
                Dialogs::message("A picture with this same name has already been assigned.");
                return;
            }
            QFile source(QFileInfo(fiPictureToAdd).canonicalFilePath());
            if (!source.copy(target))
                throw IOException("Could not copy " + name + ": " + source.errorString());
        }
        fiPictureToAdd.clear();
        asSquareCopy = false;
        PrepareWindow();
        CleanUpAddingPicture();
        FillButtonGraphicListbox();
        ZOR::saveStore();
    });
}

void winButtonPics::pbCancelAdd_Pressed() {
    Guard::run(pressed("pbCancelAdd"), [&] { CleanUpAddingPicture(); });
}

void winButtonPics::CleanUpAddingPicture() {
    Guard::run(method("CleanUpAddingPicture"), [&] {
        labID_Add->clear();
        labPicToAdd->clear();
        labSelect->setText(kReviewPicture);
        fiPictureToAdd.clear();
        asSquareCopy = false;
        labAddHt->hide();
        labAddWth->hide();
        labAddHtValue->clear();
        labAddWthValue->clear();
        cnShowPicAdd->setBackdrop(BlankPic);
        pbSelectPicToAdd->setEnabled(true);
        pbDone->setEnabled(true);
        lbButPic->setEnabled(true);
        pbCancelAdd->setEnabled(false);
        pbAdd->setEnabled(false);
    });
}

void winButtonPics::pbDone_Pressed() {
    Guard::run(pressed("pbDone"), [&] {
        ZOR::viewFollows();
        accept();
    });
}

void winButtonPics::pbHelpButGraphics_Pressed(Qt::KeyboardModifiers modifiers) {
    Guard::run(pressed("pbHelpButGraphics"), [&] {
        if (!(modifiers & MenuBars::controlKey())) Help::ShowHelp(40);
    });
}

void showButtonPictures() {
    winButtonPics window;
    window.Event_Opening(); // the audit's messages come before the window
    Dialogs::exec(window, {Dialogs::Kind::Window, window.windowTitle(), {}, {}, nullptr});
}
