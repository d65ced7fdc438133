#include "help/winAboutBox.h"

#include "help/MessageCanvas.h"
#include "help/StaticURL.h"
#include "help/WindowFit.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/Sharp.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QVersionNumber>

// Kept equal to NSHumanReadableCopyright of the bundle's Info.plist.
const QString winAboutBox::kCopyright = QStringLiteral("Copyright © 2023-2026 Lunvale");
const QString winAboutBox::kHomePage = QStringLiteral("https://lunvale.net/zor-palette");

namespace {
const QString kWindow = QStringLiteral("winAboutBox");
const QString kPicture64 = QStringLiteral(":/about/AppIcon64.png");
const QString kPicture128 = QStringLiteral(":/about/AppIcon128.png"); // the same at 2x

const QString kCredits = QStringLiteral(
    "ZOR_Palette is free to use and free to pass on to others, as long as it is passed on whole "
    "and unchanged. It comes with no warranty of any kind: you use it at your own risk.\n\n"
    "Comments, ideas and bug reports are welcome at zor-palette@lunvale.net.\n\n"
    "Made with C++20, Qt 6 and CMake.\n\n"
    "Keyboard Maestro is a product of Stairways Software. AppleScript and Shortcuts are parts of "
    "Apple's macOS.");

// The Mac's system fonts, 13 and 11 points, which the Mac draws as that many pixels. Sized in
// pixels, so that the fixed layout also holds on screens where a point is more than a pixel.
QFont systemFont(const QFont& base, int pixels) {
    QFont font = base;
    font.setPixelSize(pixels);
    return font;
}
QFont smallFont(const QFont& base) {
    return systemFont(base, 11);
}

QLabel* centredLabel(QWidget* parent, const char* name, QRect where) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(where);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setTextFormat(Qt::PlainText);
    label->setFont(smallFont(label->font()));
    return label;
}
} // namespace

winAboutBox::winAboutBox(QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
    setObjectName(kWindow);
    setWindowTitle(QString());
    setModal(true);
    setFixedSize(320, 400);

    Icon64 = new MessageCanvas(this);
    Icon64->setObjectName(QStringLiteral("Icon64"));
    Icon64->setGeometry(128, 8, 64, 64);
    Icon64->onPaint = [this](QPainter& g) { Icon64_Paint(g); };

    pbDone = WindowFit::pushButton(this, "pbDone", QStringLiteral("Done"), {270, 8, 40, 17});
    pbDone->setFont(smallFont(pbDone->font()));
    pbDone->setDefault(true);
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });

    labName = new QLabel(QStringLiteral("ZOR_Palette"), this);
    labName->setObjectName(QStringLiteral("labName"));
    labName->setGeometry(20, 84, 280, 19);
    labName->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QFont bold = systemFont(labName->font(), 13);
    bold.setBold(true);
    labName->setFont(bold);

    labVersion = centredLabel(this, "labVersion", {20, 115, 280, 30});
    labDescription = centredLabel(this, "labDescription", {24, 150, 280, 39});
    labDescription->setWordWrap(true);

    taCredits = new QPlainTextEdit(this);
    taCredits->setObjectName(QStringLiteral("taCredits"));
    taCredits->setGeometry(20, 200, 280, 96);
    // Read-only rather than disabled: a disabled area greys its text and no longer scrolls.
    taCredits->setReadOnly(true);
    taCredits->setFont(smallFont(taCredits->font()));
    taCredits->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    taCredits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    labReleaseDate = centredLabel(this, "labReleaseDate", {20, 310, 280, 20});
    labCopyright = centredLabel(this, "labCopyright", {20, 340, 280, 14});

    suHomePage = new StaticURL(this);
    suHomePage->setObjectName(QStringLiteral("suHomePage"));
    suHomePage->setGeometry(24, 363, 267, 17);
    suHomePage->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    suHomePage->onOpening = [this] { suHomePage_Opening(); };

    labVersion_Opening();
    labDescription_Opening();
    taCredits_Opening();
    labReleaseDate_Opening();
    labCopyright_Opening();
    suHomePage->Opening();

    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame(QPoint(), size());
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }
}

