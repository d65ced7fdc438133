#include "assets/winManageAS.h"

#include "actions/Launchers.h"
#include "assets/AssetControls.h"
#include "help/Help.h"
#include "help/HelpButton.h"
#include "help/HelpLabels.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
#include "util/Guard.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>

const QString winManageAS::kWorkshop = QStringLiteral("AppleScriptWorkshop");
const QString winManageAS::kTangerine = QStringLiteral("TANGERINE");
const QString winManageAS::kLavender = QStringLiteral("LAVENDER");

namespace {
const QString kWindow = QStringLiteral("winManageAS");

Guard::Where pressed(const char* control) {
    return Guard::Where::controlEvent(kWindow, QString::fromLatin1(control), QStringLiteral("Pressed"));
}

Guard::Where method(const char* name) {
    return Guard::Where::windowMethod(kWindow, QString::fromLatin1(name));
}

void fill(QTreeWidget* list, const QStringList& rows) {
    QList<QTreeWidgetItem*> items;
    for (const QString& row : rows)
        items << new QTreeWidgetItem(QStringList{row});
    list->addTopLevelItems(items);
}

QPushButton* button(QWidget* parent, const char* name, const QString& caption, const QRect& where,
                    const QString& tip = {}) {
    auto* pb = new QPushButton(caption, parent);
    pb->setObjectName(QString::fromLatin1(name));
    pb->setGeometry(where);
    pb->setToolTip(tip);
    return pb;
}

// The plain move of the window's two move buttons; it never replaces a file of the same name.
void plainMove(const QString& path, const QString& folder) {
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.rename(QDir(folder).filePath(name)))
        Dialogs::message("Could not move " + name + " to " + QFileInfo(folder).fileName() + ": " +
                         file.errorString() + ". " + name + " stays where it was.");
}
} // namespace

winManageAS::winManageAS(QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
    using namespace AssetControls;
    setObjectName(kWindow);
    setFixedSize(1000, 620);
    setWindowTitle("Manage AppleScript");

    pbAddToDF = button(this, "pbAddToDF", "Add Script to Apple_Scripts Folder", {12, 12, 270, 30},
                       "Use the Finder to select any AppleScript file and add it to the AppleScript Folder");
    labDF = new labZor(this);
    labDF->setObjectName("labDF");
    labDF->setText("Apple_Scripts Folder:");
    labDF->setGeometry(300, 17, 150, 20);
    labDF->setID(54);
    labAppleScript = Label(this, "labAppleScript", {}, {450, 17, 538, 20});
    labAppleScript->setToolTip("The path to the AppleScript Folder on this computer");

    lbAppleScript = listBox(this, "lbAppleScript", {"Apple_Scripts Folder Contents"}, {12, 80, 300, 440});
    lbAppleScript->setToolTip("List of all the AppleScripts currently in place");
    lbAppleScript->setItemDelegateForColumn(0, new TagPainter(kTangerine, QColor(0xFF8000), this));
    pbMoveToWorkshop = button(this, "pbMoveToWorkshop", "Move To Workshop", {12, 528, 300, 30},
                              "Selected file will be moved the the AppleScriptWorkshop folder on the Desktop "
                              "where it can be edited.");
    pbMoveToWorkshop->setEnabled(false);

    lbWorkshop = listBox(this, "lbWorkshop", {"AppleScriptWorkshop"}, {324, 80, 250, 440});
    lbWorkshop->setToolTip(
        "AppleScriptWorkshop is a folder on the Desktop that is a convenient place to create "
        "and edit AppleScripts.");
    pbMoveToAppleScript =
        button(this, "pbMoveToAppleScript", "Move to Apple_Scripts Folder", {324, 528, 250, 30},
               "Selected file will be moved the the AppleScript Folder where it can be "
               "accessed by the program.");
    pbMoveToAppleScript->setEnabled(false);

    labLinked = new labZor(this);
    labLinked->setObjectName("labLinked");
    labLinked->setText("Linked AppleScripts");
    labLinked->setGeometry(586, 58, 200, 20);
    labLinked->setID(52);
    labLinked->setToolTip("These are AppleScripts that are linked to buttons in palettes");
    lbActiveAppleScripts =
        listBox(this, "lbActiveAppleScripts", {"PID", "Alias", "BID", "Name"}, {586, 80, 402, 290});
    lbActiveAppleScripts->setColumnWidth(0, 30);
    lbActiveAppleScripts->setColumnWidth(1, 135);
    lbActiveAppleScripts->setColumnWidth(2, 30);
    lbActiveAppleScripts->setItemDelegateForColumn(3, new TagPainter(kLavender, QColor(0xCC66FF), this));

    lbRemoved = listBox(this, "lbRemoved", {"Incorrect Extension"}, {586, 382, 402, 138});
    lbRemoved->setToolTip(
        "Files found in the AppleScript Folder that do not appear to be AppleScripts. They will "
        "be moved to AppleScriptWorkshop");

    pbHelpManageAS = HelpButton::round(this, "pbHelpManageAS", {846, 580, 26, 26});
    pbDone = button(this, "pbDone", "Done", {888, 578, 100, 30});
    pbDone->setDefault(true);

    for (QTreeWidget* list : {lbAppleScript, lbWorkshop, lbActiveAppleScripts})
        list->viewport()->installEventFilter(this);
    connect(pbAddToDF, &QPushButton::clicked, this, [this] { pbAddToDF_Pressed(); });
    connect(pbMoveToWorkshop, &QPushButton::clicked, this, [this] { pbMoveToWorkshop_Pressed(); });
    connect(pbMoveToAppleScript, &QPushButton::clicked, this, [this] { pbMoveToAppleScript_Pressed(); });
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });
    connect(pbHelpManageAS, &QPushButton::clicked, this, [this] { pbHelpManageAS_Pressed(); });
}

