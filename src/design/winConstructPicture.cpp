// The picture of the button being edited: shown in the button half, chosen from a file or dropped
// on the button's cell, removed to the Desktop. Unlike the button's fields, a picture changes at
// once: its file is made or moved when the user asks, and Cancel does not bring the old one back.
#include "design/ConstructParts.h"
#include "design/winConstruct.h"
#include "help/FittedText.h"
#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureImport.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

using namespace ConstructParts;

namespace {
// The files of button `index` in the active palette's folder; the last is the one shown.
QStringList picturesOf(int index) {
    QStringList files;
    for (const auto& [n, path] : buttonPictureFiles(palettePictureFolder(ZOR::paleName)))
        if (n == index) files << path;
    return files;
}
} // namespace

void winConstruct::buildPictureRow() {
    labPicture =
        helpLabel(this, "labPicture", "Picture", 11, QColor(0x42, 0x42, 0x42), QRect(612, 428, 70, 20));
    cnvPicture = make<QLabel>(this, "cnvPicture", QRect(690, 424, 66, 66));
    cnvPicture->setAlignment(Qt::AlignCenter);
    cnvPicture->setFrameShape(QFrame::Box);
    cnvPicture->setToolTip(
        "Drop a picture file on the button's cell in the grid to make it the button's picture");
    pbChoosePicture = make<QPushButton>(this, "pbChoosePicture", QRect(766, 426, 150, 28), "Choose Picture…");
    pbRemovePicture = make<QPushButton>(this, "pbRemovePicture", QRect(766, 460, 150, 28), "Remove Picture");
    pbRemovePicture->setToolTip("The picture goes to RemovedZOR_PaletteButtonPictures on the Desktop");
    labPictureFile = plainLabel(this, "labPictureFile", "", QRect(926, 431, 144, 20), 11);
    setTextColour(labPictureFile, QColor(0x79, 0x79, 0x79));
    connect(pbChoosePicture, &QPushButton::clicked, this, &winConstruct::pbChoosePicture_Pressed);
    connect(pbRemovePicture, &QPushButton::clicked, this, &winConstruct::pbRemovePicture_Pressed);
}

void winConstruct::showButtonPicture() {
    Guard::run(windowMethod("showButtonPicture"), [this] {
        const bool chosen = editingGridButton && ZOR::idxCurrentBtn >= 0;
        const QStringList files = chosen ? picturesOf(int(ZOR::idxCurrentBtn)) : QStringList();
        const QString file = files.isEmpty() ? QString() : files.last();
        QPixmap shown;
        if (!file.isEmpty()) {
            QString why;
            const QImage picture = PictureImport::readForCopy(file, &why);
            if (!picture.isNull())
                shown = QPixmap::fromImage(PictureImport::fitsAsItStands(picture.size())
                                               ? picture
                                               : PictureImport::squareCopy(picture));
        }
        cnvPicture->setPixmap(shown);
        FittedText::set(labPictureFile,
                        file.isEmpty() ? QString(chosen ? "No picture" : "") : QFileInfo(file).fileName());
        pbChoosePicture->setEnabled(chosen);
        pbRemovePicture->setEnabled(!file.isEmpty());
    });
}

void winConstruct::takePicture(int index, const QString& file) {
    const PictureImport::Result made = PictureImport::makeButtonPicture(file, ZOR::paleName, index);
    if (!made.error.isEmpty()) Dialogs::message(made.error);
    if (index == ZOR::idxCurrentBtn) showButtonPicture();
    if (!made.file.isEmpty()) ZOR::viewFollows(PaletteView::Upto::Pictures);
}

void winConstruct::pbChoosePicture_Pressed() {
    Guard::run(controlEvent("pbChoosePicture", "Pressed"), [this] {
        const QString chosen = FileTools::FolderItemSelect("Select Picture To Add", FileTypeJpgPng::All(),
                                                           StdFolders::desktop());
        if (!chosen.isEmpty() && ZOR::idxCurrentBtn >= 0) takePicture(int(ZOR::idxCurrentBtn), chosen);
    });
}

void winConstruct::pictureDropped(int index, const QString& file) {
    Guard::run(windowMethod("pictureDropped"), [&] {
        if (index / 10 >= ZOR::numRows || index % 10 >= ZOR::numColumns) {
            Dialogs::beep();
            return;
        }
        // With no button being edited, the one dropped on is shown with its new picture; an edit
        // of another button is left as it is.
        if (!editingGridButton) GridClicked(index);
        takePicture(index, file);
    });
}

void winConstruct::pbRemovePicture_Pressed() {
    Guard::run(controlEvent("pbRemovePicture", "Pressed"), [this] {
        // Every file of the button goes, so that no older one takes its place on the palette.
        const QString aside =
            QDir(StdFolders::desktop()).filePath(AppGlobals::kRemovedPicturesFolder + '/' + ZOR::paleName);
        if (!QFileInfo(aside).isDir()) FileTools::CreateAllFoldersInPath(aside);
        for (const QString& file : picturesOf(int(ZOR::idxCurrentBtn)))
            if (FileTools::moveRenameOrSay(file, aside).isEmpty()) break; // it stays, and the user is told
        showButtonPicture();
        ZOR::viewFollows(PaletteView::Upto::Pictures);
    });
}
