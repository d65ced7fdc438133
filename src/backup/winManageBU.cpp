#include "backup/winManageBU.h"

#include "help/GeneralMethods.h"
#include "store/ItemCopy.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/Fonts.h"
#include "util/Guard.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString kWindow = QStringLiteral("winManageBU");

Guard::Where pressed(const char* control) {
    return Guard::Where::controlEvent(kWindow, QString::fromLatin1(control), QStringLiteral("Pressed"));
}

const QString kMakingText = QStringLiteral("The application will quit. It can be restarted whenever you "
                                           "wish. A backup of the PreserveState.txt file "
                                           "has been created on the desktop.");

const QString kPreserveStateText = QStringLiteral(
    "There is a file called PreserveState.txt and it is a JSON file that saves information about "
    "ZOR_Palette from one invocation of the app to the next. Ideally (and probably) you would never "
    "worry above this. But the file contains critical information about the palettes that have been "
    "created. This tool has been created to deal with making and restoring backups of this file. "
    "Generally, if something were to go wrong, you could just use a TimeMachine backup to restore a "
    "previous version of PreserveState.txt. This is an alternative were that to fail or if you do not "
    "use TimeMachine or similar backup strategy.\nThere is a folder in the Application Support folder "
    "for ZOR_Palette that at intervals automatically backs up PreserveState.txt. That folder is named "
    "EmergencyPreserveStateBU.");
const QString kExplainBUText = QStringLiteral(
    "It is unlikely that you will ever actually need a BU of the text file PreserveState.txt. This file "
    "is a JSON file that contains information about the current state of ZOR_Palette. The bulk of this "
    "information relates to the various palettes that the user has created. This backup functionality is "
    "provided for those with an unusual level of concern about \"losing their work.\" A backup will be "
    "created and placed on the Desktop. The user can place this file any place they choose for "
    "safekeeping. Backup files for PreserveState.txt are named with a prepended date time stamp. They "
    "are named YYMMDD_HHSSPreserveStateBU.txt. (example 230523_1955PreserveStateBU).\n\nThe actual need "
    "for this is limited because any backup that you use for your Mac (TimeMachine for example) will be "
    "backing up this file in its normal location, specified by the path seen at the top of this page.  "
    "In addition, the program intermittently creates backup files and stores them in the folder "
    "EmergencyPreserveStateBU which is located in the same folder as PreserveState.txt. Those "
    "automatically created backup files can be accessed if some unusual crash results in the corruption "
    "of the PreserveState.txt file. These backup files cover the last few versions of PreserveState.txt.");
const QString kExplainRestoreText = QStringLiteral(
    "Should you actually need to restore PreserveState.txt with some previous version, this tool allows "
    "you to do it. It is not expected that the need for this will ever arise. This functionality is "
    "provided to deal with an unanticipated problem and has been created out of an abundance of "
    "caution.\n\nBackup files are named YYMMDD_HHSSPreserveStateBU.txt. (example "
    "230523_1955PreserveStateBU). The digits at the beginning represent a date time stamp which records "
    "when the backup file was created. Pushing the Restore Backup button will allow you to navigate in "
    "the Finder to any file of the form YYMMDD_HHSSPreserveStateBU.txt and that file will be used to "
    "create the active version of the PreserveState.txt file in its proper location.\n\nKeep in mind "
    "that there is a folder, EmergencyPreserveStateBU, which will contain several of these backup files "
    "that are automatically intermittently created. Its location: \n\n~/Library/Application "
    "Support/net.lunvale.ZOR-Palette/EmergencyPreserveStateBU\n\nIt is a little tricky to get to this "
    "location because Apple discourages it.  There are various files in the Library folder and "
    "subfolders that should not be altered. The simple Select Folder dialog box will not offer access to "
    "files or folders in the Library folder. To work around this, push on the button below: Copy "
    "EmergencyPreserveStateBU. This will make a copy of the EmergencyPreserveStateBU folder on the "
    "Desktop. You will then be able to navigate to this folder when you click on the Restore Backup "
    "button. Later, at your leisure, you can delete this copy that is on your Desktop because it is no "
    "longer needed.\n");

// The long texts a little smaller than the system's 13, so that they fit the window on every platform's font.
constexpr int kLongText = 12;

QLabel* label(QWidget* parent, const char* name, const QString& text, int pixels, bool bold = false) {
    auto* lab = new QLabel(text, parent);
    lab->setObjectName(QString::fromLatin1(name));
    lab->setTextFormat(Qt::PlainText);
    lab->setWordWrap(true);
    lab->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont font = Fonts::sized("System", pixels);
    font.setBold(bold);
    lab->setFont(font);
    return lab;
}

QPushButton* button(QWidget* parent, const char* name, const QString& caption) {
    auto* pb = new QPushButton(caption, parent);
    pb->setObjectName(QString::fromLatin1(name));
    pb->setMinimumWidth(120);
    return pb;
}

// One half of the window: its heading, its explanation, and its buttons at the foot.
QVBoxLayout* half(QLabel* heading, QLabel* explanation, QPushButton* first, QPushButton* second) {
    auto* column = new QVBoxLayout;
    column->addWidget(heading);
    column->addWidget(explanation);
    column->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(first);
    buttons->addWidget(second);
    buttons->addStretch(1);
    column->addLayout(buttons);
    return column;
}
} // namespace