QString winManageAS::rsExtension(const QString& name) {
    const qsizetype dot = name.indexOf('.');
    return dot < 0 ? name : name.mid(dot + 1);
}

bool winManageAS::isScript(const QString& name) {
    return rsExtension(name).compare("scpt", Qt::CaseInsensitive) == 0;
}

QString winManageAS::folderAS() const {
    return AppGlobals::folderPathAS.isEmpty() ? FileTools::CreateFolderInAppSupport("Apple_Scripts")
                                              : QDir::fromNativeSeparators(AppGlobals::folderPathAS);
}

QString winManageAS::folderWorkshop() const {
    return QDir(StdFolders::desktop()).filePath(kWorkshop);
}

bool winManageAS::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
        return QDialog::eventFilter(watched, event);
    const QPoint at = static_cast<QMouseEvent*>(event)->position().toPoint();
    if (watched == lbAppleScript->viewport())
        return lbAppleScript_CellPressed(lbAppleScript->indexAt(at).row());
    if (watched == lbWorkshop->viewport()) return lbWorkshop_CellPressed(lbWorkshop->indexAt(at).row());
    if (watched == lbActiveAppleScripts->viewport())
        return lbActiveAppleScripts_CellPressed(lbActiveAppleScripts->indexAt(at).row());
    return QDialog::eventFilter(watched, event);
}

void winManageAS::Event_Opening() {
    Guard::run(Guard::Where::windowEvent(kWindow, QStringLiteral("Opening")), [&] {
        ListboxRefresh();
        // A long path keeps its start and its end in view.
        labAppleScript->setText(labAppleScript->fontMetrics().elidedText(
            AppGlobals::folderPathAS, Qt::ElideMiddle, labAppleScript->width()));
    });
}

void winManageAS::ListboxRefresh() {
    Guard::run(method("ListboxRefresh"), [&] {
        lbAppleScript->clear();
        lbActiveAppleScripts->clear();
        lbWorkshop->clear();
        asAS_Fol.clear();
        asNameAS.clear();
        asWorkshop.clear();
        GetFilesWorkshop();
        fill(lbWorkshop, asWorkshop);
        GetFilesAS_Fol();
        BadFileExtension();
        fill(lbAppleScript, asAS_Fol);
        LB_LinkedAppleScript();
        ColorDiscrepancies(1);
        ColorDiscrepancies(2);
        AllListboxUnselect();
    });
}