void winAboutBox::Icon64_Paint(QPainter& g) {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("Icon64"), QStringLiteral("Paint")),
               [&] { g.drawPixmap(Icon64->rect().topLeft(), Sharp::pixmap(kPicture128, Icon64->size())); });
}

void winAboutBox::pbDone_Pressed() {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("pbDone"), QStringLiteral("Pressed")),
               [&] { done(QDialog::Accepted); });
}

void winAboutBox::labVersion_Opening() {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("labVersion"), QStringLiteral("Opening")),
               [&] {
                   labVersion->setText(versionText(QCoreApplication::applicationVersion(),
                                                   qApp->property("versionString").toString()));
               });
}

void winAboutBox::labDescription_Opening() {
    Guard::run(
        Guard::Where::controlEvent(kWindow, QStringLiteral("labDescription"), QStringLiteral("Opening")),
        [&] {
            labDescription->setText(descriptionText(qApp->property("applicationDescription").toString()));
        });
}

void winAboutBox::taCredits_Opening() {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("taCredits"), QStringLiteral("Opening")),
               [&] { taCredits->setPlainText(kCredits); });
}

void winAboutBox::labReleaseDate_Opening() {
    Guard::run(
        Guard::Where::controlEvent(kWindow, QStringLiteral("labReleaseDate"), QStringLiteral("Opening")),
        [&] { labReleaseDate->setText(releaseDateText(buildDate())); });
}

void winAboutBox::labCopyright_Opening() {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("labCopyright"), QStringLiteral("Opening")),
               [&] { labCopyright->setText(kCopyright); });
}

void winAboutBox::suHomePage_Opening() {
    Guard::run(Guard::Where::controlEvent(kWindow, QStringLiteral("suHomePage"), QStringLiteral("Opening")),
               [&] {
                   suHomePage->setText(QStringLiteral("ZOR_Palette Site"));
                   suHomePage->setURL(kHomePage);
               });
}

QString winAboutBox::versionText(const QString& applicationVersion, const QString& versionString) {
    const QVersionNumber version = QVersionNumber::fromString(applicationVersion);
    QString text = QStringLiteral("Version %1.%2").arg(version.majorVersion()).arg(version.minorVersion());
    if (!versionString.isEmpty()) text += ' ' + versionString;
    return text;
}

QString winAboutBox::descriptionText(const QString& description) {
    if (!description.isEmpty()) return description;
    return QStringLiteral("Palette Button Launcher for AppleScript, Shortcuts, and Keyboard Maestro");
}

QString winAboutBox::releaseDateText(const QDate& built, const QLocale& locale) {
    // The locale's long date without its weekday: "March 5, 2026", "5. März 2026".
    QString format = locale.dateFormat(QLocale::LongFormat);
    static const QRegularExpression weekday(QStringLiteral("[,\\s]*(?<!d)d{3,4}(?!d)[,\\s]*"));
    format = format.replace(weekday, QStringLiteral(" ")).trimmed();
    return QStringLiteral("Release Date: ") + locale.toString(built, format);
}

QDate winAboutBox::compilerDate(const char* stamp) {
    // English month names whatever the locale; the day is padded with a blank ("Mar  5 2026").
    return QDate::fromString(QString::fromLatin1(stamp).simplified(), QStringLiteral("MMM d yyyy"));
}

QDate winAboutBox::buildDate() {
    return compilerDate(__DATE__);
}

QIcon applicationIcon() {
    QIcon icon;
    icon.addFile(kPicture64, QSize(64, 64));
    icon.addFile(kPicture128, QSize(128, 128));
    return icon;
}

void showAboutBox() {
    winAboutBox window;
    Dialogs::exec(window, {Dialogs::Kind::Window, QStringLiteral("About ZOR_Palette"), {}, {}, nullptr});
}
