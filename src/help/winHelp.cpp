#include "help/winHelp.h"

#include "help/HelpFit.h"
#include "help/WindowFit.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/RtrnString.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QTextBrowser>

using Guard::Where;

winHelp::winHelp(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Show HTML Help"));
    setModal(true);
    resize(414, 446);
    setMinimumSize(200, 200);
    setMaximumSize(1500, 3000);

    HV_Help = new QTextBrowser(this);
    HV_Help->setObjectName(QStringLiteral("HV_Help"));
    HV_Help->setGeometry(20, 20, 374, 379);
    HV_Help->setOpenExternalLinks(true);
    HV_Help->setFont(QFont(QStringLiteral("Helvetica"), 14)); // the font the window is measured in
    // Fixed colours: help reads the same in the dark appearance.
    HV_Help->setStyleSheet(QStringLiteral("QTextBrowser { color: #000000; background: #FFFFFF; }"));

    pbDone = WindowFit::pushButton(this, "pbDone", QStringLiteral("Done"), {314, 406, 80, 20});
    pbDone->setDefault(true);

    anchors.toAllSides(HV_Help);
    anchors.toLowerRight(pbDone);
    connect(pbDone, &QPushButton::clicked, this,
            [this] { pbDone_Pressed(QGuiApplication::queryKeyboardModifiers()); });
}

void winHelp::PrepareAndShowWindow(const QString& htmlText, const QString& title, int width, int height,
                                   int id) {
    Guard::run(Where::windowMethod("winHelp", "PrepareAndShowWindow").directForm(), [&] {
        html = htmlText;
        helpID = id;
        rawText = RawTextFromHTML(html);
        AdjustWindowSize(rawText, width, height);
        setWindowTitle(title);
        HV_Help->setHtml(html);
        Dialogs::exec(*this, {Dialogs::Kind::Help, title, html, html, nullptr});
    });
}

QString winHelp::RawTextFromHTML(const QString& htmlText) {
    return Guard::run(Where::windowMethod("winHelp", "RawTextFromHTML").directForm(),
                      [&] { return RtrnString::rsRawTextFromHTML(htmlText); });
}

void winHelp::AdjustWindowSize(const QString& text, int width, int height) {
    Guard::run(Where::windowMethod("winHelp", "AdjustWindowSize").directForm(), [&] {
        HelpFit::sizeHelpWindow(*this, width, height,
                                textHeight ? textHeight : WindowFit::helveticaHeight(text, 14));
    });
}

void winHelp::pbDone_Pressed(Qt::KeyboardModifiers modifiers) {
    Guard::run(Where::controlEvent("winHelp", "pbDone", "Pressed").directForm(), [&] {
        if (modifiers & Qt::AltModifier) HelpFit::writeWindowSizeInfo(*this); // Option on the Mac
        done(QDialog::Accepted);
    });
}

void winHelp::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