void winManageAS::GetFilesWorkshop() {
    Guard::run(method("GetFilesWorkshop"), [&] {
        if (QFileInfo(folderWorkshop()).isDir()) FileTools::FolderFilesToArray(folderWorkshop(), asWorkshop);
        asWorkshop.sort(Qt::CaseInsensitive);
    });
}

void winManageAS::GetFilesAS_Fol() {
    Guard::run(method("GetFilesAS_Fol"), [&] {
        FileTools::FolderFilesToArray(folderAS(), asAS_Fol);
        asAS_Fol.sort(Qt::CaseInsensitive);
    });
}

void winManageAS::BadFileExtension() {
    Guard::run(method("BadFileExtension"), [&] {
        QStringList bad;
        for (const QString& name : asAS_Fol)
            if (!isScript(name)) bad << name;
        if (bad.isEmpty()) return;
        for (const QString& name : bad)
            asAS_Fol.removeAll(name);
        fill(lbRemoved, bad);
        const QString target = FileTools::CreateFolderOnDesktop(kWorkshop);
        for (const QString& name : bad)
            FileTools::moveRenameOrSay(QDir(folderAS()).filePath(name), target);
        Dialogs::message(
            QString::number(bad.size()) +
            " file(s) with the incorrect extension removed from the AppleScript Folder and placed "
            "in AppleScriptWorkshop on Desktop.");
    });
}

void winManageAS::LB_LinkedAppleScript() {
    Guard::run(method("LB_LinkedAppleScript"), [&] {
        lbActiveAppleScripts->clear();
        asNameAS.clear();
        QList<QTreeWidgetItem*> rows;
        // Every slot, free ones too: each link counts wherever it stands.
        for (const PaletteDict& palette : ZOR::DP) {
            if (!palette.a_Btn) continue;
            for (const BtnRef& b : *palette.a_Btn) {
                if (!b || b->ASfile.isEmpty()) continue;
                asNameAS << b->ASfile;
                rows << new QTreeWidgetItem(QStringList{palette.s_Name, palette.s_Alias, b->sID, b->ASfile});
            }
        }
        lbActiveAppleScripts->addTopLevelItems(rows);
    });
}

void winManageAS::ColorDiscrepancies(int whichList) {
    Guard::run(method("ColorDiscrepancies"), [&] {
        // Each link by the file name its button runs; names compare without regard to case, as
        // the Mac's disks do ("mail" runs Mail.scpt).
        QStringList linked;
        for (const QString& name : asNameAS)
            linked << ZOR::rsWithWithoutScpt(name, true);
        if (whichList == 1) {
            for (int row = 0; row < lbAppleScript->topLevelItemCount(); ++row) {
                const bool orphan =
                    row < asAS_Fol.size() && !linked.contains(asAS_Fol[row], Qt::CaseInsensitive);
                lbAppleScript->topLevelItem(row)->setData(0, Qt::UserRole, orphan ? kTangerine : QString());
            }
        } else if (whichList == 2) {
            for (int row = 0; row < lbActiveAppleScripts->topLevelItemCount(); ++row) {
                const bool missing =
                    row < linked.size() && !asAS_Fol.contains(linked[row], Qt::CaseInsensitive);
                lbActiveAppleScripts->topLevelItem(row)->setData(3, Qt::UserRole,
                                                                 missing ? kLavender : QString());
            }
        }
    });
}

void winManageAS::AllListboxUnselect() {
    lbActiveAppleScripts->clearSelection();
    lbWorkshop->clearSelection();
    lbAppleScript->clearSelection();
    pbMoveToAppleScript->setEnabled(false);
    pbMoveToWorkshop->setEnabled(false);
}

