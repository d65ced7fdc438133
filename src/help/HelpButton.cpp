#include "help/HelpButton.h"

#include "help/Help.h"
#include "util/Guard.h"

#include <QPushButton>

QPushButton* HelpButton::round(QWidget* parent, const char* name, const QRect& geometry) {
    auto* button = new QPushButton(QStringLiteral("?"), parent);
    button->setObjectName(name);
    button->setGeometry(geometry);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QStringLiteral("Help"));
    button->setStyleSheet(QStringLiteral(
        "QPushButton { border: 1px solid #A0A0A0; border-radius: %1px; color: #303030; font-weight: bold;"
        " background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #FFFFFF, stop:1 #E4E4E4); }"
        "QPushButton:pressed { background: #C8C8C8; }").arg(geometry.height() / 2));
    return button;
}

QPushButton* HelpButton::make(QWidget* window, const char* name, int helpID, const QString& owner) {
    constexpr int side = 22;
    QPushButton* button = round(window, name, {window->width() - side - 10, 10, side, side});
    QObject::connect(button, &QPushButton::clicked, button, [helpID, owner, control = QString(name)] {
        const auto where = Guard::Where::controlEvent(owner, control, "Pressed");
        Guard::run(where, [helpID] { Help::ShowHelp(helpID); });
    });
    return button;
}
