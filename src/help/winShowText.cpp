#include "help/winShowText.h"

#include "help/WindowFit.h"
#include "util/AppGlobals.h"
#include "util/Guard.h"

#include <QPlainTextEdit>
#include <QPushButton>

winShowText::winShowText(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Button Information"));
    setModal(true);
    resize(400, 250);
    setMinimumSize(400, 250);
    setMaximumSize(600, 600);

    taShow = new QPlainTextEdit(this);
    taShow->setObjectName(QStringLiteral("taShow"));
    taShow->setGeometry(20, 20, 360, 175);
    // Read-only but not disabled: a disabled area greys its text and no longer scrolls.
    taShow->setReadOnly(true);
    taShow->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    taShow->setStyleSheet(QStringLiteral("QPlainTextEdit { color: #000000; background: #FFFFFF; }"));

    pbOK = WindowFit::pushButton(this, "pbOK", QStringLiteral("OK"), {300, 210, 80, 20});
    pbOK->setDefault(true);

    anchors.toAllSides(taShow);
    anchors.toLowerRight(pbOK);
    connect(pbOK, &QPushButton::clicked, this, [this] { pbOK_Pressed(); });

    taShow_Opening();
    Event_Opening();
}

void winShowText::Event_Opening() {
    Guard::run(Guard::Where::windowEvent("winShowText", "Opening"), [&] {
        // Callers that set no title keep the window's own.
        if (!AppGlobals::sGlobalWindowTitle.isEmpty()) setWindowTitle(AppGlobals::sGlobalWindowTitle);
    });
}

void winShowText::taShow_Opening() {
    Guard::run(Guard::Where::controlEvent("winShowText", "taShow", "Opening").directForm(),
               [&] { taShow->setPlainText(AppGlobals::sGlobalMessage); });
}

void winShowText::pbOK_Pressed() {
    Guard::run(Guard::Where::controlEvent("winShowText", "pbOK", "Pressed").directForm(),
               [&] { done(QDialog::Accepted); });
}

void winShowText::AdjustWindowSize() {
    Guard::run(Guard::Where::windowMethod("winShowText", "AdjustWindowSize"), [&] {
        WindowFit::AdjustWindowSize(
            *this, textHeight ? textHeight : WindowFit::helveticaHeight(taShow->toPlainText(), 14));
    });
}

void winShowText::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