bool winManageAS::lbAppleScript_CellPressed(int row) {
    return Guard::run(Guard::Where::controlEvent(kWindow, "lbAppleScript", "CellPressed"), [&] {
        if (QTreeWidgetItem* item = lbAppleScript->topLevelItem(row)) {
            const bool select = !item->isSelected();
            lbAppleScript->clearSelection();
            item->setSelected(select);
            if (select) lbAppleScript->setCurrentItem(item);
            pbMoveToWorkshop->setEnabled(select);
        }
        return true;
    });
}

bool winManageAS::lbWorkshop_CellPressed(int row) {
    return Guard::run(Guard::Where::controlEvent(kWindow, "lbWorkshop", "CellPressed"), [&] {
        QTreeWidgetItem* item = lbWorkshop->topLevelItem(row);
        if (!item) return true;
        if (item->isSelected()) {
            item->setSelected(false);
            pbMoveToAppleScript->setEnabled(false);
        } else if (!isScript(item->text(0))) {
            Dialogs::message("That file does not have the proper extension (.scpt) so not selectable.");
            lbWorkshop->clearSelection();
            pbMoveToAppleScript->setEnabled(false);
        } else {
            lbWorkshop->clearSelection();
            item->setSelected(true);
            lbWorkshop->setCurrentItem(item);
            pbMoveToAppleScript->setEnabled(true);
        }
        return true;
    });
}

bool winManageAS::lbActiveAppleScripts_CellPressed(int row) {
    QTreeWidgetItem* item = lbActiveAppleScripts->topLevelItem(row);
    if (!item || !item->isSelected()) return false; // the list's own selection
    item->setSelected(false);
    return true;
}

void winManageAS::pbAddToDF_Pressed() {
    Guard::run(pressed("pbAddToDF"), [&] {
        FileTools::ChooseFileAndMoveToSuppliedDestination(folderAS(), "Choose AppleScript",
                                                          FileTypeAppleScript::All(), "Desktop");
        ListboxRefresh();
    });
}

void winManageAS::pbMoveToWorkshop_Pressed() {
    Guard::run(pressed("pbMoveToWorkshop"), [&] {
        const QList<QTreeWidgetItem*> selected = lbAppleScript->selectedItems();
        if (!selected.isEmpty()) {
            const QString path = QDir(folderAS()).filePath(selected.first()->text(0));
            const QFileInfo file(path);
            if (file.exists() || file.isSymLink())
                plainMove(path, FileTools::CreateFolderOnDesktop(kWorkshop));
            else
                Dialogs::message("Error in pbMoveToWorkshop.Pressed");
        }
        ListboxRefresh();
    });
}

void winManageAS::pbMoveToAppleScript_Pressed() {
    Guard::run(pressed("pbMoveToAppleScript"), [&] {
        const QList<QTreeWidgetItem*> selected = lbWorkshop->selectedItems();
        if (!selected.isEmpty()) {
            const QString path = QDir(folderWorkshop()).filePath(selected.first()->text(0));
            const QFileInfo file(path);
            const QString folder = QDir::fromNativeSeparators(AppGlobals::folderPathAS);
            if (!file.exists() && !file.isSymLink())
                Dialogs::message("Error in pbMoveToAppleScript. Pressed");
            else if (folder.isEmpty() || !QFileInfo(folder).isDir())
                Dialogs::message(
                    "Error in pbMoveToAppleScript. Pressed -- Could not find the AppleScript Folder");
            else
                plainMove(path, folder);
        }
        ListboxRefresh();
    });
}

void winManageAS::pbDone_Pressed() {
    Guard::run(pressed("pbDone"), [&] {
        if (PaletteView* view = ZOR::view()) view->setPaletteTitle(ZOR::paleWinTitle);
        accept();
    });
}

void winManageAS::pbHelpManageAS_Pressed() {
    Guard::run(pressed("pbHelpManageAS"), [&] { Help::ShowHelp(50); });
}

void showManageAS() {
    winManageAS window;
    window.Event_Opening();
    Dialogs::exec(window, {Dialogs::Kind::Window, window.windowTitle(), {}, {}, nullptr});
}
