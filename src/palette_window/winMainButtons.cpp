// The palette window's buttons answering the hand: a button's menu, and pictures chosen for a
// button or dropped on it.
#include "palette_window/winMain.h"

#include "pictures/PictureImport.h"
#include "store/ZOR.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/Guard.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QMenu>

namespace {
Guard::Where canvasEvent(const char* event) {
    return Guard::Where::controlEvent("winMain", "cnBut Set", event);
}
} // namespace

void winMain::cnBut_Menu(int index, const QPoint& where) {
    Guard::run(canvasEvent("Menu"), [&] {
        if (!buttonMenu) {
            buttonMenu = new QMenu(this);
            buttonMenu->setObjectName("buttonMenu");
            QAction* edit = buttonMenu->addAction("Edit Button…");
            edit->setObjectName("miEditButton");
            connect(edit, &QAction::triggered, this, [this] {
                Guard::run(canvasEvent("EditButton"), [this] {
                    if (editButton) editButton(menuButton);
                });
            });
            QAction* choose = buttonMenu->addAction("Choose Picture…");
            choose->setObjectName("miChoosePicture");
            connect(choose, &QAction::triggered, this, [this] {
                const QString file = FileTools::FolderItemSelect(
                    "Choose Picture for Button " + StringUtils::twoDigits(menuButton), FileTypeJpgPng::All(),
                    StdFolders::desktop());
                if (!file.isEmpty()) cnBut_TakePicture(menuButton, file);
            });
        }
        menuButton = index;
        buttonMenu->popup(where);
    });
}

void winMain::cnBut_TakePicture(int index, const QString& file) {
    Guard::run(canvasEvent("TakePicture"), [&] {
        const PictureImport::Result made = PictureImport::makeButtonPicture(file, ZOR::paleName, index);
        if (!made.error.isEmpty()) {
            Dialogs::message(made.error);
            return;
        }
        follow(Upto::Pictures);
    });
}