winManageBU::winManageBU(QWidget* parent) : QDialog(parent) {
    setObjectName(kWindow);
    setWindowTitle(QStringLiteral("Manage PreserveState Backup"));
    setModal(true);
    setMinimumSize(900, 800);
    resize(900, 800);

    labPath = label(this, "labPath", QStringLiteral("Path:"), 13);
    labPath->setWordWrap(false);
    labPreserveStatePath =
        label(this, "labPreserveStatePath",
              QStringLiteral("~/Library/Application Support/net.lunvale.ZOR-Palette/PreserveState.txt"), 13);
    labPreserveState = label(this, "labPreserveState", kPreserveStateText, kLongText);
    labBackUp = label(this, "labBackUp", QStringLiteral("Backup"), 18, true);
    labRestore = label(this, "labRestore", QStringLiteral("Restore"), 18, true);
    labExplainBU = label(this, "labExplainBU", kExplainBUText, kLongText);
    labExplainRestore = label(this, "labExplainRestore", kExplainRestoreText, kLongText);

    rectTwoHalf = new QFrame(this);
    rectTwoHalf->setObjectName(QStringLiteral("rectTwoHalf"));
    rectTwoHalf->setFixedWidth(3);
    rectTwoHalf->setAutoFillBackground(true);
    QPalette dark = rectTwoHalf->palette();
    dark.setColor(QPalette::Window, QColor(0x00, 0x00, 0x00));
    rectTwoHalf->setPalette(dark);

    pbMakeBU = button(this, "pbMakeBU", QStringLiteral("Make Backup"));
    pbCancel = button(this, "pbCancel", QStringLiteral("Cancel"));
    pbCopyEmergency = button(this, "pbCopyEmergency", QStringLiteral("Copy EmergencyPreserveStateBU"));
    pbCopyEmergency->setToolTip(QStringLiteral("Makes a copy of EmergencyPreserveStateBU on the Desktop"));
    pbRestoreBU = button(this, "pbRestoreBU", QStringLiteral("Restore Backup"));

    auto* path = new QHBoxLayout;
    path->addWidget(labPath);
    path->addWidget(labPreserveStatePath, 1);
    auto* halves = new QHBoxLayout;
    halves->setSpacing(16);
    halves->addLayout(half(labBackUp, labExplainBU, pbMakeBU, pbCancel), 1);
    halves->addWidget(rectTwoHalf);
    halves->addLayout(half(labRestore, labExplainRestore, pbRestoreBU, pbCopyEmergency), 1);
    auto* window = new QVBoxLayout(this);
    window->setContentsMargins(20, 16, 20, 16);
    window->setSpacing(10);
    window->addLayout(path);
    window->addWidget(labPreserveState);
    window->addSpacing(6);
    window->addLayout(halves, 1);

    // The safe button has the focus; the keys then go Make Backup, Cancel, Restore Backup, Copy.
    setTabOrder(pbMakeBU, pbCancel);
    setTabOrder(pbCancel, pbRestoreBU);
    setTabOrder(pbRestoreBU, pbCopyEmergency);
    pbCancel->setDefault(true);
    pbCancel->setFocus();

    connect(pbMakeBU, &QPushButton::clicked, this, [this] { pbMakeBU_Pressed(); });
    connect(pbCancel, &QPushButton::clicked, this, [this] { pbCancel_Pressed(); });
    connect(pbCopyEmergency, &QPushButton::clicked, this, [this] { pbCopyEmergency_Pressed(); });
    connect(pbRestoreBU, &QPushButton::clicked, this, [this] { pbRestoreBU_Pressed(); });
}

void winManageBU::pbMakeBU_Pressed() {
    Guard::run(pressed("pbMakeBU"), [this] {
        const QString title = QStringLiteral("Making PreserveState Backup");
        GeneralMethods::ShowText(kMakingText, title);
        ZOR::PreserveStateBackUp(true, true);
        GeneralMethods::ShowText(kMakingText, title);
        done(kQuitProgram);
    });
}

void winManageBU::pbCancel_Pressed() {
    Guard::run(pressed("pbCancel"), [this] { done(QDialog::Rejected); });
}

void winManageBU::pbCopyEmergency_Pressed() {
    Guard::run(pressed("pbCopyEmergency"), [] {
        const QString source = AppGlobals::appSupportFolder + '/' + ZOR::kEmergencyFolder;
        if (!QFileInfo(source).isDir()) {
            Dialogs::message("Could not find the folder EmergencyPreserveStateBU");
            return;
        }
        const QString desktop = StdFolders::desktop();
        const QFileInfo target(desktop + '/' + ZOR::kEmergencyFolder);
        if (target.exists() || target.isSymLink()) {
            Dialogs::message("EmergencyPreserveStateBU is already on the Desktop.");
            return;
        }
        QDir().mkpath(desktop);
        ItemCopy::copyInto(source, desktop);
    });
}

void winManageBU::pbRestoreBU_Pressed() {
    Guard::run(pressed("pbRestoreBU"), [this] {
        if (!ZOR::PreserveStateRestore()) return;
        ZOR::QuitSavePaletteChanges = false; // the quit must not write over the restored file
        done(kQuitProgram);
    });
}

bool winManageBU::showModal() {
    winManageBU window;
    const Dialogs::Answer answer =
        Dialogs::exec(window, {Dialogs::Kind::Window, window.windowTitle(), {}, {}, nullptr});
    return answer.button == kQuitProgram;
}
