// Where the program knows the answer, the button half offers it: the script files of the
// Apple_Scripts folder, the names of the user's Shortcuts, the palettes in use, and the name of
// the Keyboard Maestro macro that a button runs.
#include "actions/Launchers.h"
#include "design/ConstructParts.h"
#include "design/winConstruct.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/StringUtils.h"

#include <QClipboard>
#include <QCompleter>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

using namespace ConstructParts;

const QString winConstruct::kScriptOutsideFolder =
    QStringLiteral("A button runs only the scripts of the Apple_Scripts folder. Put the script there first "
                   "with Configure >> "
                   "Manage AppleScript, then choose it again.");

void winConstruct::pbChooseAS_Pressed() {
    Guard::run(controlEvent("pbChooseAS", "Pressed"), [this] {
        const QString chosen = FileTools::FolderItemSelect("Choose AppleScript", FileTypeAppleScript::All(),
                                                           AppGlobals::folderPathAS);
        if (chosen.isEmpty()) return;
        const QFileInfo file(chosen);
        if (file.absoluteDir().canonicalPath() != QDir(AppGlobals::folderPathAS).canonicalPath()) {
            Dialogs::message(kScriptOutsideFolder);
            return;
        }
        tfAS->setText(ZOR::rsWithWithoutScpt(file.fileName(), false));
        tfAS_FocusLost(); // as if typed: the warning and the tip follow
    });
}

void winConstruct::fillPaletteList() {
    Guard::run(windowMethod("fillPaletteList"), [this] {
        QMenu* list = pbPaletteList->menu();
        list->clear();
        const QFontMetrics metrics(list->font());
        for (qint64 k = 0; k < qint64(ZOR::DP.size()) && k < ZOR::kMaxPalettes; ++k) {
            if (!ZOR::IsPaletteExistant(k)) continue;
            const QString entry = StringUtils::twoDigits(k) + "  " + ZOR::DP[size_t(k)].s_Alias;
            QAction* item = list->addAction(metrics.elidedText(entry, Qt::ElideRight, 400));
            connect(item, &QAction::triggered, this, [this, k] { paletteChosen(int(k)); });
        }
    });
}

void winConstruct::paletteChosen(int index) {
    Guard::run(windowMethod("paletteChosen"), [&] {
        tfPaletteGo->setText(StringUtils::twoDigits(index));
        tfPaletteGo_FocusLost(); // as if typed: the warning and the tip follow
    });
}

void winConstruct::pbCopyMacro_Pressed() {
    Guard::run(controlEvent("pbCopyMacro", "Pressed"),
               [this] { QGuiApplication::clipboard()->setText(labMacroName->text()); });
}

void winConstruct::offerShortcutNames() {
    if (shortcutNamesOffered || tfSC->isHidden()) return;
    shortcutNamesOffered = true; // the Mac is asked once per opening: the list takes a moment
    auto* names = new QCompleter(ZOR::shortcutNames(), tfSC);
    names->setCaseSensitivity(Qt::CaseInsensitive);
    names->setFilterMode(Qt::MatchContains);
    tfSC->setCompleter(names);
}
