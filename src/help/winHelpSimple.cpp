#include "help/winHelpSimple.h"

#include "help/HelpFit.h"
#include "help/WindowFit.h"
#include "util/Dialogs.h"
#include "util/Guard.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>

using Guard::Where;

winHelpSimple::winHelpSimple(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Show Text Help"));
    setModal(true);
    resize(414, 446);
    setMinimumSize(200, 200);
    setMaximumSize(1500, 3000);

    taHelp = new QPlainTextEdit(this);
    taHelp->setObjectName(QStringLiteral("taHelp"));
    taHelp->setGeometry(20, 20, 374, 379);
    // Read-only rather than disabled: a disabled area greys its text and no longer scrolls.
    taHelp->setReadOnly(true);
    taHelp->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSize(14); // the font the window is measured in
    taHelp->setFont(font);
    taHelp->setStyleSheet(QStringLiteral("QPlainTextEdit { color: #000000; background: #FFFFFF; }"));

    pbDone = WindowFit::pushButton(this, "pbDone", QStringLiteral("Done"), {314, 406, 80, 20});
    pbDone->setDefault(true);

    anchors.toAllSides(taHelp);
    anchors.toLowerRight(pbDone);
    connect(pbDone, &QPushButton::clicked, this,
            [this] { pbDone_Pressed(QGuiApplication::queryKeyboardModifiers()); });
}

void winHelpSimple::PrepareAndShowWindow(const QString& helpText, const QString& title, int width, int height,
                                         int id) {
    Guard::run(Where::windowMethod("winHelpSimple", "PrepareAndShowWindow"), [&] {
        text = helpText;
        helpID = id;
        AdjustWindowSize(width, height);
        setWindowTitle(title);
        taHelp->setPlainText(text);
        Dialogs::exec(*this, {Dialogs::Kind::Help, title, text, {}, nullptr});
    });
}

void winHelpSimple::AdjustWindowSize(int width, int height) {
    Guard::run(Where::windowMethod("winHelpSimple", "AdjustWindowSize"), [&] {
        HelpFit::sizeHelpWindow(*this, width, height,
                                textHeight ? textHeight : HelpFit::systemFontHeight(text, 14));
    });
}

void winHelpSimple::pbDone_Pressed(Qt::KeyboardModifiers modifiers) {
    Guard::run(Where::controlEvent("winHelpSimple", "pbDone", "Pressed").directForm(), [&] {
        if (modifiers & Qt::AltModifier) HelpFit::writeWindowSizeInfo(*this); // Option on the Mac
        done(QDialog::Accepted);
    });
}

void winHelpSimple::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
